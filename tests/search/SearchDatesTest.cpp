#include "k4cmndlg/search/SearchDates.h"

#include <gtest/gtest.h>

#include <limits>

#include "k4cmndlg/frame/LocalTime.h"
#include "tests/filesel/ScopedTimeZone.h"

namespace {

using k4cmn::CalendarDay;
using k4cmn::DayNumber;
using k4cmn::SearchCriteria;
using k4cmn::SearchDates;

constexpr char kBerlin[] = "CET-1CEST,M3.5.0,M10.5.0/3";
constexpr char kMidnightChange[] = "<-03>3<-02>,M10.3.0/0,M2.3.0/0";

constexpr std::int64_t kHour = 3600;
constexpr std::int64_t kDay = 24 * kHour;
constexpr std::int64_t k1Nov2026 = 1'793'491'200;  // 00:00 UTC
constexpr std::int64_t kNow = k1Nov2026 + 14 * kDay + 12 * kHour;

SearchCriteria Between(CalendarDay first, CalendarDay last) {
    SearchCriteria criteria;
    criteria.dateFilter = k4cmn::DATE_MODIFIED;
    criteria.dateMode = k4cmn::DATE_BETWEEN;
    criteria.firstDate = first;
    criteria.lastDate = last;
    return criteria;
}

bool IsBetween(CalendarDay first, CalendarDay last, std::int64_t modified) {
    return SearchDates(Between(first, last), kNow).Passes(modified);
}

bool IsWithinMonths(int months, std::int64_t now, std::int64_t modified) {
    SearchCriteria criteria;
    criteria.dateFilter = k4cmn::DATE_MODIFIED;
    criteria.dateMode = k4cmn::DATE_MONTHS;
    criteria.months = months;
    return SearchDates(criteria, now).Passes(modified);
}

bool IsWithinDays(int days, std::int64_t now, std::int64_t modified) {
    SearchCriteria criteria;
    criteria.dateFilter = k4cmn::DATE_MODIFIED;
    criteria.dateMode = k4cmn::DATE_DAYS;
    criteria.days = days;
    return SearchDates(criteria, now).Passes(modified);
}

std::tm Day(int year, int month, int day) {
    std::tm time{};
    time.tm_year = year - 1900;
    time.tm_mon = month - 1;
    time.tm_mday = day;
    return time;
}

/// A moment by the clock on the wall.
std::int64_t Local(int year, int month, int day, int hour, int minute, int second, int isSummer) {
    std::tm time = Day(year, month, day);
    time.tm_hour = hour;
    time.tm_min = minute;
    time.tm_sec = second;
    time.tm_isdst = isSummer;
    return std::mktime(&time);
}

TEST(SearchDates, AllFilesPassWhateverTheModeSays) {
    SearchCriteria criteria = Between({1, 1, 2001}, {2, 1, 2001});
    criteria.dateFilter = k4cmn::DATE_ALL_FILES;
    for (const int mode : {k4cmn::DATE_BETWEEN, k4cmn::DATE_MONTHS, k4cmn::DATE_DAYS}) {
        criteria.dateMode = mode;
        EXPECT_TRUE(SearchDates(criteria, kNow).Passes(0)) << mode;
    }
}

TEST(SearchDates, AFilterOrAModeThatIsNotKnownPassesEveryFile) {
    SearchCriteria criteria = Between({1, 1, 2001}, {2, 1, 2001});
    for (const int mode : {-1, 3, std::numeric_limits<int>::max()}) {
        criteria.dateMode = mode;
        EXPECT_TRUE(SearchDates(criteria, kNow).Passes(0)) << mode;
    }
    criteria.dateMode = k4cmn::DATE_BETWEEN;
    ASSERT_FALSE(SearchDates(criteria, kNow).Passes(0));
    for (const int filter : {-1, 2}) {
        criteria.dateFilter = filter;
        EXPECT_TRUE(SearchDates(criteria, kNow).Passes(0)) << filter;
    }
}

TEST(SearchDatesBetween, CountsFromTheFirstSecondOfTheOneDayToTheLastOfTheOther) {
    const k4test::ScopedTimeZone zone("UTC0");
    const CalendarDay first{1, 11, 2026};
    const CalendarDay last{3, 11, 2026};
    EXPECT_FALSE(IsBetween(first, last, k1Nov2026 - 1));
    EXPECT_TRUE(IsBetween(first, last, k1Nov2026));
    EXPECT_TRUE(IsBetween(first, last, k1Nov2026 + 3 * kDay - 1));
    EXPECT_FALSE(IsBetween(first, last, k1Nov2026 + 3 * kDay));
}

TEST(SearchDatesBetween, IsTheLocalDay) {
    const k4test::ScopedTimeZone zone("EST5");
    EXPECT_FALSE(IsBetween({1, 11, 2026}, {1, 11, 2026}, k1Nov2026 + 5 * kHour - 1));
    EXPECT_TRUE(IsBetween({1, 11, 2026}, {1, 11, 2026}, k1Nov2026 + 5 * kHour));
    EXPECT_TRUE(IsBetween({1, 11, 2026}, {1, 11, 2026}, k1Nov2026 + 29 * kHour - 1));
    EXPECT_FALSE(IsBetween({1, 11, 2026}, {1, 11, 2026}, k1Nov2026 + 29 * kHour));
}

TEST(SearchDatesBetween, HasSummerTimeWithinIt) {
    const k4test::ScopedTimeZone zone(kBerlin);
    // The clocks go forward on 29 March 2026, and back on 25 October.
    const std::int64_t begin = Local(2026, 3, 28, 0, 0, 0, 0);
    const std::int64_t inSummer = Local(2026, 3, 30, 23, 59, 59, 1);
    ASSERT_EQ(inSummer - begin, 3 * kDay - kHour - 1);
    EXPECT_FALSE(IsBetween({28, 3, 2026}, {30, 3, 2026}, begin - 1));
    EXPECT_TRUE(IsBetween({28, 3, 2026}, {30, 3, 2026}, begin));
    EXPECT_TRUE(IsBetween({28, 3, 2026}, {30, 3, 2026}, inSummer));
    EXPECT_FALSE(IsBetween({28, 3, 2026}, {30, 3, 2026}, inSummer + 1));

    const std::int64_t longDay = Local(2026, 10, 25, 0, 0, 0, 1);
    EXPECT_FALSE(IsBetween({25, 10, 2026}, {25, 10, 2026}, longDay - 1));
    EXPECT_TRUE(IsBetween({25, 10, 2026}, {25, 10, 2026}, longDay));
    EXPECT_TRUE(IsBetween({25, 10, 2026}, {25, 10, 2026}, longDay + 25 * kHour - 1));
    EXPECT_FALSE(IsBetween({25, 10, 2026}, {25, 10, 2026}, longDay + 25 * kHour));
}

TEST(SearchDatesBetween, FindsTheWholeDayWhereClocksChangeAtMidnight) {
    const k4test::ScopedTimeZone zone(kMidnightChange);
    // 18 October 2026 begins at 01:00, an hour having been left out.
    const std::int64_t begin = Local(2026, 10, 18, 1, 0, 0, 1);
    EXPECT_FALSE(IsBetween({18, 10, 2026}, {18, 10, 2026}, begin - 1));
    EXPECT_TRUE(IsBetween({18, 10, 2026}, {18, 10, 2026}, begin));
    // The last hour of 14 February 2026 comes twice.
    const std::int64_t next = Local(2026, 2, 15, 0, 0, 0, 0);
    EXPECT_TRUE(IsBetween({14, 2, 2026}, {14, 2, 2026}, next - 1));
    EXPECT_TRUE(IsBetween({14, 2, 2026}, {14, 2, 2026}, next - 2 * kHour));
    EXPECT_FALSE(IsBetween({14, 2, 2026}, {14, 2, 2026}, next));
}

TEST(SearchDatesBetween, ReachesBehind2038AndBefore1970) {
    const k4test::ScopedTimeZone zone("UTC0");
    const std::int64_t in2050 = 2'524'608'000;  // 1 January
    EXPECT_FALSE(IsBetween({1, 1, 2050}, {31, 12, 2050}, in2050 - 1));
    EXPECT_TRUE(IsBetween({1, 1, 2050}, {31, 12, 2050}, in2050));
    const std::int64_t in1969 = -365 * kDay;
    EXPECT_FALSE(IsBetween({1, 1, 1969}, {31, 12, 1969}, in1969 - 1));
    EXPECT_TRUE(IsBetween({1, 1, 1969}, {31, 12, 1969}, in1969));
    EXPECT_TRUE(IsBetween({1, 1, 1969}, {31, 12, 1969}, -1));
    EXPECT_FALSE(IsBetween({1, 1, 1969}, {31, 12, 1969}, 0));
}

TEST(SearchDatesBetween, FindsNothingTheWrongWayRound) {
    const k4test::ScopedTimeZone zone("UTC0");
    EXPECT_FALSE(IsBetween({2, 11, 2026}, {1, 11, 2026}, k1Nov2026));
    EXPECT_FALSE(IsBetween({2, 11, 2026}, {1, 11, 2026}, k1Nov2026 + kDay));
}

TEST(SearchDatesBetween, FindsNothingWhereAPieceOfADayIsNotChosen) {
    const k4test::ScopedTimeZone zone("UTC0");
    const CalendarDay whole{1, 11, 2026};
    for (const CalendarDay& part :
         {CalendarDay{}, CalendarDay{0, 11, 2026}, CalendarDay{1, 0, 2026}, CalendarDay{1, 11, 0},
          CalendarDay{-1, 11, 2026}, CalendarDay{1, -1, 2026}, CalendarDay{1, 11, -1}}) {
        EXPECT_FALSE(IsBetween(part, whole, k1Nov2026)) << part.day << part.month << part.year;
        EXPECT_FALSE(IsBetween(whole, part, k1Nov2026)) << part.day << part.month << part.year;
    }
    EXPECT_TRUE(IsBetween(whole, whole, k1Nov2026));
}

TEST(SearchDatesBetween, CountsOnBehindTheEndOfAMonth) {
    const k4test::ScopedTimeZone zone("UTC0");
    EXPECT_TRUE(IsBetween({31, 11, 2026}, {31, 11, 2026}, k1Nov2026 + 30 * kDay)) << "1 December";
    EXPECT_FALSE(IsBetween({31, 11, 2026}, {31, 11, 2026}, k1Nov2026 + 29 * kDay));
    EXPECT_TRUE(IsBetween({1, 11, 2026}, {1, 13, 2026}, k1Nov2026 + 61 * kDay)) << "1 January";
    EXPECT_FALSE(IsBetween({1, 11, 2026}, {1, 13, 2026}, k1Nov2026 + 62 * kDay));
}

TEST(SearchDatesBetween, TakesDaysOfAnySize) {
    constexpr int most = std::numeric_limits<int>::max();
    EXPECT_TRUE(IsBetween({1, 1, 1}, {most, most, most}, k1Nov2026));
    EXPECT_FALSE(IsBetween({most, most, most}, {most, most, most}, k1Nov2026));
    for (const std::int64_t time :
         {std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()})
        EXPECT_FALSE(IsBetween({1, 1, 2000}, {31, 12, 2030}, time)) << time;
}

TEST(DayNumber, CountsFrom1970) {
    EXPECT_EQ(DayNumber({1, 1, 1970}), 0);
    EXPECT_EQ(DayNumber({31, 12, 1969}), -1);
    EXPECT_EQ(DayNumber({29, 2, 2024}), DayNumber({1, 3, 2024}).value() - 1);
    EXPECT_EQ(DayNumber({29, 2, 2023}), DayNumber({1, 3, 2023}));
    EXPECT_EQ(DayNumber({1, 1, 2040}), 25567);
    EXPECT_EQ(DayNumber({0, 1, 1970}), std::nullopt);
}

struct MonthsRow {
    const char* what;
    std::tm now;
    std::tm then;
    int elapsed;
};

TEST(MonthsElapsed, FollowsTheCalendar) {
    const MonthsRow rows[] = {
        {"the same day", Day(2026, 11, 15), Day(2026, 11, 15), 0},
        {"earlier in the month", Day(2026, 11, 15), Day(2026, 11, 1), 0},
        {"later in the month", Day(2026, 11, 15), Day(2026, 11, 30), 0},
        {"a month to the day", Day(2026, 11, 15), Day(2026, 10, 15), 1},
        {"a month and a day", Day(2026, 11, 15), Day(2026, 10, 14), 2},
        {"less than a month", Day(2026, 11, 15), Day(2026, 10, 16), 1},
        {"last day of the month before", Day(2026, 11, 1), Day(2026, 10, 31), 1},
        {"the same on the month's last day", Day(2026, 12, 31), Day(2026, 11, 30), 2},
        {"last month of the year before", Day(2026, 1, 10), Day(2025, 12, 10), 1},
        {"the same and a day", Day(2026, 1, 11), Day(2025, 12, 10), 2},
        {"the same month of the year before", Day(2026, 11, 15), Day(2025, 11, 15), 12},
        {"a later month of the year before", Day(2026, 2, 1), Day(2025, 11, 30), 3},
        {"an earlier month of the year before", Day(2026, 11, 1), Day(2025, 2, 1), 21},
        {"two years", Day(2026, 11, 15), Day(2024, 11, 15), 24},
        {"two years less a month", Day(2026, 11, 15), Day(2024, 12, 20), 23},
        {"two years and a bit", Day(2026, 11, 15), Day(2024, 11, 14), 25},
        {"a later month of this year", Day(2026, 11, 15), Day(2026, 12, 1), -1},
        {"the next year", Day(2026, 11, 15), Day(2027, 1, 1), 0},
        {"a far year", Day(2026, 11, 15), Day(9999, 1, 1), 0},
        {"before 1970", Day(1970, 1, 1), Day(1969, 12, 31), 1},
        {"behind 2038", Day(2040, 2, 2), Day(2038, 1, 2), 25},
    };
    for (const MonthsRow& row : rows)
        EXPECT_EQ(k4cmn::MonthsElapsed(row.now, row.then), row.elapsed) << row.what;
}

TEST(SearchDatesMonths, PassUpToTheGivenNumber) {
    const k4test::ScopedTimeZone zone("UTC0");
    const std::int64_t lastOfOctober = k1Nov2026 - 1;
    EXPECT_TRUE(IsWithinMonths(1, k1Nov2026, lastOfOctober)) << "1 November is before the 31st";
    const std::int64_t monthAndDay = k1Nov2026 + 14 * kDay - 32 * kDay;  // 14 October
    EXPECT_FALSE(IsWithinMonths(1, k1Nov2026 + 14 * kDay, monthAndDay));
    EXPECT_TRUE(IsWithinMonths(2, k1Nov2026 + 14 * kDay, monthAndDay));
    EXPECT_TRUE(IsWithinMonths(999, kNow, kNow - 82 * 365 * kDay));
    EXPECT_FALSE(IsWithinMonths(999, kNow, kNow - 84 * 366 * kDay));
}

TEST(SearchDatesMonths, TellTheLocalDay) {
    // 1 November, 02:00 UTC, is 31 October in New York.
    const std::int64_t now = k1Nov2026 + 2 * kHour;
    const std::int64_t file = k1Nov2026 - 31 * kDay;  // 1 October, 00:00 UTC
    {
        const k4test::ScopedTimeZone zone("UTC0");
        EXPECT_TRUE(IsWithinMonths(1, now, file));
    }
    const k4test::ScopedTimeZone zone("EST5");
    EXPECT_FALSE(IsWithinMonths(1, now, file)) << "30 September to 31 October";
    EXPECT_TRUE(IsWithinMonths(2, now, file));
}

TEST(SearchDatesMonths, PassFilesOfTheFuture) {
    const k4test::ScopedTimeZone zone("UTC0");
    for (const std::int64_t ahead : {kDay, 40 * kDay, 400 * kDay, 400'000 * kDay})
        EXPECT_TRUE(IsWithinMonths(1, kNow, kNow + ahead)) << ahead;
}

TEST(DaysElapsed, CutsTowardZero) {
    EXPECT_EQ(k4cmn::DaysElapsed(kDay - 1, 0), 0);
    EXPECT_EQ(k4cmn::DaysElapsed(kDay, 0), 1);
    EXPECT_EQ(k4cmn::DaysElapsed(0, kDay - 1), 0);
    EXPECT_EQ(k4cmn::DaysElapsed(0, kDay), -1);
    EXPECT_EQ(k4cmn::DaysElapsed(kDay / 2, -kDay / 2), 1) << "before 1970";
}

TEST(SearchDatesDays, PassUpToTheLastSecondOfTheNextDay) {
    EXPECT_TRUE(IsWithinDays(1, kNow, kNow));
    EXPECT_TRUE(IsWithinDays(1, kNow, kNow - 2 * kDay + 1));
    EXPECT_FALSE(IsWithinDays(1, kNow, kNow - 2 * kDay));
    EXPECT_TRUE(IsWithinDays(999, kNow, kNow - 1000 * kDay + 1));
    EXPECT_FALSE(IsWithinDays(999, kNow, kNow - 1000 * kDay));
}

TEST(SearchDatesDays, AreSecondsWhateverTheClocksOnTheWall) {
    const k4test::ScopedTimeZone zone(kBerlin);
    const std::int64_t now = Local(2026, 3, 30, 0, 0, 0, 1);
    EXPECT_TRUE(IsWithinDays(1, now, now - 2 * kDay + 1)) << "one day of it had 23 hours";
    EXPECT_FALSE(IsWithinDays(1, now, now - 2 * kDay));
}

TEST(SearchDatesDays, PassFilesOfTheFuture) {
    for (const std::int64_t ahead : {std::int64_t{1}, kDay, 400'000 * kDay})
        EXPECT_TRUE(IsWithinDays(1, kNow, kNow + ahead)) << ahead;
}

TEST(SearchDatesDays, TakeTimesOfAnySize) {
    EXPECT_FALSE(IsWithinDays(999, kNow, std::numeric_limits<std::int64_t>::min()));
    EXPECT_TRUE(IsWithinDays(1, kNow, std::numeric_limits<std::int64_t>::max()));
}

}  // namespace
