#include <gmock/gmock.h>

#include "tests/filesel/SelectorFixture.h"
#include "tests/filesel/TreeText.h"
#include "tests/support/RecordingShell.h"

namespace {

using k4cmn::MessageAnswer;
using k4cmn::MessageButtons;
using testing::ElementsAre;
using Texts = std::vector<std::string>;

const std::string kType = k4test::kType;
const std::string kSign = "A:\\" + kType + ".Sign\\";
const std::string kLib = kSign + "Default.Lib\\";

class FileSelLibraries : public k4test::SelectorFixture {
 protected:
    void SetUp() override {
        SelectorFixture::SetUp();
        MakeFile(kLib + "one.SQ4", "one.SQ4");
        OpenAt({"A:", kType, "Default", "", "SQ4"});
    }
};

// Create Library -------------------------------------------------------------------------------

TEST_F(FileSelLibraries, CreateLibraryNeedsAServerAndASignType) {
    Select(Server("A:"));
    prompt.Expect("Must select server and sign type to create a library.");
    selector->CreateLibrary(prompt);
    selector->Tree().Select(nullptr);
    prompt.Expect("Must select server and sign type to create a library.");
    selector->CreateLibrary(prompt);
    EXPECT_THAT(view.libraryQuestions, ElementsAre());
}

TEST_F(FileSelLibraries, CreateLibraryMakesAFolderAndShowsIt) {
    view.libraryNames = {{true, "New one"}};
    prompt.ExpectQuestion("Create Library: \n" + kSign + "New one.Lib?", MessageButtons::OkCancel,
                          MessageAnswer::Ok);
    selector->CreateLibrary(prompt);
    EXPECT_THAT(view.libraryQuestions, ElementsAre("A:\\" + kType + "|"));
    EXPECT_TRUE(Exists(kSign + "New one.Lib"));
    k4cmn::FileTreeItem* type = k4cmn::FileTree::FindSignType(*Server("A:"), kType);
    EXPECT_EQ(k4test::TreeText(*type), "3:Default\n3:New one\n");
    EXPECT_TRUE(type->IsExpanded());
    EXPECT_EQ(selector->Tree().Selected(), type);
}

TEST_F(FileSelLibraries, CreateLibraryAtASignTypeRefillsIt) {
    k4cmn::FileTreeItem* type = SignType("A:", kType);
    Select(type);
    view.libraryNames = {{true, "New"}};
    prompt.ExpectQuestion("Create Library: \n" + kSign + "New.Lib?", MessageButtons::OkCancel,
                          MessageAnswer::Ok);
    selector->CreateLibrary(prompt);
    EXPECT_EQ(k4test::TreeText(*type), "3:Default\n3:New\n");
    EXPECT_EQ(selector->Tree().Selected(), type);
}

TEST_F(FileSelLibraries, CancelOfTheQuestionBringsTheDialogBack) {
    view.libraryNames = {{true, "New"}, {true, ""}, {false, ""}};
    const std::string question = "Create Library: \n" + kSign + "New.Lib?";
    prompt.ExpectQuestion(question, MessageButtons::OkCancel, MessageAnswer::Cancel);
    prompt.ExpectQuestion(question, MessageButtons::OkCancel, MessageAnswer::Cancel);
    selector->CreateLibrary(prompt);
    EXPECT_THAT(view.libraryQuestions, ElementsAre("A:\\" + kType + "|", "A:\\" + kType + "|New",
                                                   "A:\\" + kType + "|New"));
    EXPECT_FALSE(Exists(kSign + "New.Lib"));
}

TEST_F(FileSelLibraries, ALibraryThatCantBeMadeIsTold) {
    view.libraryNames = {{true, "Default"}};
    prompt.ExpectQuestion("Create Library: \n" + kSign + "Default.Lib?", MessageButtons::OkCancel,
                          MessageAnswer::Ok);
    prompt.Expect("Error Creating: " + kSign + "Default.Lib");
    selector->CreateLibrary(prompt);
    EXPECT_EQ(prompt.Pending(), 0u);
}

TEST_F(FileSelLibraries, ALibraryLiesInItsSignTypeAlone) {
    for (const char* name : {"..\\x", "../x", "Default.Lib\\x", "\\x", "..\\..\\..\\x"}) {
        const std::string path = kSign + name + ".Lib";
        view.libraryNames = {{true, name}};
        prompt.ExpectQuestion("Create Library: \n" + path + "?", MessageButtons::OkCancel,
                              MessageAnswer::Ok);
        prompt.Expect("Error Creating: " + path);
        Select(SignType("A:", kType));
        selector->CreateLibrary(prompt);
        EXPECT_FALSE(Exists(path)) << name;
    }
}

// Remove Library -------------------------------------------------------------------------------

TEST_F(FileSelLibraries, RemoveLibraryNeedsAWholePlace) {
    for (k4cmn::FileTreeItem* item : {SignType("A:", kType), Server("A:")}) {
        Select(item);
        prompt.Expect("Must select server, sign type and the library to remove.");
        selector->RemoveLibrary(prompt);
    }
    EXPECT_TRUE(Exists(kLib));
}

TEST_F(FileSelLibraries, RemoveLibraryTakesFolderAndItem) {
    MakeFolder(kSign + "Other.Lib");
    Select(Library("A:", kType, "Default"));
    selector->RemoveLibrary(prompt);
    EXPECT_FALSE(Exists(kLib));
    k4cmn::FileTreeItem* type = k4cmn::FileTree::FindSignType(*Server("A:"), kType);
    EXPECT_EQ(k4test::TreeText(*type), "3:Other\n");
    EXPECT_THAT(Names(), ElementsAre());
    Select(k4cmn::FileTree::FindLibrary(*type, "Other"));
    selector->RemoveLibrary(prompt);
    EXPECT_EQ(k4test::TreeText(*type), "0:No Libraries\n");
}

TEST_F(FileSelLibraries, AFailedRemovalLeavesTheTree) {
    k4test::RecordingShell recording;
    recording.operationResult = 1;
    k4cmn::ScopedProvider<k4cmn::Shell> use(recording);
    prompt.Expect("Error removing Library");
    selector->RemoveLibrary(prompt);
    EXPECT_EQ(selector->Tree().Selected()->Text(), "Default");
    ASSERT_EQ(recording.operations.size(), 1u);
    EXPECT_EQ(k4cmn::UnpackPaths(recording.operations[0].from), Texts{kSign + "Default.Lib"});
    EXPECT_EQ(recording.operations[0].flags, 64);
}
}  // namespace
