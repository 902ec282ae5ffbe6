#include "k4cmndlg/frame/SpinSteps.h"

#include <algorithm>

namespace k4cmn {

std::int32_t SpinStep(std::span<const SpinAccel> speeds, std::int64_t heldMilliseconds) {
    std::int32_t step = 1;
    const std::int64_t held = std::max<std::int64_t>(heldMilliseconds, 0);
    for (const SpinAccel& speed : speeds) {
        if (held >= std::int64_t{speed.seconds} * 1000)
            step = speed.step;
    }
    return step;
}

std::int32_t SpinTarget(std::int32_t position, std::int32_t delta, std::int32_t lower,
                        std::int32_t upper) {
    const std::int64_t moved = std::int64_t{position} + delta;
    const std::int64_t below = std::min<std::int64_t>(moved, upper);
    return static_cast<std::int32_t>(std::max<std::int64_t>(below, lower));
}

}  // namespace k4cmn
