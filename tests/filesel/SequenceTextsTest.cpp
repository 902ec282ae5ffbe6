#include "k4cmndlg/filesel/properties/SequenceTexts.h"

#include <gtest/gtest.h>

namespace {

using namespace k4cmn;

TEST(SequenceTexts, FrameSizeIsRowsByColumns) {
    EXPECT_EQ(FrameSizeText(7, 80), " 7 x 80");
    EXPECT_EQ(FrameSizeText(65535, 65535), " 65535 x 65535");
    EXPECT_EQ(FrameSizeText(0, 0), " 0 x 0");
}

TEST(SequenceTexts, DurationIsInSecondsWithTwoPlaces) {
    EXPECT_EQ(DurationText(0), " 0.00 Seconds");
    EXPECT_EQ(DurationText(1500), " 1.50 Seconds");
    EXPECT_EQ(DurationText(10), " 0.01 Seconds");
    EXPECT_EQ(DurationText(123456), " 123.46 Seconds");
    EXPECT_EQ(DurationText(0xFFFFFFFFFFULL), " 1099511627.78 Seconds");
}

TEST(SequenceTexts, FrameCountIsANumber) {
    EXPECT_EQ(FrameCountText(0), " 0");
    EXPECT_EQ(FrameCountText(65535), " 65535");
}

}  // namespace
