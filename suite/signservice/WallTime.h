#pragma once

#include <chrono>

#include "suite/signservice/TimeOfDay.h"

namespace k4suite {

/// A date and time as clocks on a wall show it, in this machine's time zone.
using WallTime = std::chrono::local_seconds;

/// What clocks show at an instant.
WallTime WallTimeOf(TimePoint instant);

/// When clocks come to show a time: for the first time, where they are set back and show it twice;
/// where they are set forward over it, at the moment in which that is done. A later time never
/// gives an earlier instant.
TimePoint InstantOf(WallTime wall);

}  // namespace k4suite
