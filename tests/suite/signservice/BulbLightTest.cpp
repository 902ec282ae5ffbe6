#include "suite/signservice/BulbLight.h"

#include <gtest/gtest.h>

#include "suite/bulbcv/BulbDecoder.h"
#include "suite/bulbcv/BulbEncoder.h"
#include "suite/lamps/Shades.h"
#include "suite/signservice/DibEncoder.h"
#include "tests/suite/signservice/SequenceFiles.h"

namespace {

using namespace k4suite;
using Bytes = std::vector<std::uint8_t>;

constexpr std::pair<std::uint32_t, std::uint32_t> kSizes[] = {{1, 1},  {7, 17},  {8, 16},
                                                              {9, 20}, {13, 41}, {32, 64}};
/// Every color value that a sequence can have, known or not.
constexpr int kColors[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 99, -1};
constexpr tag_K4_PIXEL_TECH kPixels[] = {K4_PIXEL_TECH_INCAND, K4_PIXEL_TECH_REFLECT,
                                         K4_PIXEL_TECH_LED};

SequenceFacts FactsOf(std::pair<std::uint32_t, std::uint32_t> size, int color) {
    k4cmn::SignSettings sign;
    sign.rows = size.first;
    sign.columns = size.second;
    sign.color = static_cast<tag_K4_SIGN_COLOR>(color);
    return k4test::FactsFor(sign);
}

TEST(BulbDecoder, GivesBackWhatWasEncodedInEveryTechnologyAndSize) {
    for (const auto& size : kSizes)
        for (const int color : kColors) {
            const Bytes bulbs = k4test::NoiseBulbs(FactsOf(size, color), 7);
            const LampTechnology technology = TechnologyOf(static_cast<tag_K4_SIGN_COLOR>(color));
            ASSERT_EQ(bulbs.size(), BulbBytes(size.first, size.second, technology));
            const ShadePicture picture = DecodeBulbs(bulbs, size.first, size.second, technology);
            EXPECT_EQ(EncodeBulbs(picture), bulbs) << color << " " << size.first;
        }
}

TEST(BulbDecoder, PassesOverWhatLiesBeyondTheGrid) {
    const LampTechnology technology = TechnologyOf(K4_SIGN_COLOR_MONO4);
    Bytes bulbs(BulbBytes(7, 17, technology), 0xFF);
    const ShadePicture picture = DecodeBulbs(bulbs, 7, 17, technology);
    EXPECT_EQ(picture.lamps.All(), std::vector<Shade>(7 * 17, Shade{3, 0, 0}));
}

// The slow way, step by step, is what the fast one must come to.
TEST(BulbLight, IsThatOfTheShadesInEveryTechnologySizeAndBrightness) {
    for (const auto& size : kSizes)
        for (const int value : kColors)
            for (const tag_K4_PIXEL_TECH pixel : kPixels)
                for (const int brightness : {255, 254, 119, 16, 1, 0}) {
                    const auto color = static_cast<tag_K4_SIGN_COLOR>(value);
                    const Bytes bulbs = k4test::NoiseBulbs(FactsOf(size, value), 3);
                    Lamps light = LightOf(
                        DecodeBulbs(bulbs, size.first, size.second, TechnologyOf(color)), pixel);
                    const SignBulbs from{bulbs, size.first, size.second, color, pixel};
                    ASSERT_EQ(BulbsToLight(from), light) << value;
                    DimLight(light, static_cast<std::uint8_t>(brightness));
                    Bytes expected(DibBytes(size.first, size.second));
                    EncodeDib(light, expected);
                    Bytes dib(expected.size(), 0x5A);
                    BulbsToDib(from, static_cast<std::uint8_t>(brightness), dib);
                    ASSERT_EQ(dib, expected)
                        << value << " " << size.first << " " << pixel << " " << brightness;
                }
}

TEST(BulbLight, OfTheLargestSignsIsMadeToo) {
    for (const auto& size : {std::pair{65535U, 1U}, {1U, 65535U}, {2048U, 4096U}}) {
        const Bytes bulbs = k4test::NoiseBulbs(FactsOf(size, K4_SIGN_COLOR_MONO4), 1);
        const Lamps light =
            BulbsToLight({bulbs, size.first, size.second, K4_SIGN_COLOR_MONO4, K4_PIXEL_TECH_LED});
        EXPECT_EQ(light.Rows(), size.first);
        EXPECT_EQ(light.All().size(), std::size_t{size.first} * size.second);
    }
}

TEST(BulbLight, BytesThatAreNoFramesAreRefused) {
    Bytes bulbs(5);
    EXPECT_THROW(BulbsToLight({bulbs, 8, 16, K4_SIGN_COLOR_RGB16M, K4_PIXEL_TECH_LED}),
                 std::logic_error);
}

}  // namespace
