#include "k4cmndlg/filestore/Characters.h"

#include <gtest/gtest.h>

#include <cstdint>

#include "k4cmndlg/filestore/CaseFolding.h"

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

TEST(WithoutLastCharacters, CutsAsManyAsThereAre) {
    EXPECT_EQ(WithoutLastCharacters("abc", 0), "abc");
    EXPECT_EQ(WithoutLastCharacters("abc", 2), "a");
    EXPECT_EQ(WithoutLastCharacters("abc", 3), "");
    EXPECT_EQ(WithoutLastCharacters("abc", 4), "");
    EXPECT_EQ(WithoutLastCharacters("", 1), "");
    EXPECT_EQ(WithoutLastCharacters("a\u20ac\U0001F600", 1), "a\u20ac");
    EXPECT_EQ(WithoutLastCharacters("\u017fign", 4), "");
    EXPECT_EQ(WithoutLastCharacters("a\x80\x80", 1), "a\x80");
}

TEST(Case, CountsForNothing) {
    EXPECT_EQ(WithoutCase("A:\\Goal \u00c9.SQ4"), "a:\\goal \u00e9.sq4");
    EXPECT_TRUE(IsSameWithoutCase("", ""));
    EXPECT_TRUE(IsSameWithoutCase("Summer; SALE; ", "summer; sale; "));
    EXPECT_FALSE(IsSameWithoutCase("summer", "summers"));
    EXPECT_FALSE(IsSameWithoutCase("summers", "summer"));
    EXPECT_FALSE(IsSameWithoutCase("@", "`"));
    EXPECT_FALSE(IsSameWithoutCase("[", "{"));
}

TEST(Case, CountsForNothingInAnyScript) {
    struct Row {
        const char* upper;
        const char* lower;
    };
    constexpr Row rows[] = {
        {"\u00c4\u00d6\u00dc", "\u00e4\u00f6\u00fc"},            // Latin
        {"\u0160\u0141\u0110", "\u0161\u0142\u0111"},            // Latin, extended
        {"\u0391\u0398\u03a3", "\u03b1\u03b8\u03c3"},            // Greek
        {"\u03c2", "\u03c3"},                                    // both small sigmas
        {"\u0416\u0401\u042f", "\u0436\u0451\u044f"},            // Cyrillic
        {"\u0531\u0556", "\u0561\u0586"},                        // Armenian
        {"\u1e9e", "\u00df"},                                    // the capital sharp s
        {"\u212a", "k"},                                         // the sign of the kelvin
        {"\uff21", "\uff41"},                                    // wide letters
        {"\U00010400\U0001e921", "\U00010428\U0001e943"},        // beyond 16 bits
        {"\u6771\u4eac \U0001F600", "\u6771\u4eac \U0001F600"},  // what has no case
    };
    for (const Row& row : rows) {
        EXPECT_TRUE(IsSameWithoutCase(row.upper, row.lower)) << row.lower;
        EXPECT_EQ(WithoutCase(row.upper), row.lower);
        EXPECT_EQ(WithoutCase(row.lower), row.lower);
        EXPECT_FALSE(IsLessWithoutCase(row.upper, row.lower));
        EXPECT_FALSE(IsLessWithoutCase(row.lower, row.upper));
    }
    EXPECT_FALSE(IsSameWithoutCase("\u00d7", "\u00f7")) << "signs, not letters";
    EXPECT_FALSE(IsSameWithoutCase("\u00df", "ss"));
}

TEST(Case, FoldingOnceIsEnough) {
    for (char32_t character = 0; character <= 0x10FFFF; ++character) {
        const char32_t folded = FoldedCharacter(character);
        ASSERT_EQ(FoldedCharacter(folded), folded) << static_cast<std::uint32_t>(character);
    }
}

TEST(Case, KeepsMalformedBytes) {
    for (const std::string_view text :
         {std::string_view("\xFF"), std::string_view("\xC3"), std::string_view("a\xE2\x82z"),
          std::string_view("\xC0\x80"), std::string_view("\xED\xA0\x80"),
          std::string_view("\0\x80", 2)}) {
        EXPECT_EQ(WithoutCase(text), text);
        EXPECT_TRUE(IsSameWithoutCase(text, text));
        EXPECT_FALSE(IsLessWithoutCase(text, text));
    }
    EXPECT_FALSE(IsSameWithoutCase("\xC4", "\xE4"));
    EXPECT_TRUE(IsSameWithoutCase("A\xFF", "a\xFF"));
    EXPECT_TRUE(IsLessWithoutCase("\U0010FFFF", "\x80"));
}

TEST(Case, OrdersByCharacters) {
    EXPECT_TRUE(IsLessWithoutCase("a", "B"));
    EXPECT_FALSE(IsLessWithoutCase("B", "a"));
    EXPECT_FALSE(IsLessWithoutCase("A", "a"));
    EXPECT_TRUE(IsLessWithoutCase("a", "ab"));
    EXPECT_TRUE(IsLessWithoutCase("z", "\u00e9"));
    EXPECT_TRUE(IsLessWithoutCase("\u00e9", "\u00ca"));
    EXPECT_TRUE(IsLessWithoutCase("\uffff", "\U00010000"));
    EXPECT_FALSE(IsLessWithoutCase("", ""));
    EXPECT_TRUE(IsLessWithoutCase("", "a"));
}

}  // namespace
