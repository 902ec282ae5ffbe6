#include <chrono>
#include <cstdint>

#include "tests/search/SearchTroubleFixture.h"

// The dates of the search where calendars and clocks are odd: long ago and far ahead, and where
// summer time begins or ends.

namespace {

using k4cmn::CalendarDay;
using k4cmn::FileStatus;
using k4cmn::SearchCriteria;

constexpr std::int64_t kHour = 3600;
constexpr std::int64_t kDay = 24 * kHour;

class SearchTimes : public k4test::SearchTroubleFixture {
 protected:
    void SetNow(std::int64_t seconds, int milliseconds = 0) {
        clock.Set(
            k4cmn::Clock::TimePoint(std::chrono::milliseconds(seconds * 1000 + milliseconds)));
    }
    bool Passes(const SearchCriteria& criteria, std::int64_t modified) {
        return k4cmn::SearchEngine(criteria, k4cmn::SearchMode::New, list, prompt)
                   .CheckDate(FileStatus{false, 0, modified}) != 0;
    }
    bool IsBetween(const CalendarDay& first, const CalendarDay& last, std::int64_t modified) {
        SearchCriteria criteria;
        criteria.dateFilter = k4cmn::DATE_MODIFIED;
        criteria.dateMode = k4cmn::DATE_BETWEEN;
        criteria.firstDate = first;
        criteria.lastDate = last;
        return Passes(criteria, modified);
    }
    /// The smallest number of months or days with which a file passes, from -100 to 100000.
    int Age(k4cmn::DateMode mode, std::int64_t modified) {
        SearchCriteria criteria;
        criteria.dateFilter = k4cmn::DATE_MODIFIED;
        criteria.dateMode = mode;
        int least = -100;
        int most = 100'000;
        while (least < most) {
            const int middle = least + (most - least) / 2;
            criteria.days = criteria.months = middle;
            if (Passes(criteria, modified))
                most = middle;
            else
                least = middle + 1;
        }
        return least;
    }
    int Months(std::int64_t modified) { return Age(k4cmn::DATE_MONTHS, modified); }
    int Days(std::int64_t modified) { return Age(k4cmn::DATE_DAYS, modified); }
};

TEST_F(SearchTimes, OfLongAgoAndFarAheadAreDaysToo) {
    const struct {
        CalendarDay day;
        std::int64_t midnight;
    } rows[] = {{{31, 12, 1969}, -kDay},          {{1, 1, 1970}, 0},
                {{13, 12, 1901}, -2'147'558'400}, {{1, 1, 1601}, -11'644'473'600},
                {{29, 2, 1600}, -11'670'998'400}, {{19, 1, 2038}, 2'147'472'000},
                {{7, 2, 2106}, 4'294'944'000},    {{29, 2, 2400}, 13'574'563'200}};
    for (const auto& [day, midnight] : rows) {
        EXPECT_FALSE(IsBetween(day, day, midnight - 1)) << day.year;
        EXPECT_TRUE(IsBetween(day, day, midnight)) << day.year;
        EXPECT_TRUE(IsBetween(day, day, midnight + kDay - 1)) << day.year;
        EXPECT_FALSE(IsBetween(day, day, midnight + kDay)) << day.year;
    }
    EXPECT_TRUE(IsBetween({1, 1, 1900}, {31, 12, 2200}, 0));
    EXPECT_FALSE(IsBetween({31, 12, 2200}, {1, 1, 1900}, 0)) << "the last before the first";
}

TEST_F(SearchTimes, OfLongAgoAndFarAheadHaveAnAge) {
    SetNow(-10 * kDay);  // 22 December 1969
    EXPECT_EQ(Days(-10 * kDay), 0);
    EXPECT_EQ(Days(-12 * kDay), 2);
    EXPECT_EQ(Months(-10 * kDay), 0);
    EXPECT_EQ(Months(-41 * kDay), 2) << "21 November";
    EXPECT_EQ(Months(0), 0) << "a later year";
    SetNow(13'574'563'200);  // 29 February 2400
    EXPECT_EQ(Days(13'574'563'200 - 999 * kDay), 999);
    EXPECT_EQ(Months(13'574'563'200 - 31 * kDay), 1) << "29 January";
    EXPECT_EQ(Months(13'574'563'200 - 32 * kDay), 2) << "28 January";
    SetNow(2'147'483'648);  // a second behind 31 bits
    EXPECT_EQ(Days(2'147'483'647), 0);
    EXPECT_EQ(Days(2'147'483'648 - kDay), 1);
    EXPECT_EQ(Days(0), 24'855);
    for (const std::int64_t far : {INT64_MIN, INT64_MIN + 1, INT64_MAX}) {
        EXPECT_FALSE(IsBetween({1, 1, 1900}, {31, 12, 2200}, far)) << far;
        EXPECT_EQ(Days(far) > 0, far < 0) << far;
        EXPECT_EQ(Months(far) > 0, far < 0) << far;
    }
}

TEST_F(SearchTimes, WholeSecondsAndWholeDaysCount) {
    constexpr std::int64_t now = 1'785'506'709;
    for (const int milliseconds : {0, 1, 999}) {
        SetNow(now, milliseconds);
        EXPECT_EQ(Days(now - kDay + 1), 0);
        EXPECT_EQ(Days(now - kDay), 1);
        EXPECT_EQ(Days(now - 2 * kDay + 1), 1);
        EXPECT_EQ(Days(now + kDay - 1), 0) << "cut toward zero";
        EXPECT_EQ(Days(now + kDay), -1);
        EXPECT_EQ(Days(now + 2 * kDay - 1), -1);
    }
}

TEST_F(SearchTimes, DaysAreOfTwentyFourHoursWhereSummerTimeBegins) {
    const k4test::ScopedTimeZone berlin("CET-1CEST,M3.5.0,M10.5.0/3");
    constexpr std::int64_t noon = 1'774'864'800;  // 30 March 2026, 12:00, the day behind
    SetNow(noon);
    EXPECT_EQ(Days(noon - 47 * kHour), 1) << "28 March, 12:00";
    EXPECT_EQ(Days(noon - 48 * kHour), 2) << "28 March, 11:00";
    constexpr std::int64_t autumn = 1'793'012'400;  // 26 October 2026, 12:00
    SetNow(autumn);
    EXPECT_EQ(Days(autumn - 25 * kHour), 1) << "25 October, 12:00";
    EXPECT_EQ(Days(autumn - 48 * kHour), 2) << "24 October, 13:00";
}

TEST_F(SearchTimes, ADayOfTwentyThreeOrTwentyFiveHoursIsADay) {
    const k4test::ScopedTimeZone berlin("CET-1CEST,M3.5.0,M10.5.0/3");
    const CalendarDay spring{29, 3, 2026};
    constexpr std::int64_t springBegin = 1'774'738'800;
    EXPECT_FALSE(IsBetween(spring, spring, springBegin - 1));
    EXPECT_TRUE(IsBetween(spring, spring, springBegin));
    EXPECT_TRUE(IsBetween(spring, spring, springBegin + 23 * kHour - 1));
    EXPECT_FALSE(IsBetween(spring, spring, springBegin + 23 * kHour));
    const CalendarDay autumn{25, 10, 2026};
    constexpr std::int64_t autumnBegin = 1'792'879'200;
    EXPECT_FALSE(IsBetween(autumn, autumn, autumnBegin - 1));
    EXPECT_TRUE(IsBetween(autumn, autumn, autumnBegin));
    EXPECT_TRUE(IsBetween(autumn, autumn, autumnBegin + 25 * kHour - 1));
    EXPECT_FALSE(IsBetween(autumn, autumn, autumnBegin + 25 * kHour));
}

TEST_F(SearchTimes, ADayMayBeginAtOneAndEndTwice) {
    const k4test::ScopedTimeZone zoneOfMidnight("BRT3BRST,M10.3.0/0,M2.3.0/0");
    const CalendarDay spring{18, 10, 2026};
    constexpr std::int64_t springBegin = 1'792'292'400;  // 01:00, there is no midnight
    for (int i = 0; i < 3; ++i) {                        // whatever was asked before
        EXPECT_FALSE(IsBetween(spring, spring, springBegin - 1));
        EXPECT_TRUE(IsBetween(spring, spring, springBegin));
        EXPECT_TRUE(IsBetween(spring, spring, springBegin + 23 * kHour - 1));
        EXPECT_FALSE(IsBetween(spring, spring, springBegin + 23 * kHour));
        const CalendarDay autumn{14, 2, 2026};
        constexpr std::int64_t firstEnd = 1'771'120'799;  // 23:59:59, for the first time
        EXPECT_FALSE(IsBetween(autumn, autumn, firstEnd - 24 * kHour));
        EXPECT_TRUE(IsBetween(autumn, autumn, firstEnd - 24 * kHour + 1));
        EXPECT_TRUE(IsBetween(autumn, autumn, firstEnd));
        EXPECT_TRUE(IsBetween(autumn, autumn, firstEnd + 1)) << "23:00:00, once more";
        EXPECT_TRUE(IsBetween(autumn, autumn, firstEnd + kHour));
        EXPECT_FALSE(IsBetween(autumn, autumn, firstEnd + kHour + 1));
    }
}

TEST_F(SearchTimes, MonthsAreThoseOfTheZone) {
    constexpr std::int64_t now = 1'767'225'599;  // 31 December 2025, 23:59:59 UTC
    SetNow(now);
    EXPECT_EQ(Months(now - 31 * kDay), 2) << "30 November";
    EXPECT_EQ(Months(now - 30 * kDay), 0) << "1 December";
    EXPECT_EQ(Months(now + 1), 0) << "next year";
    const k4test::ScopedTimeZone east("<+14>-14");  // 1 January 2026, 13:59:59
    EXPECT_EQ(Months(now - 31 * kDay), 1) << "1 December, 13:59:59";
    EXPECT_EQ(Months(now), 0);
    EXPECT_EQ(Months(now + 32 * kDay), -1) << "2 February";
    EXPECT_EQ(Months(now - 14 * kHour), 1) << "31 December, 23:59:59 of last year";
}

}  // namespace
