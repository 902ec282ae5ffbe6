#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>

#include "k4cmndlg/filesel/LimitedTextEdit.h"

namespace {

using k4cmn::LimitedTextEdit;

/// A field that takes ten characters.
class NotesField : public testing::Test {
 protected:
    void SetUp() override {
        field.SetMaxLength(10);
        window.show();
        field.setFocus();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    void TypeKeys(const char* text) { QTest::keyClicks(&field, QString::fromUtf8(text)); }
    void Paste(const char* text) {
        QApplication::clipboard()->setText(QString::fromUtf8(text));
        field.paste();
    }
    void MoveTo(int position) {
        QTextCursor cursor = field.textCursor();
        cursor.setPosition(position);
        field.setTextCursor(cursor);
    }

    QWidget window;
    LimitedTextEdit field{&window};
    QLineEdit other{&window};
};

TEST_F(NotesField, TakesSoManyCharactersAndNoMore) {
    TypeKeys("0123456789");
    EXPECT_EQ(field.Text(), "0123456789");
    TypeKeys("xyz");
    EXPECT_EQ(field.Text(), "0123456789");
    EXPECT_EQ(field.textCursor().position(), 10);
}

TEST_F(NotesField, IsFullInTheMiddleToo) {
    TypeKeys("0123456789");
    MoveTo(3);
    TypeKeys("x");
    EXPECT_EQ(field.Text(), "0123456789");
    EXPECT_EQ(field.textCursor().position(), 3);
}

TEST_F(NotesField, CountsTheEndsOfLines) {
    TypeKeys("01234");
    QTest::keyClick(&field, Qt::Key_Return);
    TypeKeys("6789xyz");
    EXPECT_EQ(field.Text(), "01234\n6789");
}

TEST_F(NotesField, TakesOfAPasteWhatFits) {
    TypeKeys("01234567");
    MoveTo(2);
    Paste("ABCDEF");
    EXPECT_EQ(field.Text(), "01AB234567");
    field.selectAll();
    Paste("one\ntwo\nthree\nfour");
    EXPECT_EQ(field.Text(), "one\ntwo\nth");
}

TEST_F(NotesField, PastesNoHalfOfACharacter) {
    TypeKeys("012345678");
    Paste("\U0001F600");
    EXPECT_EQ(field.Text(), "012345678");
}

TEST_F(NotesField, UndoTakesTheWholeOfWhatWasAddedBack) {
    TypeKeys("012345");
    Paste("ABCDEFGH");
    EXPECT_EQ(field.Text(), "012345ABCD");
    field.undo();
    EXPECT_EQ(field.Text(), "012345");
    field.redo();
    EXPECT_EQ(field.Text(), "012345ABCD");
}

TEST_F(NotesField, ShowsALongerTextAndLetsItOnlyBecomeShorter) {
    field.SetText("0123456789abcdef");
    EXPECT_EQ(field.Text(), "0123456789abcdef");
    MoveTo(16);
    TypeKeys("x");
    EXPECT_EQ(field.Text(), "0123456789abcdef");
    QTest::keyClick(&field, Qt::Key_Backspace);
    EXPECT_EQ(field.Text(), "0123456789abcde");
    TypeKeys("xy");
    EXPECT_EQ(field.Text(), "0123456789abcde");
}

TEST_F(NotesField, KeepsEveryCharacterOfAText) {
    for (const char* text : {"10\u00a0km", "a\tb  c", " \n\n ", "\u200b\u3000\ufeff"}) {
        field.SetText(text);
        EXPECT_EQ(field.Text(), text);
    }
}

TEST_F(NotesField, TheTabKeyLeavesIt) {
    QTest::keyClick(&field, Qt::Key_Tab);
    EXPECT_EQ(field.Text(), "");
    EXPECT_TRUE(other.hasFocus());
}

TEST_F(NotesField, HasRoomForItsLinesWithoutAScrollBar) {
    field.SetText("one\ntwo\nthree");
    field.resize(field.sizeHint());
    QCoreApplication::processEvents();
    EXPECT_FALSE(field.verticalScrollBar()->isVisible());
    field.SetText("one\ntwo");
    field.resize(field.minimumSizeHint());
    QCoreApplication::processEvents();
    EXPECT_FALSE(field.verticalScrollBar()->isVisible());
}

}  // namespace
