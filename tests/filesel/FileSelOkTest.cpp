#include <gmock/gmock.h>

#include "tests/filesel/SelectorFixture.h"
#include "tests/support/RecordingShell.h"

namespace {

using k4cmn::MessageAnswer;
using k4cmn::MessageButtons;
using k4cmn::SelectorEnd;
using testing::ElementsAre;
using Texts = std::vector<std::string>;

const std::string kType = k4test::kType;
const std::string kLib = "A:\\" + kType + ".Sign\\Default.Lib\\";
const std::string kExists =
    "\nFile already exists.\nPlease verify that the path and file name are correct.\n"
    "Yes, File is valid \nNo, File is not valid \nCancel, Cancel this operation";
const std::string kMissing = "\nFile not found.\nDo you want to create a new file?";

class FileSelOk : public k4test::SelectorFixture {
 protected:
    void SetUp() override {
        SelectorFixture::SetUp();
        for (const char* name : {"one.SQ4", "two.SQ4", "three.SQ4"})
            MakeFile(kLib + name);
        MakeFile("A:\\run.SC4");
        MakeFile("A:\\walk.SC4");
    }
    void At(tag_K4_FILE_MODE mode, const std::string& name) {
        OpenAt({"A:", kType, "Default", "", "SQ4"}, mode);
        view.name = name;
    }

