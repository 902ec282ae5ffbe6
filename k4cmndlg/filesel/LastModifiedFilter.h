#pragma once

#include <array>
#include <cstdint>
#include <ctime>

#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// The entries of the combo box "Last Modified:", in its order.
inline constexpr std::array<const char*, 5> kLastModifiedTexts{"today", "last 7 days", "last month",
                                                               "this month", "any time"};
/// The entry that admits every date, as every value behind it and -1 do.
inline constexpr int kAnyTime = 4;

/// Which files a list shows by the time of their last change, seen from one moment in local time.
class K4CMNCORE_EXPORT LastModifiedFilter {
 public:
    /// @param index in kLastModifiedTexts. @param now seconds since 1970 (UTC).
    LastModifiedFilter(int index, std::int64_t now);

    /// Whether a file with that time is shown. "last 7 days" ends before the sixth full day, on
    /// purpose: a file six days old no longer shows.
    bool Passes(std::int64_t modified) const;

 private:
    const int m_index;
    const std::int64_t m_now;
    const std::tm m_today;
};

}  // namespace k4cmn
