#pragma once

#include <cstdint>

#include "k4cmndlg/clients/SignServiceTypes.h"

namespace k4suite {

/// How one sign's brightness is governed. The manual level and the photocell offset are kept while
/// another mode is on, so that going back finds them.
class Dimming {
 public:
    /// What there is to see and know when the brightness is worked out.
    struct Surroundings {
        std::uint8_t ownCell = 255;     ///< light at the sign's own photocell
        std::uint8_t remoteCell = 255;  ///< light at the machine's remote photocell
        std::uint8_t scheduled = 255;   ///< level of the dimming schedule
    };

    /// Takes a mode and what goes with it: with mode 5 the level, with mode 2 the offset, each
    /// clamped to its range; other modes drop the value.
    /// @return false for a mode out of 0 to 5, with nothing changed.
    bool Set(tag_K4_SIGN_DIM_MODE mode, std::int32_t value);

    tag_K4_SIGN_DIM_MODE Mode() const { return m_mode; }
    std::int32_t Level() const { return m_level; }
    std::int32_t Offset() const { return m_offset; }

    /// The dimming level that holds now, 0 to 255. Modes 0 and 1 are manual too.
    std::uint8_t LevelNow(const Surroundings& surroundings) const;

    bool operator==(const Dimming&) const = default;

 private:
    tag_K4_SIGN_DIM_MODE m_mode = K4_SIGN_DIM_MANUAL;
    std::int32_t m_level = K4_DIM_LEVEL_MAX;
    std::int32_t m_offset = 0;
};

/// The brightness of lamps at a dimming level, of 255. The darkest level is dark but can be seen.
std::uint8_t BrightnessOfLevel(std::uint8_t level);

}  // namespace k4suite
