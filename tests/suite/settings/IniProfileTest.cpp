#include "suite/settings/IniProfile.h"

#include <gtest/gtest.h>

#include "tests/support/TempFolder.h"

namespace {

using k4suite::IniProfile;

class Profile : public testing::Test {
 protected:
    k4test::TempFolder folder;
    IniProfile profile{folder / "settings/profile-test.ini"};
};

TEST_F(Profile, TextIsReadBackByTheNextStart) {
    EXPECT_EQ(profile.WriteString("Dialogs\\Dimming", "WindowPos", "1,2,3,4"), 1);
    IniProfile again(folder / "settings/profile-test.ini");
    EXPECT_EQ(again.GetString("Dialogs\\Dimming", "WindowPos", "none"), "1,2,3,4");
}

TEST_F(Profile, FallbackWhereThereIsNone) {
    EXPECT_EQ(profile.GetString("Dialogs\\Dimming", "WindowPos", "none"), "none");
    ASSERT_EQ(profile.WriteString("Dialogs\\Dimming", "WindowPos", ""), 1);
    EXPECT_EQ(profile.GetString("Dialogs\\Dimming", "WindowPos", "none"), "");
    EXPECT_EQ(profile.GetString("Dialogs\\Other", "WindowPos", "none"), "none");
    EXPECT_EQ(profile.GetString("Dialogs", "WindowPos", "none"), "none");
}

TEST_F(Profile, SectionsOfAnyTitle) {
    for (const std::string& title :
         {std::string("Window Control"), std::string("a/b"), std::string("100 %"),
          std::string("General"), std::string(), std::string("\u00dcber"), std::string("a\xff")}) {
        const std::string section = "Dialogs\\" + title;
        EXPECT_EQ(
            profile.WriteString(section, "WindowPos", "place of " + std::to_string(title.size())),
            1);
        EXPECT_EQ(profile.GetString(section, "WindowPos", "none"),
                  "place of " + std::to_string(title.size()));
    }
}

TEST_F(Profile, FailureIsSilentAndTold) {
    folder.Write("settings", "a file in place of the folder");
    EXPECT_EQ(profile.WriteString("s", "n", "x"), 0);
    EXPECT_EQ(profile.GetString("s", "n", "none"), "none");
    EXPECT_EQ(profile.WriteString("s", "n", "a\xff"), 0);
}

TEST_F(Profile, DamagedFileIsSetAside) {
    folder.Write("settings/profile-test.ini", "nonsense");
    EXPECT_EQ(profile.GetString("s", "n", "none"), "none");
    EXPECT_EQ(profile.Problems().size(), 1u);
    EXPECT_EQ(folder.Read("settings/profile-test.ini.damaged-1"), "nonsense");
}

}  // namespace
