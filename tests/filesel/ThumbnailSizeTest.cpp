#include "k4cmndlg/filesel/ThumbnailSize.h"

#include <gtest/gtest.h>

#include <ostream>

namespace k4cmn {

static void PrintTo(const ThumbnailSize& size, std::ostream* out) {
    *out << size.width << " x " << size.height;
}

}  // namespace k4cmn

namespace {

using namespace k4cmn;

TEST(BoxedThumbnail, FillsTheBoxWithItsLongerSide) {
    EXPECT_EQ(BoxedThumbnail(64, 192), (ThumbnailSize{256, 85}));
    EXPECT_EQ(BoxedThumbnail(192, 64), (ThumbnailSize{85, 256}));
    EXPECT_EQ(BoxedThumbnail(64, 64), (ThumbnailSize{256, 256}));
    EXPECT_EQ(BoxedThumbnail(512, 1024), (ThumbnailSize{256, 128}));
}

TEST(BoxedThumbnail, EnlargesSmallSigns) {
    EXPECT_EQ(BoxedThumbnail(7, 16), (ThumbnailSize{256, 112}));
    EXPECT_EQ(BoxedThumbnail(1, 1), (ThumbnailSize{256, 256}));
}

TEST(BoxedThumbnail, IsNeverLessThanOneUnitHighOrWide) {
    EXPECT_EQ(BoxedThumbnail(7, 16384), (ThumbnailSize{256, 1}));
    EXPECT_EQ(BoxedThumbnail(65535, 1), (ThumbnailSize{1, 256}));
}

TEST(BoxedThumbnail, OfASignWithoutLampsIsEmpty) {
    EXPECT_EQ(BoxedThumbnail(0, 16), (ThumbnailSize{0, 0}));
    EXPECT_EQ(BoxedThumbnail(7, 0), (ThumbnailSize{0, 0}));
}

TEST(BoxedThumbnail, IsCentredInItsBox) {
    EXPECT_EQ(BoxedThumbnailLeft({256, 85}), 0);
    EXPECT_EQ(BoxedThumbnailLeft({85, 256}), 85);
    EXPECT_EQ(BoxedThumbnailLeft({128, 256}), 64);
}

TEST(PageThumbnail, IsTwiceTheSignWithinItsLimits) {
    EXPECT_EQ(PageThumbnail(7, 16), (ThumbnailSize{32, 14}));
    EXPECT_EQ(PageThumbnail(88, 160), (ThumbnailSize{320, 176}));
    EXPECT_EQ(PageThumbnail(89, 161), (ThumbnailSize{320, 176}));
    EXPECT_EQ(PageThumbnail(64, 1024), (ThumbnailSize{320, 128}));
    EXPECT_EQ(PageThumbnail(2048, 16), (ThumbnailSize{32, 176}));
    EXPECT_EQ(PageThumbnail(0xFFFFFFFF, 0xFFFFFFFF), (ThumbnailSize{320, 176}));
}

}  // namespace
