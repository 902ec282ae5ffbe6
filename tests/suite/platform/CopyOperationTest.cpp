#include "suite/platform/CopyOperation.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "k4cmndlg/frame/contracts/Shell.h"
#include "suite/platform/FileCopy.h"
#include "suite/platform/FileOperationResult.h"
#include "tests/suite/platform/OrdinaryUser.h"
#include "tests/suite/platform/ScriptedFileUi.h"
#include "tests/suite/platform/SmallDisk.h"
#include "tests/support/TempFolder.h"

namespace fs = std::filesystem;
using k4suite::CopyResult;
using k4suite::FileAnswer;
using k4suite::FileQuestion;
using k4suite::kFileOperationCancelled;
using k4suite::kFileOperationDone;
using k4suite::kFileOperationFailed;
using k4test::ScriptedFileUi;
using k4test::TempFolder;

namespace {

constexpr std::size_t kMegabyte = 1 << 20;

class CopyOperationTest : public testing::Test {
 protected:
    CopyOperationTest() { fs::create_directory(folder / "to"); }

    std::uint32_t Copy(const std::vector<std::string>& names, const std::string& to,
                       std::uint16_t flags = k4cmn::FOF_FILESONLY) {
        std::vector<std::string> paths;
        for (const std::string& name : names)
            paths.push_back((folder / name).string());
        return k4suite::CopyFiles(paths, (folder / to).string(), flags, ui);
    }

    /// What a folder holds, unfinished copies included.
    std::vector<std::string> In(const std::string& name) {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder / name))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

    TempFolder folder;
    ScriptedFileUi ui;
};

using Names = std::vector<std::string>;

TEST_F(CopyOperationTest, FilesGoToTheFolderByTheirNames) {
    folder.Write("a", "one");
    folder.Write("b", "");
    EXPECT_EQ(Copy({"a", "b"}, "to"), kFileOperationDone);
    EXPECT_EQ(In("to"), (Names{"a", "b"}));
    EXPECT_EQ(folder.Read("to/a"), "one");
    EXPECT_TRUE(ui.questions.empty());
}

TEST_F(CopyOperationTest, OneFileMayGetAnotherName) {
    folder.Write("a", "one");
    EXPECT_EQ(Copy({"a"}, "to/b"), kFileOperationDone);
    EXPECT_EQ(In("to"), Names{"b"});
}

TEST_F(CopyOperationTest, DestinationThatIsNotThereFails) {
    folder.Write("a");
    folder.Write("b");
    EXPECT_EQ(Copy({"a", "b"}, "nowhere"), kFileOperationFailed);
    EXPECT_EQ(Copy({"a"}, "nowhere/a"), kFileOperationFailed);
    EXPECT_EQ(Copy({"a"}, "b/a"), kFileOperationFailed);
    EXPECT_EQ(k4suite::CopyFiles({(folder / "a").string()}, "", 0, ui), kFileOperationFailed);
    EXPECT_EQ(In("."), (Names{"a", "b", "to"}));
}

TEST_F(CopyOperationTest, NoFilesAreCopiedWithSuccess) {
    EXPECT_EQ(Copy({}, "to"), kFileOperationDone);
}

TEST_F(CopyOperationTest, FoldersAreLeftOutWithFilesOnlyAndFailWithout) {
    folder.Write("tree/x");
    folder.Write("a");
    EXPECT_EQ(Copy({"tree", "a"}, "to"), kFileOperationDone);
    EXPECT_EQ(In("to"), Names{"a"});
    EXPECT_EQ(Copy({"tree"}, "to"), kFileOperationDone);
    EXPECT_EQ(Copy({"tree"}, "to", 0), kFileOperationFailed);
    EXPECT_EQ(In("to"), Names{"a"});
}

TEST_F(CopyOperationTest, NativeNamesThatDifferInCaseAreTwo) {
    folder.Write("a.SQ4", "new");
    folder.Write("to/A.SQ4", "old");
    EXPECT_EQ(Copy({"a.SQ4"}, "to"), kFileOperationDone);
    EXPECT_TRUE(ui.questions.empty());
    EXPECT_EQ(In("to"), (Names{"A.SQ4", "a.SQ4"}));
}

