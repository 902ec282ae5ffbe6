#include <map>

#include "tests/search/SearchFixture.h"

namespace {

using k4cmn::FoundFileRow;
using k4cmn::SearchEngine;
using k4cmn::SearchMode;
using k4test::kOtherType;
using k4test::kType;
using testing::ElementsAre;
using testing::IsEmpty;

class SearchPrevious : public k4test::SearchFixture {
 protected:
    const std::string one = InDefault("one.SQ4");
    const std::string two = InDefault("two.SQ4");
    const std::string plan = InDefault("plan.SD4");
    const std::string other = Folder("B:", kOtherType, "Second") + "one.SQ4";

    void SetUp() override {
        SearchFixture::SetUp();
        criteria.place.server = k4cmn::kFileServers;
        ConfigureLocal({"A:"});
        for (const std::string& path : {one, two, plan, other})
            MakeFile(path, "x", kNow);
        List({two, other, plan, one});
    }
};

TEST_F(SearchPrevious, KeepsTheOrderOfTheRows) {
    EXPECT_THAT(Previous(), ElementsAre(two, other, one));
}

TEST_F(SearchPrevious, MakesTheRowsAnew) {
    MakeFile(one, "0123456789", kNow - 7);
    List({one});
    Previous();
    EXPECT_THAT(sink.rows, ElementsAre(FoundFileRow{"one", one, 10, kNow - 7, 0}));
}

TEST_F(SearchPrevious, ShowsNamesWithoutTheirOwnExtension) {
    const std::vector<std::string> names{"long.jpeg", "none", "two.parts.SD4", ".SQ4"};
    std::vector<std::string> paths;
    for (const std::string& file : names) {
        paths.push_back(InDefault(file));
        MakeFile(paths.back());
    }
    List(paths);
    criteria.fileName = "*";
    Previous();
    std::vector<std::string> shown;
    std::vector<int> types;
    for (const FoundFileRow& row : sink.rows) {
        shown.push_back(row.name);
        types.push_back(row.type);
    }
    EXPECT_THAT(shown, ElementsAre("long", "none", "two.parts", ""));
    EXPECT_THAT(types, ElementsAre(-1, -1, 1, 0));
}

TEST_F(SearchPrevious, LooksForFilesNowhereElse) {
    MakeFile(InDefault("new.SQ4"));
    EXPECT_THAT(Previous(), ElementsAre(two, other, one));
    List({});
    EXPECT_THAT(Previous(), IsEmpty());
}

TEST_F(SearchPrevious, NarrowsByThePlaceOfTheCriteriaAsPlainText) {
    criteria.fileName = "*";
    const std::pair<k4cmn::SearchPlace, std::vector<std::string>> rows[] = {
        {{"A:", "", ""}, {two, plan, one}},
        {{"B:", "", ""}, {other}},
        {{"b:", "", ""}, {}},
        {{"A:", kOtherType, ""}, {}},
        {{"B:", "Quad16", ""}, {other}},
        {{"B:", "quad16", ""}, {}},
        {{"A:", "", "Default"}, {two, plan, one}},
        {{"A:", "", "default"}, {}},
        {{"A:", "", "wo.S"}, {two}},
        {{"", "", ""}, {two, other, plan, one}},
        {{"", kType, ""}, {two, plan, one}},
        {{k4cmn::kFileServers, "nothing like it", "nor this"}, {two, other, plan, one}},
        {{"file servers", "", ""}, {}},
    };
    for (const auto& [place, kept] : rows) {
        List({two, other, plan, one});
        criteria.place = place;
        EXPECT_EQ(Previous(), kept)
            << place.server << " " << place.signType << " " << place.library;
    }
}

TEST_F(SearchPrevious, DoesNotLookAtTheArgumentsOfTheCall) {
    criteria.place = {"A:", "", ""};
    SearchEngine(criteria, SearchMode::Previous, sink, prompt).SearchForFiles("B:", "x", "y");
    EXPECT_THAT(sink.Paths(), ElementsAre(two, one));
    criteria.place = {"B:", "", ""};
    List({two, other});
    SearchEngine(criteria, SearchMode::Previous, sink, prompt).SearchForFiles("", "", "");
    EXPECT_THAT(sink.Paths(), ElementsAre(other));
}

TEST_F(SearchPrevious, WithoutANameKeepsTheChosenTypeAlone) {
    criteria.fileType = 1;
    EXPECT_THAT(Previous(), ElementsAre(plan));
    List({two, other, plan, one});
    criteria.fileType = 3;
    EXPECT_THAT(Previous(), IsEmpty());
}

TEST_F(SearchPrevious, WithANameKeepsEveryType) {
    criteria.fileType = 3;
    criteria.fileName = "n";
    EXPECT_THAT(Previous(), ElementsAre(other, plan, one));
}

TEST_F(SearchPrevious, LooksForThePiecesOfANameWithoutCase) {
    const std::pair<const char*, std::vector<std::string>> rows[] = {
        {"ONE", {other, one}},
        {"o", {two, other, one}},
        {"*", {two, other, plan, one}},
        {"?", {two, other, plan, one}},
        {"sq4", {two, other, one}},
        {"t*o", {two}},
        {"o*t", {}},
        {"n?l", {}},
        {"l?n", {plan}},
        {"Default", {}},
    };
    for (const auto& [pattern, kept] : rows) {
        List({two, other, plan, one});
        criteria.fileName = pattern;
        EXPECT_EQ(Previous(), kept) << pattern;
    }
}

TEST_F(SearchPrevious, LooksForThePiecesWithoutCaseInEveryScript) {
    const std::string green = InDefault("GRÜN.SQ4");
    const std::string summer = InDefault("Лето.SQ4");
    MakeFile(green);
    MakeFile(summer);
    List({green, summer});
    criteria.fileName = "ün";
    EXPECT_THAT(Previous(), ElementsAre(green));
    List({green, summer});
    criteria.fileName = "*ЕТ?О";
    EXPECT_THAT(Previous(), ElementsAre(summer));
}

TEST_F(SearchPrevious, NarrowsByTheTextOfASign) {
    criteria.isSignSearchEnabled = 1;
    criteria.rows = 48;
    criteria.columns = 160;
    criteria.color = K4_SIGN_COLOR_QUAD16;
    criteria.pixel = K4_PIXEL_TECH_INCAND;
    EXPECT_THAT(Previous(), ElementsAre(other));
    criteria.pixel = K4_PIXEL_TECH_LED;
    EXPECT_THAT(Previous(), IsEmpty());
}

TEST_F(SearchPrevious, NarrowsBySizeAndTime) {
    MakeSized(one, 4096);
    MakeFile(two, "x", kNow - 3 * 86400);
    criteria.sizeRelation = k4cmn::SIZE_AT_MOST;
    criteria.size = 3;
    EXPECT_THAT(Previous(), ElementsAre(two, other));
    criteria.dateFilter = k4cmn::DATE_MODIFIED;
    criteria.dateMode = k4cmn::DATE_DAYS;
    criteria.days = 2;
    EXPECT_THAT(Previous(), ElementsAre(other));
}

TEST_F(SearchPrevious, DropsFilesThatHaveGone) {
    std::filesystem::remove(Native(one));
    std::filesystem::remove_all(Native("B:\\"));
    EXPECT_THAT(Previous(), ElementsAre(two));
}

TEST_F(SearchPrevious, KeepsFilesWhoseNamesChangedInCaseAlone) {
    std::filesystem::rename(Native(one), Native(InDefault("")) / "ONE.sq4");
    std::filesystem::rename(Native("B:\\48x160.Quad16.Incand.Sign"),
                            Native("B:\\") / "48X160.QUAD16.INCAND.SIGN");
    EXPECT_THAT(Previous(), ElementsAre(two, other, one));
}

TEST_F(SearchPrevious, DropsPathsThatAreNone) {
    criteria.fileName = "*";
    List({"", "one.SQ4", "\\", "A:", std::string(5000, 'x') + "\\a.SQ4", two});
    EXPECT_THAT(Previous(), ElementsAre(two));
}

TEST_F(SearchPrevious, OfFileServersNarrowsOnceForEachServer) {
    ConfigureLocal({"A:", "B:", "Z:"});
    EXPECT_THAT(Previous(), ElementsAre(two, other, one));
    EXPECT_EQ(sink.cleared, 3);
}

TEST_F(SearchPrevious, OfFileServersWithoutAListLeavesTheRows) {
    const k4test::NothingInstalled<k4cmn::RegistryProvider> none;
    EXPECT_THAT(Previous(), ElementsAre(two, other, plan, one));
    EXPECT_EQ(sink.cleared, 0);
}

TEST_F(SearchPrevious, GivesTheStatusOfEachRowWhateverTheirOrder) {
    std::map<std::string, std::uint64_t> sizes;
    std::vector<std::string> paths;
    for (std::size_t i = 0; i < 60; ++i) {
        const std::string path = Folder(i % 2 ? "A:" : "B:", kType, std::to_string(i % 3)) + "f" +
                                 std::to_string(i) + ".SQ4";
        MakeSized(path, 10 * i);
        sizes[path] = 10 * i;
        paths.push_back(path);
    }
    List(paths);
    EXPECT_EQ(Previous(), paths);
    for (const FoundFileRow& row : sink.rows)
        EXPECT_EQ(row.size, sizes[row.path]) << row.path;
}

TEST(SearchMatchesRoughly, LooksForPiecesInTheirOrder) {
    struct Row {
        const char* pattern;
        const char* name;
        bool matches;
    };
    const Row rows[] = {
        {"", "ABC", true},
        {"*", "", true},
        {"?*?", "ABC", true},
        {"ABC", "ABC", true},
        {"B", "ABC", true},
        {"A*C", "ABC", true},
        {"C*A", "ABC", false},
        {"A?C", "AC", true},
        {"A?C", "AXXXC", true},
        {"ABCD", "ABC", false},
        {"A*A", "ABC", false},
        {"A*A", "ABA", true},
        // The next piece may begin inside of the last one, but not with it.
        {"ABAB*BABA", "ABABA", true},
        {"ABA*ABA", "ABABA", true},
        {"ABA*ABA", "ABA", false},
        {"AA*A", "AA", true},
        {"AA*AA", "AA", false},
        {"AA*AA", "AAA", true},
        {"A*", "BCA", true},
        {"*.SQ4", "SQ4", false},
        {"abc", "ABC", false},
    };
    for (const Row& row : rows)
        EXPECT_EQ(SearchEngine::MatchesRoughly(row.pattern, row.name), row.matches)
            << row.pattern << " in " << row.name;
}

TEST(SearchMatchesRoughly, GoesOnBehindAWholeCharacter) {
    EXPECT_TRUE(SearchEngine::MatchesRoughly("ÄÖ*Ö", "ÄÖ"));
    EXPECT_FALSE(SearchEngine::MatchesRoughly("Ä*Ä", "Ä"));
    EXPECT_TRUE(SearchEngine::MatchesRoughly("日本*本語", "日本語"));
    // The second byte of a character isn't one.
    EXPECT_FALSE(SearchEngine::MatchesRoughly("Ä*\x84", "Ä"));
}

TEST(SearchMatchesRoughly, TakesBytesThatAreNoText) {
    EXPECT_TRUE(SearchEngine::MatchesRoughly("\xC3*\x28", "\xC3\x28"));
    EXPECT_TRUE(SearchEngine::MatchesRoughly("\xFF", "A\xFF"));
    EXPECT_FALSE(SearchEngine::MatchesRoughly("\xFF*\xFF", "A\xFF"));
}

}  // namespace
