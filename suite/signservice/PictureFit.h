#pragma once

#include <cstdint>

#include "suite/lamps/Lamps.h"

namespace k4suite {

/// Brings a picture that was made for another size onto a sign. One that fits is shown lamp for
/// lamp, since letters that are stretched can't be read; a larger one is made smaller, its height
/// in proportion to its width, each lamp taking the nearest of the old ones. It stands in the
/// middle, at an even row and column so that cells of four lamps stay whole, and the rest is dark.
/// An empty picture gives a dark one.
Lamps Fitted(const Lamps& picture, std::uint32_t rows, std::uint32_t columns);

}  // namespace k4suite
