#include <gtest/gtest.h>

#include <initializer_list>
#include <vector>

#include "suite/bulbcv/PlaneBulbCv.h"

// Small signs, worked out by hand: bulb data as it lies in a file, and the picture as it lies in
// memory.

namespace {

using Bytes = std::vector<std::uint8_t>;

/// The bytes of words, each low byte first.
Bytes Words(std::initializer_list<unsigned> words) {
    Bytes bytes;
    for (const unsigned word : words) {
        bytes.push_back(static_cast<std::uint8_t>(word));
        bytes.push_back(static_cast<std::uint8_t>(word >> 8));
    }
    return bytes;
}

struct Picture {
    K4ImageHeader header{};
    Bytes pixels;

    /// Entry of the color table, as red, green and blue in one number.
    unsigned Color(std::size_t index) const {
        const RGBQUAD& color = header.bmiColors[index];
        return static_cast<unsigned>(color.rgbRed) << 16 |
               static_cast<unsigned>(color.rgbGreen) << 8 | color.rgbBlue;
    }
};

Picture Convert(tag_K4_SIGN_COLOR color, std::uint32_t rows, std::uint32_t columns,
                const Bytes& bulbs, int depth = 8) {
    Picture picture;
    picture.pixels.resize(std::size_t{rows} * columns * 4);
    EXPECT_EQ(k4suite::PlaneBulbCv().Bulb2DIB(bulbs.data(), bulbs.size(), rows, columns, color,
                                              &picture.header, picture.pixels.data(),
                                              picture.pixels.size(), depth),
              1);
    picture.pixels.resize(picture.header.bmiHeader.biSizeImage);
    return picture;
}

TEST(BulbExample, OneLampOfOneBit) {
    const Picture picture = Convert(K4_SIGN_COLOR_MONO1, 1, 18, Words({0x8101, 0x4000, 0, 0}), 1);
    EXPECT_EQ(picture.pixels, (Bytes{0x81, 0x01, 0x40, 0}));
    EXPECT_EQ(picture.Color(0), 0U);
    EXPECT_EQ(picture.Color(1), 0xFFD696U);
}

TEST(BulbExample, SevenRowsHaveEightLinesOfData) {
    const Picture picture =
        Convert(K4_SIGN_COLOR_MONO1, 7, 16, Words({1, 2, 4, 8, 16, 32, 64, 0xFFFF}), 1);
    EXPECT_EQ(picture.pixels, (Bytes{0, 1, 0, 0,  0, 2, 0, 0,  0, 4, 0, 0,  0, 8,
                                     0, 0, 0, 16, 0, 0, 0, 32, 0, 0, 0, 64, 0, 0}));
}

TEST(BulbExample, OneLampOfTwoBits) {
    const Picture picture = Convert(K4_SIGN_COLOR_MONO4, 1, 3, Words({0xA000, 0, 0x6000, 0}));
    EXPECT_EQ(picture.pixels, (Bytes{1, 2, 3, 0}));
    EXPECT_EQ(picture.Color(0), 0U);
    EXPECT_EQ(picture.Color(1), 0x554732U);
    EXPECT_EQ(picture.Color(2), 0xAA8F64U);
    EXPECT_EQ(picture.Color(3), 0xFFD696U);
}

TEST(BulbExample, WordsLieWithTheirLowByteFirst) {
    EXPECT_EQ(Words({0xA000, 0, 0x6000, 0}), (Bytes{0, 0xA0, 0, 0, 0, 0x60, 0, 0}));
}

TEST(BulbExample, OneLampOfTwoBitsIsLitWithAnyShade) {
    const Picture picture = Convert(K4_SIGN_COLOR_MONO4, 1, 3, Words({0xA000, 0, 0x6000, 0}), 1);
    EXPECT_EQ(picture.pixels, (Bytes{0xE0, 0, 0, 0}));
    EXPECT_EQ(picture.Color(1), 0xFFD696U);
}

TEST(BulbExample, RedAndGreen) {
    const Picture picture = Convert(K4_SIGN_COLOR_TRI3, 1, 3, Words({0xA000, 0, 0x6000, 0}));
    EXPECT_EQ(picture.pixels, (Bytes{1, 2, 3, 0}));
    EXPECT_EQ(picture.Color(1), 0xFF0000U);
    EXPECT_EQ(picture.Color(2), 0x00FF00U);
    EXPECT_EQ(picture.Color(3), 0xFFFF00U);
}

TEST(BulbExample, RedGreenAndBlueInATable) {
    const Picture picture = Convert(K4_SIGN_COLOR_RGB64, 1, 3,
                                    Words({0x8000, 0, 0x8000, 0, 0, 0, 0, 0, 0x2000, 0, 0, 0}));
    EXPECT_EQ(picture.pixels, (Bytes{3, 0, 16, 0}));
    EXPECT_EQ(picture.Color(3), 0xFF0000U);
    EXPECT_EQ(picture.Color(16), 0x000055U);
    EXPECT_EQ(picture.Color(63), 0xFFFFFFU);
}

TEST(BulbExample, RedGreenAndBlueBeyondATable) {
    // One lamp: red 5, green 10, blue 15. Each of the 12 planes has two lines.
    const Picture picture =
        Convert(K4_SIGN_COLOR_RGB4K, 1, 1,
                Words({0x8000, 0, 0,      0, 0x8000, 0, 0,      0, 0,      0, 0x8000, 0,
                       0,      0, 0x8000, 0, 0x8000, 0, 0x8000, 0, 0x8000, 0, 0x8000, 0}));
    EXPECT_EQ(picture.pixels, (Bytes{255, 170, 85, 0}));
}

TEST(BulbExample, ACellWithRedAndWhiteIsWhite) {
    const Picture picture = Convert(K4_SIGN_COLOR_QUAD16, 2, 2, Words({0x8000, 0x4000}));
    EXPECT_EQ(picture.pixels, (Bytes{9, 9, 0, 0, 9, 9, 0, 0}));
    EXPECT_EQ(picture.Color(9), 0xFFFFFFU);
}

TEST(BulbExample, LampsOfACellBeyondTheSignAreDark) {
    const Picture picture = Convert(K4_SIGN_COLOR_QUAD16, 1, 3, Words({0xA000, 0xE000}));
    EXPECT_EQ(picture.pixels, (Bytes{1, 1, 1, 0}));
    const Picture bits = Convert(K4_SIGN_COLOR_QUAD16, 1, 3, Words({0x0000, 0xFFFF}), 1);
    EXPECT_EQ(bits.pixels, Bytes(4));
}

TEST(BulbExample, ACellOfFourLampsShowsItsMixedColor) {
    // The cell's red and white lamps; right of it half a cell with its red lamp alone.
    const Picture picture = Convert(K4_SIGN_COLOR_QUAD16, 2, 3, Words({0xA000, 0x4000}));
    EXPECT_EQ(picture.pixels, (Bytes{9, 9, 1, 0, 9, 9, 1, 0}));
    EXPECT_EQ(picture.Color(1), 0xFF0000U);
    EXPECT_EQ(picture.Color(2), 0x00FF00U);
    EXPECT_EQ(picture.Color(4), 0x0000FFU);
    EXPECT_EQ(picture.Color(8), 0xFFFFFFU);
    EXPECT_EQ(picture.Color(9), 0xFFFFFFU);
}

TEST(BulbExample, WhiteIsAddedToTheOtherLampsOfACell) {
    // Shades of 4 bits: red 8, green 1, blue 0, white 4.
    const Picture picture =
        Convert(K4_SIGN_COLOR_QUAD64K, 2, 2, Words({0x4000, 0, 0, 0, 0, 0x4000, 0x8000, 0}));
    const Bytes pixel = {4 * 17, 5 * 17, 12 * 17, 0};
    for (std::size_t at = 0; at < 16; ++at)
        EXPECT_EQ(picture.pixels[at], pixel[at % 4]) << at;
}

TEST(BulbExample, ARedAGreenAndABluePackedPixel) {
    Bytes bulbs = Words({0x7C00, 0x03E0, 0x001F});
    bulbs.resize(64);
    const Picture picture = Convert(K4_SIGN_COLOR_RGB32KB, 1, 3, bulbs);
    EXPECT_EQ(picture.pixels, (Bytes{0, 0, 255, 0, 0, 255, 0, 0, 255, 0, 0, 0}));
}

TEST(BulbExample, PackedPixelsOfFiveBits) {
    Bytes bulbs = Words({0x7C00, 0x03E0, 0x001F, 0x8001});
    bulbs.resize(64);
    const Picture picture = Convert(K4_SIGN_COLOR_RGB32KB, 1, 4, bulbs);
    EXPECT_EQ(picture.pixels, (Bytes{0, 0, 255, 0, 0, 255, 0, 0, 255, 0, 0, 0, 8, 0, 0, 0}));
}

TEST(BulbExample, PackedPixelsOfEightBits) {
    Bytes bulbs = {0, 0, 0xFF, 3, 2, 1};
    bulbs.resize(96);
    const Picture picture = Convert(K4_SIGN_COLOR_RGB16MB, 1, 2, bulbs);
    EXPECT_EQ(picture.pixels, (Bytes{0, 0, 0xFF, 0, 3, 2, 1, 0}));
}

struct LightRow {
    tag_K4_PIXEL_TECH pixel;
    unsigned first;  ///< the light of the darkest shade of six bits that isn't dark
    unsigned full;
};

class LightOfOneColor : public testing::TestWithParam<LightRow> {};

TEST_P(LightOfOneColor, FollowsThePixelTechnologyAndIsNeverQuiteDark) {
    K4ImageHeader header;
    std::uint8_t pixels[4];
    const Bytes bulbs(24);
    ASSERT_EQ(k4suite::PlaneBulbCv(GetParam().pixel)
                  .Bulb2DIB(bulbs.data(), bulbs.size(), 1, 1, K4_SIGN_COLOR_MONO64, &header, pixels,
                            sizeof pixels, 8),
              1);
    const Picture picture{header, {}};
    EXPECT_EQ(picture.Color(0), 0U);
    EXPECT_EQ(picture.Color(1), GetParam().first);
    EXPECT_EQ(picture.Color(63), GetParam().full);
    EXPECT_EQ(header.bmiHeader.biClrUsed, 64U);
}

INSTANTIATE_TEST_SUITE_P(PixelTechnologies, LightOfOneColor,
                         testing::Values(LightRow{K4_PIXEL_TECH_INCAND, 0x040302, 0xFFD696},
                                         LightRow{K4_PIXEL_TECH_REFLECT, 0x030401, 0xCEFF1A},
                                         LightRow{K4_PIXEL_TECH_LED, 0x040300, 0xFFA000},
                                         LightRow{static_cast<tag_K4_PIXEL_TECH>(0), 0x040302,
                                                  0xFFD696}));

TEST(BulbExample, AColorWithoutLampsIsDark) {
    const Picture picture = Convert(static_cast<tag_K4_SIGN_COLOR>(15), 1, 5, {});
    EXPECT_EQ(picture.pixels, Bytes(8));
    EXPECT_EQ(picture.Color(0), 0U);
}

TEST(BulbExample, ColorsBeyondTheTableHaveOnePlane) {
    const Picture picture = Convert(static_cast<tag_K4_SIGN_COLOR>(16), 1, 3, Words({0xA000, 0}));
    EXPECT_EQ(picture.pixels, (Bytes{1, 0, 1, 0}));
    EXPECT_EQ(picture.Color(1), 0xFFD696U);
}

}  // namespace
