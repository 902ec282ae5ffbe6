#include "suite/EmbeddedSuite.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "k4cmndlg/clients/CK4CmnSS.h"
#include "k4cmndlg/clients/contracts/K4SSRpc.h"
#include "k4cmndlg/filestore/contracts/CK4Registry.h"
#include "k4cmndlg/filestore/contracts/FilesProvider.h"
#include "k4cmndlg/filestore/contracts/K4BulbCv.h"
#include "k4cmndlg/frame/contracts/Profile.h"
#include "suite/sample/SampleData.h"
#include "tests/support/TempFolder.h"

using k4suite::DataHome;
using k4suite::EmbeddedSuite;
using k4test::TempFolder;

namespace {

class EmbeddedSuiteTest : public testing::Test {
 protected:
    void SetUp() override {
        std::string problem;
        ASSERT_TRUE(k4suite::SeedSampleData(home, &problem)) << problem;
    }

    TempFolder folder;
    DataHome home{folder / "home"};
};

TEST_F(EmbeddedSuiteTest, EveryConfiguredServiceAnswersAndListsItsSigns) {
    const EmbeddedSuite suite(home, "test");
    std::vector<std::string> services;
    ASSERT_TRUE(CK4Registry::GetRegistryServices(services));
    ASSERT_GE(services.size(), 3u);
    EXPECT_NE(std::find(services.begin(), services.end(), "Local"), services.end());
    for (const std::string& service : services) {
        CK4CmnSS client;
        std::vector<std::string> signs;
        EXPECT_TRUE(client.GetSignList(service, signs)) << service;
        EXPECT_GE(signs.size(), 2u) << service;
    }
}

TEST_F(EmbeddedSuiteTest, BulbDataBecomesPicturesWhileItStands) {
    constexpr std::uint8_t bulbs[] = {0x00, 0x80, 0, 0};
    const auto convert = [&bulbs](std::uint8_t(&pixels)[4]) {
        K4ImageHeader header;
        return k4cmn::Provided<K4BulbCv>::Current().Bulb2DIB(
            bulbs, sizeof bulbs, 1, 1, K4_SIGN_COLOR_MONO1, &header, pixels, sizeof pixels, 1);
    };
    std::uint8_t pixels[4] = {};
    {
        const EmbeddedSuite suite(home, "test");
        ASSERT_EQ(convert(pixels), 1);
        EXPECT_EQ(pixels[0], 0x80);
    }
    EXPECT_EQ(convert(pixels), 0);
}

TEST_F(EmbeddedSuiteTest, TheSecondOneOnAHomeHasAllButTheServicesAndNamesTheHolder) {
    const EmbeddedSuite first(home, "first");
    ASSERT_TRUE(first.RunsServices());
    EXPECT_EQ(first.Holder().pid, 0);
    K4SSRpc* const ofFirst = k4cmn::Provided<K4SSRpc>::Install(nullptr);
    {
        EmbeddedSuite second(home, "second");
        EXPECT_FALSE(second.RunsServices());
        EXPECT_EQ(second.Engine(), nullptr);
        EXPECT_EQ(second.Holder().pid, getpid());
        EXPECT_EQ(second.Holder().program, "first");

        CK4CmnSS client;
        std::vector<std::string> signs;
        EXPECT_FALSE(client.GetSignList("Local", signs));
        EXPECT_EQ(client.GetLastError(), "Sign service unavailable.");
        std::vector<std::string> services;
        EXPECT_TRUE(CK4Registry::GetRegistryServices(services));
    }
    k4cmn::Provided<K4SSRpc>::Install(ofFirst);
}

TEST_F(EmbeddedSuiteTest, TheServicesAreFreeAgainWhenTheirHolderGoes) {
    { const EmbeddedSuite first(home, "first"); }
    const EmbeddedSuite second(home, "second");
    EXPECT_TRUE(second.RunsServices());
}

TEST_F(EmbeddedSuiteTest, WhatASignKeepsIsThereAfterARestart) {
    {
        const EmbeddedSuite suite(home, "test");
        CK4CmnSS client;
        ASSERT_TRUE(client.SetDimming("Local", "Main Board", K4_SIGN_DIM_PHOTOCELL, -20));
        ASSERT_TRUE(client.SetWindowState("Local", "Main Board", 3, 1, 9, 17, ""));
    }
    const EmbeddedSuite suite(home, "test");
    CK4CmnSS client;
    tag_K4_SIGN_DIM_MODE mode = K4_SIGN_DIM_MANUAL;
    std::int32_t offset = 0;
    ASSERT_TRUE(client.GetSignConfig("Local", "Main Board", nullptr, nullptr, nullptr, nullptr,
                                     &mode, nullptr, &offset));
    EXPECT_EQ(mode, K4_SIGN_DIM_PHOTOCELL);
    EXPECT_EQ(offset, -20);
    std::int32_t open = 0;
    std::int32_t row = 0;
    std::int32_t column = 0;
    ASSERT_TRUE(client.GetWindowState("Local", "Main Board", 3, &open, &row, &column, nullptr));
    EXPECT_EQ(open, 1);
    EXPECT_EQ(row, 9);
    EXPECT_EQ(column, 17);
    EXPECT_TRUE(suite.Problems().empty());
}

TEST_F(EmbeddedSuiteTest, TakesItselfAwayWhenItGoes) {
    { const EmbeddedSuite suite(home, "test"); }
    CK4CmnSS client;
    std::vector<std::string> signs;
    EXPECT_FALSE(client.GetSignList("Local", signs));
    EXPECT_TRUE(k4cmn::Provided<k4cmn::FilesProvider>::Install(nullptr) == nullptr);
    EXPECT_FALSE(k4cmn::Provided<k4cmn::Profile>::Current().WriteString("a", "b", "c"));
}

TEST_F(EmbeddedSuiteTest, ADamagedStateIsReportedAndTheSignRunsOnDefaults) {
    {
        const EmbeddedSuite suite(home, "test");
        CK4CmnSS client;
        ASSERT_TRUE(client.SetDimming("Local", "Main Board", K4_SIGN_DIM_MANUAL, 3));
    }
    bool damaged = false;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(home.SignState())) {
        if (entry.is_regular_file() && entry.path().string().find("Main") != std::string::npos) {
            std::filesystem::resize_file(entry.path(), 10);
            damaged = true;
        }
    }
    ASSERT_TRUE(damaged);
    const EmbeddedSuite suite(home, "test");
    EXPECT_EQ(suite.Problems().size(), 1u);
    CK4CmnSS client;
    std::int32_t level = 0;
    EXPECT_TRUE(client.GetSignConfig("Local", "Main Board", nullptr, nullptr, nullptr, nullptr,
                                     nullptr, &level, nullptr));
    EXPECT_NE(level, 3);
}

TEST(EmbeddedSuiteWithoutAHome, MakesOneAndHasNoSigns) {
    const TempFolder folder;
    const EmbeddedSuite suite(DataHome(folder / "new"), "test");
    EXPECT_TRUE(suite.RunsServices());
    EXPECT_TRUE(suite.Problems().empty());
}

}  // namespace
