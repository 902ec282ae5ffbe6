#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <functional>
#include <vector>

#include "suite/access/FolderAccess.h"
#include "tests/support/TempFolder.h"

namespace {

namespace fs = std::filesystem;
using k4suite::DataHome;
using k4suite::FolderAccess;

constexpr int kProcesses = 4;

class AccessOfMany : public testing::Test {
 protected:
    void SetUp() override { fs::create_directories(home / "drives/A"); }

    /// Has processes do something at the same time.
    /// @param work gets the number of the process. @return how many said yes.
    static int Together(const std::function<bool(int)>& work) {
        int start[2];
        EXPECT_EQ(pipe(start), 0);
        std::vector<pid_t> children;
        for (int number = 0; number < kProcesses; ++number) {
            children.push_back(fork());
            if (children.back() != 0)
                continue;
            close(start[1]);
            char byte = 0;
            while (read(start[0], &byte, 1) > 0) {
            }
            _exit(work(number) ? 1 : 0);
        }
        close(start[0]);
        close(start[1]);  // the start
        int yes = 0;
        for (const pid_t child : children) {
            int status = 0;
            EXPECT_EQ(waitpid(child, &status, 0), child);
            EXPECT_TRUE(WIFEXITED(status));
            yes += WEXITSTATUS(status);
        }
        return yes;
    }

    k4test::TempFolder home;
    FolderAccess access{DataHome(home.Path())};
};

TEST_F(AccessOfMany, OneMakesTheFolder) {
    for (int round = 0; round < 20; ++round) {
        const std::string folder = "A:\\" + std::to_string(round) + ".b.c.Sign";
        EXPECT_EQ(Together([&](int) { return access.MakeFolder(folder) != 0; }), 1);
    }
}

TEST_F(AccessOfMany, OneTakesTheFile) {
    for (int round = 0; round < 20; ++round) {
        const std::string file = std::to_string(round);
        home.Write("drives/A/" + file, "content " + file);
        const auto target = [&](int number) { return file + "-" + std::to_string(number); };
        EXPECT_EQ(Together([&](int number) {
                      return access.Move("A:\\" + file, "A:\\" + target(number)) != 0;
                  }),
                  1);
        int found = 0;
        for (int number = 0; number < kProcesses; ++number)
            found += home.Read("drives/A/" + target(number)) == "content " + file;
        EXPECT_EQ(found, 1);
    }
}

TEST_F(AccessOfMany, OneGetsTheNameAndNoFileIsLost) {
    for (int round = 0; round < 20; ++round) {
        const std::string name = "name" + std::to_string(round) + "-";
        for (int number = 0; number < kProcesses; ++number)
            home.Write("drives/A/" + name + std::to_string(number), std::to_string(number));
        const auto move = [&](int number) {
            return access.Move("A:\\" + name + std::to_string(number), "A:\\" + name) != 0;
        };
        EXPECT_EQ(Together(move), 1);
        const std::string winner = home.Read("drives/A/" + name);
        for (int number = 0; number < kProcesses; ++number) {
            const std::string text = std::to_string(number);
            EXPECT_EQ(home.Read("drives/A/" + name + text), text == winner ? "" : text);
        }
    }
}

TEST_F(AccessOfMany, StatusOfWhatComesAndGoesIsWholeOrNone) {
    std::vector<std::string> names;
    for (int number = 0; number < 200; ++number)
        names.push_back("f" + std::to_string(number));
    const pid_t other = fork();
    ASSERT_GE(other, 0);
    if (other == 0) {
        for (;;) {
            fs::create_directories(home / "drives/A/1.2.3.Sign");
            for (const std::string& name : names)
                home.Write("drives/A/1.2.3.Sign/" + name, "12345");
            std::error_code failed;
            fs::remove_all(home / "drives/A/1.2.3.Sign", failed);
        }
    }
    int seen = 0;
    for (int round = 0; round < 500; ++round) {
        const auto all = access.StatusIn("a:\\1.2.3.SIGN", names);
        ASSERT_EQ(all.size(), names.size());
        for (const auto& status : all) {
            if (!status)
                continue;
            ++seen;
            EXPECT_FALSE(status->isFolder);
            EXPECT_TRUE(status->size == 0 || status->size == 5);
        }
    }
    kill(other, SIGKILL);
    waitpid(other, nullptr, 0);
    EXPECT_GT(seen, 0) << "the other process was never met";
}

}  // namespace
