#pragma once

#include "suite/bulbcv/BulbLines.h"
#include "suite/lamps/LampTechnology.h"

namespace k4suite {

/// Mono, Tri and Rgb: one byte a lamp that holds the lamp's bit of each plane, plane 0 lowest.
/// Bytes at the end of a line are 0.
/// @param planes 1 to 8.
void PlanesToIndexes(const BulbLines& bulbs, std::uint32_t planes, const PixelLines& pixels);

/// Rgb: 32 bits a lamp.
/// @param technology with 4 or 8 bits.
void PlanesToLight(const BulbLines& bulbs, const LampTechnology& technology,
                   const PixelLines& pixels);

}  // namespace k4suite
