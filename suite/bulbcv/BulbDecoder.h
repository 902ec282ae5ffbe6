#pragma once

#include <cstdint>
#include <span>

#include "suite/lamps/Shades.h"

namespace k4suite {

/// The shades of the lamps that bulb data holds: the inverse of EncodeBulbs(). What lies beyond the
/// grid is passed over.
/// @param bulbs has BulbBytes().
ShadePicture DecodeBulbs(std::span<const std::uint8_t> bulbs, std::uint32_t rows,
                         std::uint32_t columns, const LampTechnology& technology);

}  // namespace k4suite
