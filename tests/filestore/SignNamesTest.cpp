#include "k4cmndlg/filestore/SignNames.h"

#include <gtest/gtest.h>

#include <climits>
#include <set>
#include <utility>

namespace {

using namespace k4cmn;

tag_K4_SIGN_COLOR Color(int value) {
    return static_cast<tag_K4_SIGN_COLOR>(value);
}

tag_K4_PIXEL_TECH Pixel(int value) {
    return static_cast<tag_K4_PIXEL_TECH>(value);
}

struct ColorCase {
    int value;
    const char* shortName;
    const char* longName;
    const char* searchName;
};

class ColorNames : public testing::TestWithParam<ColorCase> {};

TEST_P(ColorNames, AreThoseOfTheTable) {
    const ColorCase& row = GetParam();
    EXPECT_EQ(ColorShortName(Color(row.value)), row.shortName);
    EXPECT_EQ(ColorLongName(Color(row.value)), row.longName);
    EXPECT_EQ(ColorSearchName(Color(row.value)), row.searchName);
}

INSTANTIATE_TEST_SUITE_P(
    EachValue, ColorNames,
    testing::Values(
        ColorCase{0, "Mono1", "Monochrome", "Monochrome"},
        ColorCase{1, "Quad16", "Quad Color", "Quad Color 16 Shades"},
        ColorCase{2, "Tri3", "Tri Color (RG LED)", "Tri Color (RG LED)"},
        ColorCase{3, "Quad256", "Quad Color 256 Shades", "Quad Color 256 Shades"},
        ColorCase{4, "Mono4", "Monochrome 4 Shades", "Monochrome 4 Shades"},
        ColorCase{5, "Quad64K", "Quad Color 65,000 Shades", "Quad Color 65535 Shades"},
        ColorCase{6, "Mono16", "Monochrome 16 Shades", "Monochrome 16 Shades"},
        ColorCase{7, "Tri256", "Tri color (RG LED) 256 Shades", "Tri Color (RG LED) 256 Shades"},
        ColorCase{8, "Quad16M", "Quad Color 16 Million Shades", "Quad Color 16 Million Shades"},
        ColorCase{9, "RGB64", "RGB LED 64 Shades", "RGB LED 64 Shades"},
        ColorCase{10, "RGB4K", "RGB LED 4096 Shades", "RGB LED 4096 Shades"},
        ColorCase{11, "RGB16M", "RGB LED 16 Million Shades", "RGB LED 16,777,216 Shades"},
        ColorCase{12, "Mono64", "Monochrome 64 Shades", "Monochrome 64 Shades"},
        ColorCase{13, "RGB32KB", "RGB LED 32,768 Shades (DIB)", "RGB LED 32,768 Shades (DIB)"},
        ColorCase{14, "RGB16MB", "RGB LED 16 Million Shades (DIB)",
                  "RGB LED 16 Million Shades (DIB)"}),
    [](const auto& testCase) { return std::string(testCase.param.shortName); });

TEST(ColorNames, ValuesOutOfRangeHaveNone) {
    for (const int value : {-1, 15, 16, 255, INT_MAX, INT_MIN}) {
        EXPECT_EQ(ColorShortName(Color(value)), "") << value;
        EXPECT_EQ(ColorLongName(Color(value)), "") << value;
        EXPECT_EQ(ColorSearchName(Color(value)), "") << value;
    }
}

TEST(PixelNames, AreThoseOfTheTable) {
    EXPECT_EQ(PixelShortName(Pixel(1)), "Incand");
    EXPECT_EQ(PixelLongName(Pixel(1)), "Incandescent");
    EXPECT_EQ(PixelShortName(Pixel(2)), "Reflect");
    EXPECT_EQ(PixelLongName(Pixel(2)), "Reflective");
    EXPECT_EQ(PixelShortName(Pixel(3)), "LED");
    EXPECT_EQ(PixelLongName(Pixel(3)), "LED");
}

TEST(PixelNames, ValuesOutOfRangeHaveNone) {
    for (const int value : {0, -1, 4, 255, INT_MAX, INT_MIN}) {
        EXPECT_EQ(PixelShortName(Pixel(value)), "") << value;
        EXPECT_EQ(PixelLongName(Pixel(value)), "") << value;
    }
}

TEST(ColorAndPixel, EveryPairOfTheTableIsValidAndNoOther) {
    std::set<std::pair<int, int>> valid;
    for (const int pixel : {1, 2, 3})
        valid.insert({0, pixel});
    for (const int color : {4, 6, 12}) {
        valid.insert({color, 1});
        valid.insert({color, 3});
    }
    for (const int color : {1, 3, 5, 8})
        valid.insert({color, 1});
    for (const int color : {2, 7, 9, 10, 11, 13, 14})
        valid.insert({color, 3});

    for (int color = -2; color <= 17; ++color) {
        for (int pixel = -2; pixel <= 6; ++pixel)
            EXPECT_EQ(IsColorAndPixelTechValid(Color(color), Pixel(pixel)),
                      valid.count({color, pixel}) == 1)
                << color << ", " << pixel;
    }
}

TEST(ColorAndPixel, MessageNamesThePixelLongAndTheColorShort) {
    EXPECT_EQ(TechnologiesDontFitText(K4_SIGN_COLOR_QUAD16, K4_PIXEL_TECH_REFLECT),
              "Reflective pixel technology is not valid for Quad16 color technology.");
    EXPECT_EQ(TechnologiesDontFitText(K4_SIGN_COLOR_RGB16M, K4_PIXEL_TECH_INCAND),
              "Incandescent pixel technology is not valid for RGB16M color technology.");
    EXPECT_EQ(TechnologiesDontFitText(Color(15), Pixel(0)),
              " pixel technology is not valid for  color technology.");
}

TEST(SignSize, IsRowsByColumnsAndTheShortName) {
    EXPECT_EQ(SignSizeText(7, 16, K4_SIGN_COLOR_MONO1), "7x16  Mono1");
    EXPECT_EQ(SignSizeText(2048, 4096, K4_SIGN_COLOR_RGB16MB), "2048x4096  RGB16MB");
    EXPECT_EQ(SignTypeLabel(64, 192, K4_SIGN_COLOR_TRI256), "Sign Type : 64x192  Tri256");
}

TEST(SignSize, ColorWithoutNameShowsNothingBehindTheBlanks) {
    EXPECT_EQ(SignSizeText(64, 192, Color(15)), "64x192  ");
    EXPECT_EQ(SignTypeLabel(64, 192, Color(-1)), "Sign Type : 64x192  ");
}

}  // namespace
