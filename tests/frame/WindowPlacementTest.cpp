#include "k4cmndlg/frame/WindowPlacement.h"

#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <vector>

using k4cmn::ClampToScreens;
using k4cmn::FormatPlacement;
using k4cmn::ParsePlacement;
using k4cmn::PixelRect;
using k4cmn::RestoredRect;
using k4cmn::WindowPlacement;

namespace k4cmn {

void PrintTo(const PixelRect& rect, std::ostream* out) {
    *out << "(" << rect.left << "," << rect.top << "," << rect.right << "," << rect.bottom << ")";
}

void PrintTo(const WindowPlacement& placement, std::ostream* out) {
    *out << FormatPlacement(placement);
}

}  // namespace k4cmn

TEST(WindowPlacement, SectionBearsTheTitle) {
    EXPECT_EQ(k4cmn::PlacementSection("Window Control"), "Dialogs\\Window Control");
    EXPECT_EQ(k4cmn::PlacementSection(""), "Dialogs\\");
    EXPECT_EQ(k4cmn::PlacementSection("100%s"), "Dialogs\\100%s");
    EXPECT_STREQ(k4cmn::kPlacementValue, "WindowPos");
}

TEST(WindowPlacement, TextHasTenFieldsInTheirOrder) {
    const WindowPlacement placement{2, 3, -1, -2, -3, -4, {100, 50, 400, 250}};
    EXPECT_EQ(FormatPlacement(placement), "2,3,-1,-2,-3,-4,100,50,400,250");
}

TEST(WindowPlacement, ParsingIsTheReverseOfFormatting) {
    const WindowPlacement placement{
        UINT_MAX, 1, INT_MIN, INT_MAX, -1, 0, {-1920, -50, INT_MAX, INT_MIN}};
    EXPECT_EQ(ParsePlacement(FormatPlacement(placement)), placement);
}

namespace {

struct Refused {
    const char* name;
    const char* text;
};

constexpr Refused kRefused[] = {
    {"Empty", ""},
    {"NineFields", "0,1,-1,-1,-1,-1,100,50,400"},
    {"NineFieldsAndAComma", "0,1,-1,-1,-1,-1,100,50,400,"},
    {"EmptyField", "0,1,,-1,-1,-1,100,50,400,250"},
    {"Letters", "0,1,-1,-1,-1,-1,100,fifty,400,250"},
    {"OtherSeparator", "0;1;-1;-1;-1;-1;100;50;400;250"},
    {"BlankBeforeComma", "0 ,1,-1,-1,-1,-1,100,50,400,250"},
    {"Hexadecimal", "0x10,1,-1,-1,-1,-1,100,50,400,250"},
    {"Words", "the place where it stood"},
};

class RefusedPlacement : public testing::TestWithParam<Refused> {};

}  // namespace

