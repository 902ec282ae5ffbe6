#include "suite/signservice/Dimming.h"

#include <algorithm>

namespace k4suite {

namespace {

constexpr std::int32_t kDarkest = 16;
constexpr std::int32_t kBrightest = 255;

}  // namespace

bool Dimming::Set(tag_K4_SIGN_DIM_MODE mode, std::int32_t value) {
    if (mode < K4_SIGN_DIM_MANUAL_0 || mode > K4_SIGN_DIM_MANUAL)
        return false;
    m_mode = mode;
    if (mode == K4_SIGN_DIM_MANUAL)
        m_level = std::clamp(value, K4_DIM_LEVEL_MIN, K4_DIM_LEVEL_MAX);
    else if (mode == K4_SIGN_DIM_PHOTOCELL)
        m_offset = std::clamp(value, K4_DIM_OFFSET_MIN, K4_DIM_OFFSET_MAX);
    return true;
}

std::uint8_t Dimming::LevelNow(const Surroundings& surroundings) const {
    switch (m_mode) {
        case K4_SIGN_DIM_PHOTOCELL:
            return static_cast<std::uint8_t>(
                std::clamp(surroundings.ownCell + m_offset, K4_DIM_LEVEL_MIN, K4_DIM_LEVEL_MAX));
        case K4_SIGN_DIM_REMOTE_PHOTOCELL:
            return surroundings.remoteCell;
        case K4_SIGN_DIM_SCHEDULED:
            return surroundings.scheduled;
        default:
            return static_cast<std::uint8_t>(m_level);
    }
}

std::uint8_t BrightnessOfLevel(std::uint8_t level) {
    return static_cast<std::uint8_t>(kDarkest + (kBrightest - kDarkest) * level / kBrightest);
}

}  // namespace k4suite