TEST_F(CopyOperationTest, NameGoesWhereTheFolderPutsIt) {
    folder.Write("a", "new");
    folder.Write("b", "newer");
    folder.Write("c", "other");
    const k4suite::PlaceOf placeOf = [this](const std::string& name) {
        return name == "c" ? std::string() : (folder / "to/AB").string();
    };
    std::vector<std::string> paths;
    for (const char* name : {"a", "b", "c"})
        paths.push_back((folder / name).string());
    ui.answers = {FileAnswer::Yes};
    EXPECT_EQ(k4suite::CopyFiles(paths, (folder / "to").string(), 0, ui, placeOf),
              kFileOperationFailed)
        << "there is no place for the last";
    EXPECT_EQ(ui.questions.size(), 1u) << "the second finds the first";
    EXPECT_EQ(In("to"), Names{"AB"});
    EXPECT_EQ(folder.Read("to/AB"), "newer");
}

TEST_F(CopyOperationTest, PermissionsAndTimeAreKept) {
    const fs::path source = folder.Write("a", "one");
    ASSERT_EQ(chmod(source.c_str(), 0640), 0);
    const timespec times[] = {{1'000'000'000, 0}, {1'100'000'000, 123'000'000}};
    ASSERT_EQ(utimensat(AT_FDCWD, source.c_str(), times, 0), 0);

    EXPECT_EQ(Copy({"a"}, "to"), kFileOperationDone);

    struct stat copy {};
    ASSERT_EQ(stat((folder / "to/a").c_str(), &copy), 0);
    EXPECT_EQ(copy.st_mode & 07777, 0640u);
    EXPECT_EQ(copy.st_mtim.tv_sec, 1'100'000'000);
    EXPECT_EQ(copy.st_mtim.tv_nsec, 123'000'000);
}

TEST_F(CopyOperationTest, RightsOfTheOwnerArentHandedOn) {
    const fs::path source = folder.Write("a", "one");
    ASSERT_EQ(chmod(source.c_str(), 04755), 0);
    EXPECT_EQ(Copy({"a"}, "to"), kFileOperationDone);
    struct stat copy {};
    ASSERT_EQ(stat((folder / "to/a").c_str(), &copy), 0);
    EXPECT_EQ(copy.st_mode & 07777, 0755u);
}

TEST_F(CopyOperationTest, ProgressGoesByBytes) {
    folder.Write("a", std::string(2 * kMegabyte + 5, 'x'));
    folder.Write("b", std::string(10, 'y'));
    constexpr std::uint64_t kTotal = 2 * kMegabyte + 15;
    EXPECT_EQ(Copy({"a", "b"}, "to"), kFileOperationDone);
    EXPECT_EQ(ui.begun, Names{"Copy"});
    EXPECT_EQ(ui.steps, (std::vector<ScriptedFileUi::Step>{{0, kTotal, "a"},
                                                           {kMegabyte, kTotal, "a"},
                                                           {2 * kMegabyte, kTotal, "a"},
                                                           {kTotal - 10, kTotal, "a"},
                                                           {kTotal - 10, kTotal, "b"},
                                                           {kTotal, kTotal, "b"}}));
    EXPECT_EQ(ui.ended, 1);
    EXPECT_EQ(folder.Read("to/a"), folder.Read("a"));
}

TEST_F(CopyOperationTest, SilentShowsNoProgress) {
    folder.Write("a", "one");
    EXPECT_EQ(Copy({"a"}, "to", k4cmn::FOF_SILENT), kFileOperationDone);
    EXPECT_TRUE(ui.begun.empty());
    EXPECT_TRUE(ui.steps.empty());
}

TEST_F(CopyOperationTest, CancelInTheMiddleOfAFileLeavesNothingOfIt) {
    folder.Write("a", "one");
    folder.Write("b", std::string(3 * kMegabyte, 'x'));
    folder.Write("to/b", "before");
    ui.answers = {FileAnswer::Yes};
    bool wasInTheMiddle = false;
    ui.goOn = [&](const ScriptedFileUi::Step& step) {
        wasInTheMiddle = step.done > kMegabyte && step.done < step.total;
        return !wasInTheMiddle;
    };
    EXPECT_EQ(Copy({"a", "b"}, "to"), kFileOperationCancelled);
    EXPECT_TRUE(wasInTheMiddle);
    EXPECT_EQ(In("to"), (Names{"a", "b"})) << "what was done stays, and no unfinished file does";
    EXPECT_EQ(folder.Read("to/b"), "before");
    EXPECT_EQ(ui.ended, 1);
}

TEST_F(CopyOperationTest, ExistingFileIsAskedAbout) {
    folder.Write("a", "new");
    folder.Write("to/a", "old");
    ui.answers = {FileAnswer::Yes};
    EXPECT_EQ(Copy({"a"}, "to"), kFileOperationDone);
    EXPECT_EQ(ui.questions,
              (std::vector<FileQuestion>{{"Copy",
                                          "The folder '" + (folder / "to").string() +
                                              "' already has a file named 'a'.\nReplace it?",
                                          false, true}}));
    EXPECT_EQ(folder.Read("to/a"), "new");
}

TEST_F(CopyOperationTest, NoConfirmationReplaces) {
    folder.Write("a", "new");
    folder.Write("to/a", "old");
    EXPECT_EQ(Copy({"a"}, "to", k4cmn::FOF_NOCONFIRMATION), kFileOperationDone);
    EXPECT_TRUE(ui.questions.empty());
    EXPECT_EQ(folder.Read("to/a"), "new");
}

struct ReplaceRow {
    const char* what;
    std::deque<FileAnswer> answers;
    std::string replaced;  ///< of "abc"
    std::uint32_t result;
    std::size_t questions;
};

class ReplaceAnswers : public CopyOperationTest, public testing::WithParamInterface<ReplaceRow> {};

TEST_P(ReplaceAnswers, DecideForOneOrForAll) {
    const ReplaceRow& row = GetParam();
    for (const std::string name : {"a", "b", "c"}) {
        folder.Write(name, "new");
        folder.Write("to/" + name, "old");
    }
    ui.answers = row.answers;

    EXPECT_EQ(Copy({"a", "b", "c"}, "to"), row.result);

    std::string replaced;
    for (const std::string name : {"a", "b", "c"})
        replaced += folder.Read("to/" + name) == "new" ? name : "";
    EXPECT_EQ(replaced, row.replaced);
    EXPECT_EQ(ui.questions.size(), row.questions);
    EXPECT_TRUE(ui.questions[0].several);
    EXPECT_EQ(In("to"), (Names{"a", "b", "c"}));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ReplaceAnswers,
    testing::Values(
        ReplaceRow{"YesNoYes",
                   {FileAnswer::Yes, FileAnswer::No, FileAnswer::Yes},
                   "ac",
                   kFileOperationDone,
                   3},
        ReplaceRow{"YesToAll", {FileAnswer::YesToAll}, "abc", kFileOperationDone, 1},
        ReplaceRow{"NoToAll", {FileAnswer::NoToAll}, "", kFileOperationDone, 1},
        ReplaceRow{
            "NoThenYesToAll", {FileAnswer::No, FileAnswer::YesToAll}, "bc", kFileOperationDone, 2},
        ReplaceRow{"YesThenCancel",
                   {FileAnswer::Yes, FileAnswer::Cancel},
                   "a",
                   kFileOperationCancelled,
                   2}),
    [](const auto& row) { return row.param.what; });

TEST_F(CopyOperationTest, FileOntoItselfIsRefusedByWhateverName) {
    folder.Write("to/a", "one");
    fs::create_hard_link(folder / "to/a", folder / "to/b");
    fs::create_symlink("a", folder / "to/c");
    for (const char* target : {"to", "to/a", "to/b", "to/c"})
        EXPECT_EQ(Copy({"to/a"}, target), kFileOperationFailed) << target;
    EXPECT_TRUE(ui.questions.empty());
    EXPECT_EQ(folder.Read("to/a"), "one");
    EXPECT_TRUE(fs::is_symlink(folder / "to/c"));
}

TEST_F(CopyOperationTest, FolderInTheWayFailsAndTheOthersAreCopied) {
    folder.Write("a", "one");
    folder.Write("b", "two");
    fs::create_directory(folder / "to/a");
    EXPECT_EQ(Copy({"a", "b"}, "to"), kFileOperationFailed);
    EXPECT_TRUE(fs::is_directory(folder / "to/a"));
    EXPECT_EQ(folder.Read("to/b"), "two");
    EXPECT_TRUE(ui.questions.empty());
}

TEST_F(CopyOperationTest, MissingSourceFailsAndTheOthersAreCopied) {
    folder.Write("b", "two");
    EXPECT_EQ(Copy({"a", "b"}, "to"), kFileOperationFailed);
    EXPECT_EQ(In("to"), Names{"b"});
}

TEST_F(CopyOperationTest, LinkIsFollowedAndADanglingOneFails) {
    folder.Write("a", "one");
    fs::create_symlink("a", folder / "link");
    fs::create_symlink("nowhere", folder / "dangling");
    EXPECT_EQ(Copy({"link", "dangling"}, "to"), kFileOperationFailed);
    EXPECT_EQ(In("to"), Names{"link"});
    EXPECT_FALSE(fs::is_symlink(folder / "to/link"));
    EXPECT_EQ(folder.Read("to/link"), "one");
}

TEST_F(CopyOperationTest, DanglingLinkInTheWayIsReplacedAfterAQuestion) {
    folder.Write("a", "one");
    fs::create_symlink("nowhere", folder / "to/a");
    ui.answers = {FileAnswer::Yes};
    EXPECT_EQ(Copy({"a"}, "to"), kFileOperationDone);
    EXPECT_EQ(ui.questions.size(), 1u);
    EXPECT_FALSE(fs::is_symlink(folder / "to/a"));
    EXPECT_EQ(folder.Read("to/a"), "one");
    EXPECT_FALSE(fs::exists(folder / "to/nowhere"));
}

TEST_F(CopyOperationTest, PipesAndDevicesAreRefusedWithoutWaiting) {
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(Copy({"pipe"}, "to"), kFileOperationFailed);
    EXPECT_EQ(k4suite::CopyFiles({"/dev/zero"}, (folder / "to").string(), 0, ui),
              kFileOperationFailed);
    EXPECT_TRUE(In("to").empty());
    k4suite::FileCopies copies;
    EXPECT_EQ(copies.Copy((folder / "pipe").string(), (folder / "to/pipe").string(), false,
                          [](std::uint64_t) { return true; }),
              CopyResult::Failed);

    folder.Write("a", "one");
    ASSERT_EQ(mkfifo((folder / "to/a").c_str(), 0600), 0);
    EXPECT_EQ(Copy({"a"}, "to"), kFileOperationFailed);
    EXPECT_TRUE(fs::is_fifo(folder / "to/a"));
}

TEST_F(CopyOperationTest, HolesStayHoles) {
    const fs::path source = folder.Write("a", "begin");
    constexpr off_t kHuge = off_t{64} << 30;  // more than this disk may have
    ASSERT_EQ(truncate(source.c_str(), kHuge), 0);
    EXPECT_EQ(Copy({"a"}, "to"), kFileOperationDone);
    struct stat copy {};
    ASSERT_EQ(stat((folder / "to/a").c_str(), &copy), 0);
    EXPECT_EQ(copy.st_size, kHuge);
    EXPECT_LT(copy.st_blocks * 512, off_t{kMegabyte});
}

TEST_F(CopyOperationTest, FileThatSaysNoSizeIsReadToItsEnd) {
    EXPECT_EQ(k4suite::CopyFiles({"/proc/self/status"}, (folder / "to").string(), 0, ui),
              kFileOperationDone);
    EXPECT_NE(folder.Read("to/status").find("Pid:"), std::string::npos);
}

TEST_F(CopyOperationTest, UnreadableSourceFails) {
    const fs::path source = folder.Write("a", "one");
    const k4test::OrdinaryUser user(folder.Path());
    fs::permissions(source, fs::perms::none);
    EXPECT_EQ(Copy({"a"}, "to"), kFileOperationFailed);
    EXPECT_TRUE(In("to").empty());
}

TEST_F(CopyOperationTest, ReadOnlyDestinationFails) {
    folder.Write("a", "one");
    const k4test::OrdinaryUser user(folder.Path());
    fs::permissions(folder / "to", fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_EQ(Copy({"a"}, "to"), kFileOperationFailed);
    EXPECT_TRUE(In("to").empty());
}

/// No file may grow beyond a size, for the life of the object.
class SizeLimit {
 public:
    explicit SizeLimit(rlim_t size) : m_signal(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{size, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~SizeLimit() {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_signal);
    }
    SizeLimit(const SizeLimit&) = delete;
    SizeLimit& operator=(const SizeLimit&) = delete;

 private:
    rlimit m_before{};
    void (*m_signal)(int);
};

TEST_F(CopyOperationTest, WriteThatFailsHalfWayLeavesNothing) {
    folder.Write("a", std::string(3 * kMegabyte, 'x'));
    folder.Write("b", "small");
    folder.Write("to/a", "before");
    std::uint32_t result = 0;
    {
        const SizeLimit limit(kMegabyte + kMegabyte / 2);
        result = Copy({"a", "b"}, "to", k4cmn::FOF_NOCONFIRMATION);
    }
    EXPECT_EQ(result, kFileOperationFailed);
    EXPECT_EQ(In("to"), (Names{"a", "b"}));
    EXPECT_EQ(folder.Read("to/a"), "before");
    EXPECT_EQ(folder.Read("to/b"), "small");
}

TEST_F(CopyOperationTest, FullDiskEndsItAndLeavesNoPartOfAFile) {
    folder.Write("a", "small");
    folder.Write("b", std::string(kMegabyte, 'x'));
    folder.Write("c", "never tried");
    const int outcome = k4test::WithSmallDisk((folder / "to").string(), "256k", [this] {
        EXPECT_EQ(Copy({"a", "b", "c"}, "to"), kFileOperationFailed);
        EXPECT_EQ(In("to"), Names{"a"});
        EXPECT_EQ(folder.Read("to/a"), "small");
        k4suite::FileCopies copies;
        EXPECT_EQ(copies.Copy((folder / "b").string(), (folder / "to/b").string(), false,
                              [](std::uint64_t) { return true; }),
                  CopyResult::DiskFull);
        EXPECT_EQ(In("to"), Names{"a"});
    });
    if (outcome == k4test::kNoMounts)
        GTEST_SKIP() << "this system lets nobody mount a disk";
    EXPECT_EQ(outcome, 0);
}

TEST_F(CopyOperationTest, FileThatAppearsMeanwhileIsNotReplaced) {
    folder.Write("a", std::string(2 * kMegabyte, 'x'));
    ui.goOn = [this](const ScriptedFileUi::Step& step) {
        if (step.done == kMegabyte)
            folder.Write("to/a", "somebody else's");
        return true;
    };
    EXPECT_EQ(Copy({"a"}, "to"), kFileOperationFailed);
    EXPECT_EQ(In("to"), Names{"a"});
    EXPECT_EQ(folder.Read("to/a"), "somebody else's");
}

// Many files ---------------------------------------------------------------------------------

TEST_F(CopyOperationTest, HundredsOfSmallFilesAllGetTheirNames) {
    Names names;
    for (int number = 100; number < 400; ++number) {
        names.push_back("f" + std::to_string(number));
        folder.Write(names.back(), names.back());
    }
    EXPECT_EQ(Copy(names, "to"), kFileOperationDone);
    EXPECT_EQ(In("to"), names);
    for (const std::string& name : names)
        EXPECT_EQ(folder.Read("to/" + name), name);
}

TEST_F(CopyOperationTest, NoNameStandsForLessThanItsFile) {
    const std::string content(3 * kMegabyte, 'x');
    for (const char* name : {"a", "b", "c", "d", "e", "f", "g", "h"})
        folder.Write(name, content);
    std::size_t most = 0;
    ui.goOn = [&](const ScriptedFileUi::Step&) {
        std::size_t unfinished = 0;
        for (const auto& entry : fs::directory_iterator(folder / "to")) {
            const bool isHidden = entry.path().filename().string().starts_with(".k4copy-");
            unfinished += isHidden ? 1 : 0;
            EXPECT_TRUE(isHidden || entry.file_size() == content.size()) << entry.path();
        }
        most = std::max(most, unfinished);
        return true;
    };
    EXPECT_EQ(Copy({"a", "b", "c", "d", "e", "f", "g", "h"}, "to"), kFileOperationDone);
    EXPECT_EQ(In("to").size(), 8u);
    EXPECT_GT(most, 1u);
    EXPECT_LT(most, 8u) << "large files don't wait for all the others";
}

TEST_F(CopyOperationTest, WhatWasCopiedBeforeACancelStays) {
    for (const char* name : {"a", "b", "c"})
        folder.Write(name, name);
    ui.goOn = [](const ScriptedFileUi::Step& step) { return step.name != "c"; };
    EXPECT_EQ(Copy({"a", "b", "c"}, "to"), kFileOperationCancelled);
    EXPECT_EQ(In("to"), (Names{"a", "b"}));
}

TEST_F(CopyOperationTest, FileOfOneNameInTwoFoldersIsAskedAbout) {
    for (const char* from : {"one", "two"}) {
        fs::create_directory(folder / from);
        folder.Write(std::string(from) + "/a", from);
    }
    ui.answers = {FileAnswer::No};
    EXPECT_EQ(Copy({"one/a", "two/a"}, "to"), kFileOperationDone);
    EXPECT_EQ(ui.questions.size(), 1u);
    EXPECT_EQ(folder.Read("to/a"), "one");
    EXPECT_EQ(In("to"), Names{"a"});
}

TEST_F(CopyOperationTest, NamesThatTheFolderTakesForOneAreAskedAbout) {
    folder.Write("a", "small letter");
    folder.Write("A", "capital");
    ui.answers = {FileAnswer::Yes};
    const auto placeOf = [this](const std::string& name) {
        const fs::path small = folder / "to/a";
        return fs::exists(small) ? small.string() : (folder / "to" / name).string();
    };
    EXPECT_EQ(k4suite::CopyFiles({(folder / "a").string(), (folder / "A").string()},
                                 (folder / "to").string(), 0, ui, placeOf),
              kFileOperationDone);
    EXPECT_EQ(ui.questions.size(), 1u);
    EXPECT_EQ(In("to"), Names{"a"});
    EXPECT_EQ(folder.Read("to/a"), "capital");
}

TEST_F(CopyOperationTest, FileThatCantGetItsNameDoesntKeepTheOthersFromTheirs) {
    for (const char* name : {"a", "b", "c"})
        folder.Write(name, name);
    ui.goOn = [this](const ScriptedFileUi::Step& step) {
        if (step.name == "c")
            folder.Write("to/b", "somebody else's");
        return true;
    };
    EXPECT_EQ(Copy({"a", "b", "c"}, "to"), kFileOperationFailed);
    EXPECT_EQ(In("to"), (Names{"a", "b", "c"}));
    EXPECT_EQ(folder.Read("to/b"), "somebody else's");
    EXPECT_EQ(folder.Read("to/c"), "c");
}

/// Looks into a folder when it is asked, and says No.
class Looking final : public k4suite::FileOperationUi {
 public:
    explicit Looking(std::function<void()> look) : m_look(std::move(look)) {}
    FileAnswer Confirm(const FileQuestion&) override {
        m_look();
        return FileAnswer::No;
    }
    void Begin(const std::string&) override {}
    bool Progress(std::uint64_t, std::uint64_t, const std::string&) override { return true; }
    void End() override {}

 private:
    std::function<void()> m_look;
};

TEST_F(CopyOperationTest, AQuestionFindsTheFilesBeforeItUnderTheirNames) {
    folder.Write("a", "one");
    folder.Write("b", "two");
    folder.Write("to/b", "before");
    Names seen;
    Looking looking([&] { seen = In("to"); });
    EXPECT_EQ(k4suite::CopyFiles({(folder / "a").string(), (folder / "b").string()},
                                 (folder / "to").string(), 0, looking),
              kFileOperationDone);
    EXPECT_EQ(seen, (Names{"a", "b"}));
}

TEST_F(CopyOperationTest, CopiesWithoutNamesGoWithTheirOwner) {
    folder.Write("a", "one");
    {
        k4suite::FileCopies copies;
        EXPECT_EQ(copies.Copy((folder / "a").string(), (folder / "to/a").string(), false,
                              [](std::uint64_t) { return true; }),
                  CopyResult::Done);
        EXPECT_TRUE(copies.IsPending((folder / "to/A").string()));
        EXPECT_EQ(In("to").size(), 1u);
    }
    EXPECT_TRUE(In("to").empty());
}

}  // namespace
