#pragma once

#include <cstdint>

#include "k4cmndlg/filestore/SignTypes.h"
#include "suite/lamps/Lamps.h"

namespace k4suite {

/// How the lamps of a color technology make color.
enum class LampFamily : std::uint8_t {
    Mono,    ///< one lamp of one color
    Tri,     ///< a red and a green lamp together
    Rgb,     ///< a red, a green and a blue lamp together
    Quad,    ///< cells of two by two lamps: red, green above, blue, white below
    Packed,  ///< as Rgb, but stored pixel by pixel
    None,    ///< a color that has no lamps of its own
};

/// What a color technology can show.
struct LampTechnology {
    LampFamily family = LampFamily::Mono;
    std::uint8_t bits = 1;    ///< of one lamp's shade
    std::uint8_t planes = 1;  ///< bits of one place on the grid, over all of its lamps

    /// The brightest shade of a lamp.
    std::uint32_t BrightestShade() const { return (1U << bits) - 1; }
};

/// Looks up a color technology. Values that no table knows have one plane of one bit.
LampTechnology TechnologyOf(tag_K4_SIGN_COLOR color);

/// The light of a fully lit lamp of a sign with one color: warm white bulbs, yellow-green discs,
/// amber diodes.
Rgb MonoLight(tag_K4_PIXEL_TECH pixel);

/// Discs reflect the light that falls on them: such a sign can't be dimmed.
bool IsDimmable(tag_K4_PIXEL_TECH pixel);

}  // namespace k4suite
