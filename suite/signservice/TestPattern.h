#pragma once

#include <optional>
#include <string>

#include "k4cmndlg/filestore/contracts/RegistryProvider.h"
#include "suite/lamps/LampTechnology.h"
#include "suite/signservice/FrameSource.h"

namespace k4suite {

/// A moving test pattern in the size and technology of a sign: a field of bars, waves, rings or
/// checks that wanders and closes after 40 frames, a line that sweeps over it, and a border with
/// lights that run around. The name chooses kind, colors and direction, so that two sequences don't
/// look the same.
class TestPattern final : public FrameSource {
 public:
    static constexpr std::uint32_t kFrames = 40;
    static constexpr std::chrono::milliseconds kDwell{100};

    TestPattern(const std::string& name, const k4cmn::SignSettings& sign);

    std::uint32_t FrameCount() const override { return kFrames; }
    std::chrono::milliseconds Dwell(std::uint32_t) const override { return kDwell; }
    FramePicture Picture(std::uint32_t frame) override;

    /// Draws a frame in full color, in the sign's size.
    Lamps RenderFrame(std::uint32_t frame) const;

 private:
    struct Place;
    Rgb Field(const Place& place) const;
    Rgb Colored(std::uint32_t hue, std::uint32_t value) const;

    std::uint32_t m_rows;
    std::uint32_t m_columns;
    LampTechnology m_technology;
    std::uint32_t m_grain;  ///< lamps of a cell's edge: details don't get smaller
    std::uint32_t m_kind;
    std::uint32_t m_hue;
    bool m_backwards;
    std::optional<std::uint32_t> m_drawn;  ///< the frame that m_picture shows
    Lamps m_picture;
};

}  // namespace k4suite
