#include "suite/bulbcv/PlaneBulbCv.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "k4cmndlg/filestore/contracts/SequenceRecords.h"
#include "suite/bulbcv/BulbEncoder.h"
#include "tests/suite/bulbcv/PageEndBytes.h"
#include "tests/suite/bulbcv/PlainBulbCv.h"

namespace {

using namespace k4suite;
using k4test::PageEndBytes;

struct Size {
    std::uint32_t rows, columns;
};

// Odd and even, around words, groups of eight and the stretches that are converted at a time.
constexpr Size kSizes[] = {{1, 1},   {1, 2},   {2, 1},    {2, 2},    {3, 3},   {7, 16},
                           {8, 15},  {9, 17},  {5, 23},   {4, 24},   {3, 31},  {2, 32},
                           {6, 33},  {7, 48},  {5, 57},   {3, 127},  {2, 255}, {3, 256},
                           {3, 257}, {2, 512}, {5, 1021}, {1, 1040}, {33, 513}};

std::size_t PictureBytes(const Size& size, std::uint32_t bitsOfPixel) {
    return std::size_t{(size.columns * bitsOfPixel + 31) / 32 * 4} * size.rows;
}

class EveryColor : public testing::TestWithParam<int> {
 protected:
    tag_K4_SIGN_COLOR Color() const { return static_cast<tag_K4_SIGN_COLOR>(GetParam()); }
    LampTechnology Technology() const { return TechnologyOf(Color()); }

