#include "suite/bulbcv/OneBitKernels.h"

#include <algorithm>
#include <cstring>

#include "suite/bulbcv/BitSpread.h"

namespace k4suite {

namespace {

using EightBytes = std::uint64_t;

/// Swaps the bytes of each 16-bit word.
EightBytes SwapInWords(EightBytes bytes) {
    constexpr EightBytes everySecond = 0x00FF00FF00FF00FF;
    return (bytes & everySecond) << 8 | (bytes >> 8 & everySecond);
}

/// Adds to a line of bits where a line of bulb data is lit, in any plane.
void AddLitLamps(const std::uint8_t* line, std::size_t lineBytes, std::size_t planeBytes,
                 std::uint32_t planes, std::uint8_t* out) {
    for (std::uint32_t plane = 0; plane < planes; ++plane, line += planeBytes) {
        std::size_t byte = 0;
        for (; byte + sizeof(EightBytes) <= lineBytes; byte += sizeof(EightBytes)) {
            EightBytes lamps;
            EightBytes lit;
            std::memcpy(&lamps, line + byte, sizeof lamps);
            std::memcpy(&lit, out + byte, sizeof lit);
            lit |= SwapInWords(lamps);
            std::memcpy(out + byte, &lit, sizeof lit);
        }
        for (; byte < lineBytes; ++byte)
            out[byte] = static_cast<std::uint8_t>(out[byte] | line[ByteOfGroup(byte)]);
    }
}

/// Clears what lies beyond the columns.
void ClearEnd(std::uint8_t* line, std::size_t lineBytes, std::uint32_t columns) {
    std::size_t byte = columns / 8;
    if (columns % 8 != 0) {
        line[byte] = line[byte] & MaskOfFirst(columns % 8);
        ++byte;
    }
    std::fill(line + byte, line + lineBytes, std::uint8_t{0});
}

void PlaneBits(const BulbLines& bulbs, std::uint32_t planes, const PixelLines& pixels) {
    for (std::uint32_t row = 0; row < bulbs.rows; ++row) {
        std::uint8_t* out = pixels.Line(row);
        std::fill_n(out, pixels.lineBytes, std::uint8_t{0});
        AddLitLamps(bulbs.Line(row), bulbs.LineBytes(), bulbs.PlaneBytes(), planes, out);
        ClearEnd(out, pixels.lineBytes, bulbs.columns);
    }
}

void LightWholeCells(std::uint8_t* line, std::size_t lineBytes) {
    std::transform(line, line + lineBytes, line, [](unsigned lamps) {
        return static_cast<std::uint8_t>(lamps | (lamps & 0x55) << 1 | (lamps & 0xAA) >> 1);
    });
}

void CellBits(const BulbLines& bulbs, std::uint32_t planes, const PixelLines& pixels) {
    for (std::uint32_t row = 0; row < bulbs.rows; row += 2) {
        std::uint8_t* out = pixels.Line(row);
        const std::uint32_t lines = std::min(2U, bulbs.rows - row);
        std::fill_n(out, pixels.lineBytes, std::uint8_t{0});
        for (std::uint32_t line = 0; line < lines; ++line)
            AddLitLamps(bulbs.Line(row + line), bulbs.LineBytes(), bulbs.PlaneBytes(), planes, out);
        // Lamps beyond the sign light no cell, and no cell reaches beyond the sign.
        ClearEnd(out, pixels.lineBytes, bulbs.columns);
        LightWholeCells(out, pixels.lineBytes);
        ClearEnd(out, pixels.lineBytes, bulbs.columns);
        if (lines == 2)
            std::memcpy(out + pixels.lineBytes, out, pixels.lineBytes);
    }
}

bool IsPixelLit(const std::uint8_t* pixel, const LampTechnology& technology) {
    constexpr unsigned unusedBit = 0x80;
    return technology.bits == 8 ? (pixel[0] | pixel[1] | pixel[2]) != 0
                                : (pixel[0] | (pixel[1] & ~unusedBit)) != 0;
}

void PackedBits(const BulbLines& bulbs, const LampTechnology& technology,
                const PixelLines& pixels) {
    const std::size_t pixelBytes = technology.planes / 8U;
    for (std::uint32_t row = 0; row < bulbs.rows; ++row) {
        std::uint8_t* out = pixels.Line(row);
        std::fill_n(out, pixels.lineBytes, std::uint8_t{0});
        const std::uint8_t* pixel = bulbs.PackedLine(row, technology.planes);
        for (std::uint32_t column = 0; column < bulbs.columns; ++column, pixel += pixelBytes)
            if (IsPixelLit(pixel, technology))
                out[column / 8] = static_cast<std::uint8_t>(out[column / 8] | 0x80U >> column % 8);
    }
}

}  // namespace

void BulbsToBits(const BulbLines& bulbs, const LampTechnology& technology,
                 const PixelLines& pixels) {
    switch (technology.family) {
        case LampFamily::Quad:
            return CellBits(bulbs, technology.planes, pixels);
        case LampFamily::Packed:
            return PackedBits(bulbs, technology, pixels);
        default:
            return PlaneBits(bulbs, technology.planes, pixels);
    }
}

}  // namespace k4suite
