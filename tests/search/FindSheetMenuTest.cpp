#include <algorithm>

#include "tests/search/FindSheetFixture.h"
#include "tests/support/RecordingPrinting.h"
#include "tests/support/RecordingShell.h"

namespace k4test {
namespace {

using k4cmn::MessageAnswer;
using testing::ElementsAre;
using testing::IsEmpty;

class FindSheetMenu : public FindSheet {
 protected:
    static std::vector<std::string> TextsOf(const QMenu& menu) {
        std::vector<std::string> texts;
        for (const QAction* action : menu.actions())
            texts.push_back(action->text().toStdString());
        return texts;
    }
    std::vector<std::string> EnabledAt(const std::string& path) {
        std::vector<std::string> texts;
        QMenu* const menu = MenuAt(PlaceOf(RowOf(path)));
        if (!menu)
            return {"no menu"};
        for (const QAction* action : menu->actions()) {
            if (action->isEnabled())
                texts.push_back(action->text().toStdString());
        }
        menu->close();
        return texts;
    }
    /// Shows all files of the library, of whatever type.
    void ShowAll() {
        Make(Lib());
        Show();
        Type(kFileName, "*");
        Press(kFind);
    }
};

// The menu -----------------------------------------------------------------------------------

TEST_F(FindSheetMenu, HasItsFourEntriesOverARow) {
    ShowFound();
    QMenu* const menu = MenuAt(PlaceOf(1));
    ASSERT_NE(menu, nullptr);
    EXPECT_THAT(TextsOf(*menu),
                ElementsAre("P&roperties", "&Delete", "&Print...", "Print &File List"));
    EXPECT_EQ(List()->SelectedRow(), 1U) << "the row under the click";
    EXPECT_NE(dialog->GetFileSel(), "");
}

TEST_F(FindSheetMenu, ThereIsNoneBesideTheRows) {
    ShowFound();
    EXPECT_EQ(MenuAt(Beside()), nullptr);
    Press(kFind);
    KeyInList(Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(OpenMenu(), nullptr) << "no row is selected";
}

TEST_F(FindSheetMenu, OpensByKeysAtTheSelectedRow) {
    ShowFound();
    ClickRow(Lib() + "cedar.SQ4");
    KeyInList(Qt::Key_F10, Qt::ShiftModifier);
    ASSERT_NE(OpenMenu(), nullptr);
    EXPECT_EQ(OpenMenu()->pos(), Rows().viewport()->mapToGlobal(PlaceOf(3)));
}

TEST_F(FindSheetMenu, EscapeClosesTheMenuFirst) {
    ShowFound();
    QMenu* const menu = MenuAt(PlaceOf(0));
    ASSERT_NE(menu, nullptr);
    QTest::keyClick(menu, Qt::Key_Escape);
    EXPECT_EQ(OpenMenu(), nullptr);
    EXPECT_TRUE(dialog->isVisible());
    KeyInList(Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(FindSheetMenu, EnablesWhatTheTypeOfTheFileAllows) {
    for (const char* name : {"plan.SD4", "start.SC4", "old.SEQ", "film.AVI"})
        MakeFile(Lib() + name);
    ShowAll();
    EXPECT_THAT(EnabledAt(Lib() + "apple.SQ4"),
                ElementsAre("P&roperties", "&Delete", "&Print...", "Print &File List"));
    for (const char* name : {"plan.SD4", "start.SC4", "old.SEQ"})
        EXPECT_THAT(EnabledAt(Lib() + name),
                    ElementsAre("&Delete", "&Print...", "Print &File List"))
            << name;
    EXPECT_THAT(EnabledAt(Lib() + "film.AVI"), ElementsAre("Print &File List"));
}

TEST_F(FindSheetMenu, ClosesWithTheDialog) {
    Make();
    const int result = Run([&] {
        Press(kFind);
        ASSERT_NE(MenuAt(PlaceOf(0)), nullptr);
        dialog->EndDialog(IDOK);
    });
    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(OpenMenu(), nullptr);
}

TEST_F(FindSheetMenu, AnEntryThatComesTooLateLeavesWhatWasChosen) {
    for (const char* text : {"P&roperties", "&Delete", "&Print...", "Print &File List"}) {
        SCOPED_TRACE(text);
        Make();
        const int result = Run([&] {
            Press(kFind);
            QMenu* const menu = MenuAt(PlaceOf(RowOf(Lib() + "cedar.SQ4")));
            ASSERT_NE(menu, nullptr);
            QTest::mouseClick(menu, Qt::LeftButton, {},
                              menu->actionGeometry(Entry(*menu, text)).center());
            // The entry is run when the menu is done with the click.
            dialog->EndDialog(IDOK);
        });
        EXPECT_EQ(result, IDOK);
        EXPECT_EQ(dialog->GetFileSel(), "cedar");
        EXPECT_EQ(dialog->GetSearchPath(), Lib());
        EXPECT_EQ(Sheet(), nullptr);
        EXPECT_TRUE(Exists(Lib() + "cedar.SQ4"));
    }
}

// Delete -------------------------------------------------------------------------------------

TEST_F(FindSheetMenu, DeletesTheFileAndItsRow) {
    ShowFound();
    ChooseEntry(Lib() + "cedar.SQ4", "&Delete");
    EXPECT_FALSE(Exists(Lib() + "cedar.SQ4"));
    EXPECT_THAT(Names(), ElementsAre("apple", "apple", "Birch", "oak"));
    EXPECT_EQ(Count(), "4 files");
    EXPECT_FALSE(List()->SelectedRow());
}

TEST_F(FindSheetMenu, DeletesByKeyOnlyInTheListAndWithARow) {
    ShowFound();
    KeyInList(Qt::Key_Delete);
    EXPECT_EQ(Names().size(), 5U) << "no row is selected";
    ClickRow(Lib() + "Birch.SQ4");
    The<QWidget>(kFileName)->setFocus();
    PressKey(*dialog, Qt::Key_Delete);
    Settle();
    EXPECT_EQ(Names().size(), 5U);
    KeyInList(Qt::Key_Delete);
    EXPECT_FALSE(Exists(Lib() + "Birch.SQ4"));
    EXPECT_EQ(Names().size(), 4U);
}

TEST_F(FindSheetMenu, ARowOfTheSameNameInAnotherLibraryGoesTooThoughItsFileStays) {
    MakeFile(Lib() + "pine.SQ4");
    MakeFile(std::string("A:\\") + kType + ".Sign\\Third.Lib\\pine.SQ4");
    MakeFile(std::string("A:\\") + kType + ".Sign\\Third.Lib\\spruce.SQ4");
    ShowFound();
    // By the folder the two rows of one name aren't neighbours: the row behind a removed one is
    // passed over.
    ClickHeading(0);
    ClickHeading(1);
    ChooseEntry(Lib() + "pine.SQ4", "&Delete");
    EXPECT_FALSE(Exists(Lib() + "pine.SQ4"));
    EXPECT_TRUE(Exists(std::string("A:\\") + kType + ".Sign\\Third.Lib\\pine.SQ4"));
    EXPECT_THAT(Names(), testing::Not(testing::Contains("pine")));
    EXPECT_EQ(Count(), "6 files");
}

TEST_F(FindSheetMenu, TheRowBehindARemovedOneIsPassedOver) {
    ShowFound();
    ASSERT_EQ(Names()[0], "apple");
    ASSERT_EQ(Names()[1], "apple");
    const std::string first = Paths()[0];
    ChooseEntry(first, "&Delete");
    EXPECT_FALSE(Exists(first));
    EXPECT_THAT(Names(), ElementsAre("apple", "Birch", "cedar", "oak"));
}

TEST_F(FindSheetMenu, AScriptIsLookedForAtItsServersRoot) {
    RecordingShell recorder;
    const k4cmn::ScopedProvider<k4cmn::Shell> installed(recorder);
    MakeFile(Lib() + "start.SC4");
    ShowAll();
    ChooseEntry(Lib() + "start.SC4", "&Delete");
    ASSERT_EQ(recorder.operations.size(), 1U);
    EXPECT_EQ(recorder.operations[0].function, k4cmn::FO_DELETE);
    EXPECT_EQ(recorder.operations[0].from, k4cmn::PackPaths({"A:\\start.SC4"}));
    EXPECT_EQ(recorder.operations[0].flags, 64);
}

TEST_F(FindSheetMenu, TheTypesExtensionCountsWhateverTheRowsOwnIs) {
    RecordingShell recorder;
    const k4cmn::ScopedProvider<k4cmn::Shell> installed(recorder);
    MakeFile(Lib() + "lower.sd4");
    ShowAll();
    ChooseEntry(Lib() + "lower.sd4", "&Delete");
    ASSERT_EQ(recorder.operations.size(), 1U);
    EXPECT_EQ(recorder.operations[0].from, k4cmn::PackPaths({Lib() + "lower.SD4"}));
}

TEST_F(FindSheetMenu, RowsStayWhereNothingWasDeleted) {
    RecordingShell recorder;
    const k4cmn::ScopedProvider<k4cmn::Shell> installed(recorder);
    recorder.operationResult = 1;
    ShowFound();
    ChooseEntry(Lib() + "cedar.SQ4", "&Delete");
    EXPECT_EQ(recorder.operations.size(), 1U);
    EXPECT_EQ(Names().size(), 5U);
    EXPECT_EQ(Count(), "5 files");
    EXPECT_EQ(List()->SelectedRow(), 3U);
}

TEST_F(FindSheetMenu, AfterASortTheFileThatIsSelectedNowIsDeleted) {
    ShowFound();
    ClickRow(Lib() + "Birch.SQ4");
    ClickHeading(0);
    ClickHeading(1);
    ASSERT_EQ(List()->SelectedRow(), 2U);
    ASSERT_EQ(Paths()[2], Lib() + "cedar.SQ4");
    KeyInList(Qt::Key_Delete);
    EXPECT_FALSE(Exists(Lib() + "cedar.SQ4"));
    EXPECT_TRUE(Exists(Lib() + "Birch.SQ4"));
}

TEST_F(FindSheetMenu, TheDialogMayBeDeletedWhileAFileIs) {
    RecordingShell recorder;
    const k4cmn::ScopedProvider<k4cmn::Shell> installed(recorder);
    recorder.onOperation = [&] { dialog.reset(); };
    ShowFound();
    ChooseEntry(Lib() + "cedar.SQ4", "&Delete");
    EXPECT_EQ(dialog, nullptr);
    EXPECT_EQ(recorder.operations.size(), 1U);
}

// Print --------------------------------------------------------------------------------------

TEST_F(FindSheetMenu, PrintsTheFileByTheShell) {
    RecordingShell recorder;
    const k4cmn::ScopedProvider<k4cmn::Shell> installed(recorder);
    MakeFile(Lib() + "start.SC4");
    ShowAll();
    ChooseEntry(Lib() + "apple.SQ4", "&Print...");
    ChooseEntry(Lib() + "start.SC4", "&Print...");
    EXPECT_THAT(recorder.calls,
                ElementsAre("print " + Lib() + "apple.SQ4", "print " + Lib() + "start.SC4"));
}

TEST_F(FindSheetMenu, TellsWhatCouldNotBePrinted) {
    RecordingShell recorder;
    const k4cmn::ScopedProvider<k4cmn::Shell> installed(recorder);
    recorder.printCode = 32;
    ShowFound();
    messages.Expect("ERROR: Could not print " + Lib() + "cedar.SQ4");
    ChooseEntry(Lib() + "cedar.SQ4", "&Print...");
    EXPECT_EQ(messages.Pending(), 0U);
}

TEST_F(FindSheetMenu, DoesntPrintNamesWithCertainCharacters) {
    RecordingShell recorder;
    const k4cmn::ScopedProvider<k4cmn::Shell> installed(recorder);
    const std::string names[] = {"a b", "a#b", "a%b", "a;b"};
    for (const std::string& name : names)
        MakeFile(Lib() + name + ".SQ4");
    ShowFound(Lib());
    for (const std::string& name : names)
        ChooseEntry(Lib() + name + ".SQ4", "&Print...");
    EXPECT_THAT(recorder.calls, IsEmpty());
}

TEST_F(FindSheetMenu, TheDialogMayBeDeletedWhileItTellsOfPrinting) {
    RecordingShell recorder;
    const k4cmn::ScopedProvider<k4cmn::Shell> installed(recorder);
    recorder.printCode = 2;
    ShowFound();
    messages.Expect(k4cmn::PlainMessage("ERROR: Could not print " + Lib() + "cedar.SQ4"),
                    MessageAnswer::Ok, [&] { dialog.reset(); });
    ChooseEntry(Lib() + "cedar.SQ4", "&Print...");
    EXPECT_EQ(dialog, nullptr);
}

// Print File List ----------------------------------------------------------------------------

TEST_F(FindSheetMenu, PrintsTheListAsItIsShown) {
    RecordingPrinting printing;
    ShowFound(Lib());
    ClickHeading(0);
    const k4cmn::RowLabelSize label = List()->FirstLabelSize();
    ChooseEntry(Lib() + "Birch.SQ4", "Print &File List");
    EXPECT_EQ(printing.parent, dialog.get());
    EXPECT_THAT(printing.texts,
                ElementsAre("K4FileManager", "Results of file search ", Lib() + "cedar.SQ4",
                            Lib() + "Birch.SQ4", Lib() + "apple.SQ4", "end"));
    EXPECT_EQ(printing.lines.size(), 3U);
    for (const k4cmn::PrintRectangle& line : printing.lines) {
        EXPECT_EQ(line.right - line.left, label.width);
        EXPECT_EQ(line.bottom - line.top, label.height);
    }
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(FindSheetMenu, WithoutAPrinterNothingIsPrinted) {
    RecordingPrinting printing;
    printing.hasPrinter = false;
    ShowFound();
    ChooseEntry(Lib() + "Birch.SQ4", "Print &File List");
    EXPECT_EQ(printing.parent, dialog.get());
    EXPECT_THAT(printing.texts, IsEmpty());
}

TEST_F(FindSheetMenu, MayBeDeletedWhileAPrinterIsChosen) {
    RecordingPrinting printing;
    printing.onChoose = [&] { dialog.reset(); };
    ShowFound();
    ChooseEntry(Lib() + "Birch.SQ4", "Print &File List");
    EXPECT_EQ(dialog, nullptr);
    EXPECT_THAT(printing.texts, IsEmpty());
}

}  // namespace
}  // namespace k4test
