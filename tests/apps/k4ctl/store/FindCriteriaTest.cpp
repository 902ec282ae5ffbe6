#include <limits>

#include "tests/apps/k4ctl/store/FindRuns.h"

// What each option of `find` lets through, and which words each takes.

namespace {

using k4ctl::ExitCode;
using k4test::kDay;
using k4test::kNow;
using k4test::kOtherType;
using k4test::kPaletteType;
using k4test::kThirdType;
using k4test::kType;
using k4test::LibraryOn;
using k4test::Words;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class FindCriteria : public k4test::FindRuns {
 protected:
    std::string Lib() const { return LibraryOn("A:"); }
};

// Names and types -----------------------------------------------------------------------------

class FindByName : public FindCriteria {
 protected:
    void SetUp() override {
        FindRuns::SetUp();
        for (const char* name :
             {"Goal.SQ4", "Gate.SD4", "Gong.sc4", "Gold.SEQ", "Grid.SP4", "Home.SQ4"})
            MakeFile(Lib() + name);
    }
};

TEST_F(FindByName, WithoutACriterionAllSequencesAreFound) {
    EXPECT_THAT(Names({}), ElementsAre("Goal.SQ4", "Home.SQ4"));
}

TEST_F(FindByName, ATypeIsGivenByItsWordOrItsExtension) {
    const struct {
        Words words;
        const char* found;
    } rows[] = {{{"sequences", "SQ4", "sq4", "SEQUENCES"}, "Goal.SQ4"},
                {{"schedules", "SD4"}, "Gate.SD4"},
                {{"scripts", "sc4", "SC4"}, "Gong.sc4"},
                {{"old", "seq", "Seq"}, "Gold.SEQ"}};
    for (const auto& row : rows)
        for (const std::string& word : row.words)
            EXPECT_THAT(Names({"--type", word}), testing::Contains(row.found)) << word;
    EXPECT_THAT(Names({"--type", "schedules"}), ElementsAre("Gate.SD4"));
}

TEST_F(FindByName, APatternFindsFilesOfAllTypes) {
    EXPECT_THAT(Names({"--name", "G*"}),
                ElementsAre("Gate.SD4", "Goal.SQ4", "Gold.SEQ", "Gong.sc4", "Grid.SP4"));
    EXPECT_THAT(Names({"--name", "go?l.*"}), ElementsAre("Goal.SQ4"));
    EXPECT_THAT(Names({"--name", "*.SQ4"}), ElementsAre("Goal.SQ4", "Home.SQ4"));
    EXPECT_THAT(Names({"--name", "HOME.sq4"}), ElementsAre("Home.SQ4"));
    EXPECT_THAT(Names({"--name", "Home"}), IsEmpty());
    EXPECT_THAT(Names({"--name", ""}), ElementsAre("Goal.SQ4", "Home.SQ4"));
}

TEST_F(FindByName, AFileOfAnUnknownTypeIsListedAsSuch) {
    const k4test::CommandRun run = Find({"--name", "Grid*"});
    EXPECT_THAT(run.out, HasSubstr("Grid  " + Lib() + "Grid.SP4"));
    EXPECT_THAT(run.out, HasSubstr("Unknown"));
}

TEST_F(FindByName, ANameWithASeparatorIsNone) {
    for (const char* name : {"..\\x", "a/b", "\\", "/"})
        Wrong({"--name", name}, std::string("--name: \"") + name +
                                    "\" has a separator of paths, and is no name of a file");
}

TEST_F(FindByName, ATypeAndANameExcludeEachOther) {
    Wrong({"--name", "G*", "--type", "SQ4"}, "--name excludes --type");
}

TEST_F(FindByName, AnUnknownTypeIsAUsageError) {
    for (const char* word : {"SP4", "", "SQ", "sequence"})
        Wrong({"--type", word}, std::string("--type: \"") + word +
                                    "\" is no type of files that can be found; they are sequences "
                                    "(SQ4), schedules (SD4), scripts (SC4) and old (SEQ)");
}

// Keywords ------------------------------------------------------------------------------------

class FindByKeywords : public FindCriteria {
 protected:
    void SetUp() override {
        FindRuns::SetUp();
        MakeSequence(Lib() + "both.SQ4", -1, "goal; Home; ");
        MakeSequence(Lib() + "one.SQ4", -1, "GOAL; away; ");
        MakeSequence(Lib() + "none.SQ4");
        MakeFile(Lib() + "plan.SD4");
    }
};

TEST_F(FindByKeywords, AllOfThemAreWantedUnlessAnyIsEnough) {
    EXPECT_THAT(Names({"--keywords", "goal"}), ElementsAre("both.SQ4", "one.SQ4"));
    EXPECT_THAT(Names({"--keywords", "home;GOAL"}), ElementsAre("both.SQ4"));
    EXPECT_THAT(Names({"--keywords", "home,goal", "--all"}), ElementsAre("both.SQ4"));
    EXPECT_THAT(Names({"--keywords", "home away", "--any"}), ElementsAre("both.SQ4", "one.SQ4"));
    EXPECT_THAT(Names({"--keywords", "home away"}), IsEmpty());
}

TEST_F(FindByKeywords, TheyAreWholeWords) {
    EXPECT_THAT(Names({"--keywords", "goa"}), IsEmpty());
    EXPECT_THAT(Names({"--keywords", "; ,"}), IsEmpty());
    EXPECT_THAT(Names({"--keywords", ""}), ElementsAre("both.SQ4", "none.SQ4", "one.SQ4"));
}

TEST_F(FindByKeywords, OnlySequencesHaveThem) {
    EXPECT_THAT(Names({"--keywords", "goal", "--type", "SD4"}), ElementsAre("plan.SD4"));
    EXPECT_THAT(Names({"--keywords", "home", "--name", "*o*"}), ElementsAre("both.SQ4"));
    EXPECT_THAT(Names({"--keywords", "home", "--name", "*"}), ElementsAre("both.SQ4", "plan.SD4"));
}

TEST_F(FindByKeywords, TheyHave255CharactersAtMost) {
    std::string most;
    for (int at = 0; at < 255; ++at)
        most += "ä";
    EXPECT_THAT(Names({"--keywords", most}), IsEmpty());
    Wrong({"--keywords", most + "ä"},
          "--keywords: the text has 256 characters, and 255 are the most");
    Wrong({"--keywords", "\xff"}, "--keywords: the text isn't UTF-8");
}

TEST_F(FindByKeywords, TheirCombinationGoesWithThem) {
    Wrong({"--any"}, "--any requires --keywords");
    Wrong({"--all"}, "--all requires --keywords");
    Wrong({"--keywords", "a", "--any", "--all"}, "--any excludes --all");
}

// The sign ------------------------------------------------------------------------------------

class FindBySign : public FindCriteria {
 protected:
    void SetUp() override {
        FindRuns::SetUp();
        for (const char* type : {kType, kPaletteType, kOtherType, kThirdType})
            MakeFile(std::string("A:\\") + type + ".Sign\\L.Lib\\" + type + ".SQ4");
    }
    static Words Sign(const char* rows, const char* columns, const char* color, const char* pixel) {
        return {"--rows", rows, "--columns", columns, "--color", color, "--pixel", pixel};
    }
};

TEST_F(FindBySign, OnlyTheFilesOfItsTypeAreFound) {
    EXPECT_EQ(Names({}).size(), 4u);
    EXPECT_THAT(Names(Sign("16", "80", "Mono1", "LED")), ElementsAre(kType + std::string(".SQ4")));
    EXPECT_THAT(Names(Sign("48", "160", "quad16", "incand")),
                ElementsAre(kOtherType + std::string(".SQ4")));
    EXPECT_THAT(Names(Sign("8", "16", "4", "3")), ElementsAre(kThirdType + std::string(".SQ4")));
    EXPECT_THAT(Names(Sign("24", "80", "Mono1", "LED")), IsEmpty());
}

TEST_F(FindBySign, ItsFourPartsGoTogether) {
    const Words all = Sign("16", "80", "Mono1", "LED");
    for (std::size_t left = 0; left < all.size(); left += 2) {
        Words words = all;
        words.erase(words.begin() + static_cast<std::ptrdiff_t>(left),
                    words.begin() + static_cast<std::ptrdiff_t>(left) + 2);
        words.insert(words.begin(), "find");
        const k4test::CommandRun run = Line(words);
        EXPECT_EQ(run.code, ExitCode::Usage);
        EXPECT_THAT(run.err, HasSubstr(" requires " + all[left])) << run.err;
    }
}

TEST_F(FindBySign, ItsPartsHaveRanges) {
    for (const char* rows : {"6", "2049", "-8", "x", "", "7.5"})
        Wrong(Sign(rows, "80", "Mono1", "LED"),
              std::string("--rows: \"") + rows + "\" is not a whole number from 7 to 2048");
    for (const char* columns : {"15", "16385", "x"})
        Wrong(Sign("16", columns, "Mono1", "LED"),
              std::string("--columns: \"") + columns + "\" is not a whole number from 16 to 16384");
    Wrong(Sign("2048", "16384", "Mono1", "LED"), "find: Rows x Cols cannot be > 8388608");
    Wrong(Sign("9", "80", "Mono1", "LED"), "find: Number of rows must be 7 or a multiple of 8.");
    Wrong(Sign("16", "81", "Mono1", "LED"), "find: Number of columns must be a multiple of 8.");
    Wrong(Sign("16", "80", "RGB16M", "Incand"), "find: Color and pixel technology are invalid.");
    EXPECT_THAT(Names(Sign("7", "24", "Mono1", "LED")), IsEmpty());
    EXPECT_THAT(Names(Sign("2048", "4096", "Mono1", "LED")), IsEmpty());
    const k4test::CommandRun color = Find(Sign("16", "80", "Pink", "LED"));
    EXPECT_EQ(color.code, ExitCode::Usage);
    EXPECT_THAT(color.err, HasSubstr("--color: \"Pink\" is no color technology; they are Mono1, "));
    const k4test::CommandRun pixel = Find(Sign("16", "80", "Mono1", "4"));
    EXPECT_EQ(pixel.code, ExitCode::Usage);
    EXPECT_THAT(pixel.err, HasSubstr("--pixel: \"4\" is no pixel technology; they are Incand, "));
}

// The size ------------------------------------------------------------------------------------

TEST_F(FindCriteria, ASizeCountsInWholeKilobytes) {
    MakeFile(Lib() + "a.SQ4", std::string(1023, 'a'));
    MakeFile(Lib() + "b.SQ4", std::string(1024, 'b'));
    MakeFile(Lib() + "c.SQ4", std::string(3071, 'c'));
    EXPECT_THAT(Names({"--at-least", "0"}), ElementsAre("a.SQ4", "b.SQ4", "c.SQ4"));
    EXPECT_THAT(Names({"--at-least", "1"}), ElementsAre("b.SQ4", "c.SQ4"));
    EXPECT_THAT(Names({"--at-least", "2"}), ElementsAre("c.SQ4"));
    EXPECT_THAT(Names({"--at-least", "3"}), IsEmpty());
    EXPECT_THAT(Names({"--at-most", "0"}), ElementsAre("a.SQ4"));
    EXPECT_THAT(Names({"--at-most", "1"}), ElementsAre("a.SQ4", "b.SQ4"));
    EXPECT_THAT(Names({"--at-most", "2147483647"}), ElementsAre("a.SQ4", "b.SQ4", "c.SQ4"));
}

TEST_F(FindCriteria, ASizeHasARange) {
    for (const char* option : {"--at-least", "--at-most"})
        for (const char* size : {"-1", "2147483648", "1.5", "1KB", ""})
            Wrong({option, size}, std::string(option) + ": \"" + size +
                                      "\" is not a whole number from 0 to 2147483647");
    Wrong({"--at-least", "1", "--at-most", "2"}, "--at-least excludes --at-most");
}

// The time ------------------------------------------------------------------------------------

TEST_F(FindCriteria, DaysAreWholeUpToTheSecond) {
    constexpr std::int64_t kThirtieth = 1'785'369'600;  // 30 July 2026, 00:00:00
    MakeFile(Lib() + "a.SQ4", "", kThirtieth - 1);
    MakeFile(Lib() + "b.SQ4", "", kThirtieth);
    MakeFile(Lib() + "c.SQ4", "", kThirtieth + kDay - 1);
    MakeFile(Lib() + "d.SQ4", "", kThirtieth + kDay);
    EXPECT_THAT(Names({"--between", "2026-07-30", "2026-07-30"}), ElementsAre("b.SQ4", "c.SQ4"));
    EXPECT_THAT(Names({"--between", "2026-07-29", "2026-07-31"}),
                ElementsAre("a.SQ4", "b.SQ4", "c.SQ4", "d.SQ4"));
    EXPECT_THAT(Names({"--between", "2026-07-31", "2026-08-01"}), ElementsAre("d.SQ4"));
    EXPECT_THAT(Names({"--between", "2025-07-30", "2025-07-30"}), IsEmpty());
    EXPECT_THAT(Names({"A:", "--between", "2026-07-30", "2026-07-30"}),
                ElementsAre("b.SQ4", "c.SQ4"));
    EXPECT_THAT(Names({"--between", "2026-07-30", "2026-07-30", "A:"}),
                ElementsAre("b.SQ4", "c.SQ4"));
}

TEST_F(FindCriteria, TheDaysAreThoseOfThisPlace) {
    const k4test::ScopedTimeZone tokyo("JST-9");
    MakeFile(Lib() + "a.SQ4", "", 1'785'369'600 - 9 * 3600);
    EXPECT_THAT(Names({"--between", "2026-07-30", "2026-07-30"}), ElementsAre("a.SQ4"));
    EXPECT_THAT(Names({"--between", "2026-07-29", "2026-07-29"}), IsEmpty());
}

TEST_F(FindCriteria, PreviousDaysAndMonthsCountFromNow) {
    MakeFile(Lib() + "a.SQ4", "", kNow + kDay);
    MakeFile(Lib() + "b.SQ4", "", kNow - 2 * kDay + 1);
    MakeFile(Lib() + "c.SQ4", "", kNow - 2 * kDay);
    MakeFile(Lib() + "d.SQ4", "", kNow - 31 * kDay);  // 30 June
    MakeFile(Lib() + "e.SQ4", "", kNow - 61 * kDay);  // 31 May
    EXPECT_THAT(Names({"--days", "1"}), ElementsAre("a.SQ4", "b.SQ4"));
    EXPECT_THAT(Names({"--days", "2"}), ElementsAre("a.SQ4", "b.SQ4", "c.SQ4"));
    EXPECT_THAT(Names({"--days", "999"}), testing::SizeIs(5));
    // Today's day of the month is behind that of 30 June.
    EXPECT_THAT(Names({"--months", "1"}), ElementsAre("a.SQ4", "b.SQ4", "c.SQ4"));
    EXPECT_THAT(Names({"--months", "2"}), testing::SizeIs(5));
    EXPECT_THAT(Names({"--months", "999"}), testing::SizeIs(5));
}

TEST_F(FindCriteria, DatesMustBe) {
    for (const char* day :
         {"2026-02-29", "2026-13-01", "2026-00-10", "2026-04-31", "26-07-31", "", "2026-7-31",
          "2026/07/31", "0000-01-01", "2026-07-311", "today", "2026-07-3\xff", "+026-07-31"})
        for (const bool isFirst : {true, false})
            Wrong({"--between", isFirst ? day : "2026-07-01", isFirst ? "2026-07-31" : day},
                  std::string("--between: \"") +
                      (std::string(day) == "2026-07-3\xff" ? "2026-07-3\\xff" : day) +
                      "\" is no day; a day is YEAR-MONTH-DAY, as 2026-07-31");
    Wrong({"--between", "2026-08-01", "2026-07-31"},
          "--between: 2026-08-01 comes after 2026-07-31");
    EXPECT_THAT(Names({"--between", "2024-02-29", "9999-12-31"}), IsEmpty());
    EXPECT_EQ(Find({"--between", "2026-08-01"}).code, ExitCode::Usage);
}

TEST_F(FindCriteria, PeriodsHaveARangeAndExcludeEachOther) {
    for (const char* option : {"--days", "--months"})
        for (const char* count : {"0", "1000", "-1", "x", ""})
            Wrong({option, count},
                  std::string(option) + ": \"" + count + "\" is not a whole number from 1 to 999");
    Wrong({"--days", "1", "--months", "1"}, "--months excludes --days");
    Wrong({"--days", "1", "--between", "2026-07-01", "2026-07-31"}, "--between excludes --days");
    Wrong({"--months", "1", "--between", "2026-07-01", "2026-07-31"},
          "--between excludes --months");
}

TEST_F(FindCriteria, AllOfThemCountTogether) {
    MakeSequence(Lib() + "hit.SQ4", kNow - kDay, "goal");
    MakeSequence(Lib() + "old.SQ4", kNow - 10 * kDay, "goal");
    MakeSequence(Lib() + "other.SQ4", kNow - kDay, "home");
    EXPECT_THAT(Names({"A:", "--keywords", "goal", "--days", "5", "--at-most", "10", "--rows", "16",
                       "--columns", "80", "--color", "Mono1", "--pixel", "LED"}),
                ElementsAre("hit.SQ4"));
    EXPECT_THAT(Names({"B:", "--keywords", "goal", "--days", "5"}), IsEmpty());
}

}  // namespace
