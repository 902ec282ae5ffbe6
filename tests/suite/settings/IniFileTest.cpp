#include "suite/settings/IniFile.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <thread>

#include "suite/settings/FileLock.h"
#include "suite/settings/IniValue.h"
#include "tests/support/TempFolder.h"

namespace {

namespace fs = std::filesystem;
using k4suite::FileLock;
using k4suite::IniFile;
using Texts = std::vector<std::string>;

class Ini : public testing::Test {
 protected:
    fs::path Path() const { return folder / "settings/user.ini"; }
    std::string Raw() const { return folder.Read("settings/user.ini"); }
    void WriteRaw(const std::string& content) { folder.Write("settings/user.ini", content); }

    static int Set(IniFile& file, const char* key, const std::string& text) {
        return file.Update(
            [&](QSettings& ini) { k4suite::WriteText(ini, QLatin1String(key), text); });
    }
    static std::string Get(IniFile& file, const char* key) {
        std::string text = "<none>";
        EXPECT_EQ(
            file.Read([&](QSettings& ini) { k4suite::ReadText(ini, QLatin1String(key), text); }),
            1);
        return text;
    }
    static int CanRead(IniFile& file) {
        bool isCalled = false;
        const int result = file.Read([&](QSettings&) { isCalled = true; });
        EXPECT_EQ(isCalled, result == 1);
        return result;
    }
    /// The names of what lies beside the file, without the lock.
    Texts Beside() const {
        Texts names;
        for (const auto& entry : fs::directory_iterator(folder / "settings"))
            if (entry.path().extension() != ".lock")
                names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

    k4test::TempFolder folder;
};

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

// Several at a time ------------------------------------------------------------------------------

/// Runs something in a process of its own. @return its process id.
template <class Work>
pid_t InAnotherProcess(const Work& work) {
    const pid_t child = fork();
    if (child == 0)
        _exit(work() ? 0 : 1);
    return child;
}

bool EndedWell(pid_t child) {
    int status = 0;
    return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST_F(Ini, ProcessesThatWriteDifferentKeysLoseNothing) {
    constexpr int processes = 3;
    constexpr int writes = 60;
    std::vector<pid_t> children;
    for (int process = 0; process < processes; ++process) {
        children.push_back(InAnotherProcess([&] {
            IniFile file(Path());
            for (int i = 0; i < writes; ++i) {
                const std::string key = "p" + std::to_string(process) + "/k" + std::to_string(i);
                if (!Set(file, key.c_str(), std::to_string(i)))
                    return false;
            }
            return true;
        }));
    }
    for (const pid_t child : children)
        EXPECT_TRUE(EndedWell(child));
    IniFile file(Path());
    for (int process = 0; process < processes; ++process) {
        for (int i = 0; i < writes; ++i) {
            const std::string key = "p" + std::to_string(process) + "/k" + std::to_string(i);
            EXPECT_EQ(Get(file, key.c_str()), std::to_string(i)) << key;
        }
    }
}

TEST_F(Ini, ProcessesThatCountTogetherCountEveryStep) {
    constexpr int steps = 100;
    const auto count = [&] {
        IniFile file(Path());
        for (int i = 0; i < steps; ++i) {
            const int done = file.Update([](QSettings& ini) {
                std::uint32_t number = 1000;  // its length stays the same
                k4suite::ReadNumber(ini, QStringLiteral("a/n"), number);
                k4suite::WriteNumber(ini, QStringLiteral("a/n"), number + 1);
            });
            if (!done)
                return false;
        }
        return true;
    };
    const pid_t first = InAnotherProcess(count);
    const pid_t second = InAnotherProcess(count);
    EXPECT_TRUE(EndedWell(first));
    EXPECT_TRUE(EndedWell(second));
    IniFile file(Path());
    EXPECT_EQ(Get(file, "a/n"), std::to_string(1000 + 2 * steps));
}

TEST_F(Ini, ReaderBesideAWriterSeesWholeContents) {
    IniFile writer(Path());
    ASSERT_EQ(Set(writer, "a/first", "0"), 1);
    ASSERT_EQ(Set(writer, "a/second", "0"), 1);
    const pid_t child = InAnotherProcess([&] {
        IniFile file(Path());
        for (int i = 1; i <= 100; ++i) {
            const std::string text(static_cast<std::size_t>(i), 'x');
            if (!file.Update([&](QSettings& ini) {
                    k4suite::WriteText(ini, QStringLiteral("a/first"), text);
                    k4suite::WriteText(ini, QStringLiteral("a/second"), text);
                }))
                return false;
        }
        return true;
    });
    IniFile reader(Path());
    int status = 0;
    while (waitpid(child, &status, WNOHANG) == 0) {
        std::string first;
        std::string second;
        ASSERT_EQ(reader.Read([&](QSettings& ini) {
            k4suite::ReadText(ini, QStringLiteral("a/first"), first);
            k4suite::ReadText(ini, QStringLiteral("a/second"), second);
        }),
                  1);
        ASSERT_EQ(first, second);
    }
    EXPECT_EQ(status, 0);
    EXPECT_EQ(reader.Problems(), Texts{});
}

TEST_F(Ini, ThreadsOfOneProcessLoseNothing) {
    IniFile shared(Path());
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&, thread] {
            IniFile own(Path());
            for (int i = 0; i < 25; ++i) {
                const std::string key = "t" + std::to_string(thread) + "/k" + std::to_string(i);
                EXPECT_EQ(Set(i % 2 ? own : shared, key.c_str(), "x"), 1);
                EXPECT_EQ(Get(shared, key.c_str()), "x");
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    IniFile file(Path());
    int count = 0;
    EXPECT_EQ(file.Read([&](QSettings& ini) { count = static_cast<int>(ini.allKeys().size()); }),
              1);
    EXPECT_EQ(count, 100);
}

TEST_F(Ini, ProcessesThatFindTheSameDamageSetItAsideOnce) {
    const std::string damage = "[a]\nb=1\nnonsense\n";
    WriteRaw(damage);
    const auto write = [&](const char* key) {
        IniFile file(Path());
        CanRead(file);
        return Set(file, key, "x") == 1;
    };
    const pid_t first = InAnotherProcess([&] { return write("n/first"); });
    const pid_t second = InAnotherProcess([&] { return write("n/second"); });
    EXPECT_TRUE(EndedWell(first));
    EXPECT_TRUE(EndedWell(second));
    EXPECT_EQ(Beside(), (Texts{"user.ini", "user.ini.damaged-1"}));
    EXPECT_EQ(folder.Read("settings/user.ini.damaged-1"), damage);
    EXPECT_EQ(Raw(), "[n]\nfirst=x\nsecond=x\n");
}

TEST_F(Ini, LockHasOneHolderAtATime) {
    const fs::path path = folder / "lock";
    {
        const FileLock first(path, std::chrono::milliseconds(0));
        EXPECT_TRUE(first.IsHeld());
        EXPECT_FALSE(FileLock(path, std::chrono::milliseconds(20)).IsHeld());
    }
    EXPECT_TRUE(FileLock(path, std::chrono::milliseconds(0)).IsHeld());
    EXPECT_FALSE(FileLock(folder / "gone/lock", std::chrono::milliseconds(0)).IsHeld());
}

TEST_F(Ini, LockGoesWithItsProcess) {
    const fs::path path = folder / "lock";
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t child = fork();
    if (child == 0) {
        const FileLock lock(path, std::chrono::milliseconds(0));
        [[maybe_unused]] const auto told = write(ready[1], lock.IsHeld() ? "1" : "0", 1);
        for (;;)
            pause();
    }
    char isHeld = '0';
    ASSERT_EQ(read(ready[0], &isHeld, 1), 1);
    EXPECT_EQ(isHeld, '1');
    EXPECT_FALSE(FileLock(path, std::chrono::milliseconds(0)).IsHeld());
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(FileLock(path, std::chrono::milliseconds(1000)).IsHeld());
    close(ready[0]);
    close(ready[1]);
}

}  // namespace
