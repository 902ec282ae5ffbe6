#pragma once

#include "suite/lamps/LampTechnology.h"
#include "suite/lamps/Lamps.h"

namespace k4suite {

/// Whether the lamps of a technology have fewer shades than a picture, so that dithering it makes a
/// difference.
bool HasFewerShades(const LampTechnology& technology);

/// Makes a picture of the shades that a technology has, by mixing the two nearest ones: what lies
/// between two shades becomes a pattern of both, with as much light as the picture has. The result
/// holds no value but those of shades, so Quantise() takes it as it is.
///
/// The pattern is one of thresholds that belong to the places of the sign. So a place depends on
/// its own color alone: what doesn't move in a sequence stands still, and a color that the lamps
/// have comes out as it is, without specks in the dark around letters.
///
/// Light is added up as the eye does it from afar, and not by the numbers of the picture, of which
/// 128 is a fifth of the light of 255.
/// - Mono: by luminance. A place that has the color of the lamps counts by its brightness, so that
///   the picture of such a sign keeps its shades.
/// - Tri: red and green each; blue shows, half as bright, as both.
/// - Rgb, Packed: red, green and blue each.
/// - Quad: a cell is one place, of the mean color of its four.
///
/// A technology that doesn't have fewer shades, or has no lamps, leaves the picture as it is.
/// @param pixel the lamps whose color counts with Mono.
Lamps Dithered(const Lamps& picture, const LampTechnology& technology, tag_K4_PIXEL_TECH pixel);

}  // namespace k4suite
