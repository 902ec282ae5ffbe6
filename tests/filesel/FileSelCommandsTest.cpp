#include <gmock/gmock.h>

#include "tests/filesel/SelectorFixture.h"
#include "tests/support/RecordingPrograms.h"
#include "tests/support/RecordingShell.h"

namespace {

namespace fs = std::filesystem;
using k4cmn::FileClipboard;
using k4cmn::FileCommand;
using k4cmn::MessageAnswer;
using k4cmn::MessageButtons;
using testing::ElementsAre;
using testing::SizeIs;
using Texts = std::vector<std::string>;

const std::string kType = k4test::kType;
const std::string kSign = "A:\\" + kType + ".Sign\\";
const std::string kLib = kSign + "Default.Lib\\";

class FileSelCommands : public k4test::SelectorFixture {
 protected:
    void SetUp() override {
        SelectorFixture::SetUp();
        for (const char* name : {"one.SQ4", "two.SQ4", "plan.SD4"})
            MakeFile(kLib + name, name);
        MakeFile("A:\\run.SC4", "run");
        OpenAt({"A:", kType, "Default", "", "SQ4"});
    }
    void ShowScripts() {
        view.typeIndex = 2;
        selector->FileTypeChanged();
        Select(Server("A:"));
        selector->ShowFilesList();
    }
};

// The menu -------------------------------------------------------------------------------------

TEST_F(FileSelCommands, TheMenuSelectsTheItemUnderIt) {
    k4cmn::FileTreeItem* type = SignType("A:", kType);
    const k4cmn::FileMenuState state = selector->OpenMenu(type);
    EXPECT_EQ(selector->Tree().Selected(), type);
    EXPECT_THAT(Names(), ElementsAre()) << "the list is refilled";
    EXPECT_TRUE(state.IsEnabled(FileCommand::Copy));
    EXPECT_FALSE(state.IsEnabled(FileCommand::Delete));
    EXPECT_FALSE(state.IsEnabled(FileCommand::Paste));
}

TEST_F(FileSelCommands, TheMenuKnowsTheSelectedRowAndTheClipboard) {
    SelectRows({"one"});
    selector->Copy();
    k4cmn::FileMenuState state = selector->OpenMenu(nullptr);
    EXPECT_TRUE(state.IsEnabled(FileCommand::Preview));
    EXPECT_TRUE(state.IsEnabled(FileCommand::Properties));
    EXPECT_TRUE(state.IsEnabled(FileCommand::Paste));
    selector->DeletePreviewMenuItem();
    state = selector->OpenMenu(nullptr);
    EXPECT_FALSE(state.IsEnabled(FileCommand::Preview));
    EXPECT_TRUE(state.IsEnabled(FileCommand::Properties));
}

// Copy and cut ---------------------------------------------------------------------------------

TEST_F(FileSelCommands, CopyTakesTheRowsInTheirOrder) {
    SelectRows({"two", "one"});
    selector->Copy();
    EXPECT_EQ(selector->Clipboard(),
              (FileClipboard{kLib, {"one.SQ4", "two.SQ4"}, "A:", kType, "Default", false}));
}

TEST_F(FileSelCommands, CutIsACopyThatWaits) {
    SelectRows({"two"});
    selector->Cut();
    EXPECT_EQ(selector->Clipboard(),
              (FileClipboard{kLib, {"two.SQ4"}, "A:", kType, "Default", true}));
    EXPECT_TRUE(Exists(kLib + "two.SQ4"));
    selector->Copy();
    EXPECT_FALSE(selector->Clipboard().cutPending);
}

TEST_F(FileSelCommands, CopyWithoutRowsTakesTheFolder) {
    SelectRows({"two"});
    selector->Copy();
    view.selected.clear();
    selector->Copy();
    EXPECT_EQ(selector->Clipboard(), (FileClipboard{"", {}, "A:", kType, "Default", false}));
    Select(SignType("A:", kType));
    selector->Copy();
    EXPECT_EQ(selector->Clipboard(), (FileClipboard{"", {}, "A:", kType, "", false}));
}

TEST_F(FileSelCommands, CopiedScriptsHaveNoPlaceBesideTheirFolder) {
    ShowScripts();
    SelectRows({"run"});
    selector->Copy();
    EXPECT_EQ(selector->Clipboard(), (FileClipboard{"A:\\", {"run.SC4"}, "", "", "", false}));
    Select(Server("B:"));
    selector->Paste(prompt);
    EXPECT_THAT(Names(), ElementsAre("run"));
    EXPECT_EQ(Content("B:\\run.SC4"), "run");
}

TEST_F(FileSelCommands, PasteRefillsTheListAndWaits) {
    MakeFolder(kSign + "M.Lib");
    SelectRows({"one", "two"});
    selector->Cut();
    Select(Library("A:", kType, "M"));
    selector->Paste(prompt);
    EXPECT_THAT(Names(), ElementsAre("one", "two"));
    EXPECT_EQ(view.waits, "<>");
    EXPECT_EQ(selector->Clipboard(), FileClipboard());
}

TEST_F(FileSelCommands, APasteThatAMessageEndsDoesntRefillTheList) {
    SelectRows({"one"});
    selector->Copy();
    MakeFolder("B:\\1.2.3.Sign\\L.Lib");
    Select(Library("B:", "1.2.3", "L"));
    const int before = view.cleared;
    prompt.Expect("Incorrect sign type specified");
    selector->Paste(prompt);
    EXPECT_EQ(view.cleared, before);
    EXPECT_EQ(view.waits, "<>");
}

// Delete ---------------------------------------------------------------------------------------

TEST_F(FileSelCommands, DeleteHandsTheRowsToTheShell) {
    k4test::RecordingShell recording;
    {
        k4cmn::ScopedProvider<k4cmn::Shell> use(recording);
        SelectRows({"one", "two"});
        selector->Delete();
    }
    ASSERT_EQ(recording.operations.size(), 1u);
    EXPECT_EQ(recording.operations[0].function, k4cmn::FO_DELETE);
    EXPECT_EQ(k4cmn::UnpackPaths(recording.operations[0].from),
              (Texts{kLib + "one.SQ4", kLib + "two.SQ4"}));
    EXPECT_EQ(recording.operations[0].flags, 64);
}

TEST_F(FileSelCommands, DeleteRefillsTheList) {
    SelectRows({"one"});
    selector->Delete();
    EXPECT_THAT(Names(), ElementsAre("two"));
    EXPECT_EQ(ui.questions.size(), 1u) << "the shell asks its own question";
    const int before = view.filled;
    selector->Delete();
    EXPECT_EQ(ui.questions.size(), 1u) << "no row is selected";
    EXPECT_EQ(view.filled, before + 1);
}

TEST_F(FileSelCommands, DeletedScriptsLieAtTheServersRoot) {
    ShowScripts();
    SelectRows({"run"});
    selector->Delete();
    EXPECT_FALSE(Exists("A:\\run.SC4"));
    EXPECT_THAT(Names(), ElementsAre());
}

// Rename ---------------------------------------------------------------------------------------

TEST_F(FileSelCommands, RenameEditsTheFirstSelectedRow) {
    selector->StartRename();
    EXPECT_EQ(view.edited, -1);
    SelectRows({"one", "two"});
    selector->StartRename();
    EXPECT_EQ(view.edited, 0);
}

TEST_F(FileSelCommands, RenameMovesTheFile) {
    SelectRows({"one"});
    const std::string text = "three #%;?";
    selector->Renamed(selector->Place(), text, prompt);
    EXPECT_THAT(Names(), ElementsAre("three #%;?", "two")) << "the text isn't validated";
    EXPECT_EQ(Content(kLib + "three #%;?.SQ4"), "one.SQ4");
}

TEST_F(FileSelCommands, RenameToTheSameNameDoesNothing) {
    SelectRows({"one"});
    const int before = view.cleared;
    const std::string same = "one";
    selector->Renamed(selector->Place(), same, prompt);
    EXPECT_EQ(view.cleared, before);
    EXPECT_TRUE(Exists(kLib + "one.SQ4"));
}

TEST_F(FileSelCommands, RenameToAnotherCaseCounts) {
    SelectRows({"one"});
    const std::string text = "One";
    selector->Renamed(selector->Place(), text, prompt);
    EXPECT_THAT(Names(), ElementsAre("One", "two"));
}

TEST_F(FileSelCommands, AFailedRenameIsTold) {
    for (const std::string& text : {std::string("two"), std::string("no/such"),
                                    std::string("x\0y", 3), std::string(300, 'x')}) {
        SelectRows({"one"});
        prompt.Expect("Rename failed");
        selector->Renamed(selector->Place(), text, prompt);
        EXPECT_THAT(Names(), ElementsAre("one", "two"));
    }
    EXPECT_EQ(Content(kLib + "two.SQ4"), "two.SQ4");
}

TEST_F(FileSelCommands, ARenamedFileStaysInItsFolder) {
    MakeFolder(kLib + "sub");
    for (const char* text : {"..\\x", "../x", "sub\\x", "sub/x", "\\x", "..\\..\\..\\..\\x",
                             "A:\\x", "C:\\x", "/tmp/x"}) {
        SelectRows({"one"});
        prompt.Expect("Rename failed");
        const std::string name = text;
        selector->Renamed(selector->Place(), name, prompt);
        EXPECT_EQ(Content(kLib + "one.SQ4"), "one.SQ4") << text;
    }
    EXPECT_THAT(FilesIn(kSign), ElementsAre());
    EXPECT_THAT(FilesIn(kLib + "sub"), ElementsAre());
    for (const char* text : {"..", ".", "", " ", "a.b"}) {
        SelectRows({"one"});
        const std::string name = text;
        selector->Renamed(selector->Place(), name, prompt);
        EXPECT_EQ(Content(kLib + name + ".SQ4"), "one.SQ4") << text;
        fs::rename(Native(kLib) / (name + ".SQ4"), Native(kLib) / "one.SQ4");
        selector->ShowFilesList();
    }
}

TEST_F(FileSelCommands, RenamedScriptsStayAtTheServersRoot) {
    ShowScripts();
    SelectRows({"run"});
    const std::string text = "walk";
    selector->Renamed(selector->Place(), text, prompt);
    EXPECT_EQ(Content("A:\\walk.SC4"), "run");
}

// Print ----------------------------------------------------------------------------------------

TEST_F(FileSelCommands, PrintRunsThePrintVerb) {
    k4test::RecordingShell recording;
    k4cmn::ScopedProvider<k4cmn::Shell> use(recording);
    selector->Print(prompt);
    EXPECT_THAT(recording.calls, ElementsAre()) << "no file is selected";
    SelectRows({"one"});
    selector->Print(prompt);
    recording.printCode = 31;
    prompt.Expect("ERROR: Could not print " + kLib + "one.SQ4");
    selector->Print(prompt);
    EXPECT_THAT(recording.calls,
                ElementsAre("print " + kLib + "one.SQ4", "print " + kLib + "one.SQ4"));
    recording.calls.clear();
    view.name = "a#b";
    selector->Print(prompt);
    EXPECT_THAT(recording.calls, ElementsAre());
}

TEST_F(FileSelCommands, PrintedScriptsHaveTheFormOfALibrary) {
    k4test::RecordingShell recording;
    k4cmn::ScopedProvider<k4cmn::Shell> use(recording);
    ShowScripts();
    SelectRows({"run"});
    selector->Print(prompt);
    EXPECT_THAT(recording.calls, ElementsAre("print A:\\.Sign\\.Lib\\run.SC4"));
}

// Properties and preview -----------------------------------------------------------------------

TEST_F(FileSelCommands, PropertiesAreOfSequencesAlone) {
    EXPECT_EQ(selector->PropertiesPath(), std::nullopt) << "no file";
    SelectRows({"one"});
    EXPECT_EQ(selector->PropertiesPath(), kLib + "one.SQ4");
    view.typeIndex = 1;
    selector->FileTypeChanged();
    SelectRows({"plan"});
    EXPECT_EQ(selector->PropertiesPath(), std::nullopt);
}

TEST_F(FileSelCommands, PreviewPassesTheSequenceOn) {
    k4test::RecordingPrograms programs;
    SelectRows({"one"});
    selector->Preview(prompt);
    std::string folder;
    registry.GetExePath(folder);
    EXPECT_THAT(programs.started, ElementsAre(folder + "\\K4Prevu.exe"));
    EXPECT_THAT(programs.showStates, ElementsAre(k4cmn::SW_RESTORE));
    EXPECT_EQ(selector->PreviewPath(), kLib + "one.SQ4");
    const auto key = registry.OpenUserKey("Preview", "Request", 0);
    ASSERT_TRUE(key);
    std::string sequence;
    std::uint32_t second = 0;
    std::uint32_t first = 99;
    EXPECT_EQ(key->GetString("Sequence", &sequence), 1);
    EXPECT_EQ(key->GetDword("Second", &second), 1);
    EXPECT_EQ(key->GetDword("First", &first), 0);
    EXPECT_EQ(sequence, kLib + "one.SQ4");
    EXPECT_EQ(second, 1u);
}

TEST_F(FileSelCommands, ARunningPreviewIsntStartedAgain) {
    k4test::RecordingPrograms programs;
    programs.keepsRunning = true;
    SelectRows({"one"});
    selector->Preview(prompt);
    SelectRows({"two"});
    selector->Preview(prompt);
    EXPECT_THAT(programs.started, SizeIs(1));
    std::string sequence;
    EXPECT_EQ(registry.OpenUserKey("Preview", "Request", 0)->GetString("Sequence", &sequence), 1);
    EXPECT_EQ(sequence, kLib + "two.SQ4") << "it sees the new request";
}

TEST_F(FileSelCommands, APreviewThatHasEndedIsStartedAgain) {
    k4test::RecordingPrograms programs;
    SelectRows({"one"});
    selector->Preview(prompt);
    selector->Preview(prompt);
    EXPECT_THAT(programs.started, SizeIs(2));
}

TEST_F(FileSelCommands, AnotherTypePassesTheLastSequenceOnAgain) {
    k4test::RecordingPrograms programs;
    SelectRows({"one"});
    selector->Preview(prompt);
    view.typeIndex = 1;
    selector->FileTypeChanged();
    SelectRows({"plan"});
    selector->Preview(prompt);
    EXPECT_EQ(selector->PreviewPath(), kLib + "one.SQ4");
}

TEST_F(FileSelCommands, APreviewThatDoesntStartIsTold) {
    k4test::RecordingPrograms programs;
    programs.canStart = false;
    std::string folder;
    registry.GetExePath(folder);
    prompt.Expect("ERROR: Could not start " + folder + "\\K4Prevu.exe");
    selector->Preview(prompt);
}

}  // namespace
