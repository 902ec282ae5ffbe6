#include "suite/settings/PreviewRequest.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "suite/settings/IniRegistry.h"
#include "tests/support/TempFolder.h"

namespace {

using k4suite::IniRegistry;

class PreviewRequest : public testing::Test {
 protected:
    k4suite::PreviewRequest Read() {
        k4suite::PreviewRequest request;
        EXPECT_EQ(reader.ReadPreviewRequest(request), 1);
        return request;
    }

    const k4test::TempFolder folder;
    const k4suite::DataHome home{folder / "home"};
    IniRegistry writer{home};
    IniRegistry reader{home};
};

TEST_F(PreviewRequest, WithoutOneThereIsNone) {
    EXPECT_EQ(Read(), k4suite::PreviewRequest{});
    EXPECT_FALSE(Read().StartsPlaying());
}

TEST_F(PreviewRequest, AllValuesComeBack) {
    const std::string text = "a text, with; signs = \"and\" more";
    const std::uint32_t one = 0;
    const std::uint32_t two = 4294967295;
    ASSERT_EQ(writer.SetPreviewOptions("\\\\STORE\\SIGNS\\Grüße.SQ4", {&text, &one, &two}), 1);
    const k4suite::PreviewRequest request = Read();
    EXPECT_EQ(request.sequence, "\\\\STORE\\SIGNS\\Grüße.SQ4");
    EXPECT_EQ(request.text, text);
    EXPECT_EQ(request.first, 0u);
    EXPECT_EQ(request.second, 4294967295u);
    EXPECT_EQ(request.number, 1u);
    EXPECT_FALSE(request.StartsPlaying());
}

TEST_F(PreviewRequest, WhatWasNotGivenIsAbsent) {
    const std::string text = "text";
    const std::uint32_t one = 1;
    ASSERT_EQ(writer.SetPreviewOptions("A:\\x.SQ4", {&text, &one, &one}), 1);
    EXPECT_TRUE(Read().StartsPlaying());
    ASSERT_EQ(writer.SetPreviewOptions("A:\\x.SQ4", {}), 1);
    const k4suite::PreviewRequest request = Read();
    EXPECT_EQ(request.text, std::nullopt);
    EXPECT_EQ(request.first, std::nullopt);
    EXPECT_EQ(request.second, std::nullopt);
}

TEST_F(PreviewRequest, TheSameRequestTwiceIsSeenTwice) {
    ASSERT_EQ(writer.SetPreviewOptions("A:\\x.SQ4", {}), 1);
    const k4suite::PreviewRequest first = Read();
    ASSERT_EQ(writer.SetPreviewOptions("A:\\x.SQ4", {}), 1);
    EXPECT_FALSE(Read() == first);
    EXPECT_EQ(Read().number, 2u);
}

TEST_F(PreviewRequest, ValuesThatAreNoNumbersAreAbsent) {
    folder.Write("home/settings/user.ini",
                 "[Preview]\nRequest\\Sequence=x\nRequest\\Second=soon\nRequest\\Number=-1\n");
    const k4suite::PreviewRequest request = Read();
    EXPECT_EQ(request.sequence, "x");
    EXPECT_EQ(request.second, std::nullopt);
    EXPECT_EQ(request.number, 0u);
}

TEST_F(PreviewRequest, WhereItCantBeReadTheTargetStays) {
    std::filesystem::create_directories(home.UserSettings());  // a folder in the file's place
    k4suite::PreviewRequest request;
    request.sequence = "kept";
    EXPECT_EQ(reader.ReadPreviewRequest(request), 0);
    EXPECT_EQ(request.sequence, "kept");
}

}  // namespace
