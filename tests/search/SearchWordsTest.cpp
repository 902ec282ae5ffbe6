#include "k4cmndlg/search/SearchWords.h"

#include <gmock/gmock.h>

#include "k4cmndlg/search/SearchCriteria.h"

namespace {

using k4cmn::SearchWords;
using testing::ElementsAre;
using testing::IsEmpty;

bool And(std::string_view wanted, std::string_view there) {
    return SearchWords(wanted, k4cmn::KEYWORDS_AND).Match(there);
}

bool Or(std::string_view wanted, std::string_view there) {
    return SearchWords(wanted, k4cmn::KEYWORDS_OR).Match(there);
}

TEST(WordsOf, StandBetweenRunsOfSeparators) {
    EXPECT_THAT(k4cmn::WordsOf("a;b c,d\te\nf"), ElementsAre("a", "b", "c", "d", "e", "f"));
    EXPECT_THAT(k4cmn::WordsOf(" ;,\t\n one ;,\t\n two ;,\t\n "), ElementsAre("one", "two"));
    EXPECT_THAT(k4cmn::WordsOf("one"), ElementsAre("one"));
    EXPECT_THAT(k4cmn::WordsOf(""), IsEmpty());
    EXPECT_THAT(k4cmn::WordsOf("; ,\t\n"), IsEmpty());
}

TEST(WordsOf, HoldEveryOtherCharacter) {
    EXPECT_THAT(k4cmn::WordsOf("a\rb a.b a:b a*b?"), ElementsAre("a\rb", "a.b", "a:b", "a*b?"));
}

TEST(SearchWords, AndWantsAllOfThem) {
    EXPECT_TRUE(And("summer", "summer; sale; "));
    EXPECT_TRUE(And("sale summer", "summer; sale; "));
    EXPECT_FALSE(And("summer winter", "summer; sale; "));
    EXPECT_FALSE(And("winter summer", "summer; sale; "));
    EXPECT_FALSE(And("winter", "summer; sale; "));
}

TEST(SearchWords, OrWantsOneOfThem) {
    EXPECT_TRUE(Or("winter summer", "summer; sale; "));
    EXPECT_TRUE(Or("summer winter", "summer; sale; "));
    EXPECT_FALSE(Or("winter autumn", "summer; sale; "));
}

TEST(SearchWords, AreComparedAsAWhole) {
    for (const char* part : {"sum", "mer", "umme", "summers"}) {
        EXPECT_FALSE(And(part, "summer")) << part;
        EXPECT_FALSE(Or(part, "summer")) << part;
    }
    EXPECT_FALSE(And("sum*", "summer")) << "there are no wildcards";
    EXPECT_TRUE(And("sum*", "sum*"));
}

TEST(SearchWords, AreComparedWithoutCaseInEveryScript) {
    EXPECT_TRUE(And("SUMMER", "summer"));
    EXPECT_TRUE(And("summer", "SumMer"));
    EXPECT_TRUE(And("GRÜN ЛЕТО", "grün; лето; "));
    EXPECT_FALSE(And("grun", "grün"));
}

TEST(SearchWords, MayBeGivenMoreThanOnce) {
    EXPECT_TRUE(And("sale sale SALE", "sale"));
    EXPECT_TRUE(And("sale", "sale; sale"));
}

TEST(SearchWords, WithoutAWordNothingIsFound) {
    for (const char* wanted : {"", " ", ";,\t\n"}) {
        EXPECT_FALSE(And(wanted, "summer"));
        EXPECT_FALSE(Or(wanted, "summer"));
        EXPECT_FALSE(And(wanted, ""));
    }
}

TEST(SearchWords, AFileWithoutKeywordsIsNotFound) {
    for (const char* there : {"", " ; "}) {
        EXPECT_FALSE(And("summer", there));
        EXPECT_FALSE(Or("summer", there));
    }
}

TEST(SearchWords, EveryCombinationButOrIsAnd) {
    for (const int combination : {-1, 2, 99})
        EXPECT_FALSE(SearchWords("summer winter", combination).Match("summer")) << combination;
}

TEST(SearchWords, TakeBytesThatAreNoText) {
    EXPECT_TRUE(And("\xFF\xC3", "a \xFF\xC3 b"));
    EXPECT_FALSE(And("\xFF\xC4", "a \xFF\xC3 b"));
    EXPECT_TRUE(And(std::string_view("a\0b", 3), std::string_view("x a\0b", 5)));
}

}  // namespace
