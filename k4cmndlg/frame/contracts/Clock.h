#pragma once

#include <chrono>

#include "k4cmndlg/frame/Provided.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// The time, as everything in the suite that plays, waits or dates reads it. A test drives its own.
/// Threads: any.
class K4CMNCORE_EXPORT Clock {
 public:
    using TimePoint = std::chrono::time_point<std::chrono::system_clock, std::chrono::milliseconds>;

    virtual ~Clock();

    /// The present time of day and date (UTC), to the millisecond.
    virtual TimePoint Now() = 0;
};

}  // namespace k4cmn

/// With nothing installed the system's own clock answers: a clock has no way to be absent.
K4_DECLARE_PROVIDED(K4CMNCORE_EXPORT, Clock)
