#pragma once

#include "suite/bulbcv/BulbLines.h"
#include "suite/lamps/LampTechnology.h"

namespace k4suite {

/// Every family that has lamps: one bit a lamp, the leftmost one highest: whether the lamp is lit,
/// with Quad whether any lamp of its cell is. Bits at the end of a line are 0.
void BulbsToBits(const BulbLines& bulbs, const LampTechnology& technology,
                 const PixelLines& pixels);

}  // namespace k4suite
