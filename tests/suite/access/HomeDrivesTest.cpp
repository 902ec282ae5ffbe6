#include "suite/access/HomeDrives.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/TempFolder.h"

namespace {

namespace fs = std::filesystem;
using k4suite::DataHome;
using k4suite::HomeDrives;
using Roots = std::vector<std::string>;

TEST(HomeDrives, LinksAreRemovableAndFoldersAreNot) {
    const k4test::TempFolder home;
    fs::create_directories(home / "drives/A");
    fs::create_directories(home / "medium");
    fs::create_directory_symlink(home / "medium", home / "drives/F");
    fs::create_directory_symlink(home / "gone", home / "drives/E");
    home.Write("drives/B");
    fs::create_directory_symlink(home / "medium", home / "drives/g");
    fs::create_directory_symlink(home / "medium", home / "drives/AB");
    EXPECT_EQ(HomeDrives(DataHome(home.Path())).RemovableRoots(), (Roots{"E:\\", "F:\\"}));
}

TEST(HomeDrives, AHomeWithoutDrivesHasNone) {
    EXPECT_EQ(HomeDrives(DataHome("/nowhere/home")).RemovableRoots(), Roots{});
}

TEST(HomeDrives, NothingInstalledHasNone) {
    EXPECT_EQ(k4cmn::Provided<k4cmn::Drives>::Current().RemovableRoots(), Roots{});
}

}  // namespace
