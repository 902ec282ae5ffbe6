#include "suite/signservice/ScheduleParser.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <ostream>
#include <random>
#include <string>

#include "suite/signservice/ScheduleWords.h"

namespace {

using namespace k4suite;
using std::chrono::hours;
using std::chrono::minutes;
using std::chrono::seconds;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr ScheduleDays kSunday = 1, kMonday = 2, kFriday = 32, kSaturday = 64;
constexpr ScheduleDays kWorkdays = 2 + 4 + 8 + 16 + 32;

/// A schedule with a second line.
ParsedSchedule WithLine(const std::string& line) {
    return ParseSchedule("K4 schedule 1\n" + line);
}

ScheduleAction Playing(const std::string& file, tag_K4_PLAY_SEQ_MODE mode = K4_PLAY_SEQ_CONTINUOUS,
                       std::uint32_t param = 0) {
    return SchedulePlay{{file, mode, param}};
}

struct GoodRow {
    const char* what;
    const char* line;
    seconds time;
    ScheduleDays days;
    ScheduleAction action;
};

void PrintTo(const GoodRow& row, std::ostream* out) {
    *out << row.line;
}

class ScheduleLine : public testing::TestWithParam<GoodRow> {};

TEST_P(ScheduleLine, IsAnEntry) {
    const GoodRow& row = GetParam();
    const ParsedSchedule schedule = WithLine(row.line);
    for (const ScheduleProblem& problem : schedule.problems)
        ADD_FAILURE() << problem.words;
    EXPECT_THAT(schedule.entries, ElementsAre(ScheduleEntry{2, row.time, row.days, row.action}));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ScheduleLine,
    testing::Values(
        GoodRow{"Plain", "at 06:00 play A:\\x.SQ4", hours(6), kEveryDay, Playing("A:\\x.SQ4")},
        GoodRow{"Seconds", "at 23:59:59 stop", hours(24) - seconds(1), kEveryDay, ScheduleStop{}},
        GoodRow{"Midnight", "at 00:00 blank", seconds(0), kEveryDay, ScheduleBlank{}},
        GoodRow{"Daily", "at 12:30 daily default", hours(12) + minutes(30), kEveryDay,
                ScheduleDefault{}},
        GoodRow{"OneDay", "at 12:30 sun next", hours(12) + minutes(30), kSunday, ScheduleNext{}},
        GoodRow{"Range", "at 01:00 mon-fri stop", hours(1), kWorkdays, ScheduleStop{}},
        GoodRow{"List", "at 01:00 sat,sun stop", hours(1), kSaturday | kSunday, ScheduleStop{}},
        GoodRow{"ListOfRanges", "at 01:00 mon,wed-thu,sat stop", hours(1), 2 + 8 + 16 + 64,
                ScheduleStop{}},
        GoodRow{"RangeOverTheWeeksEnd", "at 01:00 fri-mon stop", hours(1),
                kFriday | kSaturday | kSunday | kMonday, ScheduleStop{}},
        GoodRow{"RangeOfOneDay", "at 01:00 mon-mon stop", hours(1), kMonday, ScheduleStop{}},
        GoodRow{"RangeOfAllDays", "at 01:00 mon-sun stop", hours(1), kEveryDay, ScheduleStop{}},
        GoodRow{"DayTwice", "at 01:00 mon,mon stop", hours(1), kMonday, ScheduleStop{}},
        GoodRow{"AnyCase", "AT 01:00 Mon-FRI Play x.sq4 NUM-Times 3", hours(1), kWorkdays,
                Playing("x.sq4", K4_PLAY_SEQ_NUM_TIMES, 3)},
        GoodRow{"BlanksAndTabs", " \tat\t 01:00 \t blank \t ", hours(1), kEveryDay,
                ScheduleBlank{}},
        GoodRow{"Remark", "at 01:00 blank # dark", hours(1), kEveryDay, ScheduleBlank{}},
        GoodRow{"RemarkAtOnce", "at 01:00 blank #", hours(1), kEveryDay, ScheduleBlank{}},
        GoodRow{"NoRemark", "at 01:00 play a#b.SQ4", hours(1), kEveryDay, Playing("a#b.SQ4")},
        GoodRow{"QuotedRemark", "at 01:00 play \"#1.SQ4\"", hours(1), kEveryDay, Playing("#1.SQ4")},
        GoodRow{"QuotedBlanks", "at 01:00 play \"A:\\My  Lib\\a b.SQ4\" 5", hours(1), kEveryDay,
                Playing("A:\\My  Lib\\a b.SQ4", K4_PLAY_SEQ_PLAY_STOP)},
        GoodRow{"Network", "at 01:00 play \\\\HOST\\SHARE\\a.SQ4", hours(1), kEveryDay,
                Playing("\\\\HOST\\SHARE\\a.SQ4")},
        GoodRow{"Letters", "at 01:00 play \xC3\x84rger.SQ4", hours(1), kEveryDay,
                Playing("\xC3\x84rger.SQ4")},
        GoodRow{"FileNamedLikeAnAction", "at 01:00 play play.SQ4", hours(1), kEveryDay,
                Playing("play.SQ4")},
        GoodRow{"ModeByNumber", "at 01:00 play x.SQ4 12 4294967295", hours(1), kEveryDay,
                Playing("x.SQ4", static_cast<tag_K4_PLAY_SEQ_MODE>(12), 4294967295U)},
        GoodRow{"ModeWithoutName", "at 01:00 play x.SQ4 0", hours(1), kEveryDay,
                Playing("x.SQ4", K4_PLAY_SEQ_NONE)},
        GoodRow{"Manual", "at 01:00 dim manual 255", hours(1), kEveryDay,
                ScheduleDim{K4_SIGN_DIM_MANUAL, 255}},
        GoodRow{"Photocell", "at 01:00 dim photocell -64", hours(1), kEveryDay,
                ScheduleDim{K4_SIGN_DIM_PHOTOCELL, -64}},
        GoodRow{"PhotocellPlus", "at 01:00 dim photocell +5", hours(1), kEveryDay,
                ScheduleDim{K4_SIGN_DIM_PHOTOCELL, 5}},
        GoodRow{"Remote", "at 01:00 dim remote", hours(1), kEveryDay,
                ScheduleDim{K4_SIGN_DIM_REMOTE_PHOTOCELL, 0}},
        GoodRow{"Scheduled", "at 01:00 dim scheduled", hours(1), kEveryDay,
                ScheduleDim{K4_SIGN_DIM_SCHEDULED, 0}}),
    [](const auto& row) { return std::string(row.param.what); });

struct BadRow {
    const char* what;
    std::string line;
    std::string words;
};

void PrintTo(const BadRow& row, std::ostream* out) {
    *out << row.line;
}

class BadScheduleLine : public testing::TestWithParam<BadRow> {};

TEST_P(BadScheduleLine, IsToldWithItsNumberAndWords) {
    const ParsedSchedule schedule = WithLine("\n# remark\n" + GetParam().line + "\nat 01:00 stop");
    ASSERT_EQ(schedule.problems.size(), 1U);
    EXPECT_EQ(schedule.problems[0].line, 4U);
    EXPECT_EQ(schedule.problems[0].words, GetParam().words);
}

constexpr char kModes[] =
    " is no play mode; the modes are continuous, single-step, sel-frame, num-times, play-stop, "
    "play-blank, play-video, play-frame, play-next, play-cal, or a whole number from 0 to 12.";

std::string ModeWords(const std::string& word) {
    return "\"" + word + "\"" + kModes;
}

INSTANTIATE_TEST_SUITE_P(
    Rows, BadScheduleLine,
    testing::Values(
        BadRow{"NotAt", "06:00 play x.SQ4", "An entry begins with \"at\", not with \"06:00\"."},
        BadRow{"SecondMark", "K4 schedule 1", "An entry begins with \"at\", not with \"K4\"."},
        BadRow{"NoTime", "at", "The time is missing."},
        BadRow{"OneDigit", "at 6:00 stop",
               "\"6:00\" is no time of day; one is written as 06:00 or 06:00:30."},
        BadRow{"Hour24", "at 24:00 stop",
               "\"24:00\" is no time of day; one is written as 06:00 or 06:00:30."},
        BadRow{"Minute60", "at 23:60 stop",
               "\"23:60\" is no time of day; one is written as 06:00 or 06:00:30."},
        BadRow{"Second60", "at 23:59:60 stop",
               "\"23:59:60\" is no time of day; one is written as 06:00 or 06:00:30."},
        BadRow{"Letters", "at 1a:00 stop",
               "\"1a:00\" is no time of day; one is written as 06:00 or 06:00:30."},
        BadRow{"Signed", "at -1:00 stop",
               "\"-1:00\" is no time of day; one is written as 06:00 or 06:00:30."},
        BadRow{"OtherSeparator", "at 12.00 stop",
               "\"12.00\" is no time of day; one is written as 06:00 or 06:00:30."},
        BadRow{"OtherSecondSeparator", "at 12:00.00 stop",
               "\"12:00.00\" is no time of day; one is written as 06:00 or 06:00:30."},
        BadRow{"Noon", "at noon stop",
               "\"noon\" is no time of day; one is written as 06:00 or 06:00:30."},
        BadRow{"NoAction", "at 06:00", "The action is missing."},
        BadRow{"NoActionBehindDays", "at 06:00 mon-fri", "The action is missing."},
        BadRow{"UnknownAction", "at 06:00 explode",
               "\"explode\" is no action; the actions are play, stop, blank, default, next and "
               "dim."},
        BadRow{"UnknownActionBehindDays", "at 06:00 daily explode",
               "\"explode\" is no action; the actions are play, stop, blank, default, next and "
               "dim."},
        BadRow{"UnknownDay", "at 06:00 someday stop",
               "\"someday\" is no day; days are daily, or such as mon, mon-fri and sat,sun."},
        BadRow{"HalfRange", "at 06:00 mon- stop",
               "\"mon-\" is no day; days are daily, or such as mon, mon-fri and sat,sun."},
        BadRow{"EmptyDay", "at 06:00 mon,,tue stop",
               "\"mon,,tue\" is no day; days are daily, or such as mon, mon-fri and sat,sun."},
        BadRow{"LongDay", "at 06:00 monday stop",
               "\"monday\" is no day; days are daily, or such as mon, mon-fri and sat,sun."},
        BadRow{"ThreeDayRange", "at 06:00 mon-tue-wed stop",
               "\"mon-tue-wed\" is no day; days are daily, or such as mon, mon-fri and sat,sun."},
        BadRow{"NoFile", "at 06:00 play", "play needs a sequence."},
        BadRow{"NoSequence", "at 06:00 play Film.AVI",
               "\"Film.AVI\" is no sequence; its name must end in .SQ4."},
        BadRow{"OnlyTheEnding", "at 06:00 play .SQ4",
               "\".SQ4\" is no sequence; its name must end in .SQ4."},
        BadRow{"EmptyFile", "at 06:00 play \"\"",
               "\"\" is no sequence; its name must end in .SQ4."},
        BadRow{"ControlCharacter", "at 06:00 play \"a\tb.SQ4\"",
               "\"a\tb.SQ4\" can't be a sequence's name: it has control characters."},
        BadRow{"UnknownMode", "at 06:00 play x.SQ4 forever", ModeWords("forever")},
        BadRow{"Mode13", "at 06:00 play x.SQ4 13", ModeWords("13")},
        BadRow{"ModeWithBlank", "at 06:00 play x.SQ4 num times 3", ModeWords("num")},
        BadRow{"EmptyMode", "at 06:00 play x.SQ4 \"\"", ModeWords("")},
        BadRow{"BadParam", "at 06:00 play x.SQ4 num-times many",
               "\"many\" is not a whole number from 0 to 4294967295."},
        BadRow{"NegativeParam", "at 06:00 play x.SQ4 num-times -1",
               "\"-1\" is not a whole number from 0 to 4294967295."},
        BadRow{"GreatParam", "at 06:00 play x.SQ4 num-times 4294967296",
               "\"4294967296\" is not a whole number from 0 to 4294967295."},
        BadRow{"MoreBehindPlay", "at 06:00 play x.SQ4 num-times 3 times",
               "There is more than the action takes: \"times\"."},
        BadRow{"MoreBehindStop", "at 06:00 stop now",
               "There is more than the action takes: \"now\"."},
        BadRow{"NoDimMode", "at 06:00 dim",
               "dim needs a mode: manual, photocell, remote or scheduled."},
        BadRow{"UnknownDimMode", "at 06:00 dim 40",
               "\"40\" is no dimming mode; the modes are manual, photocell, remote and "
               "scheduled."},
        BadRow{"NoLevel", "at 06:00 dim manual",
               "manual needs the level, a whole number from 0 to 255."},
        BadRow{"NoOffset", "at 06:00 dim photocell",
               "photocell needs the offset, a whole number from -64 to 64."},
        BadRow{"LevelTooGreat", "at 06:00 dim manual 256",
               "\"256\" is not a whole number from 0 to 255."},
        BadRow{"OffsetTooSmall", "at 06:00 dim photocell -65",
               "\"-65\" is not a whole number from -64 to 64."},
        BadRow{"TwoSigns", "at 06:00 dim photocell +-5",
               "\"+-5\" is not a whole number from -64 to 64."},
        BadRow{"RemoteWithValue", "at 06:00 dim remote 5",
               "There is more than the action takes: \"5\"."},
        BadRow{"OpenQuote", "at 06:00 play \"x.SQ4", "A quote isn't closed."},
        BadRow{"QuoteInside", "at 06:00 play x\"y.SQ4", "A quote stands inside of a word."},
        BadRow{"WordBehindQuote", "at 06:00 play \"x\"y.SQ4", "A quote stands inside of a word."},
        BadRow{"NotUtf8", "at 06:00 play \xFF.SQ4", "The line isn't UTF-8 text."},
        BadRow{"RemarkNotUtf8", "# \xC3", "The line isn't UTF-8 text."},
        BadRow{"ZeroByte", std::string("at\0 06:00 stop", 14),
               std::string("An entry begins with \"at\", not with \"at\0\".", 42)}),
    [](const auto& row) { return std::string(row.param.what); });

TEST(ScheduleParser, TheFirstLineIsTheMark) {
    struct Row {
        const char* text;
        const char* words;  ///< empty: it is right
    };
    static constexpr char kMark[] = "The first line must be \"K4 schedule 1\".";
    constexpr Row rows[] = {
        {"K4 schedule 1", ""},
        {"K4 schedule 1\n", ""},
        {"K4 schedule 1\r\n", ""},
        {"  k4\tSCHEDULE   1  # mine", ""},
        {"\xEF\xBB\xBFK4 schedule 1", ""},
        {"", kMark},
        {"\nK4 schedule 1", kMark},
        {"# K4 schedule 1", kMark},
        {"K4 schedule", kMark},
        {"K4 schedule 1 2", kMark},
        {"K4schedule 1", kMark},
        {"at 06:00 stop", kMark},
        {"\xFF\xFEK", "The line isn't UTF-8 text."},
        {"K4 schedule 2", "The version \"2\" of the format isn't known; it must be 1."},
        {"K4 schedule 01", "The version \"01\" of the format isn't known; it must be 1."},
    };
    for (const Row& row : rows) {
        const ParsedSchedule schedule = ParseSchedule(row.text);
        EXPECT_THAT(schedule.entries, IsEmpty()) << row.text;
        ASSERT_EQ(schedule.problems.empty(), !*row.words) << row.text;
        if (*row.words) {
            EXPECT_EQ(schedule.problems[0].line, 1U) << row.text;
            EXPECT_EQ(schedule.problems[0].words, row.words) << row.text;
        }
    }
}

TEST(ScheduleParser, EntriesKeepTheOrderOfTheFileAndTheirLines) {
    const ParsedSchedule schedule =
        ParseSchedule("K4 schedule 1\r\n# remark\r\n\r\nat 20:00 stop\r\n\t \r\nat 06:00 blank");
    ASSERT_THAT(schedule.problems, IsEmpty());
    EXPECT_THAT(schedule.entries,
                ElementsAre(ScheduleEntry{4, hours(20), kEveryDay, ScheduleStop{}},
                            ScheduleEntry{6, hours(6), kEveryDay, ScheduleBlank{}}));
}

TEST(ScheduleParser, EveryBadLineIsTold) {
    const ParsedSchedule schedule =
        ParseSchedule("schedule\nat 06:00 stop\nat 6 stop\nat 07:00 go\n\nat 08:00 dim bright");
    std::vector<std::uint32_t> lines;
    for (const ScheduleProblem& problem : schedule.problems)
        lines.push_back(problem.line);
    EXPECT_THAT(lines, ElementsAre(1, 3, 4, 6));
}

TEST(ScheduleParser, ALongNameOfASequenceIsToldAsWhatItIs) {
    const std::string ending = ".SQ4";
    const std::string longest = std::string(260 - ending.size(), 'x') + ending;
    EXPECT_THAT(WithLine("at 06:00 play " + longest).problems, IsEmpty());
    const ParsedSchedule schedule = WithLine("at 06:00 play x" + longest);
    ASSERT_EQ(schedule.problems.size(), 1U);
    EXPECT_EQ(schedule.problems[0].words,
              "\"x" + longest + "\" can't be a sequence's name: it has more than 260 bytes.");
}

TEST(ScheduleParser, AnyBytesAreReadToTheirEnd) {
    const std::string pieces[] = {"at ",
                                  "06:00 ",
                                  "mon-fri ",
                                  "play ",
                                  "x.SQ4 ",
                                  "num-times ",
                                  "3 ",
                                  "dim ",
                                  "manual ",
                                  "\n",
                                  "\r\n",
                                  "\"",
                                  "#",
                                  "\xFF",
                                  "\t",
                                  "-",
                                  ",",
                                  ":",
                                  "K4 schedule 1\n",
                                  std::string(1, '\0')};
    std::mt19937 random(12);
    for (int round = 0; round < 5000; ++round) {
        std::string text = round % 2 ? "K4 schedule 1\n" : "";
        for (std::size_t count = random() % 40; count > 0; --count)
            text += pieces[random() % std::size(pieces)];
        const ParsedSchedule schedule = ParseSchedule(text);
        const auto lines = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1;
        ASSERT_LE(schedule.problems.size(), lines);
        for (const ScheduleProblem& problem : schedule.problems) {
            ASSERT_LE(problem.line, lines);
            ASSERT_FALSE(problem.words.empty());
        }
    }
}

TEST(ScheduleWords, TellWhatTheyWereMadeFrom) {
    EXPECT_EQ(WordOfTime(hours(6)), "06:00");
    EXPECT_EQ(WordOfTime(hours(23) + minutes(59) + seconds(1)), "23:59:01");
    EXPECT_EQ(WordOfTime(seconds(0)), "00:00");
    for (int second = 0; second < 24 * 3600; second += 7)
        ASSERT_EQ(TimeOfWord(WordOfTime(seconds(second))), seconds(second));
    EXPECT_THAT(NamesOfDays(kWorkdays), ElementsAre("mon", "tue", "wed", "thu", "fri"));
    EXPECT_THAT(NamesOfDays(kSaturday | kSunday), ElementsAre("sat", "sun"));
    EXPECT_EQ(NamesOfDays(kEveryDay).size(), 7U);
    for (int mode = 0; mode <= 12; ++mode) {
        const auto value = static_cast<tag_K4_PLAY_SEQ_MODE>(mode);
        EXPECT_EQ(ModeOfWord(WordOfMode(value)), value);
    }
    EXPECT_EQ(WordOfMode(K4_PLAY_SEQ_NUM_TIMES), "num-times");
    EXPECT_EQ(WordOfMode(K4_PLAY_SEQ_NONE), "0");
}

}  // namespace
