#include "k4cmndlg/filesel/PreviewFacts.h"

#include <gtest/gtest.h>

#include "k4cmndlg/filestore/SignTypes.h"

namespace {

using k4cmn::PreviewFacts;

tag_K4_SOS_FRM Start(std::uint32_t color, std::uint32_t pixel) {
    tag_K4_SOS_FRM start{};
    start.rows = 7;
    start.columns = 80;
    start.color = color;
    start.pixel = pixel;
    return start;
}

TEST(PreviewFacts, AreTheTextsOfTheRecord) {
    const PreviewFacts facts = PreviewFacts::Of(Start(K4_SIGN_COLOR_TRI3, 3), 12, 3456);
    EXPECT_EQ(facts.frameSize, " 7 x 80");
    EXPECT_EQ(facts.pixelTech, "LED");
    EXPECT_EQ(facts.colorTech, "Tri3");
    EXPECT_EQ(facts.duration, " 3.46 Seconds");
    EXPECT_EQ(facts.frames, " 12");
}

TEST(PreviewFacts, ColorsHaveTheirShortNamesAndPixelsTheirLongOnes) {
    EXPECT_EQ(PreviewFacts::Of(Start(0, 1), 1, 0).colorTech, "Mono1");
    EXPECT_EQ(PreviewFacts::Of(Start(14, 1), 1, 0).colorTech, "RGB16MB");
    EXPECT_EQ(PreviewFacts::Of(Start(0, 1), 1, 0).pixelTech, "Incandescent");
    EXPECT_EQ(PreviewFacts::Of(Start(0, 2), 1, 0).pixelTech, "Reflective");
}

TEST(PreviewFacts, ValuesWithoutANameHaveTheEmptyText) {
    for (const std::uint32_t color : {15u, 16u, 17u, 0x7FFFFFFFu, 0xFFFFFFFFu})
        EXPECT_EQ(PreviewFacts::Of(Start(color, 1), 1, 0).colorTech, "") << color;
    for (const std::uint32_t pixel : {0u, 4u, 0x80000000u, 0xFFFFFFFFu})
        EXPECT_EQ(PreviewFacts::Of(Start(0, pixel), 1, 0).pixelTech, "") << pixel;
}

TEST(PreviewTitle, HoldsNameAndExtension) {
    EXPECT_EQ(k4cmn::PreviewTitle("A:\\7x16.Mono1.LED.Sign\\Default.Lib\\Hello.World.SQ4"),
              "Properties for Hello.World.SQ4");
    EXPECT_EQ(k4cmn::PreviewTitle("/home/one.sq4"), "Properties for one.sq4");
    EXPECT_EQ(k4cmn::PreviewTitle("No extension"), "Properties for No extension");
    EXPECT_EQ(k4cmn::PreviewTitle("A:\\100%s %d.SQ4"), "Properties for 100%s %d.SQ4");
    EXPECT_EQ(k4cmn::PreviewFileName("A:\\Folder\\"), "");
}

}  // namespace
