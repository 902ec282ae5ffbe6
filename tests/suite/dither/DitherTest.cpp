#include "suite/dither/Dither.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>

#include "k4cmndlg/filestore/SignNames.h"
#include "suite/lamps/Shades.h"

namespace {

using namespace k4suite;

constexpr Rgb kBlack{0, 0, 0};
constexpr Rgb kWhite{255, 255, 255};

Lamps Filled(std::uint32_t rows, std::uint32_t columns, const Rgb& color) {
    Lamps lamps(rows, columns);
    std::fill(lamps.All().begin(), lamps.All().end(), color);
    return lamps;
}

Lamps DitheredAs(const Lamps& picture, tag_K4_SIGN_COLOR color,
                 tag_K4_PIXEL_TECH pixel = K4_PIXEL_TECH_LED) {
    return Dithered(picture, TechnologyOf(color), pixel);
}

double LightOfValue(std::uint8_t value) {
    const double part = value / 255.0;
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

/// The light of one channel over a whole picture, as a part of the most.
double LightOf(const Lamps& picture, std::uint8_t Rgb::*channel) {
    double sum = 0;
    for (const Rgb& lamp : picture.All())
        sum += LightOfValue(lamp.*channel);
    return sum / static_cast<double>(picture.All().size());
}

std::vector<tag_K4_SIGN_COLOR> AllColors() {
    std::vector<tag_K4_SIGN_COLOR> colors;
    for (int color = 0; color < k4cmn::kSignColorCount; ++color)
        colors.push_back(static_cast<tag_K4_SIGN_COLOR>(color));
    return colors;
}

class EveryColor : public testing::TestWithParam<tag_K4_SIGN_COLOR> {};

TEST_P(EveryColor, DarkStaysDarkAndFullLightStaysFull) {
    for (const std::uint32_t rows : {7U, 16U}) {
        const Lamps dark = DitheredAs(Filled(rows, 24, kBlack), GetParam());
        EXPECT_TRUE(std::all_of(dark.All().begin(), dark.All().end(),
                                [](const Rgb& lamp) { return lamp == kBlack; }));
        const Lamps full = DitheredAs(Filled(rows, 24, kWhite), GetParam());
        EXPECT_TRUE(std::all_of(full.All().begin(), full.All().end(), [](const Rgb& lamp) {
            return lamp.red == 255 && lamp.green == 255;
        }));
    }
}

TEST_P(EveryColor, HoldsNoValueButThoseOfShades) {
    const LampTechnology technology = TechnologyOf(GetParam());
    Lamps ramp(16, 256);
    for (std::uint32_t row = 0; row < ramp.Rows(); ++row)
        for (std::uint32_t column = 0; column < ramp.Columns(); ++column)
            ramp.At(row, column) = {static_cast<std::uint8_t>(column),
                                    static_cast<std::uint8_t>(255 - column),
                                    static_cast<std::uint8_t>(row * 16)};
    const Lamps dithered = DitheredAs(ramp, GetParam());
    EXPECT_EQ(DitheredAs(dithered, GetParam()), dithered);
    // What a sign then shows is what was asked for, but for rounding where white light is added.
    const Lamps shown = LightOf(Quantise(dithered, technology), K4_PIXEL_TECH_LED);
    const bool isMono = technology.family == LampFamily::Mono;
    for (std::size_t each = 0; each < shown.All().size(); ++each) {
        const Rgb& wanted = dithered.All()[each];
        const Rgb& lamp = shown.All()[each];
        ASSERT_NEAR(lamp.red, wanted.red, 1) << each;
        if (!isMono) {
            ASSERT_NEAR(lamp.green, wanted.green, 1) << each;
            ASSERT_NEAR(lamp.blue, wanted.blue, 1) << each;
        }
    }
}

TEST_P(EveryColor, HasTheLightOfThePicture) {
    for (const int each : {20, 64, 100, 128, 180, 200, 240}) {
        const auto value = static_cast<std::uint8_t>(each);
        const Lamps gray = Filled(16, 32, {value, value, value});
        const Lamps dithered = DitheredAs(gray, GetParam());
        EXPECT_NEAR(LightOf(dithered, &Rgb::red), LightOfValue(value), 1.0 / 64) << int{value};
        EXPECT_NEAR(LightOf(dithered, &Rgb::green), LightOfValue(value), 1.0 / 64) << int{value};
    }
}

TEST_P(EveryColor, APlaceDependsOnItsOwnColorAlone) {
    Lamps picture = Filled(16, 32, {90, 130, 170});
    const Lamps before = DitheredAs(picture, GetParam());
    for (std::uint32_t row = 4; row < 8; ++row)
        for (std::uint32_t column = 8; column < 12; ++column)
            picture.At(row, column) = {255, 3, 77};
    const Lamps after = DitheredAs(picture, GetParam());
    for (std::uint32_t row = 0; row < 16; ++row)
        for (std::uint32_t column = 0; column < 32; ++column)
            if (row < 4 || row >= 8 || column < 8 || column >= 12) {
                ASSERT_EQ(after.At(row, column), before.At(row, column)) << row << " " << column;
            }
}

INSTANTIATE_TEST_SUITE_P(Colors, EveryColor, testing::ValuesIn(AllColors()), [](const auto& each) {
    return std::string(k4cmn::ColorShortName(each.param));
});

TEST(Dither, IsForTechnologiesOfFewerShadesThanPictures) {
    std::set<std::string> without;
    for (const tag_K4_SIGN_COLOR color : AllColors())
        if (!HasFewerShades(TechnologyOf(color)))
            without.insert(std::string(k4cmn::ColorShortName(color)));
    EXPECT_EQ(without, (std::set<std::string>{"RGB16M", "RGB16MB"}));
    EXPECT_FALSE(HasFewerShades(TechnologyOf(static_cast<tag_K4_SIGN_COLOR>(15))));
    const Lamps any = Filled(8, 16, {1, 2, 3});
    EXPECT_EQ(DitheredAs(any, K4_SIGN_COLOR_RGB16M), any);
    EXPECT_EQ(DitheredAs(any, static_cast<tag_K4_SIGN_COLOR>(15)), any);
}

TEST(Dither, EachThresholdStandsOnceInASquareOfEight) {
    // One more lamp of 64 is lit for each 64th of the light.
    std::set<int> counts;
    for (int value = 0; value < 256; ++value) {
        const auto gray = static_cast<std::uint8_t>(value);
        const Lamps lamps = DitheredAs(Filled(8, 8, {gray, gray, gray}), K4_SIGN_COLOR_MONO1);
        const auto lit =
            static_cast<int>(std::count(lamps.All().begin(), lamps.All().end(), kWhite));
        EXPECT_EQ(lit, static_cast<int>(std::floor(LightOfValue(gray) * 64 + 0.4999))) << value;
        counts.insert(lit);
    }
    EXPECT_GT(counts.size(), 60u);
}

TEST(Dither, HalfTheLightIsACheckerboard) {
    const Lamps lamps = DitheredAs(Filled(8, 8, {188, 188, 188}), K4_SIGN_COLOR_MONO1);
    for (std::uint32_t row = 0; row < 8; ++row)
        for (std::uint32_t column = 0; column < 8; ++column)
            EXPECT_EQ(lamps.At(row, column) == kWhite, (row + column) % 2 == 0)
                << row << " " << column;
}

TEST(Dither, MonoFollowsLuminance) {
    const auto part = [](const Rgb& color) {
        return LightOf(DitheredAs(Filled(8, 8, color), K4_SIGN_COLOR_MONO1), &Rgb::red);
    };
    EXPECT_NEAR(part({255, 0, 0}), 0.2126, 1.0 / 64);
    EXPECT_NEAR(part({0, 255, 0}), 0.7152, 1.0 / 64);
    EXPECT_NEAR(part({0, 0, 255}), 0.0722, 1.0 / 64);
}

TEST(Dither, MonoTakesTheColorOfItsLampsAsTheirBrightness) {
    for (const auto pixel : {K4_PIXEL_TECH_INCAND, K4_PIXEL_TECH_REFLECT, K4_PIXEL_TECH_LED}) {
        const Rgb lamp = MonoLight(pixel);
        const Lamps full = DitheredAs(Filled(8, 8, lamp), K4_SIGN_COLOR_MONO1, pixel);
        EXPECT_EQ(full, Filled(8, 8, kWhite));
        // Another sign's color isn't.
        const auto other = pixel == K4_PIXEL_TECH_LED ? K4_PIXEL_TECH_INCAND : K4_PIXEL_TECH_LED;
        EXPECT_NE(DitheredAs(Filled(8, 8, lamp), K4_SIGN_COLOR_MONO1, other), Filled(8, 8, kWhite));
    }
}

TEST(Dither, TriShowsBlueAsBothHalfAsBright) {
    const Lamps lamps = DitheredAs(Filled(8, 8, {0, 0, 255}), K4_SIGN_COLOR_TRI3);
    EXPECT_NEAR(LightOf(lamps, &Rgb::red), LightOfValue(127), 1.0 / 64);
    EXPECT_NEAR(LightOf(lamps, &Rgb::green), LightOfValue(127), 1.0 / 64);
    EXPECT_EQ(LightOf(lamps, &Rgb::blue), 0);
}

TEST(Dither, TheCellIsTheUnitOfAQuadSign) {
    Lamps picture(16, 16);
    for (std::uint32_t row = 0; row < 16; ++row)
        for (std::uint32_t column = 0; column < 16; ++column)
            picture.At(row, column) = (row + column) % 2 ? kWhite : kBlack;
    const Lamps dithered = DitheredAs(picture, K4_SIGN_COLOR_QUAD16, K4_PIXEL_TECH_INCAND);
    for (std::uint32_t row = 0; row < 16; ++row)
        for (std::uint32_t column = 0; column < 16; ++column)
            EXPECT_EQ(dithered.At(row, column), dithered.At(row / 2 * 2, column / 2 * 2));
    EXPECT_NEAR(LightOf(dithered, &Rgb::red), 0.5, 1.0 / 64);
}

TEST(Dither, AnEmptyPictureStaysEmpty) {
    EXPECT_EQ(DitheredAs(Lamps(), K4_SIGN_COLOR_MONO1), Lamps());
    EXPECT_EQ(DitheredAs(Lamps(), K4_SIGN_COLOR_QUAD16), Lamps());
}

}  // namespace
