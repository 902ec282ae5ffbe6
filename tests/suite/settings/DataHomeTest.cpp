#include "suite/settings/DataHome.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>

namespace {

namespace fs = std::filesystem;
using k4suite::DataHome;

/// Sets environment variables for the life of a scope; null takes one away.
class Environment {
 public:
    explicit Environment(const std::map<std::string, const char*>& values) {
        for (const auto& [name, value] : values) {
            const char* before = std::getenv(name.c_str());
            m_before[name] = {before != nullptr, before ? before : ""};
            Set(name, value != nullptr, value ? value : "");
        }
    }
    ~Environment() {
        for (const auto& [name, before] : m_before)
            Set(name, before.first, before.second);
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

 private:
    static void Set(const std::string& name, bool isSet, const std::string& value) {
        if (isSet)
            setenv(name.c_str(), value.c_str(), 1);
        else
            unsetenv(name.c_str());
    }
    std::map<std::string, std::pair<bool, std::string>> m_before;
};

TEST(DataHomeOfTheEnvironment, IsTheOneThatIsNamed) {
    const Environment set(
        {{"K4_HOME", "/srv/k4"}, {"XDG_DATA_HOME", "/data"}, {"HOME", "/home/u"}});
    EXPECT_EQ(DataHome::FromEnvironment().Path(), "/srv/k4");
}

TEST(DataHomeOfTheEnvironment, RelativeNameCountsFromTheCurrentFolder) {
    const Environment set({{"K4_HOME", "here"}, {"XDG_DATA_HOME", "/data"}});
    EXPECT_EQ(DataHome::FromEnvironment().Path(), fs::current_path() / "here");
}

TEST(DataHomeOfTheEnvironment, ElseItLiesInTheUsersDataFolder) {
    const Environment set({{"K4_HOME", nullptr}, {"XDG_DATA_HOME", "/data"}, {"HOME", "/home/u"}});
    EXPECT_EQ(DataHome::FromEnvironment().Path(), "/data/k4400");
}

TEST(DataHomeOfTheEnvironment, EmptyAndRelativeFoldersCountAsNone) {
    {
        const Environment set({{"K4_HOME", ""}, {"XDG_DATA_HOME", ""}, {"HOME", "/home/u"}});
        EXPECT_EQ(DataHome::FromEnvironment().Path(), "/home/u/.local/share/k4400");
    }
    const Environment set({{"K4_HOME", ""}, {"XDG_DATA_HOME", "data"}, {"HOME", "/home/u"}});
    EXPECT_EQ(DataHome::FromEnvironment().Path(), "/home/u/.local/share/k4400");
}

TEST(DataHomeOfTheEnvironment, UserWithoutHomeVariableHasAFolderAllTheSame) {
    const Environment set({{"K4_HOME", nullptr}, {"XDG_DATA_HOME", nullptr}, {"HOME", nullptr}});
    const fs::path path = DataHome::FromEnvironment().Path();
    EXPECT_TRUE(path.is_absolute());
    EXPECT_TRUE(path.string().ends_with("/.local/share/k4400")) << path;
}

TEST(DataHomeFolders, LieBelowIt) {
    const DataHome home("/h");
    EXPECT_EQ(home.UserSettings(), "/h/settings/user.ini");
    EXPECT_EQ(home.MachineSettings(), "/h/settings/machine.ini");
    EXPECT_EQ(home.SignState(), "/h/state/signs");
    EXPECT_EQ(home.ServicesLock(), "/h/services.lock");
    EXPECT_EQ(home.Drives(), "/h/drives");
    EXPECT_EQ(home.Network(), "/h/network");
}

}  // namespace
