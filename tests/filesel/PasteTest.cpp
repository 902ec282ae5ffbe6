#include "k4cmndlg/filesel/FilePaste.h"

#include <gmock/gmock.h>

#include "tests/filesel/SelectorFixture.h"
#include "tests/support/RecordingShell.h"

namespace {

namespace fs = std::filesystem;
using k4cmn::FileClipboard;
using k4cmn::FilePaste;
using k4cmn::MessageAnswer;
using k4cmn::MessageButtons;
using testing::ElementsAre;
using Texts = std::vector<std::string>;

constexpr char kT[] = "16x80.Mono1.LED";
constexpr char kNoSignType[] = "Cannot paste files -- Sign Type not specified";
constexpr char kNoLibrary[] = "Cannot paste files -- Library not specified";

std::string Type(const std::string& server) {
    return server + "\\" + kT + ".Sign\\";
}
std::string Lib(const std::string& server, const std::string& library = "L") {
    return Type(server) + library + ".Lib\\";
}

class Paste : public k4test::SelectorFixture {
 protected:
    void SetUp() override {
        SelectorFixture::SetUp();
        MakeFile(Lib("A:") + "one.SQ4", "1");
        MakeFile(Lib("A:") + "two.SQ4", "22");
    }

    void CopyFiles(bool cut = false, const Texts& names = {"one.SQ4", "two.SQ4"}) {
        clipboard = {Lib("A:"), names, "A:", kT, "L", cut};
    }
    void CopyFolder(const std::string& library, bool cut = false) {
        clipboard = {"", {}, "A:", kT, library, cut};
    }
    bool Run(const std::string& server, const std::string& signType = {},
             const std::string& library = {}, const std::string& extension = "SQ4") {
        return FilePaste({server, signType, library, "", extension}, clipboard, prompt).Run();
    }
    void Asks(const std::string& text, MessageAnswer answer) {
        prompt.ExpectQuestion(text, MessageButtons::OkCancel, answer);
    }

