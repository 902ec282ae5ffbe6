#pragma once

#include <cstdint>
#include <span>

#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// One speed of a spin control: from so many seconds held on, a click makes this step.
struct SpinAccel {
    std::uint32_t seconds;
    std::int32_t step;

    bool operator==(const SpinAccel&) const = default;
};

/// The step of a click after an arrow has been held for a time.
/// @param speeds in ascending order of seconds. @param heldMilliseconds less than 0, where a
/// clock was set back, counts as 0.
/// @return the step of the last speed whose time has come; 1 if there is none.
K4CMNCORE_EXPORT std::int32_t SpinStep(std::span<const SpinAccel> speeds,
                                       std::int64_t heldMilliseconds);

/// Where a click leads: the position moved by a signed step and held inside the bounds.
K4CMNCORE_EXPORT std::int32_t SpinTarget(std::int32_t position, std::int32_t delta,
                                         std::int32_t lower, std::int32_t upper);

}  // namespace k4cmn
