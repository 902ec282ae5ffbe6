#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>

#include "k4cmndlg/filesel/properties/CharacterLimit.h"

namespace {

const QString kEmoji = QString::fromUcs4(U"\U0001F600");

template <class Edit>
QString TextOf(const Edit& edit);
template <>
QString TextOf(const QLineEdit& edit) {
    return edit.text();
}
template <>
QString TextOf(const QPlainTextEdit& edit) {
    return edit.toPlainText();
}

void SetText(QLineEdit& edit, const QString& text) {
    edit.setText(text);
}
void SetText(QPlainTextEdit& edit, const QString& text) {
    edit.setPlainText(text);
}

void SetCursor(QLineEdit& edit, int place) {
    edit.setCursorPosition(place);
}
void SetCursor(QPlainTextEdit& edit, int place) {
    QTextCursor cursor = edit.textCursor();
    cursor.setPosition(place);
    edit.setTextCursor(cursor);
}

template <class Edit>
class CharacterLimit : public testing::Test {
 protected:
    CharacterLimit() { k4cmn::LimitCharacters(&edit, 5); }
    void Paste(const QString& text) {
        QApplication::clipboard()->setText(text);
        edit.paste();
    }
    QString Text() const { return TextOf(edit); }

    Edit edit;
};

using Edits = testing::Types<QLineEdit, QPlainTextEdit>;
TYPED_TEST_SUITE(CharacterLimit, Edits);

}  // namespace

TYPED_TEST(CharacterLimit, TakesAsManyAsItSays) {
    QTest::keyClicks(&this->edit, QStringLiteral("abcde"));
    EXPECT_EQ(this->Text(), QStringLiteral("abcde"));
    QTest::keyClicks(&this->edit, QStringLiteral("fg"));
    EXPECT_EQ(this->Text(), QStringLiteral("abcde"));
}

TYPED_TEST(CharacterLimit, LeavesOutWhatIsTypedInTheMiddle) {
    SetText(this->edit, QStringLiteral("abcde"));
    SetCursor(this->edit, 2);
    QTest::keyClicks(&this->edit, QStringLiteral("x"));
    EXPECT_EQ(this->Text(), QStringLiteral("abcde"));
}

TYPED_TEST(CharacterLimit, CutsWhatIsPasted) {
    SetText(this->edit, QStringLiteral("abc"));
    SetCursor(this->edit, 1);
    this->Paste(QStringLiteral("123456"));
    EXPECT_EQ(this->Text(), QStringLiteral("a12bc"));
}

TYPED_TEST(CharacterLimit, CountsACharacterOfTwoUnitsOnce) {
    this->Paste(kEmoji.repeated(5));
    EXPECT_EQ(this->Text(), kEmoji.repeated(5));
    this->Paste(kEmoji);
    EXPECT_EQ(this->Text(), kEmoji.repeated(5));
    SetText(this->edit, QString());
    this->Paste(QStringLiteral("ab") + kEmoji.repeated(9));
    EXPECT_EQ(this->Text(), QStringLiteral("ab") + kEmoji.repeated(3)) << "none in pieces";
}

TYPED_TEST(CharacterLimit, CutsATextThatTheProgramSets) {
    SetText(this->edit, QStringLiteral("abcdefgh"));
    EXPECT_EQ(this->Text(), QStringLiteral("abcde"));
}

TYPED_TEST(CharacterLimit, CutsAHugePasteAtOnce) {
    this->Paste(QString(1000000, QLatin1Char('x')));
    EXPECT_EQ(this->Text(), QStringLiteral("xxxxx"));
}

TYPED_TEST(CharacterLimit, HoldsWhatIsUndoneAndDoneAgain) {
    QTest::keyClicks(&this->edit, QStringLiteral("abc"));
    this->Paste(QStringLiteral("123456"));
    EXPECT_EQ(this->Text(), QStringLiteral("abc12"));
    for (int step = 0; step < 10; ++step) {
        this->edit.undo();
        EXPECT_LE(this->Text().size(), 5);
    }
    for (int step = 0; step < 10; ++step) {
        this->edit.redo();
        EXPECT_LE(this->Text().size(), 5);
    }
}

TEST(CharacterLimitOfLines, CountsALineBreakAsACharacter) {
    QPlainTextEdit edit;
    k4cmn::LimitCharacters(&edit, 5);
    QTest::keyClicks(&edit, QStringLiteral("ab"));
    QTest::keyClick(&edit, Qt::Key_Return);
    QTest::keyClicks(&edit, QStringLiteral("cde"));
    EXPECT_EQ(edit.toPlainText(), QStringLiteral("ab\ncd"));
}

TEST(CharacterLimitOfLines, WhatWasCutIsUndoneInOneStep) {
    QPlainTextEdit edit;
    k4cmn::LimitCharacters(&edit, 5);
    QTest::keyClicks(&edit, QStringLiteral("abc"));
    QApplication::clipboard()->setText(QStringLiteral("123456"));
    edit.paste();
    edit.undo();
    EXPECT_EQ(edit.toPlainText(), QStringLiteral("abc"));
}
