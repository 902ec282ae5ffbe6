#include "k4cmndlg/search/SearchPlace.h"

#include <gtest/gtest.h>

namespace k4cmn {
namespace {

TEST(SearchPathText, GoesAsFarAsThePlaceDoes) {
    EXPECT_EQ(SearchPathText({"", "7x16.Mono1.LED", "Default"}), "");
    EXPECT_EQ(SearchPathText({"A:", "", ""}), "A:\\");
    EXPECT_EQ(SearchPathText({"A:", "7x16.Mono1.LED", ""}), "A:\\7x16.Mono1.LED.Sign\\");
    EXPECT_EQ(SearchPathText({"A:", "7x16.Mono1.LED", "Default"}),
              "A:\\7x16.Mono1.LED.Sign\\Default.Lib\\");
    EXPECT_EQ(SearchPathText({"A:", "", "Default"}), "A:\\") << "no library without a sign type";
    EXPECT_EQ(SearchPathText({kFileServers, "", ""}), "File Servers\\");
}

struct FoundPathRow {
    const char* name;
    const char* path;
    SearchPlace place;
    const char* file;
    int type;
};

const FoundPathRow kFoundPaths[] = {
    {"OfADrive",
     "A:\\7x16.Mono1.LED.Sign\\Default.Lib\\Goal.SQ4",
     {"A:", "7x16.Mono1.LED", "Default"},
     "Goal",
     0},
    {"OfANetworkServer",
     "\\\\NORTH\\SIGNS\\7x16.Mono1.LED.Sign\\Default.Lib\\Goal.sd4",
     {"\\\\NORTH\\SIGNS", "7x16.Mono1.LED", "Default"},
     "Goal",
     1},
    {"NameWithDots",
     "A:\\7x16.Mono1.LED.Sign\\My.Own.Lib\\a.b.SEQ",
     {"A:", "7x16.Mono1.LED", "My.Own"},
     "a.b",
     3},
    {"UnknownTypeHasNoFile",
     "A:\\7x16.Mono1.LED.Sign\\Default.Lib\\Goal.txt",
     {"A:", "7x16.Mono1.LED", "Default"},
     "",
     -1},
    {"FolderOfALibrary",
     "A:\\7x16.Mono1.LED.Sign\\Default.Lib\\",
     {"A:", "7x16.Mono1.LED", "Default"},
     "",
     -1},
    {"FolderOfASignTypeIsTakenForALibrary",
     "A:\\7x16.Mono1.LED.Sign\\",
     {"A:", "", "7x16.Mono1.LED"},
     "",
     -1},
    {"Drive", "A:\\", {"A:", "", ""}, "", -1},
    {"ServerAloneIsTakenForALibrary", "\\\\NORTH\\SIGNS\\", {"\\", "NORTH", "SIGNS"}, "", -1},
    {"FileAlone", "Goal.SC4", {"", "", ""}, "Goal", 2},
    {"Nothing", "", {"", "", ""}, "", -1},
};

class FoundPathTest : public testing::TestWithParam<FoundPathRow> {};

TEST_P(FoundPathTest, IsTakenApartLevelByLevel) {
    const FoundPath found = TakeApartFoundPath(GetParam().path);
    EXPECT_EQ(found.place.server, GetParam().place.server);
    EXPECT_EQ(found.place.signType, GetParam().place.signType);
    EXPECT_EQ(found.place.library, GetParam().place.library);
    EXPECT_EQ(found.file, GetParam().file);
    EXPECT_EQ(found.type, GetParam().type);
}

INSTANTIATE_TEST_SUITE_P(Paths, FoundPathTest, testing::ValuesIn(kFoundPaths),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace k4cmn
