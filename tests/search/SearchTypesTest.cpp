#include "k4cmndlg/search/SearchTypes.h"

#include <gtest/gtest.h>

#include <limits>

namespace k4cmn {
namespace {

TEST(FileTypeOfASearch, IsThatOfTheExtensionWhateverItsCase) {
    EXPECT_EQ(GetFileType("A:\\x.Sign\\y.Lib\\Goal.SQ4"), 0);
    EXPECT_EQ(GetFileType("Goal.sd4"), 1);
    EXPECT_EQ(GetFileType("Goal.Sc4"), 2);
    EXPECT_EQ(GetFileType("Goal.txt.seq"), 3);
}

TEST(FileTypeOfASearch, IsUnknownForEveryOtherExtension) {
    for (const char* path : {"", "Goal", "Goal.", "Goal.DL4", "Goal.SP4", "Goal.SQ4.bak", "Goal.SQ",
                             "Goal.SQ44", "A:\\x.SQ4\\Goal", "A:\\x.SQ4\\"})
        EXPECT_EQ(GetFileType(path), kUnknownSearchType) << path;
}

TEST(ExtensionOfASearch, IsEmptyOutsideOfTheList) {
    EXPECT_EQ(SearchExtension(0), "SQ4");
    EXPECT_EQ(SearchExtension(1), "SD4");
    EXPECT_EQ(SearchExtension(2), "SC4");
    EXPECT_EQ(SearchExtension(3), "SEQ");
    for (const int type : {-1, 4, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        EXPECT_EQ(SearchExtension(type), "") << type;
}

TEST(TypeNameOfAFoundFile, IsUnknownOutsideOfTheList) {
    EXPECT_STREQ(FoundTypeName(0), "K4400 Seq");
    EXPECT_STREQ(FoundTypeName(1), "K4400 Sched");
    EXPECT_STREQ(FoundTypeName(2), "K4400 Script");
    EXPECT_STREQ(FoundTypeName(3), "K3300 Seq");
    for (const int type : {-1, 4, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        EXPECT_STREQ(FoundTypeName(type), "Unknown") << type;
}

}  // namespace
}  // namespace k4cmn
