#include "k4cmndlg/search/DatePieces.h"

#include <gtest/gtest.h>

#include "tests/filesel/ScopedTimeZone.h"

namespace {

using k4cmn::CalendarDay;
using k4test::ScopedTimeZone;

TEST(DatePieces, AreWrittenMonthDayYearInTheirWidths) {
    const std::pair<CalendarDay, const char*> rows[] = {{{9, 3, 2026}, " 3/ 9/2026"},
                                                        {{31, 12, 1999}, "12/31/1999"},
                                                        {{1, 1, 27}, " 1/ 1/  27"},
                                                        {{0, 0, 0}, " 0/ 0/   0"},
                                                        {{5, 10, 12026}, "10/ 5/12026"}};
    for (const auto& [day, text] : rows)
        EXPECT_EQ(k4cmn::DateText(day), text);
}

TEST(DatePieces, ATimeHasTheDayOfTheLocalCalendar) {
    constexpr std::int64_t time = 1'800'000'000;  // 15 January 2027, 08:00 UTC
    const std::pair<const char*, CalendarDay> rows[] = {{"UTC", {15, 1, 2027}},
                                                        {"PST8", {15, 1, 2027}},
                                                        {"HST10", {14, 1, 2027}},
                                                        {"XXX-14", {15, 1, 2027}},
                                                        {"XXX-16", {16, 1, 2027}}};
    for (const auto& [name, day] : rows) {
        const ScopedTimeZone zone(name);
        EXPECT_EQ(k4cmn::DayOf(time), day) << name;
    }
}

TEST(DatePieces, NinetyDaysBeforeAreSecondsAndNoDates) {
    // The clocks went back in between: at half past midnight 90 days are 89 and a bit.
    const ScopedTimeZone zone("CET-1CEST,M3.5.0,M10.5.0/3");
    constexpr std::int64_t halfPast = 1'799'969'400;  // 15 January 2027, 00:30
    EXPECT_EQ(k4cmn::DayOf(halfPast), (CalendarDay{15, 1, 2027}));
    EXPECT_EQ(k4cmn::DayOf(halfPast - k4cmn::kFirstDateBeforeToday), (CalendarDay{17, 10, 2026}));
    constexpr std::int64_t late = halfPast + 23 * 3600;  // 23:30
    EXPECT_EQ(k4cmn::DayOf(late), (CalendarDay{15, 1, 2027}));
    EXPECT_EQ(k4cmn::DayOf(late - k4cmn::kFirstDateBeforeToday), (CalendarDay{18, 10, 2026}));
}

}  // namespace
