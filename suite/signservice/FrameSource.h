#pragma once

#include <chrono>
#include <cstdint>

#include "suite/signservice/Lamps.h"

namespace k4suite {

/// The frames of one sequence, as a sign plays them. Frames count from 0 here.
/// Threads: one at a time.
class FrameSource {
 public:
    virtual ~FrameSource() = default;

    /// How many frames there are, 1 at least.
    virtual std::uint32_t FrameCount() const = 0;
    /// How long a frame stands, 1 millisecond at least.
    virtual std::chrono::milliseconds Dwell(std::uint32_t frame) const = 0;
    /// Draws a frame in full color, of any size; the sign fits it to its lamps.
    virtual Lamps RenderFrame(std::uint32_t frame) const = 0;
};

}  // namespace k4suite
