#pragma once

#include <cstdint>
#include <string>

#include "k4cmndlg/k4cmncore_export.h"
#include "k4cmndlg/search/SearchCriteria.h"

namespace k4cmn {

/// How long before today the first date of a search is at first: 90 days, in seconds.
inline constexpr std::int64_t kFirstDateBeforeToday = 7776000;

/// The day of a time, as the local calendar has it. @param seconds since 1970 (UTC).
K4CMNCORE_EXPORT CalendarDay DayOf(std::int64_t seconds);

/// A day as month, day and year: "%2d/%2d/%4d", such as " 3/ 9/2026".
K4CMNCORE_EXPORT std::string DateText(const CalendarDay& day);

}  // namespace k4cmn
