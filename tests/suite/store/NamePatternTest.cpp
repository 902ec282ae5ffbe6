#include "suite/store/NamePattern.h"

#include <gtest/gtest.h>

namespace {

using k4suite::NamePattern;

struct PatternCase {
    const char* pattern;
    const char* name;
    bool matches;
};

class Pattern : public testing::TestWithParam<PatternCase> {};

TEST_P(Pattern, MatchesByTheRulesOfTheStore) {
    NamePattern pattern(GetParam().pattern);
    EXPECT_EQ(pattern.Matches(GetParam().name), GetParam().matches)
        << GetParam().pattern << " on " << GetParam().name;
}

INSTANTIATE_TEST_SUITE_P(
    EveryName, Pattern,
    testing::Values(PatternCase{"*.*", "a.SQ4", true}, PatternCase{"*.*", "README", true},
                    PatternCase{"*.*", ".hidden", true}, PatternCase{"*.*", "a.b.c", true},
                    PatternCase{"*", "README", true}, PatternCase{"*", "a.b", true}));

INSTANTIATE_TEST_SUITE_P(
    Endings, Pattern,
    testing::Values(PatternCase{"*.SQ4", "a.SQ4", true}, PatternCase{"*.SQ4", "a.sq4", true},
                    PatternCase{"*.sq4", "A.SQ4", true}, PatternCase{"*.SQ4", ".SQ4", true},
                    PatternCase{"*.SQ4", "SQ4", false}, PatternCase{"*.SQ4", "a.SQ45", false},
                    PatternCase{"*.SQ4", "a.SQ", false}, PatternCase{"*.SQ4", "", false},
                    PatternCase{"*.Lib", "Default.LIB", true}, PatternCase{"*.", "a.", true},
                    PatternCase{"*.", "a", false},
                    // Only letters have two cases.
                    PatternCase{"*.[", "a.{", false}));

INSTANTIATE_TEST_SUITE_P(SignTypes, Pattern,
                         testing::Values(PatternCase{"*.*.*.Sign", "16x80.Mono1.LED.Sign", true},
                                         PatternCase{"*.*.*.Sign", "16x80.Mono1.LED.Palette.Sign",
                                                     true},
                                         PatternCase{"*.*.*.Sign", "16X80.MONO1.LED.SIGN", true},
                                         PatternCase{"*.*.*.Sign", "...Sign", true},
                                         PatternCase{"*.*.*.Sign", "16x80.Mono1.Sign", false},
                                         PatternCase{"*.*.*.Sign", "16x80.Mono1.LED", false}));

INSTANTIATE_TEST_SUITE_P(
    StarsAndMarks, Pattern,
    testing::Values(PatternCase{"a*b*c", "aXbYc", true}, PatternCase{"a*b*c", "abc", true},
                    PatternCase{"a*b*c", "acb", false}, PatternCase{"a**b", "ab", true},
                    PatternCase{"**", "x", true}, PatternCase{"?", "x", true},
                    PatternCase{"?", "", false}, PatternCase{"?", "xy", false},
                    PatternCase{"a?c", "abc", true}, PatternCase{"a?c", "ac", false},
                    PatternCase{"*?", "a", true}, PatternCase{"*?", "", false},
                    PatternCase{"*ab*ab", "ababab", true}, PatternCase{"*a?", "aaab", true},
                    PatternCase{"", "", true}, PatternCase{"", "a", false},
                    PatternCase{"Default.Lib", "default.lib", true},
                    PatternCase{"a.b", "axb", false}, PatternCase{"[ab]", "a", false},
                    PatternCase{"[ab]", "[AB]", true}));

INSTANTIATE_TEST_SUITE_P(OtherScripts, Pattern,
                         testing::Values(PatternCase{"?", "\u00e9", true},
                                         PatternCase{"?", "\U0001F600", true},
                                         PatternCase{"??", "\u00e9", false},
                                         PatternCase{"\u00c9*", "\u00e9t\u00e9.SQ4", true},
                                         PatternCase{"*\u042f.SQ4", "\u044f.sq4", true},
                                         PatternCase{"*.SQ4", "\u65e5\u672c.SQ4", true}));

TEST(PatternOfBadInput, NamesThatAreNotUtf8NeverMatch) {
    for (const char* pattern : {"*.*", "*", "*.SQ4", "a*", "?*"}) {
        for (const char* name : {"a\xff.SQ4", "a\xc3.SQ4", "a\xed\xa0\x80.SQ4", "a\xc0\xaf.SQ4",
                                 "a\xf5\x80\x80\x80.SQ4", "a\xe2\x82.SQ4"})
            EXPECT_FALSE(NamePattern(pattern).Matches(name)) << pattern;
    }
}

TEST(PatternOfBadInput, PatternThatIsNotUtf8MatchesNothing) {
    NamePattern pattern("a\xff*");
    EXPECT_FALSE(pattern.Matches("a\xff"));
    EXPECT_FALSE(pattern.Matches("a"));
}

TEST(PatternOfBadInput, ManyStarsComeToAnEnd) {
    std::string stars;
    for (int i = 0; i < 200; ++i)
        stars += "*a";
    NamePattern pattern(stars + "b");
    EXPECT_FALSE(pattern.Matches(std::string(255, 'a')));
    EXPECT_TRUE(pattern.Matches(std::string(255, 'a') + "b"));
}

TEST(Pattern, IsUsedAgainForOtherNames) {
    NamePattern pattern("a?c");
    EXPECT_TRUE(pattern.Matches("abc"));
    EXPECT_FALSE(pattern.Matches("abcd"));
    EXPECT_TRUE(pattern.Matches("aXC"));
}

}  // namespace
