#include "suite/platform/Trash.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>

#include "k4cmndlg/frame/contracts/Clock.h"
#include "suite/platform/TrashFolder.h"
#include "tests/suite/platform/OrdinaryUser.h"
#include "tests/suite/platform/ScopedEnvironment.h"
#include "tests/suite/platform/SmallDisk.h"
#include "tests/support/DrivenClock.h"
#include "tests/support/TempFolder.h"

namespace fs = std::filesystem;
using k4suite::Trash;
using k4test::OrdinaryUser;
using k4test::ScopedEnvironment;
using k4test::TempFolder;

namespace {

using Outcome = Trash::Outcome;

mode_t ModeOf(const fs::path& path) {
    struct stat status {};
    EXPECT_EQ(lstat(path.c_str(), &status), 0) << path;
    return status.st_mode & 07777;
}

std::string Decoded(const std::string& encoded) {
    std::string text;
    for (std::size_t at = 0; at < encoded.size(); ++at) {
        if (encoded[at] == '%') {
            text += static_cast<char>(std::stoi(encoded.substr(at + 1, 2), nullptr, 16));
            at += 2;
        } else {
            text += encoded[at];
        }
    }
    return text;
}

std::set<std::string> NamesIn(const fs::path& folder) {
    std::set<std::string> names;
    std::error_code missing;
    for (const auto& entry : fs::directory_iterator(folder, missing))
        names.insert(entry.path().filename().string());
    return names;
}

class TrashTest : public testing::Test {
 protected:
    Outcome Move(const fs::path& path) { return trash.Move(path.string()).outcome; }

    /// Puts a file of the trash back to where its info says that it was.
    void Restore(const std::string& name) {
        std::ifstream info(home / "Trash" / "info" / (name + ".trashinfo"));
        std::string line;
        while (std::getline(info, line) && line.rfind("Path=", 0) != 0) {
        }
        fs::rename(home / "Trash" / "files" / name, Decoded(line.substr(5)));
    }