    FileClipboard clipboard;
};

// Files ----------------------------------------------------------------------------------------

TEST_F(Paste, FilesGoToTheSelectedLibrary) {
    MakeFolder(Lib("B:", "M"));
    CopyFiles();
    const FileClipboard before = clipboard;
    EXPECT_TRUE(Run("B:", kT, "M"));
    EXPECT_THAT(FilesIn(Lib("B:", "M")), ElementsAre("one.SQ4", "two.SQ4"));
    EXPECT_EQ(Content(Lib("B:", "M") + "two.SQ4"), "22");
    EXPECT_EQ(clipboard, before) << "a plain copy can be pasted again";
    EXPECT_TRUE(Exists(Lib("A:") + "one.SQ4"));
}

TEST_F(Paste, CutFilesMove) {
    MakeFolder(Lib("A:", "M"));
    CopyFiles(true);
    EXPECT_TRUE(Run("A:", kT, "M"));
    EXPECT_THAT(FilesIn(Lib("A:", "M")), ElementsAre("one.SQ4", "two.SQ4"));
    EXPECT_THAT(FilesIn(Lib("A:")), ElementsAre());
    EXPECT_EQ(clipboard, FileClipboard());
    EXPECT_TRUE(Exists(Lib("A:"))) << "the folder of files stays";
}

TEST_F(Paste, FilesFindTheirSignTypeAndLibrary) {
    MakeFolder(Lib("B:"));
    CopyFiles();
    EXPECT_TRUE(Run("B:"));
    EXPECT_THAT(FilesIn(Lib("B:")), ElementsAre("one.SQ4", "two.SQ4"));
    fs::remove_all(Native(Lib("B:")));
    MakeFolder(Lib("B:"));
    EXPECT_TRUE(Run("B:", kT));
    EXPECT_THAT(FilesIn(Lib("B:")), ElementsAre("one.SQ4", "two.SQ4"));
}

TEST_F(Paste, FilesMakeWhatIsMissingAfterAQuestionEach) {
    CopyFiles();
    Asks("Create Sign Type: \n" + Type("B:") + "?", MessageAnswer::Ok);
    Asks("Create Library: \n" + Lib("B:") + "?", MessageAnswer::Ok);
    EXPECT_TRUE(Run("B:"));
    EXPECT_THAT(FilesIn(Lib("B:")), ElementsAre("one.SQ4", "two.SQ4"));
}

TEST_F(Paste, CancelledQuestionsEndThePaste) {
    CopyFiles(true);
    const FileClipboard before = clipboard;
    Asks("Create Sign Type: \n" + Type("B:") + "?", MessageAnswer::Cancel);
    prompt.Expect(kNoSignType);
    EXPECT_FALSE(Run("B:"));
    EXPECT_FALSE(Exists(Type("B:")));
    EXPECT_EQ(clipboard, before);

    Asks("Create Sign Type: \n" + Type("B:") + "?", MessageAnswer::Ok);
    Asks("Create Library: \n" + Lib("B:") + "?", MessageAnswer::Cancel);
    prompt.Expect(kNoLibrary);
    EXPECT_FALSE(Run("B:"));
    EXPECT_TRUE(Exists(Type("B:"))) << "what was made stays";
    EXPECT_EQ(clipboard, before);
}

TEST_F(Paste, FilesOfAnotherSignTypeAreRefused) {
    CopyFiles();
    prompt.Expect("Incorrect sign type specified");
    EXPECT_FALSE(Run("B:", "1.2.3", "L"));
}

TEST_F(Paste, TheSelectedSignTypesCaseDoesNotCount) {
    MakeFolder("B:\\16X80.mono1.led.Sign\\M.Lib");
    CopyFiles();
    EXPECT_TRUE(Run("B:", "16X80.mono1.led", "M"));
    EXPECT_THAT(FilesIn("B:\\16X80.mono1.led.Sign\\M.Lib"), ElementsAre("one.SQ4", "two.SQ4"));
}

TEST_F(Paste, ASearchedSignTypesCaseCounts) {
    MakeFolder("B:\\16X80.mono1.led.Sign\\l.Lib");
    CopyFiles();
    Asks("Create Sign Type: \n" + Type("B:") + "?", MessageAnswer::Ok);
    prompt.Expect("Error Creating: " + Type("B:"));
    Asks("Create Library: \n" + Lib("B:") + "?", MessageAnswer::Ok);
    prompt.Expect("Error Creating: " + Lib("B:"));
    EXPECT_TRUE(Run("B:")) << "the paste goes on";
    EXPECT_THAT(FilesIn("B:\\16X80.mono1.led.Sign\\l.Lib"), ElementsAre("one.SQ4", "two.SQ4"));
}

TEST_F(Paste, WhereNothingCanBeMadeThePasteFails) {
    CopyFiles(true);
    Asks("Create Sign Type: \n" + Type("Q:") + "?", MessageAnswer::Ok);
    prompt.Expect("Error Creating: " + Type("Q:"));
    Asks("Create Library: \n" + Lib("Q:") + "?", MessageAnswer::Ok);
    prompt.Expect("Error Creating: " + Lib("Q:"));
    prompt.Expect("Paste failed");
    EXPECT_TRUE(Run("Q:"));
    EXPECT_THAT(FilesIn(Lib("A:")), ElementsAre("one.SQ4", "two.SQ4")) << "nothing is deleted";
    EXPECT_EQ(clipboard, FileClipboard());
}

TEST_F(Paste, ScriptsGoToTheServersRoot) {
    MakeFile("A:\\run.SC4", "r");
    clipboard = {"A:\\", {"run.SC4"}, "", "", "", false};
    EXPECT_TRUE(Run("B:", "", "", "SC4"));
    EXPECT_EQ(Content("B:\\run.SC4"), "r");
}

TEST_F(Paste, IntoTheSameFolderDoesNothing) {
    CopyFiles();
    EXPECT_TRUE(Run("A:", kT, "L"));
    EXPECT_TRUE(ui.questions.empty());
    CopyFiles(true);
    EXPECT_TRUE(Run("A:", kT, "L"));
    EXPECT_THAT(FilesIn(Lib("A:")), ElementsAre("one.SQ4", "two.SQ4"));
    EXPECT_EQ(clipboard, FileClipboard());
}

TEST_F(Paste, AFileThatWasntReplacedIsntDeleted) {
    MakeFolder(Lib("B:"));
    MakeFile(Lib("B:") + "one.SQ4", "another one");
    CopyFiles(true);
    ui.answer = k4suite::FileAnswer::No;
    EXPECT_TRUE(Run("B:", kT, "L"));
    EXPECT_EQ(Content(Lib("B:") + "one.SQ4"), "another one");
    EXPECT_EQ(Content(Lib("A:") + "one.SQ4"), "1");
    EXPECT_FALSE(Exists(Lib("A:") + "two.SQ4"));
}

TEST_F(Paste, CancelBetweenFilesLeavesNoneInPieces) {
    MakeFolder(Lib("B:"));
    for (int i = 0; i < 10; ++i)
        MakeFile(Lib("A:", "Many") + std::to_string(i) + ".SQ4", std::string(100000, 'x'));
    Texts names;
    for (int i = 0; i < 10; ++i)
        names.push_back(std::to_string(i) + ".SQ4");
    clipboard = {Lib("A:", "Many"), names, "A:", kT, "Many", true};
    ui.cancelAfter = 5;
    prompt.Expect("Paste failed");
    EXPECT_TRUE(Run("B:", kT, "L"));
    const Texts pasted = FilesIn(Lib("B:"));
    EXPECT_GT(pasted.size(), 0u);
    EXPECT_LT(pasted.size(), 10u);
    for (const std::string& name : pasted)
        EXPECT_EQ(Content(Lib("B:") + name).size(), 100000u);
    EXPECT_EQ(FilesIn(Lib("A:", "Many")).size(), 10u) << "nothing is deleted";
}

TEST_F(Paste, VanishedFilesFailThePaste) {
    MakeFolder(Lib("B:"));
    CopyFiles(true, {"one.SQ4", "gone.SQ4"});
    prompt.Expect("Paste failed");
    EXPECT_TRUE(Run("B:", kT, "L"));
    EXPECT_THAT(FilesIn(Lib("B:")), ElementsAre("one.SQ4"));
    EXPECT_TRUE(Exists(Lib("A:") + "one.SQ4"));
}

TEST_F(Paste, EachFailedDeletionIsTold) {
    k4test::RecordingShell recording;
    k4cmn::ScopedProvider<k4cmn::Shell> use(recording);
    recording.undeletable = {Lib("A:") + "one.SQ4", Lib("A:") + "two.SQ4"};
    MakeFolder(Lib("B:"));
    recording.onOperation = [this] {
        for (const char* name : {"one.SQ4", "two.SQ4"}) {
            fs::copy_file(Native(Lib("A:") + name), Native(Lib("B:")) / name);
            fs::last_write_time(Native(Lib("B:") + name),
                                fs::last_write_time(Native(Lib("A:") + name)));
        }
    };
    CopyFiles(true);
    prompt.Expect("Paste failed");
    prompt.Expect("Paste failed");
    EXPECT_TRUE(Run("B:", kT, "L"));
    ASSERT_EQ(recording.operations.size(), 1u);
    EXPECT_EQ(recording.operations[0].function, k4cmn::FO_COPY);
    EXPECT_EQ(k4cmn::UnpackPaths(recording.operations[0].from),
              (Texts{Lib("A:") + "one.SQ4", Lib("A:") + "two.SQ4"}));
    EXPECT_EQ(recording.operations[0].to, Lib("B:"));
    EXPECT_EQ(recording.operations[0].flags, k4cmn::FOF_FILESONLY);
    EXPECT_THAT(recording.calls,
                ElementsAre("version", "operation 2", "delete " + Lib("A:") + "one.SQ4",
                            "delete " + Lib("A:") + "two.SQ4"));
}

TEST_F(Paste, OddNamesAreNoTrouble) {
    const Texts names{"a\nb.SQ4", "q\"'.SQ4", "t\t.SQ4", "%s.SQ4", "-f.SQ4"};
    for (const std::string& name : names)
        MakeFile(Lib("A:") + name, name);
    MakeFolder(Lib("B:"));
    CopyFiles(true, names);
    EXPECT_TRUE(Run("B:", kT, "L"));
    for (const std::string& name : names)
        EXPECT_EQ(Content(Lib("B:") + name), name);
    EXPECT_THAT(FilesIn(Lib("A:")), ElementsAre("one.SQ4", "two.SQ4"));
}

// A library ------------------------------------------------------------------------------------

TEST_F(Paste, ALibraryGoesToAServer) {
    MakeFolder(Type("B:"));
    CopyFolder("L");
    Asks("Create Library: \n" + Lib("B:") + "?", MessageAnswer::Ok);
    EXPECT_TRUE(Run("B:"));
    EXPECT_THAT(FilesIn(Lib("B:")), ElementsAre("one.SQ4", "two.SQ4"));
    EXPECT_EQ(clipboard, (FileClipboard{"", {}, "A:", kT, "L", false}));
}

TEST_F(Paste, ALibraryGoesToTheSameOneElsewhere) {
    MakeFolder(Lib("B:"));
    CopyFolder("L");
    EXPECT_TRUE(Run("B:", kT, "l"));
    EXPECT_THAT(FilesIn(Lib("B:")), ElementsAre("one.SQ4", "two.SQ4"));
}

TEST_F(Paste, ACutLibraryMovesWithItsFolder) {
    MakeFolder(Lib("B:"));
    CopyFolder("L", true);
    EXPECT_TRUE(Run("B:", kT));
    EXPECT_THAT(FilesIn(Lib("B:")), ElementsAre("one.SQ4", "two.SQ4"));
    EXPECT_FALSE(Exists(Lib("A:")));
    EXPECT_EQ(clipboard, FileClipboard());
}

TEST_F(Paste, ALibraryIntoItselfDoesNothing) {
    CopyFolder("L");
    EXPECT_TRUE(Run("A:", kT, "L"));
    CopyFolder("L", true);
    EXPECT_TRUE(Run("A:", kT, "L"));
    EXPECT_THAT(FilesIn(Lib("A:")), ElementsAre("one.SQ4", "two.SQ4"));
    EXPECT_EQ(clipboard, FileClipboard());
}

TEST_F(Paste, ALibraryIntoAnotherPlaceIsRefused) {
    CopyFolder("L");
    const FileClipboard before = clipboard;
    prompt.Expect("Incorrect Library Specified");
    EXPECT_FALSE(Run("B:", kT, "M"));
    prompt.Expect("Incorrect sign type specified.");
    EXPECT_FALSE(Run("B:", "1.2.3", "L"));
    MakeFolder(Type("B:"));
    Asks("Create Library: \n" + Lib("B:") + "?", MessageAnswer::Cancel);
    prompt.Expect(kNoLibrary);
    EXPECT_FALSE(Run("B:", kT));
    EXPECT_EQ(clipboard, before);
}

TEST_F(Paste, WhatStaysInALibraryKeepsItsFolder) {
    MakeFolder(Lib("B:"));
    MakeFolder(Lib("A:") + "sub");
    CopyFolder("L", true);
    prompt.Expect("Error removing Library");
    EXPECT_TRUE(Run("B:", kT));
    EXPECT_THAT(FilesIn(Lib("A:")), ElementsAre());
    EXPECT_TRUE(Exists(Lib("A:") + "sub"));
}

TEST_F(Paste, AFailedCopyTriesToRemoveTheFolderAllTheSame) {
    MakeFolder(Lib("B:") + "one.SQ4");
    CopyFolder("L", true);
    prompt.Expect("Paste failed");
    prompt.Expect("Error removing Library");
    EXPECT_TRUE(Run("B:", kT));
    EXPECT_THAT(FilesIn(Lib("A:")), ElementsAre("one.SQ4", "two.SQ4"));
}

TEST_F(Paste, AnEmptyLibraryMoves) {
    MakeFolder(Lib("A:", "Empty"));
    MakeFolder(Lib("B:", "Empty"));
    CopyFolder("Empty", true);
    EXPECT_TRUE(Run("B:", kT));
    EXPECT_FALSE(Exists(Lib("A:", "Empty")));
}

// A sign type ----------------------------------------------------------------------------------

class PasteSignType : public Paste {
 protected:
    void SetUp() override {
        Paste::SetUp();
        MakeFile(Lib("A:", "M") + "three.SQ4", "333");
    }
    /// Libraries come in the order of the file system.
    Texts Libraries() {
        Texts names;
        files.FindFiles(names, Type("A:") + "*.Lib", 1);
        for (std::string& name : names)
            name.resize(name.size() - 4);
        return names;
    }
};

TEST_F(PasteSignType, AsksOnceForItAndOnceForEachLibrary) {
    CopyFolder("");
    const Texts libraries = Libraries();
    Asks("Create Sign Type: \n" + Type("B:") + "?", MessageAnswer::Ok);
    for (const std::string& library : libraries)
        Asks("Create Library: \n" + Lib("B:", library) + "?", MessageAnswer::Ok);
    EXPECT_TRUE(Run("B:"));
    EXPECT_THAT(FilesIn(Lib("B:")), ElementsAre("one.SQ4", "two.SQ4"));
    EXPECT_THAT(FilesIn(Lib("B:", "M")), ElementsAre("three.SQ4"));
    EXPECT_EQ(clipboard, (FileClipboard{"", {}, "A:", kT, libraries.back(), false}))
        << "the last library's name stays";
}

TEST_F(PasteSignType, ASecondPasteIsOfTheLastLibraryAlone) {
    MakeFolder(Lib("B:"));
    MakeFolder(Lib("B:", "M"));
    CopyFolder("");
    EXPECT_TRUE(Run("B:"));
    const std::string last = clipboard.library;
    fs::remove_all(home / "drives/B");
    MakeFolder(Lib("B:", last));
    EXPECT_TRUE(Run("B:"));
    EXPECT_NE(FilesIn(Lib("B:", last)), Texts{});
    EXPECT_FALSE(Exists(Lib("B:", last == "L" ? "M" : "L")));
}

TEST_F(PasteSignType, CancelLeavesWhatWasCopied) {
    CopyFolder("", true);
    const Texts libraries = Libraries();
    MakeFolder(Lib("B:", libraries[0]));
    Asks("Create Library: \n" + Lib("B:", libraries[1]) + "?", MessageAnswer::Cancel);
    prompt.Expect(kNoLibrary);
    EXPECT_FALSE(Run("B:"));
    EXPECT_NE(FilesIn(Lib("B:", libraries[0])), Texts{});
    EXPECT_FALSE(Exists(Lib("A:", libraries[0])));
    EXPECT_TRUE(Exists(Lib("A:", libraries[1])));
    EXPECT_EQ(clipboard, (FileClipboard{"", {}, "A:", kT, libraries[1], true}));
}

TEST_F(PasteSignType, ACutOneMovesWithItsFolders) {
    MakeFolder(Lib("B:"));
    MakeFolder(Lib("B:", "M"));
    CopyFolder("", true);
    EXPECT_TRUE(Run("B:", kT));
    EXPECT_FALSE(Exists(Type("A:")));
    EXPECT_THAT(FilesIn(Lib("B:", "M")), ElementsAre("three.SQ4"));
    EXPECT_EQ(clipboard, FileClipboard());
}

TEST_F(PasteSignType, WhatStaysInItKeepsItsFolder) {
    MakeFolder(Lib("B:"));
    MakeFolder(Lib("B:", "M"));
    MakeFile(Type("A:") + "note.txt");
    CopyFolder("", true);
    prompt.Expect("Error removing Library");
    EXPECT_TRUE(Run("B:", kT));
    EXPECT_TRUE(Exists(Type("A:") + "note.txt"));
    EXPECT_FALSE(Exists(Lib("A:")));
}

TEST_F(PasteSignType, IntoItselfDoesNothing) {
    CopyFolder("", true);
    EXPECT_TRUE(Run("A:", kT));
    EXPECT_THAT(FilesIn(Lib("A:")), ElementsAre("one.SQ4", "two.SQ4"));
    EXPECT_EQ(clipboard, FileClipboard());
}

TEST_F(PasteSignType, IntoALibraryIsRefused) {
    CopyFolder("");
    prompt.Expect("Invalid library");
    EXPECT_FALSE(Run("B:", kT, "L"));
    EXPECT_EQ(clipboard.library, "");
}

TEST_F(PasteSignType, WithoutLibrariesMakesTheFolderAlone) {
    MakeFolder("A:\\1.2.3.Sign");
    clipboard = {"", {}, "A:", "1.2.3", "", true};
    Asks("Create Sign Type: \nB:\\1.2.3.Sign\\?", MessageAnswer::Ok);
    EXPECT_TRUE(Run("B:"));
    EXPECT_TRUE(Exists("B:\\1.2.3.Sign"));
    EXPECT_FALSE(Exists("A:\\1.2.3.Sign"));
}

}  // namespace
