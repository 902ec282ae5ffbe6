#include "suite/access/FolderAccess.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <limits.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>

#include "k4cmndlg/frame/LastError.h"
#include "tests/support/TempFolder.h"

namespace {

namespace fs = std::filesystem;
using k4cmn::FileStatus;
using k4suite::DataHome;

class Access : public testing::Test {
 protected:
    void SetUp() override { fs::create_directories(home / "drives/A"); }

    static void SetTime(const fs::path& path, std::int64_t seconds) {
        const timespec times[2] = {{seconds, 0}, {seconds, 999999999}};
        ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    }

    k4test::TempFolder home;
    k4suite::FolderAccess access{DataHome(home.Path())};
};

TEST_F(Access, StatusTellsFolderSizeAndTime) {
    SetTime(home.Write("drives/A/f.SQ4", "12345"), 1'000'000'000);
    FileStatus status;
    ASSERT_EQ(access.GetStatus("a:\\F.sq4", &status), 1);
    EXPECT_EQ(status, (FileStatus{false, 5, 1'000'000'000}));
    ASSERT_EQ(access.GetStatus("A:", &status), 1);
    EXPECT_TRUE(status.isFolder);
    EXPECT_EQ(access.GetStatus("A:\\f.SQ4", nullptr), 1);
}

TEST_F(Access, AFailedStatusLeavesItsTarget) {
    fs::create_symlink("nowhere", home / "drives/A/dangling");
    const FileStatus before{true, 7, 8};
    FileStatus status = before;
    for (const char* path : {"A:\\none", "A:\\dangling", "", "relative"}) {
        errno = 0;
        EXPECT_EQ(access.GetStatus(path, &status), 0) << path;
        EXPECT_EQ(errno, ENOENT) << path;
    }
    EXPECT_EQ(status, before);
}

TEST_F(Access, AnIdentityIsOfOneEntry) {
    home.Write("drives/A/one", "1");
    home.Write("drives/A/two", "1");
    fs::create_symlink("one", home / "drives/A/link");
    const std::string one = access.IdentityOf("A:\\one");
    EXPECT_NE(one, "");
    EXPECT_EQ(access.IdentityOf("a:\\ONE"), one);
    EXPECT_EQ(access.IdentityOf("A:\\link"), one);
    EXPECT_NE(access.IdentityOf("A:\\two"), one);
    EXPECT_EQ(access.IdentityOf("A:\\none"), "");
    EXPECT_EQ(access.IdentityOf(""), "");
    fs::rename(home / "drives/A/two", home / "drives/A/one");
    EXPECT_NE(access.IdentityOf("A:\\one"), one) << "it took the other's place";
}

TEST_F(Access, StatusOfManyComesInTheirOrder) {
    home.Write("drives/A/one", "1");
    home.Write("drives/A/two", "22");
    home.Write("drives/secret", "333");
    fs::create_directories(home / "drives/A/folder");
    fs::create_symlink("one", home / "drives/A/link");
    for (const char* folder : {"A:", "A:\\", "a:"}) {
        const auto all = access.StatusIn(folder, {"two", "none", "one", "folder", "link"});
        ASSERT_EQ(all.size(), 5u);
        ASSERT_TRUE(all[0] && all[2] && all[3] && all[4]);
        EXPECT_EQ(all[0]->size, 2u);
        EXPECT_FALSE(all[1]);
        EXPECT_EQ(all[2]->size, 1u);
        EXPECT_TRUE(all[3]->isFolder);
        EXPECT_EQ(all[4]->size, 1u);
    }
}

TEST_F(Access, StatusOfManyStaysInTheFolder) {
    home.Write("drives/secret", "333");
    const auto all =
        access.StatusIn("A:", {"../secret", "..\\secret", "..", ".", "", std::string("a\0b", 3)});
    for (const auto& status : all)
        EXPECT_FALSE(status);
    for (const auto& status : access.StatusIn("A:\\none", {"a", "b"}))
        EXPECT_FALSE(status);
    EXPECT_TRUE(access.StatusIn("", {}).empty());
}

TEST_F(Access, StatusOfManyFindsNamesInAnyCaseAsOneAloneIsFound) {
    home.Write("drives/A/GR\u00dcN.SQ4", "1");
    home.Write("drives/A/Two.sq4", "22");
    home.Write("drives/A/TWO.SQ4", "333");
    home.Write("drives/A/exact", "4444");
    home.Write("drives/A/EXACT", "55555");
    home.Write("drives/A/\xFF.SQ4", "666666");
    home.Write("drives/A/LINK.SQ4", "7777777");
    fs::create_symlink("nowhere", home / "drives/A/link.SQ4");
    std::string wide;  // its short twin is as long as a name may be
    for (int i = 0; i < NAME_MAX; ++i)
        wide += "\u212a";
    home.Write("drives/A/" + std::string(NAME_MAX, 'k'), "88888888");
    const std::vector<std::string> names{"gr\u00fcn.sq4", "two.SQ4",  "exact",
                                         "Exact",         "\xFF.sq4", "none",
                                         "link.SQ4",      "Link.sq4", wide};
    const auto all = access.StatusIn("A:", names);
    ASSERT_EQ(all.size(), names.size());
    for (std::size_t i = 0; i < names.size(); ++i) {
        FileStatus alone;
        const bool isThere = access.GetStatus("A:\\" + names[i], &alone);
        ASSERT_EQ(all[i].has_value(), isThere) << names[i];
        EXPECT_EQ(all[i].value_or(FileStatus{}), alone) << names[i];
    }
    EXPECT_EQ(all[0]->size, 1u);
    EXPECT_EQ(all[1]->size, 3u) << "the first one in byte order";
    EXPECT_EQ(all[2]->size, 4u);
    EXPECT_EQ(all[3]->size, 5u);
    EXPECT_FALSE(all[6]) << "the link itself, which leads nowhere";
    EXPECT_EQ(all[7]->size, 7u);
}

TEST_F(Access, StatusOfManyEndsWherePathsEnd) {
    std::string folder = "A:";
    fs::path native = home / "drives/A";
    constexpr std::size_t kNearly = PATH_MAX - 20;
    while (native.native().size() + 1 < kNearly) {
        const std::string name(
            std::min<std::size_t>(NAME_MAX, kNearly - native.native().size() - 1), 'f');
        native /= name;
        folder += "\\" + name;
    }
    fs::create_directories(native);
    const std::size_t room = PATH_MAX - native.native().size() - 2;
    const int entries = open(native.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    ASSERT_GE(entries, 0);
    std::vector<std::string> names;
    for (const std::size_t length : {std::size_t{1}, room, room + 1, std::size_t{NAME_MAX}})
        names.emplace_back(length, 'n');
    for (const std::string& name : names)
        close(openat(entries, name.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0666));
    const auto all = access.StatusIn(folder, names);
    for (std::size_t i = 0; i < names.size(); ++i)
        EXPECT_EQ(all[i].has_value(), access.GetStatus(folder + "\\" + names[i], nullptr) != 0)
            << names[i].size();
    EXPECT_TRUE(all[1]);
    EXPECT_FALSE(all[2]);
    for (const std::string& name : names)
        EXPECT_EQ(unlinkat(entries, name.c_str(), 0), 0);
    close(entries);
}

TEST_F(Access, MakesOneFolder) {
    EXPECT_EQ(access.MakeFolder("A:\\T.Sign\\"), 1);
    EXPECT_TRUE(fs::is_directory(home / "drives/A/T.Sign"));
    errno = 0;
    EXPECT_EQ(access.MakeFolder("A:\\t.SIGN"), 0) << "case doesn't count";
    EXPECT_EQ(errno, EEXIST);
    EXPECT_EQ(access.MakeFolder("A:\\no\\L.Lib"), 0);
    EXPECT_EQ(errno, ENOENT);
    EXPECT_EQ(access.MakeFolder(""), 0);
    EXPECT_EQ(access.MakeFolder("A:\\" + std::string(300, 'x')), 0);
}

TEST_F(Access, RemovesOnlyAnEmptyFolder) {
    fs::create_directories(home / "drives/A/L.Lib");
    home.Write("drives/A/M.Lib/f.SQ4", "x");
    home.Write("drives/A/file", "x");
    EXPECT_EQ(access.RemoveFolder("A:\\l.lib\\"), 1);
    EXPECT_FALSE(fs::exists(home / "drives/A/L.Lib"));
    for (const char* path : {"A:\\M.Lib", "A:\\file", "A:\\none", ""})
        EXPECT_EQ(access.RemoveFolder(path), 0) << path;
    EXPECT_EQ(home.Read("drives/A/M.Lib/f.SQ4"), "x");
    EXPECT_EQ(home.Read("drives/A/file"), "x");
}

TEST_F(Access, MovesAndNeverReplaces) {
    home.Write("drives/A/a.SQ4", "a");
    home.Write("drives/A/b.SQ4", "b");
    EXPECT_EQ(access.Move("A:\\a.SQ4", "A:\\B.sq4"), 0);
    EXPECT_EQ(errno, EEXIST);
    EXPECT_EQ(access.Move("A:\\none", "A:\\c"), 0);
    EXPECT_EQ(access.Move("A:\\a.SQ4", ""), 0);
    EXPECT_EQ(access.Move("", "A:\\c"), 0);
    EXPECT_EQ(access.Move("A:\\a.SQ4", "A:\\none\\c"), 0);
    EXPECT_EQ(home.Read("drives/A/a.SQ4"), "a");
    EXPECT_EQ(home.Read("drives/A/b.SQ4"), "b");
    EXPECT_EQ(access.Move("A:\\a.SQ4", "A:\\c \t\"d\n.SQ4"), 1);
    EXPECT_EQ(home.Read("drives/A/c \t\"d\n.SQ4"), "a");
}

TEST_F(Access, AChangeOfCaseIsAMoveToo) {
    home.Write("drives/A/hello.SQ4", "a");
    EXPECT_EQ(access.Move("A:\\hello.SQ4", "A:\\Hello.SQ4"), 1);
    EXPECT_FALSE(fs::exists(home / "drives/A/hello.SQ4"));
    EXPECT_EQ(home.Read("drives/A/Hello.SQ4"), "a");
    EXPECT_EQ(access.Move("A:\\Hello.SQ4", "A:\\Hello.SQ4"), 1);
    EXPECT_EQ(access.Move("A:\\none", "A:\\none"), 0);
}

TEST_F(Access, MarkingAFolderKeepsItsPermissions) {
    fs::create_directories(home / "drives/A/T.Sign");
    home.Write("drives/A/file", "x");
    const auto before = fs::status(home / "drives/A/T.Sign").permissions();
    EXPECT_EQ(access.MarkReadOnly("A:\\T.Sign"), 1);
    EXPECT_EQ(fs::status(home / "drives/A/T.Sign").permissions(), before);
    EXPECT_EQ(access.MarkReadOnly("A:\\file"), 0);
    EXPECT_EQ(access.MarkReadOnly("A:\\none"), 0);
}

TEST(AbsentAccess, FailsWithThePlatformsWords) {
    k4cmn::StoreAccess& absent = k4cmn::Provided<k4cmn::StoreAccess>::Current();
    errno = 0;
    EXPECT_EQ(absent.MakeFolder("A:\\x"), 0);
    EXPECT_NE(errno, 0);
    EXPECT_NE(k4cmnGetLastErrorString(), "");
    EXPECT_EQ(absent.GetStatus("A:\\x", nullptr), 0);
    EXPECT_EQ(absent.RemoveFolder("A:\\x"), 0);
    EXPECT_EQ(absent.Move("A:\\x", "A:\\y"), 0);
    EXPECT_EQ(absent.MarkReadOnly("A:\\x"), 0);
    const auto all = absent.StatusIn("A:", {"x", "y"});
    EXPECT_EQ(all.size(), 2u);
    EXPECT_FALSE(all[0] || all[1]);
}

}  // namespace
