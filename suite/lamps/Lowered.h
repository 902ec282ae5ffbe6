#pragma once

#include <cstdint>

namespace k4suite {

/// What dimming makes of a shade or a light: it is lowered in proportion, rounded, and what is lit
/// stays lit. Written without a division, so that many can be done at once.
/// @param value      0 to 255.
/// @param brightness of 255.
constexpr std::uint8_t Lowered(std::uint8_t value, std::uint8_t brightness) {
    const auto product = static_cast<std::uint16_t>(value * brightness + 127);
    const auto lowered = static_cast<std::uint8_t>((product + 1 + (product >> 8)) >> 8);
    return static_cast<std::uint8_t>(lowered + (value != 0 && lowered == 0 ? 1 : 0));
}

}  // namespace k4suite
