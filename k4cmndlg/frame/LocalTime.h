#pragma once

#include <cstdint>
#include <ctime>
#include <string>

#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// A time as the local calendar has it. Times out of the years 0 to 9999 become the nearer end of
/// these, so that every file has a date.
/// @param seconds since 1970 (UTC).
K4CMNCORE_EXPORT std::tm LocalTime(std::int64_t seconds);

/// A time as text, by a format of the standard library's strftime(), in English whatever the
/// language of the program: "AM" and "PM", "Monday", "January".
K4CMNCORE_EXPORT std::string TimeText(const char* format, const std::tm& time);

/// The present time in seconds since 1970, by the installed Clock.
K4CMNCORE_EXPORT std::int64_t SecondsNow();

}  // namespace k4cmn
