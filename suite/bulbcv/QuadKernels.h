#pragma once

#include "suite/bulbcv/BulbLines.h"
#include "suite/lamps/LampTechnology.h"

namespace k4suite {

/// Quad: one byte a lamp that holds the shades of its cell, red lowest, then green, blue, white.
/// Lamps of a cell that lie beyond the sign are dark. Bytes at the end of a line are 0.
/// @param technology with 1 or 2 bits.
void CellsToIndexes(const BulbLines& bulbs, const LampTechnology& technology,
                    const PixelLines& pixels);

/// Quad: 32 bits a lamp, the mixed color of its cell.
/// @param technology with 4 or 6 bits.
void CellsToLight(const BulbLines& bulbs, const LampTechnology& technology,
                  const PixelLines& pixels);

}  // namespace k4suite
