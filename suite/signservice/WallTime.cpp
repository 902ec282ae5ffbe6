#include "suite/signservice/WallTime.h"

#include <algorithm>
#include <ctime>

namespace k4suite {

namespace {

using std::chrono::seconds;
using std::chrono::sys_seconds;

/// How far clocks are ahead of UTC at an instant.
seconds OffsetAt(sys_seconds instant) {
    const std::time_t time = instant.time_since_epoch().count();
    std::tm local{};
    return localtime_r(&time, &local) ? seconds(local.tm_gmtoff) : seconds(0);
}

}  // namespace

WallTime WallTimeOf(TimePoint instant) {
    const auto whole = std::chrono::floor<seconds>(instant);
    return WallTime(whole.time_since_epoch() + OffsetAt(whole));
}

TimePoint InstantOf(WallTime wall) {
    constexpr std::chrono::hours aDay(24);
    const sys_seconds asUtc(wall.time_since_epoch());
    const auto [least, most] = std::minmax({OffsetAt(asUtc - aDay), OffsetAt(asUtc + aDay)});
    // The greater offset gives the earlier instant.
    for (const seconds offset : {most, least})
        if (OffsetAt(asUtc - offset) == offset)
            return asUtc - offset;
    sys_seconds before = asUtc - most;
    sys_seconds behind = asUtc - least;
    while (behind - before > seconds(1)) {
        const sys_seconds middle = before + (behind - before) / 2;
        (middle + OffsetAt(middle) < asUtc ? before : behind) = middle;
    }
    return behind;
}

}  // namespace k4suite
