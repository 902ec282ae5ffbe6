#include <gmock/gmock.h>

#include "k4cmndlg/filesel/FilePaste.h"
#include "tests/filesel/SelectorFixture.h"
#include "tests/suite/platform/OrdinaryUser.h"
#include "tests/suite/platform/SmallDisk.h"

// No paste loses a file, leaves one in pieces, or deletes one that isn't where it went to.

namespace {

namespace fs = std::filesystem;
using k4cmn::FileClipboard;
using k4cmn::FilePaste;
using k4cmn::MessageAnswer;
using k4suite::FileAnswer;
using testing::ElementsAre;
using Texts = std::vector<std::string>;

constexpr std::int64_t kTime = 1'785'506'709;

const std::string kType = k4test::kType;
const std::string kA = "A:\\" + kType + ".Sign\\L.Lib\\";
const std::string kB = "B:\\" + kType + ".Sign\\L.Lib\\";

class PasteSafety : public k4test::SelectorFixture {
 protected:
    void SetUp() override {
        SelectorFixture::SetUp();
        MakeFile(kA + "one.SQ4", "first", kTime);
        MakeFile(kA + "two.SQ4", "second", kTime);
        MakeFolder(kB);
    }
    void Cut(const Texts& names) { clipboard = {kA, names, "A:", kType, "L", true}; }
    void CutLibrary() { clipboard = {"", {}, "A:", kType, "L", true}; }
    bool Run(const std::string& server, const std::string& library = "L") {
        return FilePaste({server, kType, library, "", "SQ4"}, clipboard, prompt).Run();
    }

