#include "suite/bulbcv/BulbEncoder.h"

#include <gtest/gtest.h>

#include <random>
#include <tuple>

namespace {

using namespace k4suite;

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

ShadePicture RowOf(tag_K4_SIGN_COLOR color, std::vector<Shade> shades) {
    ShadePicture picture{TechnologyOf(color),
                         LampGrid<Shade>(1, static_cast<std::uint32_t>(shades.size()))};
    picture.lamps.All() = std::move(shades);
    return picture;
}

TEST(BulbEncoder, MonochromePlanesAreTheBitsOfOneShade) {
    EXPECT_EQ(EncodeBulbs(RowOf(K4_SIGN_COLOR_MONO4, {{1}, {2}, {3}})),
              Words({0xA000, 0, 0x6000, 0}));
}

TEST(BulbEncoder, TriColorPlanesAreRedThenGreen) {
    EXPECT_EQ(EncodeBulbs(RowOf(K4_SIGN_COLOR_TRI3, {{1, 0}, {0, 1}, {1, 1}})),
              Words({0xA000, 0, 0x6000, 0}));
}

TEST(BulbEncoder, RgbPlanesAreThirds) {
    EXPECT_EQ(EncodeBulbs(RowOf(K4_SIGN_COLOR_RGB64, {{3, 0, 0}, {0, 0, 0}, {0, 0, 1}})),
              Words({0x8000, 0, 0x8000, 0, 0, 0, 0, 0, 0x2000, 0, 0, 0}));
}

TEST(BulbEncoder, QuadPlanesHoldEachLampOfACellAtItsPlace) {
    ShadePicture picture{TechnologyOf(K4_SIGN_COLOR_QUAD16), LampGrid<Shade>(2, 2)};
    picture.lamps.At(0, 0)[0] = 1;
    picture.lamps.At(1, 1)[0] = 1;
    EXPECT_EQ(EncodeBulbs(picture), Words({0x8000, 0x4000}));
}

TEST(BulbEncoder, PackedPixelsOfFiveBitsAreWords) {
    Bytes expected = Words({0x7C00, 0x03E0, 0x001F});
    expected.resize(64);
    EXPECT_EQ(EncodeBulbs(RowOf(K4_SIGN_COLOR_RGB32KB, {{31, 0, 0}, {0, 31, 0}, {0, 0, 31}})),
              expected);
}

TEST(BulbEncoder, PackedPixelsOfEightBitsAreBlueGreenRed) {
    Bytes expected = {0, 0, 0xFF, 3, 2, 1};
    expected.resize(96);
    EXPECT_EQ(EncodeBulbs(RowOf(K4_SIGN_COLOR_RGB16MB, {{255, 0, 0}, {1, 2, 3}})), expected);
}

TEST(BulbEncoder, TheLeftmostLampOfAWordIsItsHighestBit) {
    ShadePicture picture{TechnologyOf(K4_SIGN_COLOR_MONO1), LampGrid<Shade>(2, 18)};
    for (const std::uint32_t column : {0U, 7U, 8U, 15U, 16U, 17U})
        picture.lamps.At(0, column)[0] = 1;
    picture.lamps.At(1, 17)[0] = 1;
    EXPECT_EQ(EncodeBulbs(picture), Words({0x8181, 0xC000, 0, 0x4000}));
}

TEST(BulbEncoder, PlanesOfEachColor) {
    constexpr int planes[] = {1, 1, 2, 2, 2, 4, 4, 8, 6, 6, 12, 24, 6, 16, 24, 0, 1, 1};
    for (int color = 0; color < 18; ++color)
        EXPECT_EQ(TechnologyOf(static_cast<tag_K4_SIGN_COLOR>(color)).planes, planes[color])
            << color;
    EXPECT_EQ(TechnologyOf(static_cast<tag_K4_SIGN_COLOR>(-1)).planes, 1);
}

TEST(BulbEncoder, BytesAreWordsTimesEvenLinesTimesPlanes) {
    struct Row {
        std::uint32_t rows, columns;
        std::size_t words, lines;
    };
    constexpr Row sizes[] = {
        {1, 1, 1, 2}, {7, 16, 1, 8}, {8, 17, 2, 8}, {9, 20, 2, 10}, {64, 192, 12, 64},
    };
    for (const Row& size : sizes)
        for (int color = 0; color < 17; ++color) {
            const LampTechnology technology = TechnologyOf(static_cast<tag_K4_SIGN_COLOR>(color));
            const std::size_t expected = size.words * size.lines * technology.planes * 2;
            EXPECT_EQ(BulbBytes(size.rows, size.columns, technology), expected) << color;
            EXPECT_EQ(EncodeBulbs({technology, LampGrid<Shade>(size.rows, size.columns)}).size(),
                      expected)
                << color;
        }
}

/// Reads a lamp back out of planes, in the plainest way.
unsigned ShadeAt(const Bytes& bytes, std::uint32_t rows, std::uint32_t columns,
                 std::uint32_t firstPlane, std::uint32_t bits, std::uint32_t row,
                 std::uint32_t column) {
    const std::size_t words = (columns + 15) / 16;
    const std::size_t lines = (rows + 1) / 2 * 2;
    unsigned shade = 0;
    for (std::uint32_t bit = 0; bit < bits; ++bit) {
        const std::size_t word = ((firstPlane + bit) * lines + row) * words + column / 16;
        const unsigned value = bytes[2 * word] | static_cast<unsigned>(bytes[2 * word + 1]) << 8;
        shade |= (value >> (15 - column % 16) & 1U) << bit;
    }
    return shade;
}

TEST(BulbEncoder, RandomPicturesOfAllPlanarColorsCanBeReadBack) {
    std::mt19937 random(12);
    for (const int color : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}) {
        const LampTechnology technology = TechnologyOf(static_cast<tag_K4_SIGN_COLOR>(color));
        const std::uint32_t channels = technology.planes / technology.bits;
        for (const auto& [rows, columns] : {std::pair{7U, 16U}, {8U, 33U}, {13U, 5U}}) {
            ShadePicture picture{technology, LampGrid<Shade>(rows, columns)};
            for (Shade& shade : picture.lamps.All())
                for (std::uint32_t channel = 0; channel < channels; ++channel)
                    shade[channel] =
                        static_cast<std::uint8_t>(random() % (technology.BrightestShade() + 1));
            const Bytes bytes = EncodeBulbs(picture);
            for (std::uint32_t row = 0; row < rows; ++row)
                for (std::uint32_t column = 0; column < columns; ++column)
                    for (std::uint32_t channel = 0; channel < channels; ++channel)
                        ASSERT_EQ(ShadeAt(bytes, rows, columns, channel * technology.bits,
                                          technology.bits, row, column),
                                  picture.lamps.At(row, column)[channel])
                            << color << ": " << row << " " << column << " " << channel;
        }
    }
}

TEST(BulbEncoder, AColorWithoutLampsHasNoBytes) {
    EXPECT_TRUE(EncodeBulbs(RowOf(static_cast<tag_K4_SIGN_COLOR>(15), {{1}, {2}})).empty());
}

}  // namespace
