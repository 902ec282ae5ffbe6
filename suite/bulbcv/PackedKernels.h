#pragma once

#include "suite/bulbcv/BulbLines.h"
#include "suite/lamps/LampTechnology.h"

namespace k4suite {

/// Packed: 32 bits a lamp.
/// @param technology with 5 or 8 bits.
void PackedToLight(const BulbLines& bulbs, const LampTechnology& technology,
                   const PixelLines& pixels);

}  // namespace k4suite
