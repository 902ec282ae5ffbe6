#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <thread>

#include "suite/store/FolderFiles.h"
#include "tests/support/TempFolder.h"

namespace {

namespace fs = std::filesystem;
using k4suite::DataHome;
using k4suite::FolderFiles;
using Names = std::vector<std::string>;

class Find : public testing::Test {
 protected:
    void SetUp() override { fs::create_directories(Drive()); }
    fs::path Drive() const { return folder / "drives/A"; }
    void File(const std::string& name) { folder.Write("drives/A/" + name, "x"); }
    void Folder(const std::string& name) { fs::create_directories(Drive() / name); }

    /// The names found, sorted; the result must be 1.
    Names Found(const std::string& pattern, int folders) {
        Names names{"old"};
        EXPECT_EQ(store.FindFiles(names, pattern, folders), 1) << pattern;
        std::sort(names.begin(), names.end());
        return names;
    }
    void ExpectFailure(const std::string& pattern) {
        for (const int folders : {0, 1}) {
            Names names{"old"};
            EXPECT_EQ(store.FindFiles(names, pattern, folders), 0) << pattern;
            EXPECT_TRUE(names.empty()) << pattern;
        }
    }

    k4test::TempFolder folder;
    FolderFiles store{DataHome(folder.Path())};
};

TEST_F(Find, ListsFilesOrFolders) {
    File("a.SQ4");
    File("b.sq4");
    File("c.SD4");
    Folder("d.SQ4");
    EXPECT_EQ(Found("A:\\*.SQ4", 0), (Names{"a.SQ4", "b.sq4"}));
    EXPECT_EQ(Found("A:\\*.SQ4", 1), (Names{"d.SQ4"}));
    EXPECT_EQ(Found("A:\\*.SQ4", -1), (Names{"d.SQ4"}));
}

TEST_F(Find, SignTypeFoldersAndTheirLibraries) {
    Folder("16x80.Mono1.LED.Sign/Default.Lib");
    Folder("16x80.Mono1.LED.Sign/Events.LIB");
    Folder("16x80.Mono1.LED.Palette.Sign/Default.Lib");
    Folder("Two.Sign");
    File("7x16.Mono1.LED.Sign");
    File("16x80.Mono1.LED.Sign/Default.Lib/f.SQ4");
    EXPECT_EQ(Found("A:\\*.*.*.Sign", 1),
              (Names{"16x80.Mono1.LED.Palette.Sign", "16x80.Mono1.LED.Sign"}));
    EXPECT_EQ(Found("A:\\16x80.Mono1.LED.Sign\\*.Lib", 1), (Names{"Default.Lib", "Events.LIB"}));
    EXPECT_EQ(Found("a:\\16X80.mono1.led.sign\\default.lib\\*.SQ4", 0), Names{"f.SQ4"});
}

TEST_F(Find, EveryNameButTheTwoDots) {
    File("README");
    File(".hidden");
    File("a.b.c");
    Folder("d");
    Folder(".e");
    EXPECT_EQ(Found("A:\\*.*", 0), (Names{".hidden", "README", "a.b.c"}));
    EXPECT_EQ(Found("A:\\*.*", 1), (Names{".e", "d"}));
    EXPECT_EQ(Found("A:\\*", 1), (Names{".e", "d"}));
    EXPECT_EQ(Found("A:\\.*", 1), Names{".e"});
}

TEST_F(Find, CopiesThatArentFinishedAreNotListed) {
    File(".k4copy-aBc123");
    Folder(".k4copy-folder");
    File(".k4copy");
    File("a.k4copy-b");
    EXPECT_EQ(Found("A:\\*.*", 0), (Names{".k4copy", "a.k4copy-b"}));
    EXPECT_EQ(Found("A:\\*", 1), Names{});
    EXPECT_EQ(Found("A:\\.k4copy-*", 0), Names{});
    EXPECT_EQ(Found("A:\\.k4copy-aBc123", 0), Names{});
    EXPECT_EQ(Found("A:\\*123", 0), Names{});
}

TEST_F(Find, NothingFoundIsASuccessWithAnEmptyList) {
    EXPECT_EQ(Found("A:\\*.SQ4", 0), Names{});
    EXPECT_EQ(Found("A:\\*.*", 1), Names{});
}

TEST_F(Find, OneNameWithoutWildcards) {
    File("Hello.SQ4");
    EXPECT_EQ(Found("A:\\hello.sq4", 0), Names{"Hello.SQ4"});
    EXPECT_EQ(Found("A:\\hell.sq4", 0), Names{});
}

TEST_F(Find, OnSharesAndInNativeFolders) {
    folder.Write("network/STORE/SIGNS/a.SC4");
    folder.Write("native/b.SC4");
    EXPECT_EQ(Found("\\\\STORE\\SIGNS\\*.SC4", 0), Names{"a.SC4"});
    EXPECT_EQ(Found(folder.Path().string() + "/native\\*.SC4", 0), Names{"b.SC4"});
    EXPECT_EQ(Found(folder.Path().string() + "/native/*.SC4", 0), Names{"b.SC4"});
    Names names;
    EXPECT_EQ(store.FindFiles(names, "/*.*", 1), 1);
    EXPECT_NE(std::find(names.begin(), names.end(), "tmp"), names.end());
}

TEST_F(Find, LinksCountAsWhatTheyLeadTo) {
    File("real.SQ4");
    Folder("folder.SQ4");
    fs::create_symlink(Drive() / "real.SQ4", Drive() / "linked.SQ4");
    fs::create_directory_symlink(Drive() / "folder.SQ4", Drive() / "linkedfolder.SQ4");
    fs::create_symlink(Drive() / "gone", Drive() / "dangling.SQ4");
    fs::create_symlink(Drive() / "loop.SQ4", Drive() / "loop.SQ4");
    EXPECT_EQ(Found("A:\\*.SQ4", 0), (Names{"linked.SQ4", "real.SQ4"}));
    EXPECT_EQ(Found("A:\\*.SQ4", 1), (Names{"folder.SQ4", "linkedfolder.SQ4"}));
}

TEST_F(Find, WhateverIsNoFolderIsAFile) {
    ASSERT_EQ(mkfifo((Drive() / "pipe.SQ4").c_str(), 0600), 0);
    EXPECT_EQ(Found("A:\\*.SQ4", 0), Names{"pipe.SQ4"});
    EXPECT_EQ(Found("A:\\*.SQ4", 1), Names{});
}

TEST_F(Find, NamesInOtherScripts) {
    File("\u65e5\u672c.SQ4");
    File("\u00c9t\u00e9.SQ4");
    EXPECT_EQ(Found("A:\\\u00e9*.sq4", 0), Names{"\u00c9t\u00e9.SQ4"});
    EXPECT_EQ(Found("A:\\??.sq4", 0), Names{"\u65e5\u672c.SQ4"});
}

TEST_F(Find, NamesThatAreNotUtf8ArePassedOver) {
    File("good.SQ4");
    File("bad\xff.SQ4");
    EXPECT_EQ(Found("A:\\*.SQ4", 0), Names{"good.SQ4"});
    EXPECT_EQ(Found("A:\\*.*", 0), Names{"good.SQ4"});
}

TEST_F(Find, WildcardsInTheFolderAreNoWildcards) {
    File("x.Lib/f.SQ4");
    ExpectFailure("A:\\*.Lib\\*.SQ4");
}

TEST_F(Find, FolderThatIsntThere) {
    ExpectFailure("A:\\gone\\*.SQ4");
    ExpectFailure("B:\\*.SQ4");
    ExpectFailure("\\\\H\\S\\*.SQ4");
}

TEST_F(Find, FolderThatVanished) {
    Folder("x");
    EXPECT_EQ(Found("A:\\x\\*.*", 0), Names{});
    fs::remove(Drive() / "x");
    ExpectFailure("A:\\x\\*.*");
}

TEST_F(Find, FileInPlaceOfTheFolder) {
    File("file");
    ExpectFailure("A:\\file\\*.*");
}

TEST_F(Find, BadPatterns) {
    for (const std::string& pattern :
         {std::string(), std::string("*.*"), std::string("*.SQ4"), std::string("A:*.SQ4"),
          std::string("\\*.*"), std::string("\\\\*.*"), std::string("x\\*.*"),
          std::string("A:\\\0\\*.*", 8), "A:\\" + std::string(300, 'x') + "\\*.*",
          "A:\\" + std::string(5000, 'x') + "\\*.*"})
        ExpectFailure(pattern);
}

TEST_F(Find, PatternNeverLeavesItsDrive) {
    folder.Write("secret.SQ4");
    File("own.SQ4");
    EXPECT_EQ(Found("A:\\..\\..\\*.SQ4", 0), Names{"own.SQ4"});
}

TEST_F(Find, PatternOfAnyLengthEnds) {
    File("own.SQ4");
    EXPECT_EQ(Found("A:\\" + std::string(10000, '*') + ".SQ4", 0), Names{"own.SQ4"});
    EXPECT_EQ(Found("A:\\" + std::string(10000, '?'), 0), Names{});
}

TEST_F(Find, HundredThousandNames) {
    constexpr int count = 100000;
    for (int i = 0; i < count; ++i) {
        const std::string name = std::to_string(i) + (i % 2 ? ".SQ4" : ".SD4");
        const int file = creat((Drive() / name).c_str(), 0600);
        ASSERT_GE(file, 0);
        close(file);
    }
    Names names;
    EXPECT_EQ(store.FindFiles(names, "A:\\*.sq4", 0), 1);
    EXPECT_EQ(names.size(), count / 2u);
    EXPECT_EQ(store.FindFiles(names, "A:\\*.*", 0), 1);
    EXPECT_EQ(names.size(), std::size_t{count});
    std::sort(names.begin(), names.end());
    EXPECT_EQ(std::unique(names.begin(), names.end()), names.end());
}

TEST_F(Find, FolderThatChangesMeanwhileGivesWholeNames) {
    std::atomic<bool> done{false};
    std::thread writer([&] {
        for (int round = 0; !done; ++round) {
            const fs::path file = Drive() / ("changing" + std::to_string(round % 50) + ".SQ4");
            std::ofstream(file) << "x";
            fs::remove(Drive() / ("changing" + std::to_string((round + 25) % 50) + ".SQ4"));
        }
    });
    for (int i = 0; i < 300; ++i) {
        Names names;
        EXPECT_EQ(store.FindFiles(names, "A:\\*.SQ4", 0), 1);
        for (const std::string& name : names)
            EXPECT_TRUE(name.starts_with("changing") && name.ends_with(".SQ4")) << name;
    }
    done = true;
    writer.join();
}

}  // namespace