TEST_P(RefusedPlacement, IsNoPlace) {
    EXPECT_EQ(ParsePlacement(GetParam().text), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Rows, RefusedPlacement, testing::ValuesIn(kRefused),
                         [](const auto& row) { return row.param.name; });

TEST(WindowPlacement, WhatFollowsTheTenthFieldIsNotLookedAt) {
    const auto placement = ParsePlacement("0,1,-1,-1,-1,-1,100,50,400,250,9,junk");
    ASSERT_TRUE(placement);
    EXPECT_EQ(placement->normal, (PixelRect{100, 50, 400, 250}));
}

TEST(WindowPlacement, BlanksBeforeAFieldDoNotMatter) {
    const auto placement = ParsePlacement(" 0, 1, -1, -1, -1, -1, 100, 50, 400, 250");
    ASSERT_TRUE(placement);
    EXPECT_EQ(placement->normal, (PixelRect{100, 50, 400, 250}));
}

TEST(WindowPlacement, NumbersPastTheirSizeArePinned) {
    const auto placement =
        ParsePlacement("99999999999,-5,0,0,0,0,99999999999,-99999999999,0,99999999999999999999");
    ASSERT_TRUE(placement);
    EXPECT_EQ(placement->flags, UINT_MAX);
    EXPECT_EQ(placement->showState, 0u);
    EXPECT_EQ(placement->normal, (PixelRect{INT_MAX, INT_MIN, 0, INT_MAX}));
}

TEST(WindowPlacement, DamagedTextsAreReadWithoutHarm) {
    std::mt19937 random(4400);
    const std::string good = "2,3,-1,-1,-1,-1,100,50,400,250";
    const std::string letters = "0123456789,,--+ x%\xFF";
    std::uniform_int_distribution<std::size_t> letter(0, letters.size() - 1);
    std::uniform_int_distribution<std::size_t> place(0, good.size() - 1);
    int read = 0;
    int refused = 0;
    for (int round = 0; round < 20'000; ++round) {
        std::string text = good;
        for (int damage = 0; damage < 1 + round % 4; ++damage)
            text[place(random)] = letters[letter(random)];
        const auto placement = ParsePlacement(text);
        ++(placement ? read : refused);
        if (placement) {
            EXPECT_EQ(ParsePlacement(FormatPlacement(*placement)), placement) << text;
        }
    }
    EXPECT_GT(read, 1000);
    EXPECT_GT(refused, 1000);
}

TEST(RestoredRect, HasTheSavedPlaceAndThePresentSize) {
    const PixelRect present{7, 8, 307, 208};
    EXPECT_EQ(RestoredRect({100, 50, 9999, -9999}, present), (PixelRect{100, 50, 400, 250}));
    EXPECT_EQ(RestoredRect({-100, -50, 0, 0}, present), (PixelRect{-100, -50, 200, 150}));
}

TEST(RestoredRect, KeepsTheSizeAtTheEndsOfANumber) {
    const PixelRect present{0, 0, 300, 200};
    EXPECT_EQ(RestoredRect({INT_MAX, INT_MIN, 0, 0}, present),
              (PixelRect{INT_MAX - 300, INT_MIN, INT_MAX, INT_MIN + 200}));
}

namespace {

constexpr PixelRect kMain{0, 0, 1920, 1080};
constexpr PixelRect kRight{1920, 0, 3200, 1024};
constexpr PixelRect kLeftHigh{-1000, -500, 0, 300};

struct Clamped {
    const char* name;
    std::vector<PixelRect> screens;
    PixelRect saved;
    PixelRect shown;
};

const Clamped kClamped[] = {
    {"InsideStays", {kMain}, {100, 50, 400, 250}, {100, 50, 400, 250}},
    {"FillingStays", {kMain}, kMain, kMain},
    {"RightEdge", {kMain}, {1800, 50, 2100, 250}, {1620, 50, 1920, 250}},
    {"LeftEdge", {kMain}, {-10, 50, 290, 250}, {0, 50, 300, 250}},
    {"BottomEdge", {kMain}, {100, 1000, 400, 1200}, {100, 880, 400, 1080}},
    {"TopEdge", {kMain}, {100, -60, 400, 140}, {100, 0, 400, 200}},
    {"FarAway", {kMain}, {90000, 70000, 90300, 70200}, {1620, 880, 1920, 1080}},
    {"OnSecondScreenStays", {kMain, kRight}, {2000, 50, 2300, 250}, {2000, 50, 2300, 250}},
    {"SecondScreenIsGone", {kMain}, {2000, 50, 2300, 250}, {1620, 50, 1920, 250}},
    {"OverBothScreensStays", {kMain, kRight}, {1800, 50, 2100, 250}, {1800, 50, 2100, 250}},
    {"MostlyOnSecond", {kMain, kRight}, {1900, 900, 2200, 1100}, {1920, 824, 2220, 1024}},
    {"NearestOfTwo", {kMain, kLeftHigh}, {-900, 400, -600, 600}, {-900, 100, -600, 300}},
    {"TooLarge", {{10, 20, 410, 320}}, {50, 50, 650, 450}, {10, 20, 610, 420}},
    {"MirroredScreensCountOnce", {kMain, kMain}, {1770, 50, 2070, 250}, {1620, 50, 1920, 250}},
    {"NoScreens", {}, {9000, 9000, 9300, 9200}, {9000, 9000, 9300, 9200}},
};

class ClampedPlace : public testing::TestWithParam<Clamped> {};

}  // namespace

TEST_P(ClampedPlace, LiesOnTheScreensThatThereAre) {
    EXPECT_EQ(ClampToScreens(GetParam().saved, GetParam().screens), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(Rows, ClampedPlace, testing::ValuesIn(kClamped),
                         [](const auto& row) { return row.param.name; });

TEST(ClampToScreens, EndsOfANumberDoNoHarm) {
    const std::vector<PixelRect> screens{kMain};
    EXPECT_EQ(ClampToScreens({INT_MAX - 300, INT_MIN, INT_MAX, INT_MIN + 200}, screens),
              (PixelRect{1620, 0, 1920, 200}));
    const PixelRect everything{INT_MIN, INT_MIN, INT_MAX, INT_MAX};
    EXPECT_EQ(ClampToScreens(everything, screens), everything);
}
