#include "suite/signservice/ScheduleTimes.h"

#include <algorithm>
#include <utility>

namespace k4suite {

namespace {

using std::chrono::days;
using std::chrono::local_days;

bool IsDueOn(const ScheduleEntry& entry, local_days date) {
    return (entry.days >> std::chrono::weekday(date).c_encoding() & 1) != 0;
}

local_days DateOf(TimePoint instant) {
    return std::chrono::floor<days>(WallTimeOf(instant));
}

}  // namespace

ScheduleTimes::ScheduleTimes(std::vector<ScheduleEntry> entries) : m_entries(std::move(entries)) {
    std::stable_sort(
        m_entries.begin(), m_entries.end(),
        [](const ScheduleEntry& one, const ScheduleEntry& other) { return one.time < other.time; });
}

// Later dates and times never are earlier instants, so that this order is that of the instants. The
// dates at both ends are looked at with a day to spare, for what clocks do around midnight.
std::vector<DueEntry> ScheduleTimes::Between(TimePoint after, TimePoint until) const {
    std::vector<DueEntry> due;
    const local_days last = DateOf(until) + days(1);
    for (local_days date = DateOf(after) - days(1); date <= last; date += days(1))
        for (const ScheduleEntry& entry : m_entries) {
            if (!IsDueOn(entry, date))
                continue;
            const TimePoint at = InstantOf(date + entry.time);
            if (at > after && at <= until)
                due.push_back({at, &entry});
        }
    return due;
}

std::optional<TimePoint> ScheduleTimes::NextAfter(TimePoint after) const {
    constexpr days aWeekAndMore(9);
    const local_days first = DateOf(after) - days(1);
    for (local_days date = first; date <= first + aWeekAndMore; date += days(1))
        for (const ScheduleEntry& entry : m_entries)
            if (IsDueOn(entry, date))
                if (const TimePoint at = InstantOf(date + entry.time); at > after)
                    return at;
    return std::nullopt;
}

}  // namespace k4suite
