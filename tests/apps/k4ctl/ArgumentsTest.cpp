#include "apps/k4ctl/Arguments.h"

#include <gtest/gtest.h>

#include <ostream>

namespace {

using k4ctl::Dimming;
using k4ctl::Place;

struct NumberRow {
    const char* name;
    const char* text;
    int result;
    std::int64_t value;
};

void PrintTo(const NumberRow& row, std::ostream* out) {
    *out << row.name;
}

class NumberArgument : public testing::TestWithParam<NumberRow> {};

TEST_P(NumberArgument, IsReadFromMinus64To64) {
    std::int64_t value = 777;
    std::string problem;
    EXPECT_EQ(k4ctl::ParseNumber(GetParam().text, -64, 64, value, problem), GetParam().result);
    EXPECT_EQ(value, GetParam().result ? GetParam().value : 777);
    EXPECT_EQ(problem, GetParam().result ? std::string()
                                         : "\"" + std::string(GetParam().text) +
                                               "\" is not a whole number from -64 to 64");
}

INSTANTIATE_TEST_SUITE_P(
    Rows, NumberArgument,
    testing::Values(NumberRow{"Zero", "0", 1, 0}, NumberRow{"Least", "-64", 1, -64},
                    NumberRow{"Most", "64", 1, 64}, NumberRow{"Plus", "+10", 1, 10},
                    NumberRow{"LeadingZeros", "007", 1, 7}, NumberRow{"BelowLeast", "-65", 0, 0},
                    NumberRow{"AboveMost", "65", 0, 0}, NumberRow{"Empty", "", 0, 0},
                    NumberRow{"PlusAlone", "+", 0, 0}, NumberRow{"MinusAlone", "-", 0, 0},
                    NumberRow{"PlusMinus", "+-1", 0, 0}, NumberRow{"TwoPlus", "++1", 0, 0},
                    NumberRow{"Fraction", "1.5", 0, 0}, NumberRow{"Hexadecimal", "0x10", 0, 0},
                    NumberRow{"TrailingLetter", "5a", 0, 0}, NumberRow{"LeadingBlank", " 5", 0, 0},
                    NumberRow{"Word", "ten", 0, 0},
                    NumberRow{"BeyondSixtyFourBits", "99999999999999999999", 0, 0}),
    [](const auto& each) { return std::string(each.param.name); });

struct ModeRow {
    const char* name;
    const char* text;
    int result;
    int mode;
};

void PrintTo(const ModeRow& row, std::ostream* out) {
    *out << row.name;
}

class ModeArgument : public testing::TestWithParam<ModeRow> {};

TEST_P(ModeArgument, IsAModesNameOrNumber) {
    tag_K4_PLAY_SEQ_MODE mode = K4_PLAY_SEQ_PLAY_CAL;
    std::string problem;
    EXPECT_EQ(k4ctl::ParseMode(GetParam().text, mode, problem), GetParam().result);
    EXPECT_EQ(mode, GetParam().result ? GetParam().mode : K4_PLAY_SEQ_PLAY_CAL);
    if (!GetParam().result) {
        EXPECT_EQ(problem,
                  "\"" + std::string(GetParam().text) +
                      "\" is no play mode; the modes are Continuous, Single Step, Sel Frame, Num "
                      "Times, Play Stop, Play Blank, Play Video, Play Frame, Play Next, Play Cal, "
                      "or a number from 0 to 12");
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ModeArgument,
    testing::Values(
        ModeRow{"Continuous", "Continuous", 1, 1}, ModeRow{"SingleStep", "Single Step", 1, 2},
        ModeRow{"SelFrame", "Sel Frame", 1, 3}, ModeRow{"NumTimes", "Num Times", 1, 4},
        ModeRow{"PlayStop", "Play Stop", 1, 5}, ModeRow{"PlayBlank", "Play Blank", 1, 6},
        ModeRow{"PlayVideo", "Play Video", 1, 7}, ModeRow{"PlayFrame", "Play Frame", 1, 8},
        ModeRow{"PlayNext", "Play Next", 1, 9}, ModeRow{"PlayCal", "Play Cal", 1, 10},
        ModeRow{"AnyCase", "nUM tIMES", 1, 4}, ModeRow{"Hyphen", "num-times", 1, 4},
        ModeRow{"Zero", "0", 1, 0}, ModeRow{"Four", "4", 1, 4}, ModeRow{"Eleven", "11", 1, 11},
        ModeRow{"Twelve", "12", 1, 12}, ModeRow{"Thirteen", "13", 0, 0},
        ModeRow{"Negative", "-1", 0, 0}, ModeRow{"Empty", "", 0, 0},
        ModeRow{"PartOfAName", "Num", 0, 0}, ModeRow{"NoName", "forever", 0, 0}),
    [](const auto& each) { return std::string(each.param.name); });

struct DimmingRow {
    const char* name;
    const char* mode;
    const char* value;
    Dimming dimming;
    const char* problem;  ///< null: it is read
};

void PrintTo(const DimmingRow& row, std::ostream* out) {
    *out << row.name;
}

class DimmingArgument : public testing::TestWithParam<DimmingRow> {};

TEST_P(DimmingArgument, ReadsAsInTheTable) {
    const DimmingRow& row = GetParam();
    Dimming dimming{K4_SIGN_DIM_MANUAL_1, 77};
    const Dimming expected = row.problem ? dimming : row.dimming;
    std::string problem;
    EXPECT_EQ(k4ctl::ParseDimming(row.mode, row.value, dimming, problem), row.problem ? 0 : 1);
    EXPECT_EQ(problem, row.problem ? row.problem : "");
    EXPECT_EQ(dimming.mode, expected.mode);
    EXPECT_EQ(dimming.value, expected.value);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DimmingArgument,
    testing::Values(
        DimmingRow{"Manual", "manual", "200", {K4_SIGN_DIM_MANUAL, 200}, nullptr},
        DimmingRow{"ManualLeast", "manual", "0", {K4_SIGN_DIM_MANUAL, 0}, nullptr},
        DimmingRow{"ManualMost", "manual", "255", {K4_SIGN_DIM_MANUAL, 255}, nullptr},
        DimmingRow{"Photocell", "photocell", "10", {K4_SIGN_DIM_PHOTOCELL, 10}, nullptr},
        DimmingRow{"PhotocellPlus", "photocell", "+10", {K4_SIGN_DIM_PHOTOCELL, 10}, nullptr},
        DimmingRow{"PhotocellLeast", "photocell", "-64", {K4_SIGN_DIM_PHOTOCELL, -64}, nullptr},
        DimmingRow{"PhotocellMost", "photocell", "64", {K4_SIGN_DIM_PHOTOCELL, 64}, nullptr},
        DimmingRow{"Remote", "remote", "", {K4_SIGN_DIM_REMOTE_PHOTOCELL, 0}, nullptr},
        DimmingRow{"Scheduled", "scheduled", "", {K4_SIGN_DIM_SCHEDULED, 0}, nullptr},
        DimmingRow{"AnyCase", "Manual", "1", {K4_SIGN_DIM_MANUAL, 1}, nullptr},
        DimmingRow{"ManualAbove",
                   "manual",
                   "256",
                   {},
                   "level: \"256\" is not a whole number from 0 to 255"},
        DimmingRow{
            "ManualBelow", "manual", "-1", {}, "level: \"-1\" is not a whole number from 0 to 255"},
        DimmingRow{"ManualWord",
                   "manual",
                   "dark",
                   {},
                   "level: \"dark\" is not a whole number from 0 to 255"},
        DimmingRow{"PhotocellAbove",
                   "photocell",
                   "65",
                   {},
                   "offset: \"65\" is not a whole number from -64 to 64"},
        DimmingRow{"PhotocellBelow",
                   "photocell",
                   "-65",
                   {},
                   "offset: \"-65\" is not a whole number from -64 to 64"},
        DimmingRow{"ManualWithout",
                   "manual",
                   "",
                   {},
                   "manual needs the level, a whole number from 0 to 255"},
        DimmingRow{"PhotocellWithout",
                   "photocell",
                   "",
                   {},
                   "photocell needs the offset, a whole number from -64 to 64"},
        DimmingRow{"RemoteWith", "remote", "5", {}, "remote takes no value"},
        DimmingRow{"ScheduledWith", "scheduled", "5", {}, "scheduled takes no value"},
        DimmingRow{"NoMode",
                   "darker",
                   "5",
                   {},
                   "\"darker\" is no dimming mode; the modes are manual, photocell, remote and "
                   "scheduled"}),
    [](const auto& each) { return std::string(each.param.name); });

struct PlaceRow {
    const char* name;
    const char* text;
    int result;
    Place place;
};

void PrintTo(const PlaceRow& row, std::ostream* out) {
    *out << row.name;
}

class PlaceArgument : public testing::TestWithParam<PlaceRow> {};

TEST_P(PlaceArgument, IsRowAndColumnFromOne) {
    Place place{5, 6};
    std::string problem;
    EXPECT_EQ(k4ctl::ParsePlace(GetParam().text, place, problem), GetParam().result);
    EXPECT_EQ(place.row, GetParam().result ? GetParam().place.row : 5);
    EXPECT_EQ(place.column, GetParam().result ? GetParam().place.column : 6);
    EXPECT_EQ(problem, GetParam().result
                           ? std::string()
                           : "\"" + std::string(GetParam().text) +
                                 "\" is no place; a place is ROW,COLUMN, counted from 1");
}

INSTANTIATE_TEST_SUITE_P(
    Rows, PlaceArgument,
    testing::Values(PlaceRow{"First", "1,1", 1, {1, 1}}, PlaceRow{"Some", "9,17", 1, {9, 17}},
                    PlaceRow{"Greatest", "2147483647,2147483647", 1, {2147483647, 2147483647}},
                    PlaceRow{"RowBeyond", "2147483648,1", 0, {}}, PlaceRow{"RowZero", "0,1", 0, {}},
                    PlaceRow{"ColumnZero", "1,0", 0, {}}, PlaceRow{"Negative", "-1,1", 0, {}},
                    PlaceRow{"RowAlone", "3", 0, {}}, PlaceRow{"NoColumn", "3,", 0, {}},
                    PlaceRow{"NoRow", ",3", 0, {}}, PlaceRow{"Three", "1,2,3", 0, {}},
                    PlaceRow{"Blank", "1, 2", 0, {}}, PlaceRow{"Empty", "", 0, {}},
                    PlaceRow{"Words", "top,left", 0, {}}),
    [](const auto& each) { return std::string(each.param.name); });

TEST(OpenArgument, IsOpenOrCloseInAnyCase) {
    std::int32_t open = 7;
    std::string problem;
    EXPECT_EQ(k4ctl::ParseOpen("open", open, problem), 1);
    EXPECT_EQ(open, 1);
    EXPECT_EQ(k4ctl::ParseOpen("CLOSE", open, problem), 1);
    EXPECT_EQ(open, 0);
    EXPECT_TRUE(problem.empty());
}

TEST(OpenArgument, RefusesOtherWords) {
    std::int32_t open = 7;
    std::string problem;
    for (const char* text : {"", "closed", "1", "opened"}) {
        EXPECT_EQ(k4ctl::ParseOpen(text, open, problem), 0);
        EXPECT_EQ(problem, "\"" + std::string(text) + "\" is neither open nor close");
    }
    EXPECT_EQ(open, 7);
}

}  // namespace
