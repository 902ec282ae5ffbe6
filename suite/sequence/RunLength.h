#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "suite/sequence/SequenceDefect.h"

namespace k4suite {

/// Packs bulb data as runs of 16-bit words; see docs/sequence-format.md.
/// @param data of an even length.
std::vector<std::uint8_t> PackRuns(std::span<const std::uint8_t> data);

/// Unpacks runs to exactly `data.size()` bytes.
/// @param defect words, and the offset in `packed`, where the result is false.
bool UnpackRuns(std::span<const std::uint8_t> packed, std::span<std::uint8_t> data,
                SequenceDefect& defect);

/// The most bytes that so many packed ones unpack to.
constexpr std::uint64_t LongestOfRuns(std::uint64_t packedBytes) {
    return packedBytes / 3 * 258;
}
/// The most bytes that so many are packed to: each word alone behind a control byte.
constexpr std::uint64_t LongestPackedRuns(std::uint64_t bytes) {
    return bytes / 2 * 3;
}

}  // namespace k4suite
