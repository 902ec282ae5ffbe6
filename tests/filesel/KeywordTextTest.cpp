#include "k4cmndlg/filesel/properties/KeywordText.h"

#include <gtest/gtest.h>

#include <ostream>

namespace {

struct Row {
    const char* typed;
    const char* stored;
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << '"' << row.typed << '"';
}

class Keywords : public testing::TestWithParam<Row> {};

TEST_P(Keywords, AreCutAtDelimitersAndEndInOne) {
    EXPECT_EQ(k4cmn::NormalisedKeywords(GetParam().typed), GetParam().stored);
}

TEST_P(Keywords, StayAsTheyAreTheSecondTime) {
    EXPECT_EQ(k4cmn::NormalisedKeywords(GetParam().stored), GetParam().stored);
}

INSTANTIATE_TEST_SUITE_P(
    Typed, Keywords,
    testing::Values(Row{"", ""}, Row{"a", "a; "}, Row{"a,b  c", "a; b; c; "}, Row{"; ,\t\n", ""},
                    Row{"  summer;sale ", "summer; sale; "}, Row{"a\tb\nc", "a; b; c; "},
                    Row{"a; b; ", "a; b; "}, Row{"a.b|c:d", "a.b|c:d; "},
                    Row{"Sommer\u00fcbung,\u65e5", "Sommer\u00fcbung; \u65e5; "}));

}  // namespace
