#pragma once

#include <cstdint>
#include <ctime>
#include <optional>

#include "k4cmndlg/k4cmncore_export.h"
#include "k4cmndlg/search/SearchCriteria.h"

namespace k4cmn {

/// The number of a day, counted from 1 January 1970. A day behind the end of its month counts on
/// into the next one, and a month behind December into the next year.
/// @return nothing for a day of which a piece isn't chosen.
K4CMNCORE_EXPORT std::optional<std::int64_t> DayNumber(const CalendarDay& day);

/// How many whole days have gone by, a day being 86400 seconds; negative or 0 for a time to come.
/// @param now, then seconds since 1970.
K4CMNCORE_EXPORT std::int64_t DaysElapsed(std::int64_t now, std::int64_t then);

/// How many months have gone by on the calendar, a begun one counted as a whole: one from the last
/// day of a month to the first of the next, and two to the day behind that in number. Negative for
/// a later month of this year, and 0 for a later year.
K4CMNCORE_EXPORT int MonthsElapsed(const std::tm& now, const std::tm& then);

/// Which files a search finds by the time of their last change, seen from one moment in local time.
class K4CMNCORE_EXPORT SearchDates {
 public:
    /// @param now seconds since 1970 (UTC).
    SearchDates(const SearchCriteria& criteria, std::int64_t now);

    /// Whether a file with that time is found. Between two days, every second of both counts; with
    /// one of the days not chosen, nothing is found. A filter or a mode that isn't known passes
    /// every file.
    bool Passes(std::int64_t modified) const;

 private:
    bool IsBetween(std::int64_t modified) const;

    const int m_filter;
    const int m_mode;
    const int m_days;
    const int m_months;
    const std::optional<std::int64_t> m_firstDay;
    const std::optional<std::int64_t> m_lastDay;
    const std::int64_t m_now;
    const std::tm m_today;
};

}  // namespace k4cmn
