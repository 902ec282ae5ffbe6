#include "k4cmndlg/filestore/FileNameRules.h"

#include <gtest/gtest.h>

namespace {

using namespace k4cmn;

TEST(FileNameLength, Has32CharactersAtMost) {
    EXPECT_TRUE(IsFileNameShortEnough(""));
    EXPECT_TRUE(IsFileNameShortEnough(std::string(32, 'x')));
    EXPECT_FALSE(IsFileNameShortEnough(std::string(33, 'x')));
}

TEST(FileNameLength, CountsCharactersNotBytes) {
    std::string name;
    for (int i = 0; i < 32; ++i)
        name += "\u00e9";
    EXPECT_EQ(name.size(), 64u);
    EXPECT_TRUE(IsFileNameShortEnough(name));
    EXPECT_FALSE(IsFileNameShortEnough(name + "\u00e9"));
}

TEST(TypedName, EachOfTheTwelveCharactersIsForbidden) {
    for (const char forbidden : std::string("\\/:;*?\"<>|#%")) {
        const std::string in(1, forbidden);
        EXPECT_TRUE(HoldsForbiddenCharacter(in)) << in;
        EXPECT_TRUE(HoldsForbiddenCharacter("a" + in + "b")) << in;
        EXPECT_TRUE(HoldsForbiddenCharacter("ab" + in)) << in;
    }
}

TEST(TypedName, NoOtherCharacterIsForbidden) {
    const std::string forbidden = "\\/:;*?\"<>|#%";
    for (int byte = 0; byte < 256; ++byte) {
        const std::string name(1, static_cast<char>(byte));
        EXPECT_EQ(HoldsForbiddenCharacter(name), forbidden.find(name) != std::string::npos) << byte;
    }
    EXPECT_FALSE(HoldsForbiddenCharacter(""));
}

TEST(TypedName, MessageIsAStopMessageWithItsTitle) {
    const Message message = InvalidFileNameMessage();
    EXPECT_EQ(message.text,
              "A filename cannot contain any of the following characters:\n\t"
              "\\ / : ; * ? \" < > | # %");
    EXPECT_EQ(message.title, "Invalid Filename");
    EXPECT_EQ(message.icon, MessageIcon::Stop);
    EXPECT_EQ(message.buttons, MessageButtons::Ok);
}

TEST(TakenName, EachOfTheFiveCharactersStopsIt) {
    for (const char forbidden : std::string("#%;/\\"))
        EXPECT_FALSE(CanTakeOverFileName(std::string("a") + forbidden)) << forbidden;
}

TEST(TakenName, TheSevenOthersOfTheFirstSetPass) {
    for (const char allowed : std::string(":*?\"<>|"))
        EXPECT_TRUE(CanTakeOverFileName(std::string("a") + allowed)) << allowed;
}

TEST(TakenName, IsNotEmptyOnceTrailingWhiteSpaceIsCut) {
    EXPECT_FALSE(CanTakeOverFileName(""));
    EXPECT_FALSE(CanTakeOverFileName(" \t\r\n\v\f"));
    EXPECT_TRUE(CanTakeOverFileName(" a "));
    EXPECT_TRUE(CanTakeOverFileName("-"));
}

TEST(TrailingSpace, IsCutAtTheEndOnly) {
    EXPECT_EQ(WithoutTrailingSpace("  a b \t\n"), "  a b");
    EXPECT_EQ(WithoutTrailingSpace("a"), "a");
    EXPECT_EQ(WithoutTrailingSpace(" "), "");
    EXPECT_EQ(WithoutTrailingSpace(""), "");
    // A no-break space is no white space here, nor is half of it.
    EXPECT_EQ(WithoutTrailingSpace("a\u00a0"), "a\u00a0");
}

TEST(ResultName, NeedsALetterOrADigitOfTheSet) {
    for (const char good :
         std::string("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ1234567890"))
        EXPECT_TRUE(HoldsLetterOrDigit(std::string("-") + good + "-")) << good;
    for (const char* name : {"", "-", "---", "_.!", " ", "\u00e9\u00fc", "()"})
        EXPECT_FALSE(HoldsLetterOrDigit(name)) << name;
}

TEST(EntryName, HoldsNoSeparator) {
    for (const char* name : {"a", "", ".", "..", "a.b", "C:", "a*b", "\xff"})
        EXPECT_TRUE(IsNameOfOneEntry(name)) << name;
    for (const char* name : {"\\", "/", "..\\x", "a/b", "a\\"})
        EXPECT_FALSE(IsNameOfOneEntry(name)) << name;
}

}  // namespace
