#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "suite/sequence/SequenceDefect.h"

namespace k4suite {

/// Packs bulb data as a zlib stream.
/// @return the stream; empty if there is no memory for it.
std::vector<std::uint8_t> PackDeflate(std::span<const std::uint8_t> data);

/// Unpacks a zlib stream of exactly `data.size()` bytes, with nothing behind it.
/// @param defect words, and the offset in `packed`, where the result is false.
bool UnpackDeflate(std::span<const std::uint8_t> packed, std::span<std::uint8_t> data,
                   SequenceDefect& defect);

/// The most bytes that so many packed ones unpack to.
constexpr std::uint64_t LongestOfDeflate(std::uint64_t packedBytes) {
    return packedBytes * 1032;
}
/// The most bytes that so many may be packed to. A packer adds a little to data that can't be
/// packed; a stream could hold any number of empty blocks, and nobody makes one that does.
constexpr std::uint64_t LongestPackedDeflate(std::uint64_t bytes) {
    return bytes + bytes / 64 + 1024;
}

}  // namespace k4suite