    TempFolder folder;
    const fs::path home = folder / "data";
    const fs::path work = fs::canonical(folder.Path()) / "work";
    ScopedEnvironment dataHome{"XDG_DATA_HOME", home.string()};
    Trash trash;
};

TEST_F(TrashTest, FileGoesToTheHomeTrashWithANoteOfWhereItWas) {
    k4test::DrivenClock clock;
    clock.Set(k4test::DrivenClock::TimePoint(std::chrono::seconds(1'800'000'000)));
    const k4cmn::ScopedProvider<k4cmn::Clock> useClock(clock);
    const ScopedEnvironment zone("TZ", "XST-05:30");
    const fs::path file = folder.Write("work/a.txt", "content");

    EXPECT_EQ(Move(file), Outcome::Moved);

    EXPECT_FALSE(fs::exists(file));
    EXPECT_EQ(folder.Read("data/Trash/files/a.txt"), "content");
    EXPECT_EQ(
        folder.Read("data/Trash/info/a.txt.trashinfo"),
        "[Trash Info]\nPath=" + (work / "a.txt").string() + "\nDeletionDate=2027-01-15T13:30:00\n");
}

TEST_F(TrashTest, MissingDataFolderIsMadeForTheUserAlone) {
    const ScopedEnvironment deeper("XDG_DATA_HOME", (home / "not" / "yet").string());
    const fs::path file = folder.Write("work/a.txt", "content");
    const fs::path before = fs::current_path();
    const std::set<std::string> here = NamesIn(before);

    EXPECT_EQ(Move(file), Outcome::Moved);

    EXPECT_EQ(folder.Read("data/not/yet/Trash/files/a.txt"), "content");
    for (const char* made :
         {"", "not", "not/yet", "not/yet/Trash", "not/yet/Trash/files", "not/yet/Trash/info"})
        EXPECT_EQ(ModeOf(home / made), 0700u) << made;
    EXPECT_EQ(ModeOf(home / "not/yet/Trash/info/a.txt.trashinfo"), 0600u);
    EXPECT_EQ(NamesIn(before), here) << "nothing may appear in the current folder";
}

TEST_F(TrashTest, WithoutADataFolderVariableTheOneOfTheHomeFolderIsUsed) {
    const ScopedEnvironment user("HOME", (folder / "user").string());
    for (const char* value : {static_cast<const char*>(nullptr), "", "relative/folder"}) {
        const ScopedEnvironment data("XDG_DATA_HOME", value);
        EXPECT_EQ(Trash::HomeTrash(), (folder / "user/.local/share/Trash").string());
    }
}

TEST_F(TrashTest, SameNamesAreKeptApartAndEachCanBeRestored) {
    for (const char* content : {"one", "two", "three"})
        EXPECT_EQ(Move(folder.Write("work/a.txt", content)), Outcome::Moved);

    EXPECT_EQ(folder.Read("data/Trash/files/a.txt"), "one");
    EXPECT_EQ(folder.Read("data/Trash/files/a 2.txt"), "two");
    EXPECT_EQ(folder.Read("data/Trash/files/a 3.txt"), "three");
    Restore("a 2.txt");
    EXPECT_EQ(folder.Read("work/a.txt"), "two");
}

TEST_F(TrashTest, ManyFilesOfOneNameStillFindAFreeOne) {
    constexpr std::size_t kMany = 130;  // more than are counted through
    for (std::size_t each = 0; each < kMany; ++each)
        ASSERT_EQ(Move(folder.Write("work/a.txt", std::to_string(each))), Outcome::Moved) << each;
    EXPECT_EQ(NamesIn(home / "Trash/files").size(), kMany);
    EXPECT_EQ(NamesIn(home / "Trash/info").size(), kMany);
}

TEST_F(TrashTest, FileWithoutANoteInTheTrashIsNeverReplaced) {
    folder.Write("data/Trash/files/a.txt", "orphan");
    EXPECT_EQ(Move(folder.Write("work/a.txt", "mine")), Outcome::Moved);
    EXPECT_EQ(folder.Read("data/Trash/files/a.txt"), "orphan");
    EXPECT_EQ(folder.Read("data/Trash/files/a 2.txt"), "mine");
    EXPECT_EQ(NamesIn(home / "Trash/info"), std::set<std::string>{"a 2.txt.trashinfo"});
}

struct NameRow {
    const char* what;
    std::string name;
    std::string encoded;
};

class TrashNames : public TrashTest, public testing::WithParamInterface<NameRow> {};

TEST_P(TrashNames, ArePercentEncodedAndComeBack) {
    const NameRow& row = GetParam();
    const fs::path file = folder.Write("work/" + row.name, "content");

    ASSERT_EQ(Move(file), Outcome::Moved);

    const std::string info = folder.Read("data/Trash/info/" + row.name + ".trashinfo");
    EXPECT_NE(info.find("Path=" + work.string() + "/" + row.encoded + "\nDeletionDate="),
              std::string::npos)
        << info;
    Restore(row.name);
    EXPECT_EQ(folder.Read("work/" + row.name), "content");
}

INSTANTIATE_TEST_SUITE_P(
    Rows, TrashNames,
    testing::Values(NameRow{"Newline", "a\nb", "a%0Ab"}, NameRow{"Percent", "50%", "50%25"},
                    NameRow{"Blank", "a b", "a%20b"},
                    NameRow{"Unicode", "Schild \xC3\xBC", "Schild%20%C3%BC"},
                    NameRow{"LeadingDash", "-rf", "-rf"}, NameRow{"Hidden", ".k4", ".k4"},
                    NameRow{"NoUtf8", "\xFF\xFE", "%FF%FE"}, NameRow{"Equals", "a=b", "a%3Db"},
                    NameRow{"Backslash", "a\\b", "a%5Cb"}),
    [](const auto& row) { return row.param.what; });

TEST_F(TrashTest, LongestNameIsShortenedBetweenCharacters) {
    std::string name;
    while (name.size() < 252)
        name += "\xC3\xBC";  // 252 bytes, 126 characters
    EXPECT_EQ(Move(folder.Write("work/" + name, "one")), Outcome::Moved);
    EXPECT_EQ(Move(folder.Write("work/" + name, "two")), Outcome::Moved);
    const std::set<std::string> names = NamesIn(home / "Trash/files");
    ASSERT_EQ(names.size(), 2u);
    EXPECT_TRUE(names.count(name.substr(0, 244))) << "245 bytes would cut a character";
    EXPECT_NE(folder.Read("data/Trash/info/" + name.substr(0, 244) + ".trashinfo")
                  .find("%C3%BC\nDeletionDate"),
              std::string::npos);
}

TEST_F(TrashTest, WholeFolderGoesAndItsSizeIsNoted) {
    folder.Write("work/tree/deep/a", std::string(10'000, 'x'));
    EXPECT_EQ(Move(work / "tree"), Outcome::Moved);
    EXPECT_EQ(folder.Read("data/Trash/files/tree/deep/a").size(), 10'000u);

    struct stat info {};
    ASSERT_EQ(stat((home / "Trash/info/tree.trashinfo").c_str(), &info), 0);
    std::ifstream sizes(home / "Trash/directorysizes");
    long size = 0;
    long time = 0;
    std::string name;
    ASSERT_TRUE(sizes >> size >> time >> name);
    EXPECT_GE(size, 10'000);
    EXPECT_EQ(time, info.st_mtime);
    EXPECT_EQ(name, "tree");
}

TEST_F(TrashTest, LinkGoesItselfAndItsTargetStays) {
    const fs::path target = folder.Write("work/target", "content");
    fs::create_symlink("nowhere", work / "dangling");
    fs::create_symlink(target, work / "link");
    EXPECT_EQ(Move(work / "dangling"), Outcome::Moved);
    EXPECT_EQ(Move(work / "link"), Outcome::Moved);
    EXPECT_TRUE(fs::is_symlink(home / "Trash/files/dangling"));
    EXPECT_EQ(folder.Read("work/target"), "content");
}

TEST_F(TrashTest, OriginIsNotedWithoutTheLinksOfItsFolder) {
    folder.Write("work/a.txt");
    fs::create_directory_symlink(work, folder / "shortcut");
    EXPECT_EQ(Move(folder / "shortcut/a.txt"), Outcome::Moved);
    EXPECT_NE(folder.Read("data/Trash/info/a.txt.trashinfo").find((work / "a.txt").string()),
              std::string::npos);
}

TEST_F(TrashTest, MissingFileIsMissing) {
    const Trash::Result result = trash.Move((work / "nothing").string());
    EXPECT_EQ(result.outcome, Outcome::Missing);
    EXPECT_EQ(result.error, ENOENT);
    EXPECT_EQ(trash.Move("").outcome, Outcome::Missing);
    EXPECT_FALSE(fs::exists(home)) << "no trash is made for nothing";
}

TEST_F(TrashTest, RootOfEverythingStays) {
    EXPECT_EQ(trash.Move("/").outcome, Outcome::Failed);
}

TEST_F(TrashTest, TrashItselfStaysAndLeavesNoNote) {
    folder.Write("data/Trash/files/a.txt", "content");
    EXPECT_EQ(Move(home / "Trash"), Outcome::Failed);
    EXPECT_EQ(folder.Read("data/Trash/files/a.txt"), "content");
    EXPECT_TRUE(NamesIn(home / "Trash/info").empty());
}

TEST_F(TrashTest, NoPlaceWhereTheDataFolderCannotBe) {
    const fs::path file = folder.Write("work/a.txt", "content");
    folder.Write("data", "a file where the folder would be");
    EXPECT_EQ(Move(file), Outcome::NoPlace);
    EXPECT_EQ(folder.Read("work/a.txt"), "content");
}

TEST_F(TrashTest, NoPlaceInAReadOnlyTrash) {
    const fs::path file = folder.Write("work/a.txt", "content");
    fs::create_directories(home / "Trash/files");
    fs::create_directories(home / "Trash/info");
    const OrdinaryUser user(folder.Path());
    fs::permissions(home / "Trash/info", fs::perms::owner_read | fs::perms::owner_exec);

    const Trash::Result result = trash.Move(file.string());

    EXPECT_EQ(result.outcome, Outcome::NoPlace);
    EXPECT_EQ(result.error, EACCES);
    EXPECT_EQ(folder.Read("work/a.txt"), "content");
}

TEST_F(TrashTest, FileInAReadOnlyFolderStaysAndNobodyNeedsAsk) {
    const fs::path file = folder.Write("work/a.txt", "content");
    const OrdinaryUser user(folder.Path());
    fs::permissions(work, fs::perms::owner_read | fs::perms::owner_exec);
    const Trash::Result result = trash.Move(file.string());
    EXPECT_EQ(result.outcome, Outcome::Failed);
    EXPECT_EQ(result.error, EACCES);
    EXPECT_FALSE(fs::exists(home));
}

TEST_F(TrashTest, HomeTrashMayBeALinkToWhereThereIsRoom) {
    fs::create_directories(folder / "room");
    fs::create_directories(home);
    fs::create_directory_symlink(folder / "room", home / "Trash");
    EXPECT_EQ(Move(folder.Write("work/a.txt", "content")), Outcome::Moved);
    EXPECT_EQ(folder.Read("room/files/a.txt"), "content");
}

/// A disk of its own, played by a folder: renaming works across its border, and so shows whether
/// the border is kept.
class OtherDisk : public TrashTest {
 protected:
    OtherDisk() {
        fs::create_directories(disk / "docs");
        trash = Trash([this](const std::string& each) {
            return each.rfind(disk.string(), 0) == 0 ? disk.string() : std::string("/");
        });
    }

    const fs::path disk = fs::canonical(folder.Path()) / "disk";
    const std::string user = std::to_string(geteuid());
};

TEST_F(OtherDisk, KeepsItsTrashAtItsTop) {
    EXPECT_EQ(Move(folder.Write("disk/docs/a b.txt", "content")), Outcome::Moved);
    EXPECT_EQ(folder.Read("disk/.Trash-" + user + "/files/a b.txt"), "content");
    const std::string info = folder.Read("disk/.Trash-" + user + "/info/a b.txt.trashinfo");
    EXPECT_NE(info.find("\nPath=docs/a%20b.txt\n"), std::string::npos) << info;
    EXPECT_EQ(ModeOf(disk / (".Trash-" + user)), 0700u);
    EXPECT_FALSE(fs::exists(home));
}

TEST_F(OtherDisk, AdministratorsTrashIsPreferred) {
    fs::create_directory(disk / ".Trash");
    ASSERT_EQ(chmod((disk / ".Trash").c_str(), 01777), 0);
    EXPECT_EQ(Move(folder.Write("disk/docs/a", "content")), Outcome::Moved);
    EXPECT_EQ(folder.Read("disk/.Trash/" + user + "/files/a"), "content");
    EXPECT_EQ(ModeOf(disk / ".Trash" / user), 0700u);
    EXPECT_FALSE(fs::exists(disk / (".Trash-" + user)));
}

TEST_F(OtherDisk, AdministratorsTrashThatIsALinkIsNotTrusted) {
    fs::create_directory(folder / "elsewhere");
    ASSERT_EQ(chmod((folder / "elsewhere").c_str(), 01777), 0);
    fs::create_directory_symlink(folder / "elsewhere", disk / ".Trash");
    EXPECT_EQ(Move(folder.Write("disk/docs/a", "content")), Outcome::Moved);
    EXPECT_EQ(folder.Read("disk/.Trash-" + user + "/files/a"), "content");
    EXPECT_TRUE(fs::is_empty(folder / "elsewhere"));
}

TEST_F(OtherDisk, AdministratorsTrashWithoutTheStickyBitIsNotTrusted) {
    fs::create_directory(disk / ".Trash");
    ASSERT_EQ(chmod((disk / ".Trash").c_str(), 0777), 0);
    EXPECT_EQ(Move(folder.Write("disk/docs/a", "content")), Outcome::Moved);
    EXPECT_EQ(folder.Read("disk/.Trash-" + user + "/files/a"), "content");
    EXPECT_TRUE(fs::is_empty(disk / ".Trash"));
}

TEST_F(OtherDisk, UsersTrashThatIsALinkIsRefused) {
    fs::create_directory(folder / "elsewhere");
    fs::create_directory_symlink(folder / "elsewhere", disk / (".Trash-" + user));
    EXPECT_EQ(Move(folder.Write("disk/docs/a", "content")), Outcome::NoPlace);
    EXPECT_EQ(folder.Read("disk/docs/a"), "content");
    EXPECT_TRUE(NamesIn(folder / "elsewhere/files").empty());
}

TEST_F(OtherDisk, FolderWithinTheUsersTrashThatIsALinkIsRefused) {
    fs::create_directory(folder / "elsewhere");
    fs::create_directory(disk / (".Trash-" + user));
    fs::create_directory_symlink(folder / "elsewhere", disk / (".Trash-" + user) / "files");
    EXPECT_EQ(Move(folder.Write("disk/docs/a", "content")), Outcome::NoPlace);
    EXPECT_TRUE(fs::is_empty(folder / "elsewhere"));
}

TEST_F(OtherDisk, SomebodyElsesFolderInTheUsersPlaceIsRefused) {
    if (geteuid() != 0)
        GTEST_SKIP() << "only the administrator can hand a folder over";
    fs::create_directory(disk / (".Trash-" + user));
    ASSERT_EQ(lchown((disk / (".Trash-" + user)).c_str(), OrdinaryUser::kNobody, 0), 0);
    EXPECT_EQ(Move(folder.Write("disk/docs/a", "content")), Outcome::NoPlace);
    EXPECT_EQ(folder.Read("disk/docs/a"), "content");
}

TEST_F(OtherDisk, ThatHasNoRoomForATrashHasNoPlace) {
    folder.Write("disk/.Trash-" + user, "in the way");
    EXPECT_EQ(Move(folder.Write("disk/docs/a", "content")), Outcome::NoPlace);
    EXPECT_EQ(folder.Read("disk/docs/a"), "content");
}

TEST_F(TrashTest, MountedDiskKeepsItsTrashAtItsTop) {
    fs::create_directories(work / "disk");
    const int outcome = k4test::WithSmallDisk((work / "disk").string(), "1m", [this] {
        EXPECT_EQ(k4suite::MountTopOf((work / "disk").string()), (work / "disk").string());
        folder.Write("work/disk/docs/a", "content");
        EXPECT_EQ(Move(work / "disk/docs/a"), Outcome::Moved);
        const std::string bin = "work/disk/.Trash-" + std::to_string(geteuid());
        EXPECT_EQ(folder.Read(bin + "/files/a"), "content");
        EXPECT_NE(folder.Read(bin + "/info/a.trashinfo").find("\nPath=docs/a\n"),
                  std::string::npos);
        EXPECT_FALSE(fs::exists(home));
        EXPECT_EQ(Move(work / "disk"), Outcome::Failed) << "a mount point can't be moved";
        EXPECT_TRUE(NamesIn(home / "Trash/info").empty());
    });
    if (outcome == k4test::kNoMounts)
        GTEST_SKIP() << "this system lets nobody mount a disk";
    EXPECT_EQ(outcome, 0);
}

TEST_F(TrashTest, FullDiskHasNoPlaceForATrash) {
    fs::create_directories(work / "disk");
    const int outcome = k4test::WithSmallDisk((work / "disk").string(), "64k", [this] {
        folder.Write("work/disk/a", "content");
        folder.Write("work/disk/filler", std::string(100'000, 'x'));
        const Trash::Result result = trash.Move((work / "disk/a").string());
        EXPECT_EQ(result.outcome, Outcome::NoPlace);
        EXPECT_EQ(result.error, ENOSPC);
        EXPECT_EQ(folder.Read("work/disk/a"), "content");
    });
    if (outcome == k4test::kNoMounts)
        GTEST_SKIP() << "this system lets nobody mount a disk";
    EXPECT_EQ(outcome, 0);
}

TEST(MountTop, IsTheMountPoint) {
    EXPECT_EQ(k4suite::MountTopOf("/proc/self"), "/proc");
    EXPECT_EQ(k4suite::MountTopOf("/proc/self/fd/.."), "/proc");
    EXPECT_EQ(k4suite::MountTopOf("/"), "/");
    EXPECT_EQ(k4suite::MountTopOf("/no/such/folder"), "");
}

}  // namespace