    PlaneBulbCv conversion;
};

/// Bytes of noise, in which dark and lit stretches occur too.
void FillWithNoise(PageEndBytes& bytes, unsigned seed) {
    std::mt19937 random(seed);
    for (std::uint8_t& byte : bytes)
        byte = static_cast<std::uint8_t>(random() % 4 == 0 ? 0 : random());
}

TEST_P(EveryColor, IsWhatThePlainConversionGivesToTheLastBit) {
    for (const Size& size : kSizes)
        for (const int depth : {1, 8}) {
            SCOPED_TRACE(std::to_string(size.rows) + " x " + std::to_string(size.columns) +
                         ", depth " + std::to_string(depth));
            PageEndBytes bulbs(BulbBytes(size.rows, size.columns, Technology()));
            FillWithNoise(bulbs, size.rows * 10007 + size.columns);

            K4ImageHeader expectedHeader;
            std::vector<std::uint8_t> expected(std::size_t{size.rows} * size.columns * 4 + 4);
            k4test::PlainBulbCv().Bulb2DIB(bulbs.data(), bulbs.size(), size.rows, size.columns,
                                           Color(), &expectedHeader, expected.data(),
                                           expected.size(), depth);
            expected.resize(PictureBytes(size, expectedHeader.bmiHeader.biBitCount));

            K4ImageHeader header;
            std::memset(&header, 0xAB, sizeof header);
            PageEndBytes pixels(expected.size(), 0xAB);
            ASSERT_EQ(conversion.Bulb2DIB(bulbs.data(), bulbs.size(), size.rows, size.columns,
                                          Color(), &header, pixels.data(), pixels.size(), depth),
                      1);
            EXPECT_EQ(std::memcmp(&header, &expectedHeader, sizeof header), 0);
            EXPECT_TRUE(std::equal(pixels.begin(), pixels.end(), expected.begin()));
        }
}

TEST_P(EveryColor, NeedsAsManyBytesAsAFrameHas) {
    for (const Size& size : kSizes)
        EXPECT_EQ(
            BulbBytes(size.rows, size.columns, Technology()),
            k4cmn::BytesOfFrame(size.rows, size.columns, static_cast<std::uint32_t>(GetParam())));
}

TEST_P(EveryColor, LeavesTheRestOfALargerBufferAlone) {
    const Size size{5, 21};
    for (const int depth : {1, 8}) {
        const PageEndBytes bulbs(BulbBytes(size.rows, size.columns, Technology()), 0xFF);
        K4ImageHeader header;
        PageEndBytes pixels(4 * 5 * 21 + 100, 0xAB);
        ASSERT_EQ(conversion.Bulb2DIB(bulbs.data(), bulbs.size(), size.rows, size.columns, Color(),
                                      &header, pixels.data(), pixels.size(), depth),
                  1);
        const std::size_t picture = PictureBytes(size, header.bmiHeader.biBitCount);
        ASSERT_LE(picture, pixels.size() - 100);
        for (std::size_t at = picture; at < pixels.size(); ++at)
            ASSERT_EQ(pixels.data()[at], 0xAB) << at;
    }
}

TEST_P(EveryColor, HeadTellsThePicture) {
    // By color value; the last two have no names.
    constexpr int bits[] = {8, 8, 8, 8, 8, 32, 8, 8, 32, 8, 32, 32, 8, 32, 32, 8, 8, 8};
    constexpr unsigned colors[] = {2, 16, 4, 256, 4, 0, 16, 256, 0, 64, 0, 0, 64, 0, 0, 1, 2, 2};
    const auto row = static_cast<std::size_t>(GetParam() < 0    ? 17
                                              : GetParam() > 16 ? 16
                                                                : GetParam());
    for (const int depth : {1, 8}) {
        const PageEndBytes bulbs(BulbBytes(7, 19, Technology()));
        K4ImageHeader header;
        PageEndBytes pixels(7 * 19 * 4);
        ASSERT_EQ(conversion.Bulb2DIB(bulbs.data(), bulbs.size(), 7, 19, Color(), &header,
                                      pixels.data(), pixels.size(), depth),
                  1);
        const int expectedBits = depth == 1 ? 1 : bits[row];
        const BITMAPINFOHEADER& head = header.bmiHeader;
        EXPECT_EQ(head.biSize, 40U);
        EXPECT_EQ(head.biWidth, 19);
        EXPECT_EQ(head.biHeight, -7);
        EXPECT_EQ(head.biPlanes, 1);
        EXPECT_EQ(head.biBitCount, expectedBits);
        EXPECT_EQ(head.biCompression, 0U);
        EXPECT_EQ(head.biSizeImage, expectedBits == 1   ? 4U * 7
                                    : expectedBits == 8 ? 20U * 7
                                                        : 76U * 7);
        EXPECT_EQ(head.biXPelsPerMeter, 0);
        EXPECT_EQ(head.biYPelsPerMeter, 0);
        EXPECT_EQ(head.biClrUsed, depth == 1 ? 2 : colors[row]);
        EXPECT_EQ(head.biClrImportant, 0U);
        for (std::size_t entry = head.biClrUsed; entry < 256; ++entry) {
            const RGBQUAD& color = header.bmiColors[entry];
            ASSERT_EQ(color.rgbBlue | color.rgbGreen | color.rgbRed | color.rgbReserved, 0)
                << entry;
        }
    }
}

/// A sign whose lamps do anything.
ShadePicture Noise(const Size& size, const LampTechnology& technology) {
    ShadePicture picture{technology, LampGrid<Shade>(size.rows, size.columns)};
    std::mt19937 random(size.rows + size.columns);
    const unsigned shades = technology.BrightestShade() + 1;
    for (Shade& lamp : picture.lamps.All()) {
        const auto shade = [&] { return static_cast<std::uint8_t>(random() % shades); };
        switch (technology.family) {
            case LampFamily::Tri:
                lamp = {shade(), shade(), 0};
                break;
            case LampFamily::Rgb:
            case LampFamily::Packed:
                lamp = {shade(), shade(), shade()};
                break;
            default:
                lamp = {shade(), 0, 0};
        }
    }
    return picture;
}

/// A picture's pixels as they show.
Lamps Shown(const K4ImageHeader& header, const PageEndBytes& pixels) {
    const auto rows = static_cast<std::uint32_t>(-header.bmiHeader.biHeight);
    const auto columns = static_cast<std::uint32_t>(header.bmiHeader.biWidth);
    const unsigned bits = header.bmiHeader.biBitCount;
    const std::size_t lineBytes = (columns * bits + 31) / 32 * 4;
    Lamps shown(rows, columns);
    for (std::uint32_t row = 0; row < rows; ++row)
        for (std::uint32_t column = 0; column < columns; ++column) {
            const std::uint8_t* line = pixels.data() + row * lineBytes;
            if (bits == 32) {
                const std::uint8_t* pixel = line + 4 * std::size_t{column};
                shown.At(row, column) = {pixel[2], pixel[1], pixel[0]};
                continue;
            }
            const unsigned index =
                bits == 8 ? line[column] : line[column / 8] >> (7 - column % 8) & 1;
            const RGBQUAD& color = header.bmiColors[index];
            shown.At(row, column) = {color.rgbRed, color.rgbGreen, color.rgbBlue};
        }
    return shown;
}

TEST_P(EveryColor, ShowsTheLightOfTheSignWhoseBulbDataItIs) {
    for (const Size& size : kSizes)
        for (const tag_K4_PIXEL_TECH pixel :
             {K4_PIXEL_TECH_INCAND, K4_PIXEL_TECH_REFLECT, K4_PIXEL_TECH_LED}) {
            SCOPED_TRACE(std::to_string(size.rows) + " x " + std::to_string(size.columns));
            const ShadePicture picture = Noise(size, Technology());
            const std::vector<std::uint8_t> bulbs = EncodeBulbs(picture);
            K4ImageHeader header;
            PageEndBytes pixels(std::size_t{size.rows} * size.columns * 4);
            ASSERT_EQ(
                PlaneBulbCv(pixel).Bulb2DIB(bulbs.data(), bulbs.size(), size.rows, size.columns,
                                            Color(), &header, pixels.data(), pixels.size(), 8),
                1);
            EXPECT_EQ(Shown(header, pixels), LightOf(picture, pixel));
        }
}

TEST_P(EveryColor, OneBitShowsWhatIsLit) {
    for (const Size& size : kSizes) {
        SCOPED_TRACE(std::to_string(size.rows) + " x " + std::to_string(size.columns));
        ShadePicture picture = Noise(size, Technology());
        std::mt19937 random(3);
        for (Shade& lamp : picture.lamps.All())
            if (random() % 2 == 0)
                lamp = {};
        const std::vector<std::uint8_t> bulbs = EncodeBulbs(picture);
        K4ImageHeader header;
        PageEndBytes pixels(std::size_t{size.rows} * size.columns * 4);
        ASSERT_EQ(conversion.Bulb2DIB(bulbs.data(), bulbs.size(), size.rows, size.columns, Color(),
                                      &header, pixels.data(), pixels.size(), 1),
                  1);
        const Rgb lit = Technology().family == LampFamily::Mono ? MonoLight(K4_PIXEL_TECH_INCAND)
                                                                : Rgb{255, 255, 255};
        Lamps expected = LightOf(picture, K4_PIXEL_TECH_INCAND);
        for (Rgb& lamp : expected.All())
            if (lamp != Rgb{})
                lamp = lit;
        EXPECT_EQ(Shown(header, pixels), expected);
    }
}

INSTANTIATE_TEST_SUITE_P(Technologies, EveryColor, testing::Range(-1, 18));

TEST(AbsentBulbCv, Fails) {
    const PageEndBytes bulbs(4);
    K4ImageHeader header;
    PageEndBytes pixels(4);
    EXPECT_EQ(k4cmn::Provided<K4BulbCv>::Current().Bulb2DIB(bulbs.data(), bulbs.size(), 1, 1,
                                                            K4_SIGN_COLOR_MONO1, &header,
                                                            pixels.data(), pixels.size(), 1),
              0);
}

TEST(PlaneBulbCv, TheLongestLinesAndTheMostLinesAreConverted) {
    for (const Size& size : {Size{1, 65535}, Size{65535, 1}, Size{2, 65535}, Size{65535, 3}})
        for (const tag_K4_SIGN_COLOR color :
             {K4_SIGN_COLOR_MONO1, K4_SIGN_COLOR_QUAD16M, K4_SIGN_COLOR_RGB16M,
              K4_SIGN_COLOR_RGB32KB, K4_SIGN_COLOR_RGB16MB}) {
            const int depth = color == K4_SIGN_COLOR_MONO1 ? 1 : 8;
            PageEndBytes bulbs(BulbBytes(size.rows, size.columns, TechnologyOf(color)));
            FillWithNoise(bulbs, 5);
            K4ImageHeader expectedHeader;
            K4ImageHeader header;
            const std::size_t room = std::size_t{size.rows} * size.columns * 4;
            PageEndBytes expected(room);
            PageEndBytes pixels(room);
            k4test::PlainBulbCv().Bulb2DIB(bulbs.data(), bulbs.size(), size.rows, size.columns,
                                           color, &expectedHeader, expected.data(), room, depth);
            ASSERT_EQ(PlaneBulbCv().Bulb2DIB(bulbs.data(), bulbs.size(), size.rows, size.columns,
                                             color, &header, pixels.data(), room, depth),
                      1);
            EXPECT_EQ(std::memcmp(&header, &expectedHeader, sizeof header), 0);
            EXPECT_TRUE(std::equal(pixels.begin(), pixels.end(), expected.begin())) << color;
        }
}

TEST(PlaneBulbCv, WhatABulbLineHoldsBeyondTheSignDoesNotShow) {
    for (int color = 0; color < 17; ++color) {
        const auto value = static_cast<tag_K4_SIGN_COLOR>(color);
        const Size size{5, 19};
        const ShadePicture picture = Noise(size, TechnologyOf(value));
        std::vector<std::uint8_t> bulbs = EncodeBulbs(picture);
        // Line 5 of each plane, and of packed pixels, belongs to no row.
        const std::size_t blocks =
            TechnologyOf(value).family == LampFamily::Packed ? 1 : TechnologyOf(value).planes;
        for (std::size_t block = 0; block < blocks; ++block) {
            const std::size_t bytes = bulbs.size() / blocks;
            const auto end = bulbs.begin() + static_cast<std::ptrdiff_t>((block + 1) * bytes);
            std::fill(end - static_cast<std::ptrdiff_t>(bytes / 6), end, std::uint8_t{0xFF});
        }
        K4ImageHeader header;
        PageEndBytes pixels(5 * 19 * 4);
        ASSERT_EQ(PlaneBulbCv().Bulb2DIB(bulbs.data(), bulbs.size(), 5, 19, value, &header,
                                         pixels.data(), pixels.size(), 8),
                  1);
        EXPECT_EQ(Shown(header, pixels), LightOf(picture, K4_PIXEL_TECH_INCAND)) << color;
    }
}

}  // namespace
