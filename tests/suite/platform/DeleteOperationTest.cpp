#include "suite/platform/DeleteOperation.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "k4cmndlg/frame/contracts/Shell.h"
#include "suite/platform/FileOperationResult.h"
#include "suite/platform/SilentFileOperationUi.h"
#include "tests/suite/platform/OrdinaryUser.h"
#include "tests/suite/platform/ScopedEnvironment.h"
#include "tests/suite/platform/ScriptedFileUi.h"
#include "tests/support/TempFolder.h"

namespace fs = std::filesystem;
using k4suite::FileAnswer;
using k4suite::FileQuestion;
using k4suite::kFileOperationCancelled;
using k4suite::kFileOperationDone;
using k4suite::kFileOperationFailed;
using k4test::ScopedEnvironment;
using k4test::ScriptedFileUi;
using k4test::TempFolder;

namespace {

constexpr std::uint16_t kUndo = k4cmn::FOF_ALLOWUNDO;
constexpr std::uint16_t kNoQuestion = k4cmn::FOF_NOCONFIRMATION;

class DeleteOperationTest : public testing::Test {
 protected:
    std::uint32_t Delete(const std::vector<std::string>& names, std::uint16_t flags) {
        std::vector<std::string> paths;
        for (const std::string& name : names)
            paths.push_back(name.empty() ? name : (folder / name).string());
        return k4suite::DeleteFiles(paths, flags, ui, k4suite::MountTopOf);
    }
    bool IsThere(const std::string& name) { return fs::exists(folder / name); }
    bool IsInTrash(const std::string& name) { return IsThere("data/Trash/files/" + name); }
    /// Makes the trash impossible.
    void BlockTrash() { folder.Write("data", "a file where the folder would be"); }

