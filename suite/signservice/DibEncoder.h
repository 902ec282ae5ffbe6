#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "suite/lamps/Lamps.h"

namespace k4suite {

/// The bytes of a picture as a device-independent bitmap.
std::size_t DibBytes(std::uint32_t rows, std::uint32_t columns);

/// Writes the bitmap header of a picture: 40 bytes, little-endian, with a negative height since the
/// first row is on top, 32 bits a pixel and no compression.
/// @param bytes has DibBytes().
/// @return where the pixels belong, one a lamp, as blue, green, red and a zero.
std::span<std::uint8_t> EncodeDibHeader(std::uint32_t rows, std::uint32_t columns,
                                        std::span<std::uint8_t> bytes);

/// Writes a picture as a device-independent bitmap: the header, then the pixels.
/// @param bytes has DibBytes().
void EncodeDib(const Lamps& picture, std::span<std::uint8_t> bytes);

}  // namespace k4suite
