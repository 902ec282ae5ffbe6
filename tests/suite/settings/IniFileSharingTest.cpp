#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <thread>

#include "suite/settings/FileLock.h"
#include "tests/suite/settings/IniFileFixture.h"

namespace {

namespace fs = std::filesystem;
using k4suite::FileLock;
using k4suite::IniFile;
using Texts = std::vector<std::string>;

class SharedIni : public k4test::IniFileFixture {};

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

TEST_F(SharedIni, ProcessesThatWriteDifferentKeysLoseNothing) {
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

TEST_F(SharedIni, ProcessesThatCountTogetherCountEveryStep) {
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

TEST_F(SharedIni, ReaderBesideAWriterSeesWholeContents) {
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

TEST_F(SharedIni, ThreadsOfOneProcessLoseNothing) {
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

TEST_F(SharedIni, ProcessesThatFindTheSameDamageSetItAsideOnce) {
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

TEST_F(SharedIni, LockHasOneHolderAtATime) {
    const fs::path path = folder / "lock";
    {
        const FileLock first(path, std::chrono::milliseconds(0));
        EXPECT_TRUE(first.IsHeld());
        EXPECT_FALSE(FileLock(path, std::chrono::milliseconds(20)).IsHeld());
    }
    EXPECT_TRUE(FileLock(path, std::chrono::milliseconds(0)).IsHeld());
    EXPECT_FALSE(FileLock(folder / "gone/lock", std::chrono::milliseconds(0)).IsHeld());
}

TEST_F(SharedIni, LockGoesWithItsProcess) {
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
