#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "suite/signservice/Lamps.h"

namespace k4suite {

/// The bytes of a picture as a device-independent bitmap.
std::size_t DibBytes(std::uint32_t rows, std::uint32_t columns);

/// Writes a picture as a device-independent bitmap: a bitmap header of 40 bytes, little-endian,
/// with a negative height since the first row is on top, 32 bits a pixel and no compression; then
/// one pixel a lamp, as blue, green, red and a zero.
/// @param bytes has room for DibBytes().
void EncodeDib(const Lamps& picture, std::span<std::uint8_t> bytes);

}  // namespace k4suite
