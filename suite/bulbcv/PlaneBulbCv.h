#pragma once

#include <array>

#include "k4cmndlg/filestore/contracts/K4BulbCv.h"
#include "suite/bulbcv/BulbPalette.h"

namespace k4suite {

/// Bulb data turned into pictures: the inverse of EncodeBulbs(), and the colors of LightOf().
///
/// A picture of 8 bits has an index a lamp whose bits are those of the lamp's planes, or of its
/// cell's, so that eight lamps go from planes to pixels at once, and the table of colors does the
/// rest. With more than 256 colors a pixel is blue, green, red and a zero. A picture of one bit
/// shows which lamps are lit, whatever their color. Bits and bytes at the end of a line are 0.
///
/// A color technology without lamps gives a dark picture, whatever the bulb data.
///
/// Threads: any.
class PlaneBulbCv final : public K4BulbCv {
 public:
    /// @param pixel the pixel technology whose light lamps of one color have in pictures: the call
    ///              names the color technology alone.
    explicit PlaneBulbCv(tag_K4_PIXEL_TECH pixel = K4_PIXEL_TECH_INCAND);

    int Bulb2DIB(const void* bulbData, std::uint64_t bytesOfFrame, std::uint32_t rows,
                 std::uint32_t columns, tag_K4_SIGN_COLOR color, K4ImageHeader* imageHeader,
                 void* pixels, std::size_t sizeOfPixels, int depth) override;

 private:
    /// What the color values from 0 on have; all others are as the first one.
    static constexpr std::size_t kColors = 16;

    std::array<BulbPalette, kColors> m_indexPalettes;
    tag_K4_PIXEL_TECH m_pixel;
};

}  // namespace k4suite
