#include "k4cmndlg/filestore/SignLimits.h"

#include <gtest/gtest.h>

namespace {

using namespace k4cmn;
using Messages = std::vector<std::string>;

const char* const kRows = "Invalid number of rows.\n";
const char* const kColumns = "Invalid number of columns.\n";
const char* const kPixels = "Rows x Cols cannot be > 8388608";
const char* const kRowsMultiple = "Number of rows must be 7 or a multiple of 8.\n";
const char* const kColumnsMultiple = "Number of columns must be a multiple of 8.\n";
const char* const kPair = "Color and pixel technology are invalid.";

struct SizeCase {
    const char* name;
    std::uint32_t rows;
    std::uint32_t columns;
    Messages messages;
};

class SignSize : public testing::TestWithParam<SizeCase> {};

TEST_P(SignSize, GivesTheMessagesOfItsBrokenRulesInOrder) {
    EXPECT_EQ(SignSizeMessages(GetParam().rows, GetParam().columns), GetParam().messages);
}

INSTANTIATE_TEST_SUITE_P(
    Limits, SignSize,
    testing::Values(
        SizeCase{"SmallestLegal", 7, 16, {}}, SizeCase{"LargestProduct", 512, 16384, {}},
        SizeCase{"LargestRows", 2048, 4096, {}}, SizeCase{"EightRows", 8, 24, {}},
        SizeCase{"RowsBelow", 6, 16, {kRows, kRowsMultiple}}, SizeCase{"NoRows", 0, 16, {kRows}},
        SizeCase{"RowsAbove", 2056, 16, {kRows}},
        SizeCase{"RowsJustAbove", 2049, 16, {kRows, kRowsMultiple}},
        SizeCase{"RowsNotAMultiple", 9, 16, {kRowsMultiple}},
        SizeCase{"ColumnsBelow", 8, 15, {kColumns, kColumnsMultiple}},
        SizeCase{"ColumnsBelowButMultiple", 8, 8, {kColumns}},
        SizeCase{"NoColumns", 8, 0, {kColumns}}, SizeCase{"ColumnsAbove", 8, 16392, {kColumns}},
        SizeCase{"ColumnsNotAMultiple", 8, 20, {kColumnsMultiple}},
        SizeCase{"TooManyPixels", 2048, 16384, {kPixels}},
        SizeCase{"OneColumnStepTooMany", 2048, 4104, {kPixels}},
        SizeCase{
            "EveryRule", 4097, 16385, {kRows, kColumns, kPixels, kRowsMultiple, kColumnsMultiple}},
        // The product must not wrap around: 65536 times 65536 is 0 in 32 bits.
        SizeCase{"ProductPast32Bits", 65536, 65536, {kRows, kColumns, kPixels}},
        SizeCase{"LargestNumbers",
                 0xFFFFFFFF,
                 0xFFFFFFFF,
                 {kRows, kColumns, kPixels, kRowsMultiple, kColumnsMultiple}}),
    [](const auto& testCase) { return std::string(testCase.param.name); });

TEST(SignSize, LastRuleLooksAtTheColumnsItIsGiven) {
    EXPECT_EQ(SignSizeMessages(8, 20, 16), Messages{});
    EXPECT_EQ(SignSizeMessages(8, 24, 20), Messages{kColumnsMultiple});
}

TEST(SignType, PairOfTechnologiesComesLast) {
    EXPECT_EQ(SignTypeMessages(16, 80, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_REFLECT), Messages{});
    EXPECT_EQ(SignTypeMessages(16, 80, K4_SIGN_COLOR_TRI3, K4_PIXEL_TECH_INCAND), Messages{kPair});
    EXPECT_EQ(SignTypeMessages(9, 20, static_cast<tag_K4_SIGN_COLOR>(15), K4_PIXEL_TECH_LED),
              (Messages{kRowsMultiple, kColumnsMultiple, kPair}));
}

TEST(SignSize, TextsSharedWithOtherDialogs) {
    EXPECT_EQ(TooManyPixelsText(), kPixels);
    EXPECT_EQ(RowsMultipleText(), kRowsMultiple);
}

}  // namespace
