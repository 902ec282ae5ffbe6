#include "k4cmndlg/frame/LastError.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <optional>
#include <string>
#include <thread>

namespace {

/// An environment variable with another value for the life of a test.
class Environment {
 public:
    Environment(const char* name, const char* value) : m_name(name) {
        if (const char* before = std::getenv(name))
            m_before = before;
        setenv(name, value, 1);
    }
    ~Environment() {
        if (m_before)
            setenv(m_name, m_before->c_str(), 1);
        else
            unsetenv(m_name);
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

 private:
    const char* m_name;
    std::optional<std::string> m_before;
};

}  // namespace

TEST(LastErrorString, IsTheTextOfTheLastCode) {
    const Environment plain("LC_ALL", "C");
    errno = ENOENT;
    EXPECT_EQ(k4cmnGetLastErrorString(), "No such file or directory");
    errno = EACCES;
    EXPECT_EQ(k4cmnGetLastErrorString(), "Permission denied");
}

TEST(LastErrorString, AskingLeavesTheCode) {
    errno = EEXIST;
    const std::string first = k4cmnGetLastErrorString();
    EXPECT_EQ(errno, EEXIST);
    EXPECT_EQ(k4cmnGetLastErrorString(), first);
}

TEST(LastErrorString, LanguageThatIsNotInstalledGivesEnglish) {
    const Environment unknown("LC_ALL", "xx_XX.UTF-8");
    errno = ENOENT;
    EXPECT_EQ(k4cmnGetLastErrorString(), "No such file or directory");
}

TEST(LastErrorString, CodeWithoutATextHasThePlatformsWords) {
    const Environment plain("LC_ALL", "C");
    errno = 99999;
    EXPECT_EQ(k4cmnGetLastErrorString(), "Unknown error 99999");
    errno = 0;
    EXPECT_EQ(k4cmnGetLastErrorString(), "Success");
}

TEST(LastErrorString, EachThreadHasItsOwn) {
    const Environment plain("LC_ALL", "C");
    errno = ENOENT;
    std::string elsewhere;
    std::thread([&] {
        errno = EPERM;
        elsewhere = k4cmnGetLastErrorString();
    }).join();
    EXPECT_EQ(elsewhere, "Operation not permitted");
    EXPECT_EQ(k4cmnGetLastErrorString(), "No such file or directory");
}
