#include "k4cmndlg/search/FindSelection.h"

#include <gmock/gmock.h>

namespace {

using k4cmn::FindSelection;
using k4cmn::SearchPlace;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr char kType[] = "16x80.Mono1.LED";

FindSelection At(const std::string& file, int type) {
    return {{"A:", kType, "Default"}, file, type};
}

// Taking paths apart -------------------------------------------------------------------------

struct TakenRow {
    const char* what;
    const char* path;
    int result;
    SearchPlace place;
    const char* file;
    int type;
};

class FindSelectionTaken : public testing::TestWithParam<TakenRow> {};

TEST_P(FindSelectionTaken, IsThePathsPlaceFileAndType) {
    const TakenRow& row = GetParam();
    FindSelection selection{{"x", "y", "z"}, "w", 2};
    EXPECT_EQ(selection.Take(row.path), row.result);
    EXPECT_EQ(selection, (FindSelection{row.place, row.file, row.type}));
}

TEST_P(FindSelectionTaken, AsASearchPathLeavesTheTypeWhereItHasNone) {
    const TakenRow& row = GetParam();
    FindSelection selection{{"x", "y", "z"}, "w", 2};
    selection.TakeSearchPath(row.path);
    EXPECT_EQ(selection, (FindSelection{row.place, row.file, row.result ? row.type : 2}));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, FindSelectionTaken,
    testing::Values(TakenRow{"Sequence",
                             "A:\\16x80.Mono1.LED.Sign\\Default.Lib\\Welcome.SQ4",
                             1,
                             {"A:", kType, "Default"},
                             "Welcome",
                             0},
                    TakenRow{"Share",
                             "\\\\HOST\\SHARE\\16x80.Mono1.LED.Sign\\Default.Lib\\plan.sd4",
                             1,
                             {"\\\\HOST\\SHARE", kType, "Default"},
                             "plan",
                             1},
                    TakenRow{"UnknownType",
                             "A:\\16x80.Mono1.LED.Sign\\Default.Lib\\film.AVI",
                             0,
                             {"A:", kType, "Default"},
                             "",
                             -1},
                    TakenRow{"NoExtension",
                             "A:\\16x80.Mono1.LED.Sign\\Default.Lib\\film",
                             0,
                             {"A:", kType, "Default"},
                             "",
                             -1},
                    TakenRow{"LibraryFolder",
                             "A:\\16x80.Mono1.LED.Sign\\Default.Lib\\",
                             0,
                             {"A:", kType, "Default"},
                             "",
                             -1},
                    TakenRow{"ServerFolder", "A:\\", 0, {"A:", "", ""}, "", -1},
                    TakenRow{"SignTypeFolderIsTakenForALibrary",
                             "A:\\16x80.Mono1.LED.Sign\\",
                             0,
                             {"A:", "", kType},
                             "",
                             -1},
                    TakenRow{
                        "ScriptAtTheServersRoot", "A:\\start.SC4", 1, {"A:", "", ""}, "start", 2},
                    TakenRow{"Nothing", "", 0, {}, "", -1}),
    [](const auto& row) { return row.param.what; });

// Paths --------------------------------------------------------------------------------------

TEST(FindSelectionPath, LiesInTheLibraryWhateverTheType) {
    EXPECT_EQ(At("Welcome", 0).Path(), "A:\\16x80.Mono1.LED.Sign\\Default.Lib\\Welcome.SQ4");
    EXPECT_EQ(At("start", 2).Path(), "A:\\16x80.Mono1.LED.Sign\\Default.Lib\\start.SC4");
}

TEST(FindSelectionType, SequencesAreTheFirst) {
    EXPECT_TRUE(At("a", 0).IsSequence());
    for (const int type : {-1, 1, 2, 3, 4})
        EXPECT_FALSE(At("a", type).IsSequence()) << type;
}

TEST(FindSelectionDelete, ComposesPlaceNameAndTheTypesExtension) {
    EXPECT_THAT(At("", 0).PathsToDelete({"a", "b c"}),
                ElementsAre("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\a.SQ4",
                            "A:\\16x80.Mono1.LED.Sign\\Default.Lib\\b c.SQ4"));
    EXPECT_THAT(At("", 1).PathsToDelete({"a"}),
                ElementsAre("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\a.SD4"));
    EXPECT_THAT(At("", 3).PathsToDelete({"a"}),
                ElementsAre("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\a.SEQ"));
}

TEST(FindSelectionDelete, LooksForScriptsAtTheServersRoot) {
    EXPECT_THAT(At("", 2).PathsToDelete({"start"}), ElementsAre("A:\\start.SC4"));
}

TEST(FindSelectionDelete, OfAnUnknownTypeIsNothing) {
    EXPECT_THAT(At("a", -1).PathsToDelete({"a"}), IsEmpty());
    EXPECT_THAT(At("a", 0).PathsToDelete({}), IsEmpty());
}

TEST(FindSelectionPrint, NeedsANameWithoutCertainCharactersAndAKnownType) {
    EXPECT_TRUE(At("Welcome-1_x", 0).CanPrint());
    EXPECT_TRUE(At("Grüße", 3).CanPrint());
    EXPECT_FALSE(At("", 0).CanPrint());
    EXPECT_FALSE(At("Welcome", -1).CanPrint());
    for (const char bad : {' ', '#', '%', ';', '/', '\\'})
        EXPECT_FALSE(At(std::string("a") + bad + "b", 0).CanPrint()) << bad;
}

TEST(FoundCount, IsSaidInWords) {
    EXPECT_EQ(k4cmn::FoundCountText(0), "No files found");
    EXPECT_EQ(k4cmn::FoundCountText(1), "1 file");
    EXPECT_EQ(k4cmn::FoundCountText(2), "2 files");
    EXPECT_EQ(k4cmn::FoundCountText(100'000), "100000 files");
}

}  // namespace
