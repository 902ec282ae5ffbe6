#include "k4cmndlg/search/FindCommand.h"
#include "tests/search/FindPagesFixture.h"

namespace k4test {
namespace {

using k4cmn::kFindCommand;
using testing::ElementsAre;
using testing::IsEmpty;

/// The Enter key in the pages.
class FindEnter : public FindPages {
 protected:
    /// The controls of the page in front that keys go to.
    std::vector<QWidget*> Stops() const {
        std::vector<QWidget*> stops;
        for (QWidget* control : sheet.GetActivePage()->findChildren<QWidget*>()) {
            if ((control->focusPolicy() & Qt::TabFocus) && control->isVisibleTo(&sheet) &&
                !control->focusProxy())
                stops.push_back(control);
        }
        return stops;
    }
};

TEST_F(FindEnter, GivesOneCommandInEachControlOfEachPage) {
    MakeFolder("C:\\");
    Open(kName);
    int tried = 0;
    for (const int page : {kName, kSign, kSize}) {
        ASSERT_EQ(sheet.SetActivePage(page), 1);
        for (QWidget* control : Stops()) {
            if (control->property("controlId").toInt() == kBrowse)
                continue;
            control->setEnabled(true);
            control->setFocus();
            for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
                sheet.commands.clear();
                QTest::keyClick(control, key);
                EXPECT_THAT(sheet.commands, ElementsAre(kFindCommand))
                    << control->objectName().toStdString();
            }
            ++tried;
        }
    }
    EXPECT_GE(tried, 20);
}

TEST_F(FindEnter, GivesOneCommandInThePageItself) {
    Open(kSign);
    QTest::keyClick(&sheet.sign, Qt::Key_Return);
    EXPECT_THAT(sheet.commands, ElementsAre(kFindCommand));
}

TEST_F(FindEnter, GivesOneCommandAPress) {
    Open(kName);
    for (int press = 0; press < 3; ++press)
        QTest::keyClick(Of<QWidget>(kKeywords), Qt::Key_Return);
    QTest::keyClick(Of<QWidget>(kFileName), Qt::Key_Return);
    QTest::keyClick(&sheet.name, Qt::Key_Return);
    EXPECT_EQ(sheet.commands.size(), 5U);
    QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
    QCoreApplication::sendEvent(Of<QWidget>(kKeywords), &repeat);
    EXPECT_EQ(sheet.commands.size(), 5U) << "a key that is held went down once";
}

TEST_F(FindEnter, OtherKeysGiveNone) {
    Open(kSign);
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Tab, Qt::Key_A, Qt::Key_F5})
        QTest::keyClick(Of<QWidget>(kEnable), key);
    QTest::keyClick(Of<QWidget>(kEnable), Qt::Key_Return, Qt::AltModifier);
    EXPECT_THAT(sheet.commands, IsEmpty());
}

TEST_F(FindEnter, TheSheetSeesTheControlsAsTheyStandBeforeTheKeyDoesAnything) {
    Open(kSign);
    Click(sheet, kEnable);
    Type(kRows, "9");
    std::string rows;
    sheet.onCommand = [&] { rows = Text(kRows); };
    PressKey(sheet, Qt::Key_Return);
    EXPECT_EQ(rows, "9");
    EXPECT_EQ(FocusedId(sheet), kRows);
}

TEST_F(FindEnter, TheKeyThenDoesWhatItDoesAnyway) {
    Open(kName);
    int pressed = 0;
    QObject::connect(Of<QLineEdit>(kKeywords), &QLineEdit::returnPressed, &sheet, [&] {
        EXPECT_EQ(sheet.commands.size(), 1U);
        ++pressed;
    });
    QTest::keyClick(Of<QWidget>(kKeywords), Qt::Key_Return);
    EXPECT_EQ(pressed, 1);
    EXPECT_TRUE(sheet.isVisible());

    InDialog<CDialog>(
        [&] {
            Of<QWidget>(kBrowse)->setFocus();
            QTest::keyClick(Of<QWidget>(kBrowse), Qt::Key_Return);
        },
        [&](CDialog& tree) {
            EXPECT_EQ(sheet.commands.size(), 2U);
            EXPECT_EQ(tree.windowTitle().toStdString(), "Select Directory To Search");
            QTest::keyClick(&tree, Qt::Key_Escape);
        });
    EXPECT_EQ(sheet.commands.size(), 2U);
}

TEST_F(FindEnter, NoButtonOfAPageIsPressedFromAnotherControl) {
    Open(kName);
    int opened = 0;
    Of<QPushButton>(kBrowse)->disconnect(&sheet.name);
    QObject::connect(Of<QPushButton>(kBrowse), &QPushButton::clicked, &sheet, [&] { ++opened; });
    for (const int control : {kKeywords, kAnd, kFileName, kFileType, kSearchPath}) {
        Of<QWidget>(control)->setFocus();
        QTest::keyClick(Of<QWidget>(control), Qt::Key_Return);
    }
    EXPECT_EQ(opened, 0);
}

TEST_F(FindEnter, InAListThatHasDroppedDownTheKeyChoosesFirst) {
    Open(kName);
    Type(kFileName, "old");
    auto* types = Of<QComboBox>(kFileType);
    types->setFocus();
    types->showPopup();
    ASSERT_TRUE(QTest::qWaitFor([&] { return types->view()->isVisible(); }));
    int atCommand = -2;
    std::string nameAtCommand;
    sheet.onCommand = [&] {
        atCommand = types->currentIndex();
        nameAtCommand = Text(kFileName);
        EXPECT_FALSE(types->view()->isVisible());
    };
    QTest::keyClick(types->view(), Qt::Key_Down);
    QTest::keyClick(types->view(), Qt::Key_Down);
    QTest::keyClick(types->view(), Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !sheet.commands.empty(); }));
    QCoreApplication::processEvents();
    EXPECT_THAT(sheet.commands, ElementsAre(kFindCommand));
    EXPECT_EQ(atCommand, 2);
    EXPECT_EQ(nameAtCommand, "");
}

TEST_F(FindEnter, ASheetThatGoesByTheCommandTakesTheKeyWithIt) {
    auto* going = new FindSheet;
    QPointer<FindSheet> left(going);
    ASSERT_EQ(going->Create(), 1);
    going->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(going));
    going->onCommand = [&] { delete left.data(); };
    auto* keywords = Item<QWidget>(*going, kKeywords);
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(keywords, &press);
    EXPECT_TRUE(left.isNull());
}

TEST_F(FindEnter, APageWithoutASheetTakesTheKeyInSilence) {
    CK4CmnDlgFindSign alone;
    QTest::keyClick(Item<QWidget>(alone, kEnable), Qt::Key_Return);
    EXPECT_THAT(sheet.commands, IsEmpty());
}

}  // namespace
}  // namespace k4test
