#pragma once

#include <array>
#include <cstdint>

#include "k4cmndlg/filestore/contracts/K4BulbCv.h"
#include "suite/lamps/LampTechnology.h"

namespace k4suite {

/// A picture's table of colors.
struct BulbPalette {
    std::array<RGBQUAD, 256> colors{};  ///< the rest of it is black
    std::uint32_t used = 0;
};

/// How many colors an index may tell apart.
inline constexpr std::uint32_t kMostIndexBits = 8;

/// The bits of an index that tells all colors of a technology apart: the bits of its planes, plane
/// 0 lowest; with Quad those of a cell, the shade of its red lamp lowest, then green, blue, white.
std::uint32_t IndexBits(const LampTechnology& technology);

/// One color for each value of the index.
/// @param technology its IndexBits() are at most kMostIndexBits.
/// @param pixel      tells the light of lamps of one color.
BulbPalette IndexPalette(const LampTechnology& technology, tag_K4_PIXEL_TECH pixel);

/// Two colors, dark and lit: white, unless the technology has one color alone.
BulbPalette BitPalette(const LampTechnology& technology, tag_K4_PIXEL_TECH pixel);

}  // namespace k4suite
