#include "suite/bulbcv/PackedKernels.h"

#include <cstring>

#include "suite/bulbcv/BitSpread.h"

namespace k4suite {

namespace {

/// The light of a shade of 5 bits: 255 / 31 of it, rounded, without a division or a table, so that
/// many can be done at once.
constexpr std::uint32_t LightOfFiveBits(std::uint32_t shade) {
    return (shade * 527 + 23) >> 6;
}
static_assert([] {
    for (std::uint32_t shade = 0; shade < 32; ++shade)
        if (LightOfFiveBits(shade) != (shade * 255 + 15) / 31)
            return false;
    return true;
}());

void FiveBitLine(const std::uint8_t* lamps, std::uint32_t columns, std::uint8_t* out) {
    for (std::size_t column = 0; column < columns; ++column) {
        const std::uint8_t* lamp = lamps + 2 * column;
        const std::uint32_t word = lamp[0] | std::uint32_t{lamp[1]} << 8;
        const std::uint32_t pixel =
            PixelOf(LightOfFiveBits(word >> 10 & 31), LightOfFiveBits(word >> 5 & 31),
                    LightOfFiveBits(word & 31));
        std::memcpy(out + column * sizeof pixel, &pixel, sizeof pixel);
    }
}

void EightBitLine(const std::uint8_t* lamps, std::uint32_t columns, std::uint8_t* out) {
    constexpr std::uint32_t allButRest = PixelOf(255, 255, 255);
    std::uint32_t pixel = 0;
    // A lamp lies as its pixel does; the byte that is read with it belongs to the next lamp.
    for (std::size_t column = 0; column + 1 < columns; ++column) {
        std::memcpy(&pixel, lamps + 3 * column, sizeof pixel);
        pixel &= allButRest;
        std::memcpy(out + column * sizeof pixel, &pixel, sizeof pixel);
    }
    const std::uint8_t* last = lamps + 3 * std::size_t{columns - 1};
    pixel = PixelOf(last[2], last[1], last[0]);
    std::memcpy(out + (columns - 1) * sizeof pixel, &pixel, sizeof pixel);
}

}  // namespace

void PackedToLight(const BulbLines& bulbs, const LampTechnology& technology,
                   const PixelLines& pixels) {
    const auto convert = technology.bits == 5 ? FiveBitLine : EightBitLine;
    for (std::uint32_t row = 0; row < bulbs.rows; ++row)
        convert(bulbs.PackedLine(row, technology.planes), bulbs.columns, pixels.Line(row));
}

}  // namespace k4suite
