#include <QHeaderView>

#include "tests/filesel/FileSelWindowFixture.h"

namespace k4test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FileSelListWindow : public FileSelWindow {
 protected:
    static constexpr std::int64_t kDay = 86400;

    void ClickHeading(int column) {
        auto* const header = Rows().findChild<QHeaderView*>();
        const QPoint place(header->sectionViewportPosition(column) + 8, header->height() / 2);
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, place);
        Settle();
    }
    /// Types a new label over the one that is being edited.
    void TypeLabel(const char* text, Qt::Key end = Qt::Key_Return) {
        QLineEdit* const editor = LabelEditor();
        ASSERT_NE(editor, nullptr);
        editor->selectAll();
        QTest::keyClicks(editor, QString::fromUtf8(text));
        QTest::keyClick(editor, end);
        Settle();
    }
};

// Columns and types ------------------------------------------------------------------------------

TEST_F(FileSelListWindow, ShowsWhatTheFileSystemTells) {
    MakeFile(Lib() + "big.SQ4", std::string(5000, 'x'), kNow);
    ShowAt(At("big"));
    ASSERT_EQ(Rows().model()->columnCount(), 4);
    EXPECT_EQ(Cell(2, 0), "big");
    EXPECT_EQ(Cell(2, 1), "    4 KB");
    EXPECT_EQ(Cell(2, 2), "K4400 Seq");
    EXPECT_EQ(Cell(2, 3), "07/31/26 02:05 PM");
}

TEST_F(FileSelListWindow, AnotherTypeShowsItsFilesAtTheSamePlace) {
    MakeFile(Lib() + "plan.SD4");
    MakeFile("A:\\script.SC4");
    MakeFolder(Sign(kPaletteType) + "Default.Lib");
    MakeFile(Sign(kPaletteType) + "Default.Lib\\p.SP4");
    ShowAt(At("b"));
    Choose(kFileTypes, "Schedules");
    EXPECT_THAT(RowNames(), ElementsAre("plan"));
    EXPECT_EQ(Cell(0, 2), "K4400 Sched");
    EXPECT_EQ(SelectedItem(), "Default");
    Choose(kFileTypes, "Scripts");
    EXPECT_EQ(SelectedItem(), "A:");
    EXPECT_THAT(RowNames(), ElementsAre("script"));
    Choose(kFileTypes, "Palette files");
    EXPECT_THAT(RowNames(), IsEmpty());
    ClickItem({"A:", kPaletteType, "Default"});
    EXPECT_THAT(RowNames(), ElementsAre("p"));
    EXPECT_FALSE(Below(ItemAt({"A:"}), kType).isValid());
    Choose(kFileTypes, "Sequences");
    EXPECT_TRUE(Below(ItemAt({"A:"}), kType).isValid());
}

TEST_F(FileSelListWindow, ARowHasTheImageOfItsType) {
    MakeFile(Lib() + "plan.SD4");
    ShowAt(At("b"));
    const auto image = [&] {
        const auto icon = Rows().model()->index(0, 0).data(Qt::DecorationRole).value<QIcon>();
        return icon.pixmap(16, 16).toImage();
    };
    EXPECT_EQ(image(), k4cmn::FileImages::OfExtension("SQ4").pixmap(16, 16).toImage());
    Choose(kFileTypes, "Schedules");
    EXPECT_EQ(image(), k4cmn::FileImages::OfExtension("SD4").pixmap(16, 16).toImage());
}

TEST_F(FileSelListWindow, LastModifiedHidesOtherDates) {
    MakeFile(Lib() + "now.SQ4", "x", kNow);
    MakeFile(Lib() + "six.SQ4", "x", kNow - 6 * kDay);
    MakeFile(Lib() + "june.SQ4", "x", kNow - 40 * kDay);
    for (const char* name : {"a", "b", "c"})
        std::filesystem::remove(Native(Lib() + name + ".SQ4"));
    ShowAt(At());
    const std::pair<const char*, std::vector<std::string>> rows[] = {
        {"today", {"now"}},
        {"last 7 days", {"now"}},
        {"last month", {"june"}},
        {"this month", {"now", "six"}},
        {"any time", {"june", "now", "six"}}};
    for (const auto& [choice, names] : rows) {
        Choose(kLastModified, choice);
        EXPECT_EQ(RowNames(), names) << choice;
    }
}

