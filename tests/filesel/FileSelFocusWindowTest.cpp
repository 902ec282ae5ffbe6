#include <QSignalSpy>

#include "tests/filesel/FileSelWindowFixture.h"

namespace k4test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

/// Keys and the focus in the window: what they act on, and how often the list is filled.
class FileSelFocusWindow : public FileSelWindow {
 protected:
    /// Clicks as a person does: the focus moves first.
    void ClickInWindow(const QWidget& pane, const QPoint& place) {
        QTest::mouseClick(dialog->windowHandle(), Qt::LeftButton, {},
                          pane.mapTo(dialog.get(), place));
        Settle();
    }
    /// Sets more characters than the field takes, as only a program can.
    void SetLongName() {
        auto* const field = The<QLineEdit>(kFileName);
        field->setMaxLength(100);
        field->setText(QString(33, QLatin1Char('x')));
    }
};

TEST_F(FileSelFocusWindow, AClickIntoTheTreeFillsTheListOnce) {
    ShowAt(At("b"));
    const QModelIndex other = ItemAt({"A:", kType, "Other"});
    List().setFocus();
    Settle();
    const QSignalSpy resets(Rows().model(), &QAbstractItemModel::modelReset);
    ClickInWindow(*Tree().viewport(), Tree().visualRect(other).center());
    EXPECT_TRUE(Tree().hasFocus());
    EXPECT_THAT(RowNames(), ElementsAre("o"));
    EXPECT_EQ(resets.count(), 2) << "emptied and filled";
}

TEST_F(FileSelFocusWindow, AClickOnTheSelectedItemFillsTheListAnew) {
    ShowAt(At("b"));
    List().setFocus();
    MakeFile(Lib() + "d.SQ4");
    ClickInWindow(*Tree().viewport(), Tree().visualRect(ItemAt({"A:", kType, "Default"})).center());
    EXPECT_THAT(RowNames(), ElementsAre("a", "b", "c", "d"));
    EXPECT_THAT(SelectedNames(), ElementsAre("b"));
}

TEST_F(FileSelFocusWindow, AMenuOpensOverAListThatIsFilledAlready) {
    ShowAt(At("a"));
    List().setFocus();
    std::filesystem::remove(Native(Lib() + "a.SQ4"));
    const QPoint place = Tree().visualRect(ItemAt({"A:", kType, "Default"})).center();
    QTest::mouseClick(dialog->windowHandle(), Qt::RightButton, {},
                      Tree().viewport()->mapTo(dialog.get(), place));
    QMenu* const menu = OpenMenu();
    ASSERT_NE(menu, nullptr);
    EXPECT_THAT(EnabledOf(*menu), Not(Contains("&Delete"))) << "the row has gone";
    menu->close();
    EXPECT_THAT(RowNames(), ElementsAre("b", "c"));
}

TEST_F(FileSelFocusWindow, AMenuThatClosesDoesntFillTheListAnew) {
    ShowAt(At("b"));
    Tree().setFocus();
    Settle();
    MakeFile(Lib() + "d.SQ4");
    for (const auto type : {QEvent::FocusOut, QEvent::FocusIn}) {
        QFocusEvent event(type, Qt::PopupFocusReason);
        QApplication::sendEvent(&Tree(), &event);
    }
    Settle();
    EXPECT_THAT(RowNames(), ElementsAre("a", "b", "c"));
}

