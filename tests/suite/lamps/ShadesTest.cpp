#include "suite/lamps/Shades.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

#include "suite/lamps/Lowered.h"

namespace {

using namespace k4suite;

Lamps Field(std::uint32_t rows, std::uint32_t columns, Rgb color) {
    Lamps lamps(rows, columns);
    for (Rgb& lamp : lamps.All())
        lamp = color;
    return lamps;
}

Lamps Noise(std::uint32_t rows, std::uint32_t columns) {
    std::mt19937 random(5);
    Lamps lamps(rows, columns);
    for (Rgb& lamp : lamps.All())
        lamp = {static_cast<std::uint8_t>(random()), static_cast<std::uint8_t>(random()),
                static_cast<std::uint8_t>(random())};
    return lamps;
}

TEST(Shades, ALampTakesTheNearestShade) {
    struct Row {
        tag_K4_SIGN_COLOR color;
        std::uint8_t light;
        int shade;
    };
    constexpr Row rows[] = {
        {K4_SIGN_COLOR_MONO1, 127, 0},    {K4_SIGN_COLOR_MONO1, 128, 1},
        {K4_SIGN_COLOR_MONO4, 42, 0},     {K4_SIGN_COLOR_MONO4, 43, 1},
        {K4_SIGN_COLOR_MONO4, 127, 1},    {K4_SIGN_COLOR_MONO4, 128, 2},
        {K4_SIGN_COLOR_MONO16, 17, 1},    {K4_SIGN_COLOR_MONO16, 255, 15},
        {K4_SIGN_COLOR_MONO64, 255, 63},  {K4_SIGN_COLOR_RGB16M, 200, 200},
        {K4_SIGN_COLOR_RGB32KB, 255, 31},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Quantise(Field(1, 1, {row.light, row.light, row.light}), TechnologyOf(row.color))
                      .lamps.At(0, 0)[0],
                  row.shade)
            << row.color << " " << int{row.light};
}

TEST(Shades, NoShadeIsBrighterThanItsTechnologyAllows) {
    const Lamps noise = Noise(11, 13);
    for (int color = 0; color < 17; ++color) {
        const ShadePicture picture =
            Quantise(noise, TechnologyOf(static_cast<tag_K4_SIGN_COLOR>(color)));
        for (const Shade& shade : picture.lamps.All())
            for (const std::uint8_t lamp : shade)
                ASSERT_LE(lamp, picture.technology.BrightestShade()) << color;
    }
}

TEST(Shades, WhatASignShowsIsShownTheSameByAnotherOfItsKind) {
    const Lamps noise = Noise(12, 20);
    for (int color = 0; color < 17; ++color)
        for (const tag_K4_PIXEL_TECH pixel :
             {K4_PIXEL_TECH_INCAND, K4_PIXEL_TECH_REFLECT, K4_PIXEL_TECH_LED}) {
            const LampTechnology technology = TechnologyOf(static_cast<tag_K4_SIGN_COLOR>(color));
            if (technology.family == LampFamily::Quad)
                continue;  // a cell's mixed color may have several mixtures
            const Lamps once = LightOf(Quantise(noise, technology), pixel);
            EXPECT_EQ(LightOf(Quantise(once, technology), pixel), once) << color << " " << pixel;
        }
}

TEST(Shades, ACellShowsPlainColorsTruly) {
    struct Row {
        Rgb color;
        int red, green, blue, white;
    };
    constexpr Row rows[] = {
        {{0, 0, 0}, 0, 0, 0, 0},       {{255, 0, 0}, 1, 0, 0, 0},   {{0, 255, 0}, 0, 1, 0, 0},
        {{0, 0, 255}, 0, 0, 1, 0},     {{255, 255, 0}, 1, 1, 0, 0}, {{0, 255, 255}, 0, 1, 1, 0},
        {{255, 255, 255}, 0, 0, 0, 1},
    };
    for (const Row& row : rows) {
        const ShadePicture picture =
            Quantise(Field(2, 2, row.color), TechnologyOf(K4_SIGN_COLOR_QUAD16));
        EXPECT_EQ(picture.lamps.At(0, 0)[0], row.red);
        EXPECT_EQ(picture.lamps.At(0, 1)[0], row.green);
        EXPECT_EQ(picture.lamps.At(1, 0)[0], row.blue);
        EXPECT_EQ(picture.lamps.At(1, 1)[0], row.white);
        EXPECT_EQ(LightOf(picture, K4_PIXEL_TECH_LED), Field(2, 2, row.color));
    }
}

TEST(Shades, ACellCutByTheEdgeHasTheLampsThatAreThere) {
    // One row and one column: only red lamps.
    const ShadePicture corner =
        Quantise(Field(1, 1, {255, 255, 255}), TechnologyOf(K4_SIGN_COLOR_QUAD16));
    EXPECT_EQ(LightOf(corner, K4_PIXEL_TECH_LED).At(0, 0), (Rgb{255, 0, 0}));
    const ShadePicture row =
        Quantise(Field(1, 2, {255, 255, 255}), TechnologyOf(K4_SIGN_COLOR_QUAD16));
    EXPECT_EQ(LightOf(row, K4_PIXEL_TECH_LED).At(0, 1), (Rgb{255, 255, 0}));
    const ShadePicture column =
        Quantise(Field(2, 1, {255, 255, 255}), TechnologyOf(K4_SIGN_COLOR_QUAD16));
    EXPECT_EQ(LightOf(column, K4_PIXEL_TECH_LED).At(1, 0), (Rgb{255, 0, 255}));
}

TEST(Shades, BlueIsSeenWhereThereIsNoBlueLamp) {
    const ShadePicture picture =
        Quantise(Field(1, 1, {0, 0, 255}), TechnologyOf(K4_SIGN_COLOR_TRI256));
    EXPECT_EQ(LightOf(picture, K4_PIXEL_TECH_LED).At(0, 0), (Rgb{119, 119, 0}));
}

TEST(Shades, OneColorLampsShineInTheColorOfTheirKind) {
    const ShadePicture lit =
        Quantise(Field(1, 1, {255, 255, 255}), TechnologyOf(K4_SIGN_COLOR_MONO1));
    std::set<std::tuple<int, int, int>> colors;
    for (const tag_K4_PIXEL_TECH pixel :
         {K4_PIXEL_TECH_INCAND, K4_PIXEL_TECH_REFLECT, K4_PIXEL_TECH_LED}) {
        const Rgb light = LightOf(lit, pixel).At(0, 0);
        EXPECT_EQ(std::max({light.red, light.green, light.blue}), 255);
        colors.insert({light.red, light.green, light.blue});
    }
    EXPECT_EQ(colors.size(), 3U);
}

TEST(Shades, DimmingLowersInProportionAndKeepsLampsLit) {
    Lamps light(1, 3);
    light.All() = {{255, 128, 0}, {1, 0, 2}, {0, 0, 0}};
    DimLight(light, 128);
    EXPECT_EQ(light.All(), (std::vector<Rgb>{{128, 64, 0}, {1, 0, 1}, {0, 0, 0}}));
    DimLight(light, 0);
    EXPECT_EQ(light.All(), (std::vector<Rgb>{{1, 1, 0}, {1, 0, 1}, {0, 0, 0}}));

    ShadePicture shades =
        Quantise(Field(1, 1, {255, 255, 255}), TechnologyOf(K4_SIGN_COLOR_MONO16));
    DimShades(shades, 128);
    EXPECT_EQ(shades.lamps.At(0, 0)[0], 8);
    DimShades(shades, 1);
    EXPECT_EQ(shades.lamps.At(0, 0)[0], 1);
}

TEST(Lowered, IsTheRoundedProportionAndLitStaysLit) {
    for (unsigned brightness = 0; brightness <= 255; ++brightness)
        for (unsigned value = 0; value <= 255; ++value) {
            const unsigned lowered = (value * brightness + 127) / 255;
            ASSERT_EQ(
                Lowered(static_cast<std::uint8_t>(value), static_cast<std::uint8_t>(brightness)),
                value != 0 && lowered == 0 ? 1 : lowered)
                << value << " " << brightness;
        }
}

TEST(Shades, FullBrightnessChangesNothing) {
    Lamps light = Noise(9, 9);
    const Lamps before = light;
    DimLight(light, 255);
    EXPECT_EQ(light, before);
}

}  // namespace