    k4test::RecordingShell recording;
};

// Every mode, with and without the file, with each answer ----------------------------------------

enum class Asks { Nothing, Exists, Missing };

struct OkCase {
    const char* name;
    int mode;
    bool exists;
    Asks asks;
    MessageAnswer answer;
    SelectorEnd end;
    bool hasResult;
    int selectedFiles;  ///< -1: one, the empty text
};

class FileSelOkTable : public FileSelOk, public testing::WithParamInterface<OkCase> {};

TEST_P(FileSelOkTable, DoesWhatItsRowSays) {
    const OkCase& row = GetParam();
    k4cmn::ScopedProvider<k4cmn::Shell> use(recording);
    At(static_cast<tag_K4_FILE_MODE>(row.mode), row.exists ? "one" : "other");
    const std::string path = kLib + view.name + ".SQ4";
    if (row.asks != Asks::Nothing)
        prompt.ExpectQuestion(path + (row.asks == Asks::Exists ? kExists : kMissing),
                              MessageButtons::YesNoCancel, row.answer);
    EXPECT_EQ(selector->PressOk(prompt), row.end);
    EXPECT_EQ(prompt.Pending(), 0u);
    EXPECT_EQ(selector->Result(), row.hasResult ? path : "");
    const Texts expected = row.selectedFiles == 0   ? Texts{}
                           : row.selectedFiles == 1 ? Texts{path}
                                                    : Texts{""};
    EXPECT_EQ(selector->SelectedFiles(), expected);
    const bool isOpened = row.mode == 3 && row.exists;
    EXPECT_EQ(recording.calls, isOpened ? Texts{"open " + path + " 5"} : Texts{});
    EXPECT_EQ(Remembered(), (FileLocation{"A:", kType, "Default", view.name, "SQ4"}));
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(
    Modes, FileSelOkTable,
    testing::Values(
        OkCase{"OpenExisting",           0, true,  Asks::Nothing, MessageAnswer::Ok,     SelectorEnd::Ok,   true,  1},
        OkCase{"OpenMissingYes",         0, false, Asks::Missing, MessageAnswer::Yes,    SelectorEnd::Ok,   true,  1},
        OkCase{"OpenMissingNo",          0, false, Asks::Missing, MessageAnswer::No,     SelectorEnd::Stay, true,  0},
        OkCase{"OpenMissingCancel",      0, false, Asks::Missing, MessageAnswer::Cancel, SelectorEnd::Ok,   false, -1},
        OkCase{"NewExistingYes",         1, true,  Asks::Exists,  MessageAnswer::Yes,    SelectorEnd::Ok,   true,  0},
        OkCase{"NewExistingNo",          1, true,  Asks::Exists,  MessageAnswer::No,     SelectorEnd::Stay, true,  0},
        OkCase{"NewExistingCancel",      1, true,  Asks::Exists,  MessageAnswer::Cancel, SelectorEnd::Ok,   false, 0},
        OkCase{"NewMissing",             1, false, Asks::Nothing, MessageAnswer::Ok,     SelectorEnd::Ok,   true,  0},
        OkCase{"SaveExistingYes",        2, true,  Asks::Exists,  MessageAnswer::Yes,    SelectorEnd::Ok,   true,  0},
        OkCase{"SaveExistingNo",         2, true,  Asks::Exists,  MessageAnswer::No,     SelectorEnd::Stay, true,  0},
        OkCase{"SaveExistingCancel",     2, true,  Asks::Exists,  MessageAnswer::Cancel, SelectorEnd::Ok,   false, 0},
        OkCase{"SaveMissing",            2, false, Asks::Nothing, MessageAnswer::Ok,     SelectorEnd::Ok,   true,  0},
        OkCase{"ManagerExisting",        3, true,  Asks::Nothing, MessageAnswer::Ok,     SelectorEnd::Stay, true,  0},
        OkCase{"ManagerMissing",         3, false, Asks::Nothing, MessageAnswer::Ok,     SelectorEnd::Ok,   true,  0},
        OkCase{"PickExisting",           4, true,  Asks::Nothing, MessageAnswer::Ok,     SelectorEnd::Ok,   true,  1},
        OkCase{"PickMissingYes",         4, false, Asks::Missing, MessageAnswer::Yes,    SelectorEnd::Ok,   true,  1},
        OkCase{"PickMissingNo",          4, false, Asks::Missing, MessageAnswer::No,     SelectorEnd::Stay, true,  0},
        OkCase{"PickMissingCancel",      4, false, Asks::Missing, MessageAnswer::Cancel, SelectorEnd::Ok,   false, -1},
        OkCase{"OtherExisting",          7, true,  Asks::Nothing, MessageAnswer::Ok,     SelectorEnd::Ok,   true,  1},
        OkCase{"OtherMissingYes",       -1, false, Asks::Missing, MessageAnswer::Yes,    SelectorEnd::Ok,   true,  1}),
    [](const auto& testCase) { return std::string(testCase.param.name); });
// clang-format on

TEST_F(FileSelOk, DoubleClickIsOkButForNewFiles) {
    for (const auto mode : {K4_FILE_OPEN, K4_FILE_PICK}) {
        At(mode, "one");
        EXPECT_EQ(selector->DoubleClick(prompt), SelectorEnd::Ok);
    }
    const k4cmn::ScopedProvider<k4cmn::Shell> use(recording);
    for (const auto mode : {K4_FILE_NEW, K4_FILE_SAVE_AS}) {
        At(mode, "one");
        EXPECT_EQ(selector->DoubleClick(prompt), SelectorEnd::Stay);
        EXPECT_EQ(selector->Result(), "");
    }
    EXPECT_EQ(recording.calls, Texts{});
    At(K4_FILE_MANAGER, "one");
    EXPECT_EQ(selector->DoubleClick(prompt), SelectorEnd::Stay);
    EXPECT_EQ(recording.calls, Texts{"open " + kLib + "one.SQ4 5"});
}

// Names ----------------------------------------------------------------------------------------

TEST_F(FileSelOk, TellsForbiddenCharactersAndStays) {
    for (const char character : std::string("\\/:;*?\"<>|#%")) {
        At(K4_FILE_OPEN, std::string("a") + character);
        prompt.Expect(
            {"A filename cannot contain any of the following characters:\n\t\\ / : ; * "
             "? \" < > | # %",
             "Invalid Filename", MessageButtons::Ok, k4cmn::MessageIcon::Stop});
        EXPECT_EQ(selector->PressOk(prompt), SelectorEnd::Stay);
        EXPECT_EQ(selector->Result(), "");
    }
}

TEST_F(FileSelOk, OnlyHyphensComposeNoResult) {
    At(K4_FILE_OPEN, "---");
    prompt.ExpectQuestion(kMissing, MessageButtons::YesNoCancel, MessageAnswer::No);
    EXPECT_EQ(selector->PressOk(prompt), SelectorEnd::Stay);
    EXPECT_EQ(selector->Result(), "");
    EXPECT_EQ(Remembered().file, "---") << "the place is kept whatever the name";
    At(K4_FILE_SAVE_AS, "---");
    EXPECT_EQ(selector->PressOk(prompt), SelectorEnd::Ok);
    EXPECT_EQ(selector->Result(), "");
}

TEST_F(FileSelOk, ANameThatIsTooLongIsRefused) {
    At(K4_FILE_SAVE_AS, std::string(33, 'x'));
    EXPECT_EQ(selector->PressOk(prompt), SelectorEnd::Stay);
    EXPECT_EQ(view.refused, 1);
    view.name = std::string(32, 'x');
    EXPECT_EQ(selector->PressOk(prompt), SelectorEnd::Ok);
    EXPECT_EQ(selector->Result(), kLib + std::string(32, 'x') + ".SQ4");
}

TEST_F(FileSelOk, TrailingSpaceIsCut) {
    At(K4_FILE_OPEN, "one  \t");
    EXPECT_EQ(selector->PressOk(prompt), SelectorEnd::Ok);
    EXPECT_EQ(selector->Result(), kLib + "one.SQ4");
}

TEST_F(FileSelOk, WithoutALibraryTheFileIsntFound) {
    At(K4_FILE_OPEN, "one");
    Select(Server("A:"));
    prompt.ExpectQuestion(kMissing, MessageButtons::YesNoCancel, MessageAnswer::Yes);
    EXPECT_EQ(selector->PressOk(prompt), SelectorEnd::Ok);
    EXPECT_EQ(selector->Result(), "");
    EXPECT_THAT(selector->SelectedFiles(), ElementsAre(""));
    EXPECT_EQ(Remembered().library, "Default") << "nothing is kept";
}

// Rows -----------------------------------------------------------------------------------------

TEST_F(FileSelOk, TakesEverySelectedRow) {
    At(K4_FILE_OPEN, "");
    SelectRows({"one", "two", "three"});
    EXPECT_EQ(view.name, "one");
    EXPECT_EQ(selector->PressOk(prompt), SelectorEnd::Ok);
    EXPECT_THAT(selector->SelectedFiles(),
                ElementsAre(kLib + "one.SQ4", kLib + "three.SQ4", kLib + "two.SQ4"));
    view.name = "ONE";
    EXPECT_EQ(selector->PressOk(prompt), SelectorEnd::Ok);
    EXPECT_THAT(selector->SelectedFiles(),
                ElementsAre(kLib + "ONE.SQ4", kLib + "three.SQ4", kLib + "two.SQ4"))
        << "the first entry comes once, whatever its case";
}

TEST_F(FileSelOk, RowsOfScriptsHaveTheFormOfALibrary) {
    OpenAt({"A:", "", "", "", "SC4"});
    view.typeIndex = 2;
    selector->FileTypeChanged();
    Select(Server("A:"));
    selector->ShowFilesList();
    SelectRows({"run", "walk"});
    EXPECT_EQ(selector->PressOk(prompt), SelectorEnd::Ok);
    EXPECT_EQ(selector->Result(), "A:\\run.SC4");
    EXPECT_THAT(selector->SelectedFiles(), ElementsAre("A:\\run.SC4", "A:\\.Sign\\.Lib\\run.SC4",
                                                       "A:\\.Sign\\.Lib\\walk.SC4"));
}

// Folders --------------------------------------------------------------------------------------

TEST_F(FileSelOk, PicksTheFolderWithoutAName) {
    At(K4_FILE_PICK, "");
    EXPECT_EQ(selector->PressOk(prompt), SelectorEnd::Ok);
    EXPECT_EQ(selector->Result(), "A:\\" + kType + ".Sign\\Default.Lib");
    EXPECT_THAT(selector->SelectedFiles(), ElementsAre(selector->Result()));
    Select(SignType("A:", kType));
    EXPECT_EQ(selector->PressOk(prompt), SelectorEnd::Ok);
    EXPECT_EQ(selector->Result(), "A:\\" + kType + ".Sign");
    Select(Server("B:"));
    EXPECT_EQ(selector->PressOk(prompt), SelectorEnd::Ok);
    EXPECT_EQ(selector->Result(), "B:");
    selector->Tree().Select(nullptr);
    EXPECT_EQ(selector->PressOk(prompt), SelectorEnd::Ok);
    EXPECT_EQ(selector->Result(), "");
}

TEST_F(FileSelOk, PicksAFolderThatIsntThereToo) {
    At(K4_FILE_PICK, "");
    Select(Library("A:", kType, "Default"));
    std::filesystem::remove_all(home / "drives/A");
    EXPECT_EQ(selector->PressOk(prompt), SelectorEnd::Ok);
    EXPECT_EQ(selector->Result(), "A:\\" + kType + ".Sign\\Default.Lib");
    EXPECT_THAT(selector->SelectedFiles(), ElementsAre());
}

TEST_F(FileSelOk, ANameWithoutALibraryPicksTheFolderIfThereIsOne) {
    At(K4_FILE_PICK, "name");
    Select(SignType("A:", kType));
    EXPECT_EQ(selector->PressOk(prompt), SelectorEnd::Ok);
    EXPECT_EQ(selector->Result(), "A:\\" + kType + ".Sign");
    EXPECT_EQ(Remembered().library, "Default") << "the values aren't written on this path";
}

// The file manager -----------------------------------------------------------------------------

TEST_F(FileSelOk, TheManagerTellsWhatItCouldntOpen) {
    k4cmn::ScopedProvider<k4cmn::Shell> use(recording);
    for (const std::uint32_t code : {0u, 2u, 31u, 32u}) {
        recording.openCode = code;
        At(K4_FILE_MANAGER, "one");
        prompt.Expect("ERROR: Could not edit " + kLib + "one.SQ4");
        EXPECT_EQ(selector->PressOk(prompt), SelectorEnd::Stay);
    }
}

// Ends -----------------------------------------------------------------------------------------

TEST_F(FileSelOk, CancelEmptiesTheResult) {
    At(K4_FILE_OPEN, "one");
    selector->PressOk(prompt);
    EXPECT_NE(selector->Result(), "");
    selector->Cancel();
    EXPECT_EQ(selector->Result(), "");
}

TEST_F(FileSelOk, WorksWithoutARegistry) {
    At(K4_FILE_OPEN, "one");
    k4cmn::Provided<k4cmn::RegistryProvider>::Install(nullptr);
    EXPECT_EQ(selector->PressOk(prompt), SelectorEnd::Ok);
    k4cmn::Provided<k4cmn::RegistryProvider>::Install(&registry);
    EXPECT_EQ(selector->Result(), kLib + "one.SQ4");
}

// The search -----------------------------------------------------------------------------------

TEST_F(FileSelOk, TheSearchIsGivenTheTypeOrTheIndex) {
    for (int type = 0; type <= 9; ++type) {
        Remember({"A:", kType, "Default", "", "SD4"});
        Make().SetType(static_cast<tag_K4_FILE_TYPE>(type));
        Open();
        EXPECT_EQ(selector->SearchType(), type == 7 ? 1 : type == 6 ? 0 : type);
    }
}

TEST_F(FileSelOk, WhatTheSearchFoundIsTaken) {
    At(K4_FILE_OPEN, "");
    const k4cmn::FoundFile found{"A:", kType, "Default", "two", K4_FILE_TYPE_SCHEDULE};
    Select(Server("B:"));
    EXPECT_EQ(selector->AfterSearch(&found, prompt), SelectorEnd::Ok);
    EXPECT_EQ(selector->Result(), kLib + "two.SQ4");
}

TEST_F(FileSelOk, AFoundFileIsTakenAlsoWhereTheListDoesntShowIt) {
    MakeFile(kLib + "old.SQ4", "x", kNow - 90 * 86400);
    At(K4_FILE_OPEN, "one");
    view.lastModified = 0;  // today
    const k4cmn::FoundFile found{"A:", kType, "Default", "old", K4_FILE_TYPE_SEQUENCE};
    EXPECT_EQ(selector->AfterSearch(&found, prompt), SelectorEnd::Ok);
    EXPECT_EQ(selector->Result(), kLib + "old.SQ4");
    EXPECT_THAT(selector->SelectedFiles(), ElementsAre(kLib + "old.SQ4")) << "no row of before";
    EXPECT_EQ(view.name, "old");
    EXPECT_EQ(Remembered().file, "old");
}

TEST_F(FileSelOk, AFoundFileThatIsOnlyThereInAnotherTypeIsntTheOneOfBefore) {
    MakeFile(kLib + "plan.SD4");
    At(K4_FILE_OPEN, "one");
    const k4cmn::FoundFile found{"A:", kType, "Default", "plan", K4_FILE_TYPE_SCHEDULE};
    prompt.ExpectQuestion(kLib + "plan.SQ4\nFile not found.\nDo you want to create a new file?",
                          k4cmn::MessageButtons::YesNoCancel, k4cmn::MessageAnswer::No);
    EXPECT_EQ(selector->AfterSearch(&found, prompt), SelectorEnd::Stay);
}

TEST_F(FileSelOk, ASearchThatEndedWithoutAFileTakesNone) {
    At(K4_FILE_OPEN, "one");
    const auto unknown = static_cast<tag_K4_FILE_TYPE>(-1);
    for (const char* server : {"", "A:"}) {
        const k4cmn::FoundFile found{server, kType, "Default", "", unknown};
        prompt.ExpectQuestion("\nFile not found.\nDo you want to create a new file?",
                              k4cmn::MessageButtons::YesNoCancel, k4cmn::MessageAnswer::No);
        EXPECT_EQ(selector->AfterSearch(&found, prompt), SelectorEnd::Stay);
        EXPECT_EQ(selector->Result(), "");
    }
    Make().SetType(K4_FILE_TYPE_SEQUENCE);
    Open();
    const k4cmn::FoundFile found{"A:", kType, "Default", "", unknown};
    prompt.Expect("Invalid file type.\n");
    EXPECT_EQ(selector->AfterSearch(&found, prompt), SelectorEnd::Stay);
}

TEST_F(FileSelOk, AFoundFileWithALongNameIsRefusedAndItsLibraryShown) {
    const std::string name(33, 'x');
    MakeFile(kLib + name + ".SQ4");
    At(K4_FILE_OPEN, "one");
    const k4cmn::FoundFile found{"A:", kType, "Default", name, K4_FILE_TYPE_SEQUENCE};
    EXPECT_EQ(selector->AfterSearch(&found, prompt), SelectorEnd::Stay);
    EXPECT_GT(view.refused, 0);
    EXPECT_THAT(Names(), testing::Contains(name));
    EXPECT_EQ(view.name, name);
}

TEST_F(FileSelOk, AFoundFileOfAnotherTypeIsRefused) {
    Remember({"A:", kType, "Default", "", "SQ4"});
    Make().SetType(K4_FILE_TYPE_SEQUENCE);
    Open();
    k4cmn::FoundFile found{"A:", kType, "Default", "two", K4_FILE_TYPE_SCHEDULE};
    prompt.Expect("Invalid file type.\n");
    EXPECT_EQ(selector->AfterSearch(&found, prompt), SelectorEnd::Stay);
    EXPECT_EQ(selector->Result(), "");
    found.type = K4_FILE_TYPE_SEQUENCE;
    EXPECT_EQ(selector->AfterSearch(&found, prompt), SelectorEnd::Ok);
    EXPECT_EQ(selector->Result(), kLib + "two.SQ4");
}

TEST_F(FileSelOk, ASearchWithoutOkRefillsTheList) {
    At(K4_FILE_OPEN, "");
    MakeFile(kLib + "later.SQ4");
    EXPECT_EQ(selector->AfterSearch(nullptr, prompt), SelectorEnd::Stay);
    EXPECT_THAT(Names(), ElementsAre("later", "one", "three", "two"));
}

}  // namespace