    TempFolder folder;
    ScopedEnvironment dataHome{"XDG_DATA_HOME", (folder / "data").string()};
    ScriptedFileUi ui;
};

TEST_F(DeleteOperationTest, OneFileIsNamedInTheQuestion) {
    folder.Write("a.txt");
    ui.answers = {FileAnswer::Yes};
    EXPECT_EQ(Delete({"a.txt"}, kUndo), kFileOperationDone);
    EXPECT_EQ(
        ui.questions,
        (std::vector<FileQuestion>{
            {"Delete", "Are you sure you want to move 'a.txt' to the trash?", false, false}}));
    EXPECT_TRUE(IsInTrash("a.txt"));
}

TEST_F(DeleteOperationTest, SeveralAreCountedInTheQuestion) {
    folder.Write("a");
    folder.Write("b/c");
    ui.answers = {FileAnswer::Yes};
    EXPECT_EQ(Delete({"a", "b"}, kUndo), kFileOperationDone);
    ASSERT_EQ(ui.questions.size(), 1u);
    EXPECT_EQ(ui.questions[0].text, "Are you sure you want to move these 2 items to the trash?");
    EXPECT_TRUE(IsInTrash("a"));
    EXPECT_TRUE(IsInTrash("b/c"));
}

TEST_F(DeleteOperationTest, WithoutUndoItAsksAndDeletesForGood) {
    folder.Write("a/b/c");
    ui.answers = {FileAnswer::Yes};
    EXPECT_EQ(Delete({"a"}, 0), kFileOperationDone);
    EXPECT_EQ(ui.questions,
              (std::vector<FileQuestion>{
                  {"Delete", "Are you sure you want to delete 'a' for good?", false, true}}));
    EXPECT_FALSE(IsThere("a"));
    EXPECT_FALSE(IsThere("data"));
}

TEST_F(DeleteOperationTest, DeletingALinkForGoodLeavesItsTarget) {
    folder.Write("tree/a", "content");
    fs::create_directory_symlink(folder / "tree", folder / "link");
    EXPECT_EQ(Delete({"link"}, kNoQuestion), kFileOperationDone);
    EXPECT_FALSE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(folder.Read("tree/a"), "content");
}

TEST_F(DeleteOperationTest, NoAndCancelEndItBeforeItBegins) {
    for (const FileAnswer answer : {FileAnswer::No, FileAnswer::Cancel}) {
        folder.Write("a");
        ui.answers = {answer};
        EXPECT_EQ(Delete({"a"}, kUndo), kFileOperationCancelled);
        EXPECT_TRUE(IsThere("a"));
    }
    EXPECT_TRUE(ui.begun.empty());
}

TEST_F(DeleteOperationTest, NoConfirmationAsksNothing) {
    folder.Write("a");
    EXPECT_EQ(Delete({"a"}, kUndo | kNoQuestion), kFileOperationDone);
    EXPECT_TRUE(ui.questions.empty());
    EXPECT_TRUE(IsInTrash("a"));
}

TEST_F(DeleteOperationTest, ProgressGoesByItems) {
    folder.Write("a");
    folder.Write("b");
    EXPECT_EQ(Delete({"a", "b"}, kUndo | kNoQuestion), kFileOperationDone);
    EXPECT_EQ(ui.begun, std::vector<std::string>{"Delete"});
    EXPECT_EQ(ui.steps, (std::vector<ScriptedFileUi::Step>{{0, 2, "a"}, {1, 2, "b"}}));
    EXPECT_EQ(ui.ended, 1);
}

TEST_F(DeleteOperationTest, SilentShowsNoProgressAndStillAsks) {
    folder.Write("a");
    ui.answers = {FileAnswer::Yes};
    EXPECT_EQ(Delete({"a"}, kUndo | k4cmn::FOF_SILENT), kFileOperationDone);
    EXPECT_EQ(ui.questions.size(), 1u);
    EXPECT_TRUE(ui.begun.empty());
    EXPECT_TRUE(ui.steps.empty());
    EXPECT_EQ(ui.ended, 0);
}

TEST_F(DeleteOperationTest, CancelInTheMiddleLeavesTheRest) {
    folder.Write("a");
    folder.Write("b");
    ui.goOn = [](const ScriptedFileUi::Step& step) { return step.done == 0; };
    EXPECT_EQ(Delete({"a", "b"}, kUndo | kNoQuestion), kFileOperationCancelled);
    EXPECT_FALSE(IsThere("a"));
    EXPECT_TRUE(IsThere("b"));
    EXPECT_EQ(ui.ended, 1);
}

TEST_F(DeleteOperationTest, MissingFileFailsAndTheOthersGoAllTheSame) {
    folder.Write("b");
    ui.answers = {FileAnswer::Yes};
    EXPECT_EQ(Delete({"a", "", "b"}, kUndo), kFileOperationFailed);
    ASSERT_EQ(ui.questions.size(), 1u);
    EXPECT_EQ(ui.questions[0].text, "Are you sure you want to move 'b' to the trash?");
    EXPECT_TRUE(IsInTrash("b"));
}

TEST_F(DeleteOperationTest, NothingThereFailsWithoutAQuestion) {
    EXPECT_EQ(Delete({"a", "b"}, kUndo), kFileOperationFailed);
    EXPECT_EQ(Delete({"a"}, 0), kFileOperationFailed);
    EXPECT_TRUE(ui.questions.empty());
    EXPECT_TRUE(ui.begun.empty());
}

TEST_F(DeleteOperationTest, NoPathsAtAllAreAllGone) {
    EXPECT_EQ(Delete({}, kUndo), kFileOperationDone);
    EXPECT_TRUE(ui.questions.empty());
}

TEST_F(DeleteOperationTest, WhatNoTrashCanHoldIsAskedAboutAgain) {
    BlockTrash();
    folder.Write("a");
    ui.answers = {FileAnswer::Yes, FileAnswer::Yes};
    EXPECT_EQ(Delete({"a"}, kUndo), kFileOperationDone);
    ASSERT_EQ(ui.questions.size(), 2u);
    EXPECT_EQ(
        ui.questions[1],
        (FileQuestion{"Delete",
                      "'a' can't be moved to the trash (Not a directory).\nDelete it for good?",
                      false, true}));
    EXPECT_FALSE(IsThere("a"));
}

TEST_F(DeleteOperationTest, WhatNoTrashCanHoldIsNeverDestroyedUnasked) {
    BlockTrash();
    folder.Write("a", "content");
    EXPECT_EQ(Delete({"a"}, kUndo | kNoQuestion), kFileOperationFailed);
    EXPECT_TRUE(ui.questions.empty());
    EXPECT_EQ(folder.Read("a"), "content");
}

struct AnswersRow {
    const char* what;
    std::deque<FileAnswer> answers;  ///< behind the Yes to the first question
    std::string left;                ///< of "abc"
    std::uint32_t result;
    std::size_t questions;
};

class DestroyAnswers : public DeleteOperationTest,
                       public testing::WithParamInterface<AnswersRow> {};

TEST_P(DestroyAnswers, DecideForOneOrForAll) {
    const AnswersRow& row = GetParam();
    BlockTrash();
    for (const char* name : {"a", "b", "c"})
        folder.Write(name);
    ui.answers = row.answers;
    ui.answers.push_front(FileAnswer::Yes);

    EXPECT_EQ(Delete({"a", "b", "c"}, kUndo), row.result);

    std::string left;
    for (const char* name : {"a", "b", "c"})
        left += IsThere(name) ? name : "";
    EXPECT_EQ(left, row.left);
    ASSERT_EQ(ui.questions.size(), row.questions);
    EXPECT_TRUE(ui.questions.back().several);
    EXPECT_EQ(ui.ended, 1);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DestroyAnswers,
    testing::Values(
        AnswersRow{"YesEach",
                   {FileAnswer::Yes, FileAnswer::Yes, FileAnswer::Yes},
                   "",
                   kFileOperationDone,
                   4},
        AnswersRow{"YesToAll", {FileAnswer::YesToAll}, "", kFileOperationDone, 2},
        AnswersRow{"NoToAll", {FileAnswer::NoToAll}, "abc", kFileOperationFailed, 2},
        AnswersRow{
            "NoThenYesToAll", {FileAnswer::No, FileAnswer::YesToAll}, "a", kFileOperationFailed, 3},
        AnswersRow{"YesThenCancel",
                   {FileAnswer::Yes, FileAnswer::Cancel},
                   "bc",
                   kFileOperationCancelled,
                   3}),
    [](const auto& row) { return row.param.what; });

TEST_F(DeleteOperationTest, FileThatCannotBeTakenAwayFailsWithoutAnotherQuestion) {
    folder.Write("locked/a", "content");
    const k4test::OrdinaryUser user(folder.Path());
    fs::permissions(folder / "locked", fs::perms::owner_read | fs::perms::owner_exec);
    ui.answers = {FileAnswer::Yes};
    EXPECT_EQ(Delete({"locked/a"}, kUndo), kFileOperationFailed);
    EXPECT_EQ(ui.questions.size(), 1u);
    EXPECT_EQ(folder.Read("locked/a"), "content");
    EXPECT_EQ(Delete({"locked/a"}, kNoQuestion), kFileOperationFailed);
    EXPECT_EQ(folder.Read("locked/a"), "content");
}

TEST_F(DeleteOperationTest, WithoutAWindowNothingIsDeletedThatWouldBeAskedAbout) {
    folder.Write("a");
    k4suite::SilentFileOperationUi silent;
    EXPECT_EQ(k4suite::DeleteFiles({(folder / "a").string()}, kUndo, silent, k4suite::MountTopOf),
              kFileOperationCancelled);
    EXPECT_TRUE(IsThere("a"));
}

}  // namespace
