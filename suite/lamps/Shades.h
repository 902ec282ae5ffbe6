#pragma once

#include <array>
#include <cstdint>

#include "suite/lamps/LampTechnology.h"
#include "suite/lamps/Lamps.h"

namespace k4suite {

/// The shades of the lamps at one place: one with Mono and Quad, red and green with Tri, red, green
/// and blue with Rgb and Packed. Lamps that a technology hasn't got stay 0.
using Shade = std::array<std::uint8_t, 3>;

/// What the lamps of a sign do, in the shades that its technology has.
struct ShadePicture {
    LampTechnology technology;
    LampGrid<Shade> lamps;
};

/// Fits a picture to a technology: the nearest shade of each lamp.
/// With one color a lamp follows the brightness of its place; with red and green alone blue light
/// shows, half as bright, as both, so that it doesn't vanish. A quad cell takes the mean of its
/// places: what red, green and blue have in common goes to the white lamp, the rest to their own.
ShadePicture Quantise(const Lamps& picture, LampTechnology technology);

/// The light of a lamp's shade, 0 to 255, before the lamp's color counts.
std::uint32_t LightOfShade(std::uint8_t shade, const LampTechnology& technology);

/// The light of one place, with every family but Quad.
/// @param mono the light of a fully lit lamp; counts with Mono alone.
Rgb LightOfPlace(const Shade& shade, const LampTechnology& technology, const Rgb& mono);

/// The shades of a quad cell's lamps: red, green, blue, white.
using CellShades = std::array<std::uint8_t, 4>;

/// The mixed color of a quad cell: red, green and blue, each with the white lamp's light added.
Rgb LightOfCell(const CellShades& shades, const LampTechnology& technology);

/// The light of lamps. Each place of a quad cell shows the cell's mixed color; lamps of a cell that
/// lie beyond the sign are dark.
Lamps LightOf(const ShadePicture& picture, tag_K4_PIXEL_TECH pixel);

/// Lowers shades to a brightness of 0 to 255; a lamp that is lit stays lit.
void DimShades(ShadePicture& picture, std::uint8_t brightness);

/// Lowers light to a brightness of 0 to 255; a lamp that is lit stays lit.
void DimLight(Lamps& picture, std::uint8_t brightness);

}  // namespace k4suite