    FileClipboard clipboard;
};

// Files that stayed as they were -----------------------------------------------------------------

TEST_F(PasteSafety, AKeptFileOfTheSameSizeAndTimeIsKeptOnBothSides) {
    MakeFile(kB + "one.SQ4", "other", kTime);
    Cut({"one.SQ4", "two.SQ4"});
    ui.answer = FileAnswer::No;
    EXPECT_TRUE(Run("B:"));
    EXPECT_EQ(Content(kB + "one.SQ4"), "other");
    EXPECT_EQ(Content(kA + "one.SQ4"), "first");
    EXPECT_EQ(Content(kB + "two.SQ4"), "second");
    EXPECT_FALSE(Exists(kA + "two.SQ4"));
}

TEST_F(PasteSafety, AReplacedFileOfTheSameSizeAndTimeMoves) {
    MakeFile(kB + "one.SQ4", "other", kTime);
    Cut({"one.SQ4"});
    EXPECT_TRUE(Run("B:"));
    EXPECT_EQ(Content(kB + "one.SQ4"), "first");
    EXPECT_FALSE(Exists(kA + "one.SQ4"));
}

TEST_F(PasteSafety, AKeptFileKeepsTheLibraryOfACut) {
    MakeFile(kB + "one.SQ4", "other", kTime);
    CutLibrary();
    ui.answer = FileAnswer::No;
    prompt.Expect("Error removing Library");
    EXPECT_TRUE(Run("B:"));
    EXPECT_THAT(FilesIn(kA), ElementsAre("one.SQ4"));
    EXPECT_THAT(FilesIn(kB), ElementsAre("one.SQ4", "two.SQ4"));
}

// Changes of others ------------------------------------------------------------------------------

TEST_F(PasteSafety, AFileThatHasGoneFromTheTargetIsNotDeleted) {
    Cut({"one.SQ4", "two.SQ4"});
    // When both are there, somebody takes the first one away.
    ui.onEnd = [this] { EXPECT_TRUE(fs::remove(Native(kB + "one.SQ4"))); };
    prompt.Expect("Paste failed");
    EXPECT_TRUE(Run("B:"));
    EXPECT_EQ(Content(kA + "one.SQ4"), "first");
    EXPECT_EQ(Content(kB + "two.SQ4"), "second");
    EXPECT_FALSE(Exists(kA + "two.SQ4"));
}

TEST_F(PasteSafety, AFileThatWasWrittenAnewMeanwhileIsNotDeleted) {
    Cut({"one.SQ4", "two.SQ4"});
    ui.onEnd = [this] { MakeFile(kA + "one.SQ4", "written anew"); };
    EXPECT_TRUE(Run("B:"));
    EXPECT_EQ(Content(kA + "one.SQ4"), "written anew");
    EXPECT_EQ(Content(kB + "one.SQ4"), "first");
}

TEST_F(PasteSafety, TwoCutsThatCrossLeaveEveryFile) {
    Texts names;
    for (int i = 0; i < 100; ++i) {
        names.push_back("f" + std::to_string(i) + ".SQ4");
        MakeFile(kA + names.back(), names.back(), kTime);
    }
    Cut(names);
    // In the middle of the one, another dialog moves what has arrived back again.
    bool isBack = false;
    ui.onProgress = [&] {
        const Texts arrived = FilesIn(kB);
        if (isBack || arrived.empty())
            return;
        isBack = true;
        EXPECT_LT(arrived.size(), names.size());
        for (std::size_t i = 0; i < arrived.size(); ++i)
            prompt.Expect("Paste failed");
        k4test::ScriptedPrompt silent;
        FileClipboard back{kB, arrived, "B:", kType, "L", true};
        FilePaste({"A:", kType, "L", "", "SQ4"}, back, silent).Run();
    };
    EXPECT_TRUE(Run("B:"));
    EXPECT_TRUE(isBack);
    for (const std::string& name : names)
        EXPECT_EQ(Content((Exists(kA + name) ? kA : kB) + name), name);
}

// Targets ----------------------------------------------------------------------------------------

TEST_F(PasteSafety, OneFileDoesntTakeTheNameOfALibraryThatIsntThere) {
    Cut({"one.SQ4"});
    prompt.Expect("Paste failed");
    EXPECT_TRUE(Run("B:", "Gone"));
    EXPECT_FALSE(Exists("B:\\" + kType + ".Sign\\Gone.Lib"));
    EXPECT_EQ(Content(kA + "one.SQ4"), "first");
}

TEST_F(PasteSafety, AFileInPlaceOfALibraryIsNotReplaced) {
    MakeFile("B:\\" + kType + ".Sign\\Odd.Lib", "a file");
    Cut({"one.SQ4"});
    prompt.Expect("Paste failed");
    EXPECT_TRUE(Run("B:", "Odd"));
    EXPECT_EQ(Content("B:\\" + kType + ".Sign\\Odd.Lib"), "a file");
    EXPECT_EQ(Content(kA + "one.SQ4"), "first");
}

TEST_F(PasteSafety, OneFolderUnderTwoNamesIsLeftAsItIs) {
    fs::remove_all(home / "drives/B");
    fs::create_directory_symlink("A", home / "drives/B");
    MakeFolder("A:\\" + kType + ".Sign\\Empty.Lib");
    Cut({"one.SQ4", "two.SQ4"});
    prompt.Expect("Paste failed");
    EXPECT_TRUE(Run("B:"));
    clipboard = {"", {}, "A:", kType, "L", true};
    prompt.Expect("Paste failed");
    EXPECT_TRUE(Run("B:"));
    EXPECT_THAT(FilesIn(kA), ElementsAre("one.SQ4", "two.SQ4"));
    clipboard = {"", {}, "A:", kType, "Empty", true};
    EXPECT_TRUE(Run("B:", "Empty"));
    EXPECT_TRUE(Exists("A:\\" + kType + ".Sign\\Empty.Lib"));
}

TEST_F(PasteSafety, NamesThatDifferInCaseAloneLoseNothing) {
    const std::string upper = (Native(kA) / "ONE.SQ4").string();
    const std::string inHome = fs::path(upper).lexically_relative(home.Path()).string();
    home.Write(inHome, "FIRST");
    Cut({"one.SQ4", "ONE.SQ4"});
    ui.answer = FileAnswer::No;
    EXPECT_TRUE(Run("B:"));
    EXPECT_EQ(Content(kB + "one.SQ4"), "first");
    EXPECT_EQ(home.Read(inHome), "FIRST");

    ui.answer = FileAnswer::Yes;
    for (const std::int64_t time : {kTime, kTime + 60}) {
        fs::remove_all(Native(kA));
        MakeFile(kA + "one.SQ4", "first", kTime);
        home.Write(inHome, "FIRST");
        const timespec times[2] = {{time, 0}, {time, 0}};
        ASSERT_EQ(utimensat(AT_FDCWD, upper.c_str(), times, 0), 0);
        fs::remove_all(Native(kB));
        MakeFolder(kB);
        Cut({"one.SQ4", "ONE.SQ4"});
        EXPECT_TRUE(Run("B:"));
        EXPECT_EQ(FilesIn(kB).size(), 1u);
        EXPECT_EQ(Content(kA + "one.SQ4"), "first") << "the other one has taken its place";
    }
}

TEST_F(PasteSafety, AnExtensionInAnotherCaseMovesToo) {
    MakeFile(kA + "low.sq4", "low", kTime);
    // As the rows name it.
    Cut({"low.SQ4"});
    EXPECT_TRUE(Run("B:"));
    EXPECT_THAT(FilesIn(kB), ElementsAre("low.sq4"));
    EXPECT_FALSE(Exists(kA + "low.sq4"));
    // Two files that the rows name alike.
    fs::remove(Native(kB + "low.sq4"));
    const std::string folder = Native(kA).lexically_relative(home.Path()).string();
    home.Write(folder + "/low.sq4", "low");
    home.Write(folder + "/low.SQ4", "other");
    Cut({"low.SQ4", "low.SQ4"});
    EXPECT_TRUE(Run("B:"));
    EXPECT_EQ(Content(kB + "low.SQ4"), "other");
    EXPECT_EQ(home.Read(folder + "/low.sq4"), "low");
}

TEST_F(PasteSafety, AFullDiskEndsItWithNothingDeletedAndNothingInPieces) {
    const int result = k4test::WithSmallDisk((home / "drives/B").string(), "256k", [this] {
        MakeFolder(kB);
        Texts names;
        for (int i = 0; i < 10; ++i) {
            names.push_back(std::to_string(i) + ".SQ4");
            MakeFile(kA + names.back(), std::string(60'000, static_cast<char>('0' + i)));
        }
        Cut(names);
        prompt.Expect("Paste failed");
        EXPECT_TRUE(Run("B:"));
        const Texts pasted = FilesIn(kB);
        EXPECT_GT(pasted.size(), 0u);
        EXPECT_LT(pasted.size(), names.size());
        for (const std::string& name : pasted)
            EXPECT_EQ(Content(kB + name), std::string(60'000, name[0]));
        for (const std::string& name : names)
            EXPECT_EQ(Content(kA + name), std::string(60'000, name[0]));
    });
    if (result == k4test::kNoMounts)
        GTEST_SKIP() << "nobody may mount here";
    EXPECT_EQ(result, 0);
}

TEST_F(PasteSafety, WhatMayNotBeDeletedIsTold) {
    const k4test::OrdinaryUser user(home.Path());
    fs::permissions(Native(kA), fs::perms::owner_read | fs::perms::owner_exec);
    CutLibrary();
    prompt.Expect("Paste failed");
    prompt.Expect("Paste failed");
    prompt.Expect("Error removing Library");
    EXPECT_TRUE(Run("B:"));
    EXPECT_THAT(FilesIn(kB), ElementsAre("one.SQ4", "two.SQ4"));
    EXPECT_THAT(FilesIn(kA), ElementsAre("one.SQ4", "two.SQ4"));
    fs::permissions(Native(kA), fs::perms::owner_all);
}

// Sources ----------------------------------------------------------------------------------------

TEST_F(PasteSafety, AVanishedLibraryIsTold) {
    CutLibrary();
    fs::remove_all(Native(kA));
    prompt.Expect("Error removing Library");
    EXPECT_TRUE(Run("B:"));
    EXPECT_TRUE(Exists(kB));
}

TEST_F(PasteSafety, AVanishedSignTypeIsTold) {
    clipboard = {"", {}, "A:", kType, "", true};
    fs::remove_all(home / "drives/A");
    prompt.Expect("Error removing Library");
    EXPECT_TRUE(FilePaste({"B:", kType, "", "", "SQ4"}, clipboard, prompt).Run());
    EXPECT_TRUE(Exists(kB));
}

TEST_F(PasteSafety, ACutSignTypeWithAFileThatCantBeCopiedStays) {
    MakeFile("A:\\" + kType + ".Sign\\M.Lib\\three.SQ4", "third");
    MakeFolder("B:\\" + kType + ".Sign\\M.Lib\\three.SQ4");
    clipboard = {"", {}, "A:", kType, "", true};
    prompt.Expect("Paste failed");
    prompt.Expect("Error removing Library");
    prompt.Expect("Error removing Library");
    // The libraries come in the order of the file system; the messages are the same in either.
    EXPECT_TRUE(FilePaste({"B:", kType, "", "", "SQ4"}, clipboard, prompt).Run());
    EXPECT_EQ(Content("A:\\" + kType + ".Sign\\M.Lib\\three.SQ4"), "third");
    EXPECT_FALSE(Exists(kA));
    EXPECT_THAT(FilesIn(kB), ElementsAre("one.SQ4", "two.SQ4"));
    EXPECT_EQ(clipboard, FileClipboard());
}

TEST_F(PasteSafety, AFolderMarkedReadOnlyMovesToo) {
    ASSERT_EQ(access.MarkReadOnly("A:\\" + kType + ".Sign"), 1);
    clipboard = {"", {}, "A:", kType, "", true};
    EXPECT_TRUE(FilePaste({"B:", kType, "", "", "SQ4"}, clipboard, prompt).Run());
    EXPECT_FALSE(Exists("A:\\" + kType + ".Sign"));
    EXPECT_THAT(FilesIn(kB), ElementsAre("one.SQ4", "two.SQ4"));
}

}  // namespace
