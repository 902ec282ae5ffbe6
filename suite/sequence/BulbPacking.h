#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "k4cmndlg/filestore/contracts/SequenceRecords.h"
#include "suite/sequence/SequenceDefect.h"

namespace k4suite {

/// The method that a compression level stands for.
tag_K4_BULB_COMPRESS_TYPE MethodOfLevel(tag_K4_COMPRESS_TYPE level);

/// Packs a frame's bulb data.
/// @param method the wanted method; becomes "none" where packing doesn't make it shorter.
std::vector<std::uint8_t> PackBulbs(std::span<const std::uint8_t> data,
                                    tag_K4_BULB_COMPRESS_TYPE& method);

/// Whether so many packed bytes can be a frame of `bytes`, judged by the numbers alone: nothing
/// needs to be read or allocated for those that can't.
/// @param defect words, where the result is false.
bool CanUnpack(tag_K4_BULB_COMPRESS_TYPE method, std::uint64_t packedBytes, std::uint64_t bytes,
               SequenceDefect& defect);

/// Unpacks to exactly `data.size()` bytes.
/// @param defect words, and the offset in `packed`, where the result is false.
bool UnpackBulbs(tag_K4_BULB_COMPRESS_TYPE method, std::span<const std::uint8_t> packed,
                 std::span<std::uint8_t> data, SequenceDefect& defect);

}  // namespace k4suite
