#include "suite/signservice/ServicesLock.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <optional>

#include "tests/support/TempFolder.h"

namespace {

using k4suite::DataHome;
using k4suite::ServicesLock;
using k4test::TempFolder;

/// Another process that holds the services of a home, until it is told to go or is killed.
class HoldingProcess {
 public:
    HoldingProcess(const DataHome& home, const char* program) {
        int ready[2];
        int leave[2];
        EXPECT_EQ(pipe(ready), 0);
        EXPECT_EQ(pipe(leave), 0);
        m_pid = fork();
        if (m_pid == 0) {
            close(ready[0]);
            close(leave[1]);
            Hold(home, program, ready[1], leave[0]);
        }
        close(ready[1]);
        close(leave[0]);
        m_leave = leave[1];
        char answer = 0;
        EXPECT_EQ(read(ready[0], &answer, 1), 1);
        EXPECT_EQ(answer, 'y') << "the other process has the lock";
        close(ready[0]);
    }
    ~HoldingProcess() { End(); }
    HoldingProcess(const HoldingProcess&) = delete;
    HoldingProcess& operator=(const HoldingProcess&) = delete;

    pid_t Pid() const { return m_pid; }
    void Kill() {
        kill(m_pid, SIGKILL);
        End();
    }
    /// Lets it end, and waits for that.
    void End() {
        if (m_leave < 0)
            return;
        close(m_leave);
        m_leave = -1;
        int status = 0;
        EXPECT_EQ(waitpid(m_pid, &status, 0), m_pid);
    }

 private:
    [[noreturn]] static void Hold(const DataHome& home, const char* program, int ready, int leave) {
        {
            ServicesLock lock(home, program);
            const char answer = lock.TryAcquire() ? 'y' : 'n';
            char byte = 0;
            if (write(ready, &answer, 1) == 1)
                static_cast<void>(read(leave, &byte, 1));
        }
        _exit(0);
    }

    pid_t m_pid = -1;
    int m_leave = -1;
};

class ServicesLockTest : public testing::Test {
 protected:
    TempFolder folder;
    DataHome home{folder / "home" / "of its own"};
};

TEST_F(ServicesLockTest, TheFirstTakesItAndMakesTheHome) {
    ServicesLock lock(home, "first");
    EXPECT_TRUE(lock.TryAcquire());
    EXPECT_TRUE(lock.TryAcquire()) << "it has it already";
    EXPECT_TRUE(std::filesystem::is_directory(home.Path()));
    EXPECT_EQ(lock.Holder().pid, getpid());
    EXPECT_EQ(lock.Holder().program, "first");
}

TEST_F(ServicesLockTest, ASecondOneInTheSameProcessHasToStandBack) {
    ServicesLock first(home, "first");
    ASSERT_TRUE(first.TryAcquire());
    ServicesLock second(home, "second");
    EXPECT_FALSE(second.TryAcquire());
    EXPECT_EQ(second.Holder().program, "first");
}

TEST_F(ServicesLockTest, HomesDontDisturbEachOther) {
    ServicesLock first(home, "first");
    ServicesLock second(DataHome(folder / "another"), "second");
    EXPECT_TRUE(first.TryAcquire());
    EXPECT_TRUE(second.TryAcquire());
}

TEST_F(ServicesLockTest, AnotherProcessThatHoldsItIsNamed) {
    const HoldingProcess other(home, "k4ctl");
    ServicesLock lock(home, "workbench");
    EXPECT_FALSE(lock.TryAcquire());
    EXPECT_EQ(lock.Holder().pid, other.Pid());
    EXPECT_EQ(lock.Holder().program, "k4ctl");
    EXPECT_EQ(std::filesystem::file_size(home.ServicesLock()),
              std::to_string(other.Pid()).size() + 7);
}

TEST_F(ServicesLockTest, ItIsFreeWhenItsProcessEnds) {
    HoldingProcess other(home, "k4ctl");
    ServicesLock lock(home, "workbench");
    ASSERT_FALSE(lock.TryAcquire());
    other.End();
    EXPECT_TRUE(lock.TryAcquire());
    EXPECT_EQ(lock.Holder().program, "workbench");
}

TEST_F(ServicesLockTest, ItIsFreeWhenItsProcessIsKilled) {
    HoldingProcess other(home, "k4ctl");
    ServicesLock lock(home, "workbench");
    ASSERT_FALSE(lock.TryAcquire());
    other.Kill();
    EXPECT_TRUE(lock.TryAcquire());
    EXPECT_EQ(lock.Holder().pid, getpid());
}

TEST_F(ServicesLockTest, AProgramThatTheHolderStartedDoesntHoldItOn) {
    std::optional<ServicesLock> lock;
    lock.emplace(home, "workbench");
    ASSERT_TRUE(lock->TryAcquire());
    int keep[2];
    ASSERT_EQ(pipe2(keep, O_CLOEXEC), 0);
    const pid_t child = fork();
    if (child == 0) {
        dup2(keep[0], 0);
        execlp("cat", "cat", static_cast<char*>(nullptr));
        _exit(1);
    }
    // The child's copies of the pipe are closed exactly when it has become the other program.
    close(keep[0]);
    lock.reset();
    ServicesLock next(home, "next");
    while (!next.TryAcquire()) {
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, WNOHANG), 0) << "it is still there";
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, WNOHANG), 0) << "the child lives, and the lock was free";
    close(keep[1]);
    EXPECT_EQ(waitpid(child, &status, 0), child);
}

TEST_F(ServicesLockTest, AProgramsNameStaysOnOneLine) {
    ServicesLock first(home, "a\tb\nc");
    ASSERT_TRUE(first.TryAcquire());
    ServicesLock second(home, "second");
    ASSERT_FALSE(second.TryAcquire());
    EXPECT_EQ(second.Holder().program, "a b c");
}

TEST_F(ServicesLockTest, GoingLeavesNoName) {
    { EXPECT_TRUE(ServicesLock(home, "first").TryAcquire()); }
    EXPECT_EQ(std::filesystem::file_size(home.ServicesLock()), 0U);
    EXPECT_EQ(ServicesLock(home, "second").Holder().pid, 0);
}

TEST_F(ServicesLockTest, AFileThatSaysSomethingElseNamesNobody) {
    struct Row {
        const char* content;
        long pid;
        const char* program;
    };
    constexpr Row rows[] = {
        {"", 0, ""},
        {"\n", 0, ""},
        {"123", 0, ""},
        {"x\tname\n", 0, ""},
        {"12x\tname\n", 0, ""},
        {"-5\tname\n", 0, ""},
        {"0\tname\n", 0, ""},
        {"99999999999999999999\tname\n", 0, ""},
        {"123\tname\nmore\n", 123, "name"},
        {"123\t\n", 123, ""},
        {"123\tna\x01me", 123, "na me"},
    };
    std::filesystem::create_directories(home.Path());
    for (const Row& row : rows) {
        folder.Write("home/of its own/services.lock", row.content);
        const k4suite::ServicesHolder holder = ServicesLock(home, "me").Holder();
        EXPECT_EQ(holder.pid, row.pid) << row.content;
        EXPECT_EQ(holder.program, row.program) << row.content;
    }
}

TEST_F(ServicesLockTest, AHomeThatCantBeMadeGivesNoLock) {
    folder.Write("file");
    ServicesLock lock(DataHome(folder / "file" / "home"), "me");
    EXPECT_FALSE(lock.TryAcquire());
    EXPECT_EQ(lock.Holder().pid, 0);
}

}  // namespace
