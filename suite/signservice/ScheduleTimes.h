#pragma once

#include <optional>
#include <vector>

#include "suite/signservice/Schedule.h"
#include "suite/signservice/WallTime.h"

namespace k4suite {

/// An entry and an instant at which it is due. The entry is that of the object that told it.
struct DueEntry {
    TimePoint at;
    const ScheduleEntry* entry;
};

/// Says when the entries of a schedule are due, by the clocks on the wall: see InstantOf() for the
/// hours that clocks leave out or show twice.
class ScheduleTimes {
 public:
    ScheduleTimes() = default;
    /// @param entries in the order of the file.
    explicit ScheduleTimes(std::vector<ScheduleEntry> entries);

    /// What is due later than one instant and no later than another, in the order in which it is
    /// carried out: by time, and what is due at once by the order of the file.
    std::vector<DueEntry> Between(TimePoint after, TimePoint until) const;
    /// When something is due next. @return nothing where nothing ever is.
    std::optional<TimePoint> NextAfter(TimePoint after) const;

 private:
    std::vector<ScheduleEntry> m_entries;  ///< by time of day, then in the order of the file
};

}  // namespace k4suite
