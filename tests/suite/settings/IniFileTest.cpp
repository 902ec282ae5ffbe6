#include "suite/settings/IniFile.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "tests/suite/settings/IniFileFixture.h"

namespace {

namespace fs = std::filesystem;
using k4suite::IniFile;
using Texts = std::vector<std::string>;

class Ini : public k4test::IniFileFixture {};

TEST_F(Ini, FileThatDoesntExistReadsAsAnEmptyOne) {
    IniFile file(Path());
    EXPECT_EQ(Get(file, "a/b"), "<none>");
    EXPECT_FALSE(fs::exists(Path()));
    EXPECT_FALSE(fs::exists(Path().parent_path()));
}

TEST_F(Ini, ChangeIsReadBackHereAndByOthers) {
    IniFile file(Path());
    IniFile other(Path());
    EXPECT_EQ(Get(other, "a/b"), "<none>");
    EXPECT_EQ(Set(file, "a/b", "text"), 1);
    EXPECT_EQ(Get(file, "a/b"), "text");
    EXPECT_EQ(Get(other, "a/b"), "text");
    EXPECT_EQ(Raw(), "[a]\nb=text\n");
    EXPECT_EQ(Beside(), Texts{"user.ini"});
}

TEST_F(Ini, TextsOfAnyCharacterAreReadBack) {
    IniFile file(Path());
    for (const std::string& text : {
             std::string(),
             std::string(" lead and trail "),
             std::string("a, b; c=d"),
             std::string("\"quoted\""),
             std::string("@Invalid()"),
             std::string("@@x"),
             std::string("line\nline\r\n\ttab"),
             std::string("\\\\H\\S"),
             std::string("a\0b", 3),
             std::string("gr\u00fc\u00df \U0001F600"),
             std::string(100000, 'x'),
             std::string("[s]"),
             std::string("%20"),
             std::string("true"),
             std::string("1"),
         }) {
        EXPECT_EQ(Set(file, "a/b", text), 1);
        IniFile other(Path());
        EXPECT_EQ(Get(other, "a/b"), text);
    }
}

TEST_F(Ini, QuickChangesOfTheSameLengthAreAllSeen) {
    IniFile writer(Path());
    IniFile reader(Path());
    for (int i = 100; i < 300; ++i) {
        ASSERT_EQ(Set(writer, "a/b", std::to_string(i)), 1);
        ASSERT_EQ(Get(reader, "a/b"), std::to_string(i));
    }
}

TEST_F(Ini, LinkStaysALink) {
    const fs::path real = folder.Write("elsewhere/real.ini", "[a]\nb=1\n");
    fs::create_directories(Path().parent_path());
    fs::create_symlink(real, Path());
    IniFile file(Path());
    EXPECT_EQ(Set(file, "a/c", "2"), 1);
    EXPECT_TRUE(fs::is_symlink(Path()));
    EXPECT_EQ(folder.Read("elsewhere/real.ini"), "[a]\nb=1\nc=2\n");
}

TEST_F(Ini, PermissionsStay) {
    WriteRaw("[a]\nb=1\n");
    fs::permissions(Path(), fs::perms::owner_read | fs::perms::owner_write);
    IniFile file(Path());
    EXPECT_EQ(Set(file, "a/b", "2"), 1);
    EXPECT_EQ(fs::status(Path()).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

// Damaged files ----------------------------------------------------------------------------------

struct DamageCase {
    const char* name;
    std::string content;
};

class Damaged : public Ini, public testing::WithParamInterface<DamageCase> {};

TEST_P(Damaged, IsSetAsideByReading) {
    WriteRaw(GetParam().content);
    IniFile file(Path());
    EXPECT_EQ(Get(file, "a/b"), "<none>");
    EXPECT_EQ(Beside(), Texts{"user.ini.damaged-1"});
    EXPECT_EQ(folder.Read("settings/user.ini.damaged-1"), GetParam().content);
    EXPECT_EQ(file.Problems(), Texts{Path().string() + " was damaged; it is kept as " +
                                     Path().string() + ".damaged-1."});
}

TEST_P(Damaged, IsSetAsideByWriting) {
    WriteRaw(GetParam().content);
    IniFile file(Path());
    EXPECT_EQ(Set(file, "n/m", "new"), 1);
    EXPECT_EQ(Beside(), (Texts{"user.ini", "user.ini.damaged-1"}));
    EXPECT_EQ(folder.Read("settings/user.ini.damaged-1"), GetParam().content);
    EXPECT_EQ(Raw(), "[n]\nm=new\n");
    EXPECT_EQ(file.Problems().size(), 1u);
}

INSTANTIATE_TEST_SUITE_P(Contents, Damaged,
                         testing::Values(DamageCase{"LineWithoutValue", "[a]\nb=1\nnonsense\n"},
                                         DamageCase{"CutInTheSection", "[a]\nb=1\n[File%20Loc"},
                                         DamageCase{"Zeros", std::string(4096, '\0')},
                                         DamageCase{"ZerosAtTheEnd",
                                                    "[a]\nb=1\n" + std::string(100, '\0')},
                                         DamageCase{"NotUtf8", "[a]\nb=\xff\xfe\n"},
                                         DamageCase{"Binary",
                                                    "\x7f"
                                                    "ELF\x02\x01\x01\n\x80\x81\x82"},
                                         DamageCase{"OneLongLine", std::string(1000000, 'x')}),
                         [](const auto& testCase) { return std::string(testCase.param.name); });

TEST_F(Ini, EachDamagedFileIsKept) {
    IniFile file(Path());
    for (int i = 1; i <= 3; ++i) {
        WriteRaw("damage number " + std::to_string(i) + "\n");
        EXPECT_EQ(Get(file, "a/b"), "<none>");
        EXPECT_EQ(folder.Read("settings/user.ini.damaged-" + std::to_string(i)),
                  "damage number " + std::to_string(i) + "\n");
    }
    EXPECT_EQ(file.Problems().size(), 3u);
}

TEST_F(Ini, FileDamagedLaterIsSeenToo) {
    IniFile file(Path());
    EXPECT_EQ(Set(file, "a/b", "good"), 1);
    EXPECT_EQ(Get(file, "a/b"), "good");
    WriteRaw("damage");
    EXPECT_EQ(Get(file, "a/b"), "<none>");
    EXPECT_EQ(Beside(), Texts{"user.ini.damaged-1"});
}

TEST_F(Ini, EmptyFileIsGood) {
    WriteRaw("");
    IniFile file(Path());
    EXPECT_EQ(Get(file, "a/b"), "<none>");
    EXPECT_EQ(file.Problems(), Texts{});
    EXPECT_EQ(Beside(), Texts{"user.ini"});
}

TEST_F(Ini, HandWrittenFileIsRead) {
    WriteRaw("; a remark\n\n[File Locations]\nServer = A:\nList=a, b\n");
    IniFile file(Path());
    EXPECT_EQ(Get(file, "File Locations/Server"), "A:");
    EXPECT_EQ(Get(file, "File Locations/List"), "a, b");
    EXPECT_EQ(file.Problems(), Texts{});
    // What differs from what was read is stored.
    EXPECT_EQ(Set(file, "File Locations/List", "a,b"), 1);
    EXPECT_EQ(Get(file, "File Locations/List"), "a,b");
    IniFile other(Path());
    EXPECT_EQ(Get(other, "File Locations/List"), "a,b");
}

// Leftovers --------------------------------------------------------------------------------------

/// The number of a process that has ended.
pid_t EndedProcess() {
    const pid_t child = fork();
    if (child == 0)
        _exit(0);
    EXPECT_EQ(waitpid(child, nullptr, 0), child);
    return child;
}

TEST_F(Ini, CopiesOfProcessesThatEndedGoWithTheNextChange) {
    const std::string dead = std::to_string(EndedProcess());
    const std::string alive = std::to_string(getppid());
    const Texts gone{"user.ini.new-" + dead + "-1", "user.ini.new-" + dead + "-27-again",
                     "user.ini.new-" + dead + "-3.aBcDeF"};
    const Texts kept{"other.ini.new-" + dead + "-1", "user.ini",
                     "user.ini.damaged-1",           "user.ini.new-" + alive + "-1",
                     "user.ini.new-" + dead,         "user.ini.new--" + dead + "-1",
                     "user.ini.new-notes-1",         "user.ini.newer"};
    for (const Texts& names : {gone, kept})
        for (const std::string& name : names)
            folder.Write("settings/" + name, "[a]\nb=1\n");
    Texts sorted = kept;
    std::sort(sorted.begin(), sorted.end());

    IniFile file(Path());
    EXPECT_EQ(Get(file, "a/b"), "1");
    EXPECT_EQ(Set(file, "a/b", "1"), 1);
    EXPECT_EQ(Beside().size(), gone.size() + kept.size()) << "nothing was written";
    EXPECT_EQ(Set(file, "a/b", "2"), 1);
    EXPECT_EQ(Beside(), sorted);
}

TEST_F(Ini, CopiesGoWhereTheFileIsThatALinkLeadsTo) {
    const std::string leftover = "real.ini.new-" + std::to_string(EndedProcess()) + "-1";
    const fs::path real = folder.Write("elsewhere/real.ini", "[a]\nb=1\n");
    folder.Write("elsewhere/" + leftover);
    fs::create_directories(Path().parent_path());
    fs::create_symlink(real, Path());
    IniFile file(Path());
    EXPECT_EQ(Set(file, "a/b", "2"), 1);
    EXPECT_FALSE(fs::exists(folder / ("elsewhere/" + leftover)));
}

// Failing writes ---------------------------------------------------------------------------------

TEST_F(Ini, FolderInPlaceOfTheFile) {
    fs::create_directories(Path());
    IniFile file(Path());
    EXPECT_EQ(CanRead(file), 0);
    EXPECT_EQ(Set(file, "a/b", "x"), 0);
    EXPECT_TRUE(fs::is_directory(Path()));
    EXPECT_EQ(Beside(), Texts{"user.ini"});
}

TEST_F(Ini, PipeInPlaceOfTheFile) {
    fs::create_directories(Path().parent_path());
    ASSERT_EQ(mkfifo(Path().c_str(), 0600), 0);
    IniFile file(Path());
    EXPECT_EQ(CanRead(file), 0);
    EXPECT_EQ(Set(file, "a/b", "x"), 0);
    EXPECT_TRUE(fs::is_fifo(Path()));
    EXPECT_EQ(Beside(), Texts{"user.ini"});
    EXPECT_EQ(file.Problems(), Texts{});
}

TEST_F(Ini, PlaceThatIsNotUtf8IsNotUsedAndNoOtherEither) {
    IniFile file(folder / "h\xff/user.ini");
    EXPECT_EQ(CanRead(file), 0);
    EXPECT_EQ(Set(file, "a/b", "x"), 0);
    EXPECT_TRUE(fs::is_empty(folder.Path()));
    EXPECT_EQ(file.Problems(),
              Texts{folder.Path().string() + "/h\uFFFD/user.ini is no place that can be used."});
}

TEST_F(Ini, LinkToAPlaceThatIsNotUtf8IsNotUsed) {
    const fs::path real = folder.Write("h\xff.ini", "[a]\nb=1\n");
    fs::create_directories(Path().parent_path());
    fs::create_symlink(real, Path());
    IniFile file(Path());
    EXPECT_EQ(CanRead(file), 0);
    EXPECT_EQ(Set(file, "a/b", "x"), 0);
    EXPECT_EQ(folder.Read("h\xff.ini"), "[a]\nb=1\n");
    EXPECT_EQ(file.Problems(),
              Texts{folder.Path().string() + "/h\uFFFD.ini is no place that can be used."});
    EXPECT_EQ(Beside(), Texts{"user.ini"});
}

TEST_F(Ini, FolderBehindALinkMayHaveAnyName) {
    fs::create_directories(folder / "h\xff");
    fs::create_directory_symlink(folder / "h\xff", Path().parent_path());
    IniFile file(Path());
    EXPECT_EQ(Set(file, "a/b", "1"), 1);
    EXPECT_EQ(Set(file, "a/b", "2"), 1);
    EXPECT_EQ(Get(file, "a/b"), "2");
    EXPECT_EQ(folder.Read("h\xff/user.ini"), "[a]\nb=2\n");
}

TEST_F(Ini, FileInPlaceOfTheFolder) {
    folder.Write("settings", "a file");
    IniFile file(Path());
    EXPECT_EQ(Set(file, "a/b", "x"), 0);
    EXPECT_EQ(folder.Read("settings"), "a file");
}

TEST_F(Ini, FolderThatCantBeMade) {
    IniFile file("/proc/nowhere/user.ini");
    EXPECT_EQ(Set(file, "a/b", "x"), 0);
    EXPECT_EQ(Get(file, "a/b"), "<none>");
}

/// Writes grow to this size at most, for the life of a scope: as on a disk that is full.
class FullDisk {
 public:
    explicit FullDisk(rlim_t size) : m_signal(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{size, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_signal);
    }

 private:
    rlimit m_before{};
    void (*m_signal)(int);
};

TEST_F(Ini, FullDiskLeavesTheOldContent) {
    IniFile file(Path());
    ASSERT_EQ(Set(file, "a/b", std::string(1000, 'o')), 1);
    const std::string before = Raw();
    for (const rlim_t room : {0u, 500u, 1100u}) {
        const FullDisk full(room);
        EXPECT_EQ(Set(file, "a/b", std::string(5000, 'n')), 0) << room;
    }
    EXPECT_EQ(Raw(), before);
    EXPECT_EQ(Get(file, "a/b"), std::string(1000, 'o'));
    EXPECT_EQ(Beside(), Texts{"user.ini"});
    EXPECT_EQ(Set(file, "a/b", "room again"), 1);
    EXPECT_EQ(Get(file, "a/b"), "room again");
}

TEST_F(Ini, FullDiskNeverShowsWhatItDidntStore) {
    IniFile file(Path());
    {
        const FullDisk full(0);
        EXPECT_EQ(Set(file, "a/b", "lost"), 0);
    }
    EXPECT_EQ(Get(file, "a/b"), "<none>");
    EXPECT_EQ(Set(file, "a/c", "kept"), 1);
    EXPECT_EQ(Get(file, "a/b"), "<none>");
    EXPECT_EQ(Raw(), "[a]\nc=kept\n");
}

TEST_F(Ini, DamagedFileOnAFullDiskIsNotLost) {
    WriteRaw("[a]\nb=1\nnonsense\n");
    IniFile file(Path());
    const FullDisk full(0);
    EXPECT_EQ(Set(file, "a/b", "x"), 0);
    EXPECT_EQ(CanRead(file), 0);
    EXPECT_EQ(Raw(), "[a]\nb=1\nnonsense\n");
}

/// Runs something as a user whom permissions bind. @return whether it answered true.
template <class Work>
bool AsOrdinaryUser(const fs::path& owned, const Work& work) {
    constexpr uid_t nobody = 65534;
    if (geteuid() != 0)
        return work();
    EXPECT_EQ(chown(owned.c_str(), nobody, nobody), 0);
    for (const auto& entry : fs::recursive_directory_iterator(owned))
        EXPECT_EQ(chown(entry.path().c_str(), nobody, nobody), 0);
    const pid_t child = fork();
    if (child == 0)
        _exit(setgid(nobody) == 0 && setuid(nobody) == 0 && work() ? 0 : 1);
    int status = 1;
    return waitpid(child, &status, 0) == child && status == 0;
}

TEST_F(Ini, FileThatMayNotBeWrittenStays) {
    IniFile file(Path());
    ASSERT_EQ(Set(file, "a/b", "old"), 1);
    fs::permissions(Path(), fs::perms::owner_read);
    EXPECT_TRUE(AsOrdinaryUser(folder.Path(), [&] {
        IniFile own(Path());
        return Set(own, "a/b", "new") == 0 && Get(own, "a/b") == "old";
    }));
    EXPECT_EQ(Raw(), "[a]\nb=old\n");
}

TEST_F(Ini, FolderThatMayNotBeWrittenKeepsItsFile) {
    IniFile file(Path());
    ASSERT_EQ(Set(file, "a/b", "old"), 1);
    fs::permissions(Path().parent_path(), fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_TRUE(AsOrdinaryUser(folder.Path(), [&] {
        IniFile own(Path());
        return Set(own, "a/b", "new") == 0 && Get(own, "a/b") == "old";
    }));
    EXPECT_EQ(Raw(), "[a]\nb=old\n");
}

TEST_F(Ini, FileThatMayNotBeReadFails) {
    WriteRaw("[a]\nb=old\n");
    fs::permissions(Path(), fs::perms::none);
    EXPECT_TRUE(AsOrdinaryUser(folder.Path(), [&] {
        IniFile own(Path());
        return CanRead(own) == 0 && Set(own, "a/b", "new") == 0;
    }));
    EXPECT_EQ(Raw(), "[a]\nb=old\n");
}

TEST_F(Ini, DamagedFileThatCantBeSetAsideIsNeverTakenForGood) {
    const std::string damage = "[a]\nb=1\nnonsense\n";
    WriteRaw(damage);
    fs::permissions(Path().parent_path(), fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_TRUE(AsOrdinaryUser(folder.Path(), [&] {
        IniFile first(Path());
        IniFile second(Path());
        return CanRead(first) == 0 && CanRead(first) == 0 && CanRead(second) == 0 &&
               Set(second, "a/b", "new") == 0 &&
               first.Problems() == Texts{Path().string() + " is damaged."};
    }));
    EXPECT_EQ(Raw(), damage);
}

}  // namespace
