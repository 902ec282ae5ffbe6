#pragma once

#include <cstdint>
#include <span>

#include "k4cmndlg/filestore/SignTypes.h"
#include "suite/lamps/Lamps.h"

namespace k4suite {

/// Bulb data, and whose it is.
struct SignBulbs {
    std::span<const std::uint8_t> bulbs;  ///< BulbBytes() of them
    std::uint32_t rows = 1;               ///< 1 to 65535
    std::uint32_t columns = 1;            ///< 1 to 65535
    tag_K4_SIGN_COLOR color = K4_SIGN_COLOR_MONO1;
    tag_K4_PIXEL_TECH pixel = K4_PIXEL_TECH_INCAND;  ///< the light of lamps of one color
};

/// The light that lamps give with bulb data, as EncodeDib() writes it: the same as that of the
/// decoded shades through LightOf() and DimLight(), but made from planes to pixels at once.
/// @param brightness of 255.
/// @param bytes      has DibBytes().
void BulbsToDib(const SignBulbs& from, std::uint8_t brightness, std::span<std::uint8_t> bytes);

/// The same light as lamps, at full brightness.
Lamps BulbsToLight(const SignBulbs& from);

}  // namespace k4suite
