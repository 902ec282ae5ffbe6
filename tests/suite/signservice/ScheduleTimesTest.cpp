#include "suite/signservice/ScheduleTimes.h"

#include <gtest/gtest.h>

#include <ctime>
#include <string>

#include "k4cmndlg/frame/Format.h"
#include "suite/signservice/ScheduleParser.h"
#include "tests/suite/signservice/TimeZone.h"

namespace {

using namespace k4suite;
using k4test::TimeZone;
using std::chrono::hours;
using std::chrono::seconds;

// The rules of some zones, so that none of them need to be installed. Central Europe changes its
// clocks in the last night of March and of October that belongs to a Sunday, New York on the second
// Sunday of March and the first of November, Lord Howe by half an hour, and Sao Paulo did it at
// midnight.
constexpr char kBerlin[] = "CET-1CEST,M3.5.0,M10.5.0/3";
constexpr char kNewYork[] = "EST5EDT,M3.2.0,M11.1.0";
constexpr char kLordHowe[] = "<+1030>-10:30<+11>-11,M10.1.0,M4.1.0";
constexpr char kSaoPaulo[] = "<-03>3<-02>,M11.1.0/0,M2.3.0/0";
constexpr char kKathmandu[] = "<+0545>-5:45";

/// An instant by its UTC time, "YYYY-MM-DD HH:MM:SS".
TimePoint Utc(const std::string& text) {
    std::tm parts{};
    const char* end = strptime(text.c_str(), "%Y-%m-%d %H:%M:%S", &parts);
    EXPECT_TRUE(end && !*end) << text;
    return TimePoint(seconds(timegm(&parts)));
}

std::string TextOf(std::chrono::seconds sinceEpoch) {
    const std::time_t time = sinceEpoch.count();
    std::tm parts{};
    gmtime_r(&time, &parts);
    return k4cmn::Format("%04d-%02d-%02d %02d:%02d:%02d", parts.tm_year + 1900, parts.tm_mon + 1,
                         parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec);
}

std::string UtcText(TimePoint instant) {
    return TextOf(std::chrono::floor<seconds>(instant.time_since_epoch()));
}

WallTime Wall(const std::string& text) {
    return WallTime(std::chrono::floor<seconds>(Utc(text).time_since_epoch()));
}

struct WallRow {
    const char* zone;
    const char* wall;
    const char* utc;
};

TEST(WallTime, BecomesTheInstantInWhichClocksComeToShowIt) {
    constexpr WallRow rows[] = {
        {"UTC", "2026-03-29 02:30:00", "2026-03-29 02:30:00"},
        {kBerlin, "2026-01-15 06:00:00", "2026-01-15 05:00:00"},
        {kBerlin, "2026-07-15 06:00:00", "2026-07-15 04:00:00"},
        {kBerlin, "2026-03-29 01:59:59", "2026-03-29 00:59:59"},
        {kBerlin, "2026-03-29 02:00:00", "2026-03-29 01:00:00"},
        {kBerlin, "2026-03-29 02:30:00", "2026-03-29 01:00:00"},
        {kBerlin, "2026-03-29 02:59:59", "2026-03-29 01:00:00"},
        {kBerlin, "2026-03-29 03:00:00", "2026-03-29 01:00:00"},
        {kBerlin, "2026-03-29 03:00:01", "2026-03-29 01:00:01"},
        {kBerlin, "2026-10-25 01:59:59", "2026-10-24 23:59:59"},
        {kBerlin, "2026-10-25 02:00:00", "2026-10-25 00:00:00"},
        {kBerlin, "2026-10-25 02:59:59", "2026-10-25 00:59:59"},
        {kBerlin, "2026-10-25 03:00:00", "2026-10-25 02:00:00"},
        {kNewYork, "2026-03-08 02:30:00", "2026-03-08 07:00:00"},
        {kNewYork, "2026-11-01 01:30:00", "2026-11-01 05:30:00"},
        {kNewYork, "2026-11-01 02:00:00", "2026-11-01 07:00:00"},
        {kLordHowe, "2026-10-04 02:15:00", "2026-10-03 15:30:00"},
        {kLordHowe, "2026-04-05 01:45:00", "2026-04-04 14:45:00"},
        {kSaoPaulo, "2018-11-04 00:30:00", "2018-11-04 03:00:00"},
        {kSaoPaulo, "2018-02-17 23:30:00", "2018-02-18 01:30:00"},
        {kKathmandu, "2026-05-01 05:45:00", "2026-05-01 00:00:00"},
    };
    for (const WallRow& row : rows) {
        const TimeZone zone(row.zone);
        EXPECT_EQ(UtcText(InstantOf(Wall(row.wall))), row.utc) << row.zone << " " << row.wall;
    }
}

TEST(WallTime, LaterTimesNeverComeEarlierAndAreShownWhenTheyCome) {
    for (const char* name : {kBerlin, kNewYork, kLordHowe, kSaoPaulo, kKathmandu, "UTC"}) {
        const TimeZone zone(name);
        TimePoint before = Utc("2018-01-01 00:00:00") - hours(48);
        for (WallTime wall = Wall("2018-01-01 00:00:00"); wall < Wall("2019-06-01 00:00:00");
             wall += seconds(713)) {
            const TimePoint instant = InstantOf(wall);
            ASSERT_GE(instant, before) << name << " " << TextOf(wall.time_since_epoch());
            ASSERT_GE(WallTimeOf(instant), wall) << name;
            ASSERT_LT(WallTimeOf(instant - seconds(1)), wall) << name;
            before = instant;
        }
    }
}

ScheduleTimes TimesOf(const std::string& lines) {
    ParsedSchedule schedule = ParseSchedule("K4 schedule 1\n" + lines);
    EXPECT_TRUE(schedule.problems.empty());
    return ScheduleTimes(std::move(schedule.entries));
}

/// What is due, as "LINE UTC-TIME".
std::vector<std::string> Due(const ScheduleTimes& times, const std::string& after,
                             const std::string& until) {
    std::vector<std::string> due;
    for (const DueEntry& one : times.Between(Utc(after), Utc(until)))
        due.push_back(std::to_string(one.entry->line) + " " + UtcText(one.at));
    return due;
}

using Texts = std::vector<std::string>;

TEST(ScheduleTimes, GoByTimeAndWhatIsDueAtOnceByTheFile) {
    const TimeZone zone("UTC");
    const ScheduleTimes times =
        TimesOf("at 20:00 stop\nat 06:00 blank\nat 20:00 next\nat 06:00 default\n");
    EXPECT_EQ(Due(times, "2026-06-01 00:00:00", "2026-06-02 06:00:00"),
              (Texts{"3 2026-06-01 06:00:00", "5 2026-06-01 06:00:00", "2 2026-06-01 20:00:00",
                     "4 2026-06-01 20:00:00", "3 2026-06-02 06:00:00", "5 2026-06-02 06:00:00"}));
}

TEST(ScheduleTimes, TheEarlierEndDoesntCountAndTheLaterDoes) {
    const TimeZone zone("UTC");
    const ScheduleTimes times = TimesOf("at 06:00:30 stop");
    EXPECT_EQ(Due(times, "2026-06-01 06:00:30", "2026-06-02 06:00:29"), Texts());
    EXPECT_EQ(Due(times, "2026-06-01 06:00:29", "2026-06-01 06:00:30"),
              (Texts{"2 2026-06-01 06:00:30"}));
    EXPECT_EQ(Due(times, "2026-06-01 06:00:30", "2026-06-01 06:00:30"), Texts());
    EXPECT_EQ(Due(times, "2026-06-02 00:00:00", "2026-06-01 00:00:00"), Texts());
}

TEST(ScheduleTimes, DaysAreThoseOfTheWallsClock) {
    const TimeZone zone(kNewYork);
    const ScheduleTimes times = TimesOf("at 22:00 fri stop\nat 01:00 sat-sun blank");
    // 2026-06-05 is a Friday; its evening there is Saturday's night in UTC.
    EXPECT_EQ(Due(times, "2026-06-01 00:00:00", "2026-06-08 23:00:00"),
              (Texts{"2 2026-06-06 02:00:00", "3 2026-06-06 05:00:00", "3 2026-06-07 05:00:00"}));
}

TEST(ScheduleTimes, HoursThatAreLeftOutAndThatComeTwice) {
    const TimeZone zone(kBerlin);
    const ScheduleTimes times =
        TimesOf("at 02:50 stop\nat 02:10 blank\nat 03:00 next\nat 02:10 default");
    EXPECT_EQ(Due(times, "2026-03-28 12:00:00", "2026-03-29 12:00:00"),
              (Texts{"3 2026-03-29 01:00:00", "5 2026-03-29 01:00:00", "2 2026-03-29 01:00:00",
                     "4 2026-03-29 01:00:00"}))
        << "in the order of their times";
    EXPECT_EQ(Due(times, "2026-10-24 12:00:00", "2026-10-25 12:00:00"),
              (Texts{"3 2026-10-25 00:10:00", "5 2026-10-25 00:10:00", "2 2026-10-25 00:50:00",
                     "4 2026-10-25 02:00:00"}))
        << "once each";
}

TEST(ScheduleTimes, TheNextOneIsFoundUpToAWeekAhead) {
    const TimeZone zone(kBerlin);
    const ScheduleTimes times = TimesOf("at 06:00 mon stop\nat 05:00 mon blank");
    const auto next = [&](const char* after) { return UtcText(*times.NextAfter(Utc(after))); };
    EXPECT_EQ(next("2026-10-19 02:59:59"), "2026-10-19 03:00:00");
    EXPECT_EQ(next("2026-10-19 03:00:00"), "2026-10-19 04:00:00");
    EXPECT_EQ(next("2026-10-19 04:00:00"), "2026-10-26 04:00:00") << "winter has come";
    EXPECT_EQ(TimesOf("").NextAfter(Utc("2026-10-19 02:59:59")), std::nullopt);
    EXPECT_EQ(ScheduleTimes().NextAfter(Utc("2026-10-19 02:59:59")), std::nullopt);
}

// Taken in steps of any size, each entry is due exactly once.
TEST(ScheduleTimes, NothingIsLeftOutOrDueTwiceInAYear) {
    for (const char* name : {kBerlin, kSaoPaulo, kLordHowe}) {
        const TimeZone zone(name);
        const ScheduleTimes times = TimesOf(
            "at 00:00 stop\nat 00:15 stop\nat 02:15 stop\n"
            "at 02:45 stop\nat 23:45 stop\nat 12:00 wed stop");
        std::size_t whole = 0;
        std::size_t inSteps = 0;
        TimePoint at = Utc("2018-01-01 12:00:01");
        const TimePoint end = at + hours(24 * 364);
        whole = times.Between(at, end).size();
        for (hours step(1); at < end; step = step % hours(97) + hours(7)) {
            const TimePoint until = std::min(at + step, end);
            const std::vector<DueEntry> due = times.Between(at, until);
            inSteps += due.size();
            const auto next = times.NextAfter(at);
            ASSERT_TRUE(next) << name;
            ASSERT_EQ(*next <= until, !due.empty()) << name;
            if (!due.empty()) {
                ASSERT_EQ(*next, due.front().at) << name;
            }
            at = until;
        }
        EXPECT_EQ(inSteps, whole) << name;
        EXPECT_EQ(whole, 364U * 5 + 52) << name;
    }
}

}  // namespace
