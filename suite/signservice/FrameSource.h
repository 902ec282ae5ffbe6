#pragma once

#include <chrono>
#include <cstdint>
#include <span>

#include "suite/lamps/Lamps.h"

namespace k4suite {

/// The picture of a frame on the sign that plays it: bulb data that is made for the sign's lamps,
/// or light in the sign's size that its lamps come near to. It lies in the source that gave it, and
/// holds until the source is asked again.
struct FramePicture {
    std::span<const std::uint8_t> bulbs;  ///< what the lamps do, where `light` is null
    const Lamps* light = nullptr;         ///< null: the bulb data counts
};

/// The frames of one sequence, as one sign plays them. Frames count from 0 here.
/// Threads: one at a time.
class FrameSource {
 public:
    virtual ~FrameSource() = default;

    /// How many frames there are, 1 at least.
    virtual std::uint32_t FrameCount() const = 0;
    /// How long a frame stands, 1 millisecond at least.
    virtual std::chrono::milliseconds Dwell(std::uint32_t frame) const = 0;
    /// Draws a frame for the sign.
    virtual FramePicture Picture(std::uint32_t frame) = 0;
};

}  // namespace k4suite
