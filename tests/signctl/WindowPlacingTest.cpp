#include "k4cmndlg/signctl/WindowPlacing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace k4test {

using k4cmn::WindowPlacing;
using testing::ElementsAre;

namespace {

constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
constexpr std::uint32_t kHuge = std::numeric_limits<std::uint32_t>::max();

WindowPlacing OnSign(std::uint32_t rows, std::uint32_t columns, int color) {
    WindowPlacing placing;
    placing.rows = rows;
    placing.columns = columns;
    placing.color = static_cast<tag_K4_SIGN_COLOR>(color);
    for (WindowPlacing::Window& window : placing.windows)
        window.row = window.column = 1;
    return placing;
}

constexpr int kMono = K4_SIGN_COLOR_MONO1;
constexpr int kQuad = K4_SIGN_COLOR_QUAD16;

TEST(WindowPlacing, BeginsWithASmallSignAndNoBoundBelowOne) {
    const WindowPlacing placing;
    EXPECT_EQ(placing.rows, 7U);
    EXPECT_EQ(placing.columns, 16U);
    EXPECT_EQ(placing.color, 0);
    EXPECT_EQ(placing.windows.size(), 8U);
    for (const WindowPlacing::Window& window : placing.windows) {
        EXPECT_EQ(window.windowSign, "");
        EXPECT_EQ(window.enabled, 0);
        EXPECT_EQ(window.row, 0);
        EXPECT_EQ(window.column, 0);
        EXPECT_EQ(window.rowMinimum, 1);
        EXPECT_EQ(window.columnMinimum, 1);
    }
}

TEST(WindowPlacing, QuadAreTheFourQuadColors) {
    for (int color = -1; color <= 16; ++color) {
        const bool quad = color == 1 || color == 3 || color == 5 || color == 8;
        EXPECT_EQ(OnSign(16, 80, color).IsQuad(), quad) << color;
    }
}

// Bounds --------------------------------------------------------------------------------------

struct Upper {
    const char* what;
    int color;
    std::uint32_t extent;
    std::int32_t bound;
};

class WindowUpperBound : public testing::TestWithParam<Upper> {};

TEST_P(WindowUpperBound, IsThatOfTheMainSign) {
    const Upper& row = GetParam();
    EXPECT_EQ(OnSign(row.extent, 1, row.color).RowMaximum(), row.bound);
    EXPECT_EQ(OnSign(1, row.extent, row.color).ColumnMaximum(), row.bound);
}

INSTANTIATE_TEST_SUITE_P(
    Extents, WindowUpperBound,
    testing::Values(Upper{"MonoSixteen", kMono, 16, 16}, Upper{"MonoEighty", kMono, 80, 80},
                    Upper{"QuadSixtyFour", kQuad, 64, 63}, Upper{"QuadSixtyFive", kQuad, 65, 65},
                    Upper{"TheLastQuadColor", K4_SIGN_COLOR_QUAD16M, 80, 79},
                    Upper{"MonoNought", kMono, 0, 0}, Upper{"QuadNought", kQuad, 0, -1},
                    Upper{"MonoHuge", kMono, kHuge, kMost}, Upper{"QuadHuge", kQuad, kHuge, kMost},
                    Upper{"QuadHugeAndEven", kQuad, kHuge - 1, kMost},
                    Upper{"QuadJustPast32Bits", kQuad, 0x80000000U, kMost},
                    Upper{"MonoJustPast32Bits", kMono, 0x80000000U, kMost}),
    [](const auto& row) { return row.param.what; });

struct Lower {
    const char* what;
    std::uint32_t rows;
    std::uint32_t columns;
    std::int32_t rowMinimum;
    std::int32_t columnMinimum;
};

class WindowLowerBound : public testing::TestWithParam<Lower> {};

TEST_P(WindowLowerBound, LeavesOneRowAndEightColumnsOnTheSign) {
    WindowPlacing::Window window;
    window.SetSize(GetParam().rows, GetParam().columns);
    EXPECT_EQ(window.rowMinimum, GetParam().rowMinimum);
    EXPECT_EQ(window.columnMinimum, GetParam().columnMinimum);
}

INSTANTIATE_TEST_SUITE_P(
    Sizes, WindowLowerBound,
    testing::Values(Lower{"EightBySixteen", 8, 16, -7, -8}, Lower{"OneByEight", 1, 8, 0, 0},
                    Lower{"OneBySeven", 1, 7, 0, 1}, Lower{"Nothing", 0, 0, 1, 8},
                    Lower{"Huge", kHuge, kHuge, kLeast, kLeast},
                    Lower{"JustFits", 0x7FFFFFFFU, 0x7FFFFFFFU, -0x7FFFFFFE, -0x7FFFFFF7}),
    [](const auto& row) { return row.param.what; });

TEST(WindowPlacing, AMonochromeSignGivesAnEightBySixteenWindowItsWholeRange) {
    WindowPlacing placing = OnSign(16, 80, kMono);
    placing.windows[0].SetSize(8, 16);
    EXPECT_EQ(placing.windows[0].rowMinimum, -7);
    EXPECT_EQ(placing.RowMaximum(), 16);
    EXPECT_EQ(placing.windows[0].columnMinimum, -8);
    EXPECT_EQ(placing.ColumnMaximum(), 80);
}

// Spins ---------------------------------------------------------------------------------------

TEST(WindowPlacing, ASpinHasThreeSpeeds) {
    using Speed = k4cmn::SpinAccel;
    EXPECT_THAT(OnSign(16, 80, kQuad).RowSpeeds(),
                ElementsAre(Speed{0, 2}, Speed{2, 8}, Speed{4, 16}));
    EXPECT_THAT(OnSign(16, 80, kMono).RowSpeeds(),
                ElementsAre(Speed{0, 1}, Speed{2, 8}, Speed{4, 16}));
    EXPECT_THAT(WindowPlacing::ColumnSpeeds(),
                ElementsAre(Speed{0, 8}, Speed{2, 16}, Speed{4, 32}));
}

struct Click {
    const char* what;
    std::int32_t position;
    std::int32_t step;
    std::int16_t next;
};

class SpinClick : public testing::TestWithParam<Click> {};

TEST_P(SpinClick, GoesToTheGridOfItsStep) {
    EXPECT_EQ(WindowPlacing::NextPosition(GetParam().position, GetParam().step), GetParam().next);
}

INSTANTIATE_TEST_SUITE_P(
    Clicks, SpinClick,
    testing::Values(Click{"ColumnUp", 1, 8, 9}, Click{"ColumnDown", 9, -8, 1},
                    Click{"ColumnBelowOne", 1, -8, -7}, Click{"ColumnFurtherBelow", -7, -8, -15},
                    Click{"ColumnBackUp", -7, 8, 1}, Click{"ColumnFromOffTheGrid", 5, 8, 9},
                    Click{"ColumnDownFromOffTheGrid", 5, -8, 1},
                    // The division goes towards nought, so these stop one step short or pass one.
                    Click{"UpFromJustBelowOne", -1, 8, 1}, Click{"UpFromNought", 0, 8, 1},
                    Click{"UpFromMinusEight", -8, 8, 1}, Click{"DownFromTwo", 2, -8, 1},
                    Click{"FastColumn", 1, 16, 17}, Click{"FastColumnFromTheSlowGrid", 9, 16, 17},
                    Click{"FastestColumn", 17, 32, 33}, Click{"FastestColumnDown", 33, -32, 1},
                    Click{"QuadRowUp", 1, 2, 3}, Click{"QuadRowDown", 3, -2, 1},
                    Click{"QuadRowBelowOne", 1, -2, -1}, Click{"QuadRowFromEven", 2, 2, 3},
                    Click{"RowUp", 4, 1, 5}, Click{"RowDown", 4, -1, 3},
                    Click{"RowThroughNought", 1, -1, 0}, Click{"RowBelowNought", 0, -1, -1},
                    Click{"RowBackThroughNought", -1, 1, 0}, Click{"FastRow", 1, 8, 9},
                    Click{"NoStep", 12, 0, 12},
                    // Only the low 16 bits arrive.
                    Click{"PastTheGreatestWord", 32767, 1, -32768},
                    Click{"BelowTheLeastWord", -32768, -1, 32767},
                    Click{"AWholeWordOn", 65536, 1, 1}, Click{"FarOff", 70000, 8, 4465},
                    Click{"TheGreatestNumber", kMost, 1, 0},
                    Click{"TheLeastNumber", kLeast, -1, -1}, Click{"TheLeastStep", 1, kLeast, 1},
                    Click{"TheGreatestStep", 1, kMost, 0}),
    [](const auto& row) { return row.param.what; });

// Leaving a field -----------------------------------------------------------------------------

struct Left {
    std::int32_t number;
    std::int32_t becomes;
};

TEST(WindowPlacing, AColumnLeftGoesToTheNearestOnTheGridTiesUp) {
    for (const auto& [number, becomes] : {Left{5, 9},
                                          Left{4, 1},
                                          Left{0, 1},
                                          Left{-3, 1},
                                          Left{1, 1},
                                          Left{2, 1},
                                          Left{6, 9},
                                          Left{8, 9},
                                          Left{9, 9},
                                          Left{-4, -7},
                                          Left{-7, -7},
                                          Left{-8, -7},
                                          Left{-11, -7},
                                          Left{-12, -15},
                                          Left{13, 17},
                                          Left{80, 81},
                                          Left{kMost, 2147483641},
                                          Left{2147483641, 2147483641},
                                          Left{2147483637, 2147483641},
                                          Left{2147483645, 2147483641},
                                          Left{kLeast, -2147483647}})
        EXPECT_EQ(WindowPlacing::SnapColumn(number), becomes) << number;
}

TEST(WindowPlacing, ASnappedColumnIsOnTheGridAndNoFurtherThanFour) {
    std::mt19937 random(20270115);
    std::uniform_int_distribution<std::int32_t> numbers(kLeast, kMost);
    for (int i = 0; i < 10000; ++i) {
        const std::int32_t number = numbers(random);
        const std::int64_t snapped = WindowPlacing::SnapColumn(number);
        EXPECT_EQ((snapped - 1) % 8, 0) << number;
        if (number < 2147483645) {
            EXPECT_LE(snapped - number, 4) << number;
            EXPECT_GT(snapped - number, -4) << number;
        }
    }
}

TEST(WindowPlacing, AnEvenRowLeftGoesUpByOneOnAQuadSign) {
    const WindowPlacing quad = OnSign(64, 80, kQuad);
    for (const auto& [number, becomes] :
         {Left{2, 3}, Left{3, 3}, Left{0, 1}, Left{-2, -1}, Left{-1, -1}, Left{kMost, kMost},
          Left{kMost - 1, kMost}, Left{kLeast, kLeast + 1}})
        EXPECT_EQ(quad.SnapRow(number), becomes) << number;
}

TEST(WindowPlacing, ARowLeftStaysOnOtherSigns) {
    const WindowPlacing mono = OnSign(64, 80, kMono);
    for (const std::int32_t number : {2, 3, 0, -2, kMost, kLeast})
        EXPECT_EQ(mono.SnapRow(number), number);
}

// Checks --------------------------------------------------------------------------------------

TEST(WindowPlacing, PlacesOnTheGridPass) {
    EXPECT_FALSE(OnSign(64, 80, kQuad).FindFault());
    EXPECT_FALSE(OnSign(64, 80, kMono).FindFault());
}

TEST(WindowPlacing, AnyWindowWithAnEvenRowFailsOnAQuadSignEnabledOrNot) {
    for (std::size_t k = 0; k < WindowPlacing::kWindows; ++k) {
        for (const int enabled : {0, 1}) {
            for (const std::int32_t row : {0, 2, -2, 62}) {
                WindowPlacing placing = OnSign(64, 80, kQuad);
                placing.windows[k].enabled = enabled;
                placing.windows[k].row = row;
                const auto fault = placing.FindFault();
                ASSERT_TRUE(fault) << k << " " << row;
                EXPECT_EQ(fault->window, k);
                EXPECT_TRUE(fault->inRow);
                EXPECT_STREQ(fault->words, "For Quad color signs, row must be on odd boundry");
            }
        }
    }
}

TEST(WindowPlacing, ANegativeOddRowPassesOnAQuadSign) {
    WindowPlacing placing = OnSign(64, 80, kQuad);
    placing.windows[3].row = -5;
    EXPECT_FALSE(placing.FindFault());
}

TEST(WindowPlacing, AnEvenRowPassesOnOtherSigns) {
    WindowPlacing placing = OnSign(64, 80, kMono);
    placing.windows[3].row = 2;
    EXPECT_FALSE(placing.FindFault());
}

TEST(WindowPlacing, ALoneColumnOffTheGridFailsOnEverySignEnabledOrNot) {
    for (const int color : {kMono, kQuad}) {
        for (const int enabled : {0, 1}) {
            for (const std::int32_t column : {0, 2, 5, -8, 80}) {
                WindowPlacing placing = OnSign(64, 80, color);
                placing.windows[6].enabled = enabled;
                placing.windows[6].column = column;
                const auto fault = placing.FindFault();
                ASSERT_TRUE(fault) << column;
                EXPECT_EQ(fault->window, 6U);
                EXPECT_FALSE(fault->inRow);
                EXPECT_STREQ(fault->words, "Columns must be on boundries of 8. (1 based)");
            }
        }
    }
}

TEST(WindowPlacing, RowsAreCheckedBeforeColumns) {
    WindowPlacing placing = OnSign(64, 80, kQuad);
    placing.windows[0].column = 5;
    placing.windows[7].row = 2;
    const auto fault = placing.FindFault();
    ASSERT_TRUE(fault);
    EXPECT_TRUE(fault->inRow);
    EXPECT_EQ(fault->window, 7U);
}

TEST(WindowPlacing, RemaindersOfOppositeSignsCancelOut) {
    WindowPlacing placing = OnSign(64, 80, kMono);
    placing.windows[0].column = 0;
    placing.windows[1].column = 2;
    EXPECT_FALSE(placing.FindFault());
}

TEST(WindowPlacing, RemaindersThatAddUpToEightDoNot) {
    WindowPlacing placing = OnSign(64, 80, kMono);
    placing.windows[0].column = 5;
    placing.windows[1].column = 5;
    EXPECT_TRUE(placing.FindFault());
}

TEST(WindowPlacing, ChecksTheEndsOf32Bits) {
    WindowPlacing placing = OnSign(64, 80, kMono);
    placing.windows[0].column = kLeast;  // -1 below the grid's -2147483647
    EXPECT_TRUE(placing.FindFault());
    placing.windows[1].column = 2;
    EXPECT_FALSE(placing.FindFault());
    placing.windows[2].column = kMost;
    EXPECT_TRUE(placing.FindFault());
}

// The list ------------------------------------------------------------------------------------

TEST(WindowPlacing, TheWindowSignsAreSortedBehindAnEmptyEntry) {
    EXPECT_THAT(WindowPlacing::WindowSignEntries({"Main", "clock", "Bus", "alpha", "Clock"}),
                ElementsAre("", "alpha", "Bus", "clock", "Clock", "Main"));
    EXPECT_THAT(WindowPlacing::WindowSignEntries({}), ElementsAre(""));
    EXPECT_THAT(WindowPlacing::WindowSignEntries({"b", "a", "b", ""}),
                ElementsAre("", "", "a", "b", "b"));
    EXPECT_THAT(WindowPlacing::WindowSignEntries({"\xC3\x9C"
                                                  "ber",
                                                  "Zug"}),
                ElementsAre("", "Zug",
                            "\xC3\x9C"
                            "ber"));
}

}  // namespace
}  // namespace k4test
