#include "k4cmndlg/filestore/Characters.h"

#include <gtest/gtest.h>

namespace {

using namespace k4cmn;

TEST(CharacterCount, CountsCharactersNotBytes) {
    EXPECT_EQ(CharacterCount(""), 0u);
    EXPECT_EQ(CharacterCount("a\u20ac\U0001F600b"), 4u);
}

TEST(CharacterCount, MalformedBytesCountAndEnd) {
    EXPECT_EQ(CharacterCount("\x80\x80"), 2u);
    EXPECT_EQ(CharacterCount("\xE2\x82"), 1u);
    EXPECT_EQ(CharacterCount("\xF0"), 1u);
    EXPECT_EQ(CharacterCount("\xC3z"), 2u);
    EXPECT_EQ(CharacterCount("\xFF\xFE"), 2u);
    EXPECT_EQ(CharacterCount(std::string_view("\0\0", 2)), 2u);
}

TEST(FirstCharacters, CutsBetweenCharacters) {
    EXPECT_EQ(FirstCharacters("abc", 2), "ab");
    EXPECT_EQ(FirstCharacters("abc", 3), "abc");
    EXPECT_EQ(FirstCharacters("abc", 4), "abc");
    EXPECT_EQ(FirstCharacters("abc", 0), "");
    EXPECT_EQ(FirstCharacters("", 5), "");
    EXPECT_EQ(FirstCharacters("\u20ac\u20ac\u20ac", 2), "\u20ac\u20ac");
    EXPECT_EQ(FirstCharacters("a\x80\x80", 2), "a\x80");
}

TEST(Case, CountsForNothingWithAsciiLetters) {
    EXPECT_EQ(WithoutCase("A:\\Goal \u00c9.SQ4"), "a:\\goal \u00c9.sq4");
    EXPECT_TRUE(IsSameWithoutCase("", ""));
    EXPECT_TRUE(IsSameWithoutCase("Summer; SALE; ", "summer; sale; "));
    EXPECT_FALSE(IsSameWithoutCase("summer", "summers"));
    EXPECT_FALSE(IsSameWithoutCase("summers", "summer"));
    EXPECT_FALSE(IsSameWithoutCase("@", "`"));
    EXPECT_FALSE(IsSameWithoutCase("[", "{"));
}

TEST(Case, OrdersByBytes) {
    EXPECT_TRUE(IsLessWithoutCase("a", "B"));
    EXPECT_FALSE(IsLessWithoutCase("B", "a"));
    EXPECT_FALSE(IsLessWithoutCase("A", "a"));
    EXPECT_TRUE(IsLessWithoutCase("a", "ab"));
    EXPECT_TRUE(IsLessWithoutCase("z", "\u00e9"));
}

}  // namespace