// Sorting ----------------------------------------------------------------------------------------

TEST_F(FileSelListWindow, AClickOnAHeadingSortsAndLeavesTheSelectionWhereItIs) {
    ShowAt(At());
    ClickRow("a");
    ClickHeading(0);
    EXPECT_THAT(RowNames(), ElementsAre("c", "b", "a"));
    EXPECT_THAT(SelectedNames(), ElementsAre("c")) << "the first row stays selected";
    ClickHeading(0);
    EXPECT_THAT(RowNames(), ElementsAre("a", "b", "c"));
}

TEST_F(FileSelListWindow, TheFirstClickOnTheDateReversesTheNames) {
    ShowAt(At());
    ClickHeading(3);
    EXPECT_THAT(RowNames(), ElementsAre("c", "b", "a"));
}

// Views ------------------------------------------------------------------------------------------

TEST_F(FileSelListWindow, TheViewButtonsShowNamesOrDetails) {
    ShowAt(At("b"));
    Press(kListView);
    EXPECT_FALSE(List().ShowsDetails());
    EXPECT_TRUE(IsPressed(kListView));
    EXPECT_FALSE(IsPressed(kDetails));
    EXPECT_THAT(SelectedNames(), ElementsAre("b"));
    ClickRow("c");
    EXPECT_EQ(Text(kFileName), "c");
    Press(kListView);
    EXPECT_TRUE(IsPressed(kListView)) << "one of the two is always on";
    Press(kDetails);
    EXPECT_TRUE(List().ShowsDetails());
    EXPECT_THAT(SelectedNames(), ElementsAre("c"));
}

// Renaming ---------------------------------------------------------------------------------------

TEST_F(FileSelListWindow, ALabelIsRenamedByKeyAndByMenu) {
    ShowAt(At());
    ClickRow("b");
    KeyInList(Qt::Key_F2);
    TypeLabel("new");
    EXPECT_THAT(RowNames(), ElementsAre("a", "c", "new"));
    EXPECT_TRUE(dialog->isVisible()) << "Enter ends the editing alone";
    ClickRow("c");
    // By hand: offscreen, a menu that closes leaves no window active, which ends the editing.
    QMenu* const menu = MenuAt(Rows(), PlaceOf("c"));
    ASSERT_NE(menu, nullptr);
    menu->close();
    Settle();
    dialog->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    Entry(*menu, "Re&name")->trigger();
    Settle();
    TypeLabel("C");
    EXPECT_THAT(FilesIn(Lib().substr(0, Lib().size() - 1)),
                ElementsAre("C.SQ4", "a.SQ4", "new.SQ4"));
}

TEST_F(FileSelListWindow, EscapeEndsTheEditingAlone) {
    ShowAt(At());
    ClickRow("b");
    KeyInList(Qt::Key_F2);
    TypeLabel("new", Qt::Key_Escape);
    EXPECT_EQ(LabelEditor(), nullptr);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_THAT(RowNames(), ElementsAre("a", "b", "c"));
}

TEST_F(FileSelListWindow, ARenameThatFailsIsTold) {
    ShowAt(At());
    ClickRow("b");
    KeyInList(Qt::Key_F2);
    std::filesystem::remove(Native(Lib() + "b.SQ4"));
    messages.Expect("Rename failed");
    TypeLabel("new");
    EXPECT_EQ(messages.Pending(), 0U);
    EXPECT_THAT(RowNames(), ElementsAre("a", "c"));
}

TEST_F(FileSelListWindow, TheRowIsRenamedWhateverStandsInTheField) {
    ShowAt(At());
    ClickRow("b");
    Type("c");
    KeyInList(Qt::Key_F2);
    TypeLabel("new");
    EXPECT_THAT(RowNames(), ElementsAre("a", "c", "new"));
}

