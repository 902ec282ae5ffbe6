#include <gtest/gtest.h>

#include <limits>

#include "k4cmndlg/filesel/LastModifiedFilter.h"
#include "k4cmndlg/frame/LocalTime.h"
#include "k4cmndlg/frame/contracts/Clock.h"
#include "tests/filesel/ScopedTimeZone.h"
#include "tests/support/DrivenClock.h"

namespace {

using k4cmn::LastModifiedFilter;
using k4cmn::LocalTime;
using k4cmn::TimeText;

constexpr char kCentralEurope[] = "CET-1CEST,M3.5.0,M10.5.0/3";
constexpr std::int64_t kHour = 3600;
constexpr std::int64_t kDay = 24 * kHour;
// 31 July 2026, 14:05:09 UTC, a Friday.
constexpr std::int64_t kNow = 1'785'506'709;

TEST(LocalTimes, FollowTheZone) {
    {
        const k4test::ScopedTimeZone utc("UTC0");
        EXPECT_EQ(TimeText("%m/%d/%y %I:%M %p", LocalTime(kNow)), "07/31/26 02:05 PM");
    }
    const k4test::ScopedTimeZone zone(kCentralEurope);
    EXPECT_EQ(TimeText("%m/%d/%y %I:%M %p", LocalTime(kNow)), "07/31/26 04:05 PM");
    EXPECT_EQ(TimeText("%A, %B %d, %Y  %I:%M:%S %p", LocalTime(kNow)),
              "Friday, July 31, 2026  04:05:09 PM");
}

TEST(LocalTimes, NoonAndMidnightAreTwelve) {
    const k4test::ScopedTimeZone utc("UTC0");
    EXPECT_EQ(TimeText("%I:%M %p", LocalTime(0)), "12:00 AM");
    EXPECT_EQ(TimeText("%I:%M %p", LocalTime(12 * kHour)), "12:00 PM");
    EXPECT_EQ(TimeText("%m/%d/%y", LocalTime(-1)), "12/31/69");
}

TEST(LocalTimes, FarAwayBecomeTheNearerEnd) {
    const k4test::ScopedTimeZone utc("UTC0");
    EXPECT_EQ(TimeText("%m/%d/%y %H", LocalTime(std::numeric_limits<std::int64_t>::max())),
              "12/30/99 23");
    EXPECT_EQ(TimeText("%m/%d/%y %H", LocalTime(std::numeric_limits<std::int64_t>::min())),
              "01/02/00 00");
}

TEST(LocalTimes, NowIsTheClocks) {
    k4test::DrivenClock clock;
    const k4cmn::ScopedProvider<k4cmn::Clock> use(clock);
    clock.Set(k4cmn::Clock::TimePoint(std::chrono::milliseconds(kNow * 1000 + 999)));
    EXPECT_EQ(k4cmn::SecondsNow(), kNow);
    clock.Set(k4cmn::Clock::TimePoint(std::chrono::milliseconds(-1)));
    EXPECT_EQ(k4cmn::SecondsNow(), -1);
}

struct FilterCase {
    const char* name;
    int index;
    std::int64_t modified;
    bool passes;
};

class LastModified : public testing::TestWithParam<FilterCase> {};

TEST_P(LastModified, AdmitsByItsRule) {
    const k4test::ScopedTimeZone zone("UTC0");
    EXPECT_EQ(LastModifiedFilter(GetParam().index, kNow).Passes(GetParam().modified),
              GetParam().passes);
}

constexpr std::int64_t kMidnight = kNow - (14 * kHour + 5 * 60 + 9);
constexpr std::int64_t kFirstOfJuly = kMidnight - 30 * kDay;
constexpr std::int64_t kFirstOfJune = kFirstOfJuly - 30 * kDay;

INSTANTIATE_TEST_SUITE_P(
    Rules, LastModified,
    testing::Values(FilterCase{"TodayFromMidnight", 0, kMidnight, true},
                    FilterCase{"TodayNotBefore", 0, kMidnight - 1, false},
                    FilterCase{"TodayToItsEnd", 0, kMidnight + kDay - 1, true},
                    FilterCase{"TodayNotTomorrow", 0, kMidnight + kDay, false},
                    FilterCase{"TodayNotTheSameDayOfLastMonth", 0, kNow - 31 * kDay, false},
                    FilterCase{"TodayNotTheSameDayOfLastYear", 0, kNow - 365 * kDay, false},
                    FilterCase{"WeekEndsBeforeSixDays", 1, kNow - 6 * kDay + 1, true},
                    FilterCase{"WeekHidesExactlySixDays", 1, kNow - 6 * kDay, false},
                    FilterCase{"WeekHidesSevenDays", 1, kNow - 7 * kDay, false},
                    FilterCase{"WeekShowsTheFuture", 1, kNow + 400 * kDay, true},
                    FilterCase{"WeekFarFuture", 1, std::numeric_limits<std::int64_t>::max(), true},
                    FilterCase{"WeekFarPast", 1, std::numeric_limits<std::int64_t>::min(), false},
                    FilterCase{"LastMonthFromItsFirst", 2, kFirstOfJune, true},
                    FilterCase{"LastMonthNotBefore", 2, kFirstOfJune - 1, false},
                    FilterCase{"LastMonthToItsEnd", 2, kFirstOfJuly - 1, true},
                    FilterCase{"LastMonthNotThisOne", 2, kFirstOfJuly, false},
                    FilterCase{"LastMonthNotAYearBefore", 2, kFirstOfJune - 365 * kDay, false},
                    FilterCase{"ThisMonthFromItsFirst", 3, kFirstOfJuly, true},
                    FilterCase{"ThisMonthNotBefore", 3, kFirstOfJuly - 1, false},
                    FilterCase{"ThisMonthNotTheNext", 3, kMidnight + kDay, false},
                    FilterCase{"ThisMonthNotAYearBefore", 3, kNow - 365 * kDay, false},
                    FilterCase{"AnyTime", 4, 0, true}, FilterCase{"NoEntry", -1, 0, true},
                    FilterCase{"PastTheEntries", 99, 0, true}),
    [](const auto& testCase) { return std::string(testCase.param.name); });

TEST(LastModified, LastMonthOfJanuaryIsDecember) {
    const k4test::ScopedTimeZone zone("UTC0");
    constexpr std::int64_t january = 1'768'435'200;  // 15 January 2026
    const LastModifiedFilter filter(2, january);
    EXPECT_TRUE(filter.Passes(january - 15 * kDay));
    EXPECT_FALSE(filter.Passes(january));
    EXPECT_FALSE(filter.Passes(january - 365 * kDay));
    EXPECT_FALSE(filter.Passes(january - 50 * kDay));
}

TEST(LastModified, TodayIsTheLocalOne) {
    const k4test::ScopedTimeZone zone(kCentralEurope);
    const LastModifiedFilter filter(0, kNow);
    EXPECT_TRUE(filter.Passes(kMidnight - 2 * kHour)) << "midnight is two hours before UTC's";
    EXPECT_FALSE(filter.Passes(kMidnight - 2 * kHour - 1));
    EXPECT_FALSE(filter.Passes(kMidnight + kDay - 1));
}

TEST(LastModified, DaysOfAnotherLengthAreOneDay) {
    const k4test::ScopedTimeZone zone(kCentralEurope);
    // 25 October 2026 has 25 hours: from 22:00 UTC the day before to 23:00 UTC.
    constexpr std::int64_t begin = 1'792'879'200;
    const LastModifiedFilter today(0, begin + 25 * kHour - 1);
    EXPECT_EQ(TimeText("%m/%d/%y %I:%M %p", LocalTime(begin)), "10/25/26 12:00 AM");
    EXPECT_TRUE(today.Passes(begin));
    EXPECT_FALSE(today.Passes(begin - 1));
    EXPECT_TRUE(today.Passes(begin + 25 * kHour - 1));
    EXPECT_FALSE(today.Passes(begin + 25 * kHour));
    // The six days are of 86400 seconds each, whatever the clocks did.
    const LastModifiedFilter week(1, begin + 3 * kDay);
    EXPECT_TRUE(week.Passes(begin - 3 * kDay + 1));
    EXPECT_FALSE(week.Passes(begin - 3 * kDay));
    // The month ends an hour later than it would in summer.
    constexpr std::int64_t november = begin + kHour + 7 * kDay;
    EXPECT_TRUE(LastModifiedFilter(2, november).Passes(november - 1));
    EXPECT_TRUE(LastModifiedFilter(3, november).Passes(november));
    EXPECT_FALSE(LastModifiedFilter(3, november).Passes(november - 1));
}

TEST(LastModified, EntriesAreInOrder) {
    EXPECT_STREQ(k4cmn::kLastModifiedTexts[0], "today");
    EXPECT_STREQ(k4cmn::kLastModifiedTexts[1], "last 7 days");
    EXPECT_STREQ(k4cmn::kLastModifiedTexts[2], "last month");
    EXPECT_STREQ(k4cmn::kLastModifiedTexts[3], "this month");
    EXPECT_STREQ(k4cmn::kLastModifiedTexts[k4cmn::kAnyTime], "any time");
}

}  // namespace
