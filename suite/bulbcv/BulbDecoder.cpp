#include "suite/bulbcv/BulbDecoder.h"

#include <bit>

#include "suite/bulbcv/BitSpread.h"
#include "suite/bulbcv/BulbLines.h"

namespace k4suite {

namespace {

/// How many shades stand at one place of the planes.
std::size_t ChannelsOf(const LampTechnology& technology) {
    return technology.planes / technology.bits;
}

/// Takes the shades of eight lamps of one channel, or of as many as the line still has.
void PutShades(EightLamps eight, std::size_t channel, std::size_t count, Shade* lamps) {
    const auto shades = std::bit_cast<std::array<std::uint8_t, 8>>(eight);
    for (std::size_t lamp = 0; lamp < count; ++lamp)
        lamps[lamp][channel] = shades[lamp];
}

void DecodePlanes(const BulbLines& bulbs, ShadePicture& picture) {
    const std::size_t planeBytes = bulbs.PlaneBytes();
    const unsigned bits = picture.technology.bits;
    for (std::size_t channel = 0; channel < ChannelsOf(picture.technology); ++channel)
        for (std::uint32_t row = 0; row < bulbs.rows; ++row) {
            const std::uint8_t* line = bulbs.Line(row) + channel * bits * planeBytes;
            for (std::uint32_t column = 0; column < bulbs.columns; column += 8) {
                const std::uint8_t* at = line + ByteOfGroup(column / 8);
                EightLamps shades = 0;
                for (unsigned bit = 0; bit < bits; ++bit, at += planeBytes)
                    shades |= kSpread[bit][*at];
                PutShades(shades, channel, std::min(8U, bulbs.columns - column),
                          &picture.lamps.At(row, column));
            }
        }
}

Shade ShadeOfPixel(const std::uint8_t* pixel, std::uint32_t bits) {
    if (bits == 8)
        return {pixel[2], pixel[1], pixel[0]};
    constexpr unsigned brightest = 31;
    const unsigned word = pixel[0] | unsigned{pixel[1]} << 8;
    return {static_cast<std::uint8_t>(word >> 10 & brightest),
            static_cast<std::uint8_t>(word >> 5 & brightest),
            static_cast<std::uint8_t>(word & brightest)};
}

void DecodePacked(const BulbLines& bulbs, ShadePicture& picture) {
    const std::size_t pixelBytes = picture.technology.planes / 8U;
    for (std::uint32_t row = 0; row < bulbs.rows; ++row) {
        const std::uint8_t* pixel = bulbs.PackedLine(row, picture.technology.planes);
        for (std::uint32_t column = 0; column < bulbs.columns; ++column, pixel += pixelBytes)
            picture.lamps.At(row, column) = ShadeOfPixel(pixel, picture.technology.bits);
    }
}

}  // namespace

ShadePicture DecodeBulbs(std::span<const std::uint8_t> bulbs, std::uint32_t rows,
                         std::uint32_t columns, const LampTechnology& technology) {
    ShadePicture picture{technology, LampGrid<Shade>(rows, columns)};
    const BulbLines lines{bulbs.data(), rows, columns};
    if (technology.family == LampFamily::Packed)
        DecodePacked(lines, picture);
    else if (technology.family != LampFamily::None)
        DecodePlanes(lines, picture);
    return picture;
}

}  // namespace k4suite
