#include "k4cmndlg/frame/FieldNumber.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>

using k4cmn::LeadingNumber;
using k4cmn::ParseInteger;

namespace {

struct Row {
    const char* name;
    const char* text;
    std::optional<std::int32_t> whole;
    std::int32_t leading;
};

constexpr Row kRows[] = {
    {"Zero", "0", 0, 0},
    {"Positive", "42", 42, 42},
    {"Negative", "-8", -8, -8},
    {"PlusSign", "+8", 8, 8},
    {"LeadingZeros", "0007", 7, 7},
    {"BlanksAround", " \t12 \t", 12, 12},
    {"Highest", "2147483647", INT_MAX, INT_MAX},
    {"Lowest", "-2147483648", INT_MIN, INT_MIN},
    {"JustTooHigh", "2147483648", std::nullopt, INT_MAX},
    {"JustTooLow", "-2147483649", std::nullopt, INT_MIN},
    {"FarTooHigh", "99999999999999999999999999999999", std::nullopt, INT_MAX},
    {"FarTooLow", "-99999999999999999999999999999999", std::nullopt, INT_MIN},
    {"Empty", "", std::nullopt, 0},
    {"OnlyBlanks", "   ", std::nullopt, 0},
    {"OnlySign", "-", std::nullopt, 0},
    {"TwoSigns", "--5", std::nullopt, 0},
    {"SignApart", "- 5", std::nullopt, 0},
    {"Letters", "abc", std::nullopt, 0},
    {"LettersBehind", "12px", std::nullopt, 12},
    {"Fraction", "1.5", std::nullopt, 1},
    {"TwoNumbers", "1 2", std::nullopt, 1},
    {"OtherDigits", "\xD9\xA1", std::nullopt, 0},
};

class FieldNumber : public testing::TestWithParam<Row> {};

}  // namespace

TEST_P(FieldNumber, ReadsAsTheTableSays) {
    EXPECT_EQ(ParseInteger(GetParam().text), GetParam().whole);
    EXPECT_EQ(LeadingNumber(GetParam().text), GetParam().leading);
}

INSTANTIATE_TEST_SUITE_P(Rows, FieldNumber, testing::ValuesIn(kRows),
                         [](const auto& row) { return row.param.name; });

TEST(FieldNumber, ZeroByteEndsANumberAndIsNoBlank) {
    const std::string text("7\0", 2);
    EXPECT_EQ(ParseInteger(text), std::nullopt);
    EXPECT_EQ(LeadingNumber(text), 7);
}

TEST(FieldNumber, HundredThousandDigitsAreReadWithoutHarm) {
    EXPECT_EQ(LeadingNumber(std::string(100'000, '9')), INT_MAX);
    EXPECT_EQ(ParseInteger(std::string(100'000, '0')), 0);
}

TEST(FieldNumber, WithoutASignIsPinnedToItsEnds) {
    const std::pair<const char*, std::optional<std::uint32_t>> rows[] = {
        {"0", 0u},
        {"42", 42u},
        {"0007", 7u},
        {" 12\t", 12u},
        {"4294967295", ~0u},
        {"4294967296", ~0u},
        {"-8", 0u},
        {"+8", 8u},
        {"99999999999999999999", ~0u},
        {"", std::nullopt},
        {"12px", std::nullopt},
        {"-", std::nullopt}};
    for (const auto& [text, number] : rows)
        EXPECT_EQ(k4cmn::ParseUnsigned(text), number) << text;
}
