#include "k4cmndlg/signctl/SizeRules.h"

#include <gtest/gtest.h>

#include <climits>
#include <utility>

namespace {

TEST(SizeRules, RowsAreRoundedToMultiplesOfEightBesideSeven) {
    const std::pair<std::uint32_t, std::uint32_t> rows[] = {
        {7, 7},       {8, 8},       {9, 8},        {20, 24},       {19, 16},          {3, 0},
        {4, 8},       {0, 0},       {6, 8},        {11, 8},        {12, 16},          {2047, 2048},
        {2049, 2048}, {2052, 2056}, {9999, 10000}, {~0u, ~0u - 7}, {~0u - 4, ~0u - 7}};
    for (const auto& [typed, becomes] : rows)
        EXPECT_EQ(k4cmn::RoundedSignRows(typed), becomes) << typed;
}

TEST(SizeRules, ColumnsAreRoundedToMultiplesOfSixteen) {
    const std::pair<std::uint32_t, std::uint32_t> columns[] = {
        {16, 16}, {7, 0},         {8, 16},        {20, 16}, {23, 16},       {24, 32},
        {0, 0},   {16384, 16384}, {16392, 16400}, {99, 96}, {~0u, ~0u - 15}};
    for (const auto& [typed, becomes] : columns)
        EXPECT_EQ(k4cmn::RoundedSignColumns(typed), becomes) << typed;
}

struct SpinCase {
    int position;
    int step;
    int becomes;
};

class SizeSpin : public testing::TestWithParam<SpinCase> {};

TEST_P(SizeSpin, LandsOnAMultipleOfItsStep) {
    EXPECT_EQ(k4cmn::NextMultipleWord(GetParam().position, GetParam().step), GetParam().becomes);
}

INSTANTIATE_TEST_SUITE_P(Clicks, SizeSpin,
                         testing::Values(SpinCase{7, 8, 8}, SpinCase{16, -8, 8}, SpinCase{8, 8, 16},
                                         SpinCase{15, -8, 8}, SpinCase{17, -8, 16},
                                         SpinCase{8, -8, 0}, SpinCase{7, -8, 0},
                                         SpinCase{100, 64, 128}, SpinCase{100, -64, 64},
                                         SpinCase{16, 16, 32}, SpinCase{2048, 128, 2176},
                                         SpinCase{0, -8, 0}, SpinCase{65535, 8, 0},
                                         SpinCase{5, 0, 5}, SpinCase{INT_MAX, INT_MAX, 0xFFFE}));

TEST(SizeRules, APinnedMultipleEndsWithTheWord) {
    const SpinCase rows[] = {{7, 8, 8},          {16, -8, 8},          {16384, 16, 16400},
                             {40000, 16, 32767}, {70000, -16, 32767},  {INT_MAX, INT_MAX, 32767},
                             {5, 0, 5},          {INT_MIN, -8, -32768}};
    for (const SpinCase& row : rows)
        EXPECT_EQ(k4cmn::NextMultiplePinned(row.position, row.step), row.becomes) << row.position;
}

TEST(SizeRules, SpinsHaveTheirSpeeds) {
    EXPECT_EQ(k4cmn::kSignRowSpeeds,
              (std::array<k4cmn::SpinAccel, 3>{{{0, 8}, {2, 64}, {4, 128}}}));
    EXPECT_EQ(k4cmn::kSignColumnSpeeds,
              (std::array<k4cmn::SpinAccel, 3>{{{0, 16}, {2, 128}, {4, 256}}}));
}

}  // namespace