TEST_F(FileSelFocusWindow, KeysActOnWhatIsSelectedNow) {
    ShowAt(At("a"));
    KeyInList(Qt::Key_C, Qt::ControlModifier);
    SetLongName();
    messages.Expect("Enter no more than 32 characters.");
    ClickItem({"A:", kOtherType, "Default"});
    EXPECT_EQ(messages.Pending(), 0U);
    EXPECT_THAT(RowNames(), IsEmpty());
    // Grey in the menu, for another sign type.
    messages.Expect("Enter no more than 32 characters.");
    KeyInTree(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(messages.Pending(), 0U);
    EXPECT_FALSE(Exists("A:\\" + std::string(kOtherType) + ".Sign\\Default.Lib\\a.SQ4"));
}

TEST_F(FileSelFocusWindow, TheKeyOfThePropertiesTakesTheRowAsTheMenuDoes) {
    for (const char* name : {"a", "b"})
        MakeSequence(Lib() + name + ".SQ4");
    ShowAt(At());
    ClickRow("b");
    Type("typed");
    messages.Expect(Question(NotFound(Lib() + "typed.SQ4"), k4cmn::MessageButtons::YesNoCancel),
                    k4cmn::MessageAnswer::No);
    Press(IDOK);
    ASSERT_THAT(SelectedNames(), ElementsAre("b"));
    KeyInList(Qt::Key_Return, Qt::AltModifier);
    ASSERT_NE(Sheet(), nullptr);
    EXPECT_EQ(Sheet()->GetCurFilePath(), Lib() + "b.SQ4");
    EXPECT_EQ(Text(kFileName), "b");
}

TEST_F(FileSelFocusWindow, EnterOnTheButtonUpGoesUp) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        ShowAt(At("b"));
        The<QWidget>(kUp)->setFocus(Qt::TabFocusReason);
        QTest::keyClick(dialog->windowHandle(), key);
        Settle();
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_EQ(Text(kPath), Sign(kType));
        dialog->DestroyWindow();
    }
}

TEST_F(FileSelFocusWindow, EnterAndEscapeInAnOpenComboBoxAreItsOwn) {
    ShowAt(At("b"));
    auto* const combo = The<QComboBox>(kLastModified);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        combo->setFocus();
        combo->showPopup();
        Settle();
        QTest::keyClick(combo->view(), Qt::Key_Up);
        QTest::keyClick(combo->view(), key);
        Settle();
        EXPECT_FALSE(combo->view()->isVisible());
        EXPECT_TRUE(dialog->isVisible());
    }
    EXPECT_EQ(combo->currentText(), QStringLiteral("this month")) << "Escape takes nothing";
}

TEST_F(FileSelFocusWindow, EnterInAComboBoxIsOkAndEscapeCancel) {
    for (const int combo : {kFileTypes, kLastModified}) {
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
            ShowAt(At("b"));
            The<QWidget>(combo)->setFocus();
            QTest::keyClick(dialog->windowHandle(), key);
            Settle();
            EXPECT_FALSE(dialog->isVisible());
            EXPECT_EQ(dialog->GetSelectedFiles().size(), key == Qt::Key_Return ? 1U : 0U);
        }
    }
}

// Two of them ------------------------------------------------------------------------------------

TEST_F(FileSelFocusWindow, TwoStandOverOneLibrary) {
    ShowAt(At("a"));
    CK4CmnDlgFileSel second(0, nullptr, dialog.get());
    ASSERT_EQ(second.Create(), 1);
    second.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&second));
    Settle();
    auto& list = *static_cast<k4cmn::FileListWidget*>(Item<QWidget>(second, kList));
    EXPECT_EQ(list.SelectedRows().size(), 1U);
    // The second one's F2 is its own, and the first one's rows are as they were until it looks.
    list.setFocus();
    QTest::keyClick(second.windowHandle(), Qt::Key_F2);
    Settle();
    EXPECT_EQ(LabelEditor(), nullptr);
    auto* const editor = list.findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    editor->setText(QStringLiteral("renamed"));
    QTest::keyClick(editor, Qt::Key_Return);
    Settle();
    EXPECT_TRUE(Exists(Lib() + "renamed.SQ4"));
    EXPECT_THAT(RowNames(), ElementsAre("a", "b", "c"));
    second.DestroyWindow();
    // What is gone meanwhile is told, and never another file taken for it.
    dialog->activateWindow();
    KeyInList(Qt::Key_F2);
    ASSERT_NE(LabelEditor(), nullptr);
    LabelEditor()->setText(QStringLiteral("late"));
    messages.Expect("Rename failed");
    QTest::keyClick(LabelEditor(), Qt::Key_Return);
    Settle();
    EXPECT_EQ(messages.Pending(), 0U);
    EXPECT_THAT(RowNames(), ElementsAre("b", "c", "renamed"));
}

}  // namespace
}  // namespace k4test