TEST_F(FileSelListWindow, LeavingTheLabelForTheTreeRenames) {
    ShowAt(At());
    ClickRow("b");
    KeyInList(Qt::Key_F2);
    ASSERT_NE(LabelEditor(), nullptr);
    LabelEditor()->setText(QStringLiteral("new"));
    Tree().setFocus();
    Settle();
    EXPECT_TRUE(Exists(Lib() + "new.SQ4"));
    EXPECT_THAT(RowNames(), ElementsAre("a", "c", "new"));
}

TEST_F(FileSelListWindow, KeysOfCommandsBelongToTheFieldWhileALabelIsEdited) {
    ShowAt(At());
    ClickRow("b");
    KeyInList(Qt::Key_F2);
    ASSERT_NE(LabelEditor(), nullptr);
    for (const Qt::Key key : {Qt::Key_Delete, Qt::Key_F2})
        QTest::keyClick(dialog->windowHandle(), key);
    QTest::keyClick(dialog->windowHandle(), Qt::Key_Backspace);
    Settle();
    ASSERT_NE(LabelEditor(), nullptr);
    EXPECT_EQ(LabelEditor()->text(), QString());
    EXPECT_EQ(SelectedItem(), "Default");
    EXPECT_TRUE(Exists(Lib() + "b.SQ4"));
    QTest::keyClick(LabelEditor(), Qt::Key_Escape);
}

TEST_F(FileSelListWindow, MayBeDeletedWhileAFailedRenameIsTold) {
    ShowAt(At());
    ClickRow("b");
    KeyInList(Qt::Key_F2);
    std::filesystem::remove(Native(Lib() + "b.SQ4"));
    messages.Expect(k4cmn::PlainMessage("Rename failed"), k4cmn::MessageAnswer::Ok,
                    [&] { dialog.reset(); });
    QTest::keyClicks(LabelEditor(), QStringLiteral("new"));
    QTest::keyClick(LabelEditor(), Qt::Key_Return);
    Settle();
    EXPECT_EQ(dialog, nullptr);
}

// The store changes ------------------------------------------------------------------------------

TEST_F(FileSelListWindow, ALibraryThatVanishesLeavesAnEmptyList) {
    ShowAt(At("b"));
    std::filesystem::remove_all(Native(Lib()));
    QTest::keyClick(dialog->windowHandle(), Qt::Key_F5);
    Settle();
    EXPECT_THAT(RowNames(), IsEmpty());
    messages.Expect(Question(NotFound(Lib() + "b.SQ4"), k4cmn::MessageButtons::YesNoCancel),
                    k4cmn::MessageAnswer::No);
    Press(IDOK);
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(FileSelListWindow, TheWholeStoreMayVanish) {
    ShowAt(At("b"));
    std::filesystem::remove_all(home / "drives");
    Tree().collapse(ItemAt({"A:"}));
    ClickItem({"A:", "No signs"});
    EXPECT_THAT(RowNames(), IsEmpty());
    Press(kUp);
    EXPECT_EQ(SelectedItem(), "A:");
}

TEST_F(FileSelListWindow, AnotherDialogsChangesAreSeenWhenAnItemIsOpened) {
    ShowAt(At("b"));
    MakeFolder(Lib("Third"));
    Tree().collapse(ItemAt({"A:", kType}));
    EXPECT_TRUE(Below(ItemAt({"A:", kType}), "Other").isValid());
    Tree().collapse(ItemAt({"A:", kType}));
    ClickItem({"A:", kType, "Third"});
    EXPECT_EQ(Text(kPath), Lib("Third"));
}

TEST_F(FileSelListWindow, WorksWithoutARegistry) {
    k4cmn::Provided<k4cmn::RegistryProvider>::Install(nullptr);
    dialog = std::make_unique<CK4CmnDlgFileSel>(0UL, Lib().c_str());
    Show();
    EXPECT_EQ(Text(kPath), "");
    Press(kUp);
    Press(kSignFilter);
    Press(kProperties);
    Choose(kFileTypes, "Scripts");
    messages.Expect(Question(NotFound(""), k4cmn::MessageButtons::YesNoCancel),
                    k4cmn::MessageAnswer::Cancel);
    Press(IDOK);
    EXPECT_FALSE(dialog->isVisible());
    k4cmn::Provided<k4cmn::RegistryProvider>::Install(&registry);
}

}  // namespace
}  // namespace k4test
