#include "suite/sequence/BulbPacking.h"

#include <algorithm>

#include "suite/sequence/Deflate.h"
#include "suite/sequence/RunLength.h"

namespace k4suite {

namespace {

constexpr char kUnknownMethod[] = "The frame's compression method isn't known.";

std::vector<std::uint8_t> PackBy(tag_K4_BULB_COMPRESS_TYPE method,
                                 std::span<const std::uint8_t> data) {
    switch (method) {
        case K4_BULB_COMPRESS_RUNS:
            return PackRuns(data);
        case K4_BULB_COMPRESS_DEFLATE:
            return PackDeflate(data);
        default:
            return {};
    }
}

}  // namespace

tag_K4_BULB_COMPRESS_TYPE MethodOfLevel(tag_K4_COMPRESS_TYPE level) {
    switch (level) {
        case K4_COMPRESS_NONE:
            return K4_BULB_COMPRESS_NONE;
        case K4_COMPRESS_LOW:
            return K4_BULB_COMPRESS_RUNS;
        default:
            return K4_BULB_COMPRESS_DEFLATE;
    }
}

std::vector<std::uint8_t> PackBulbs(std::span<const std::uint8_t> data,
                                    tag_K4_BULB_COMPRESS_TYPE& method) {
    std::vector<std::uint8_t> packed = PackBy(method, data);
    if (!packed.empty() && packed.size() < data.size())
        return packed;
    method = K4_BULB_COMPRESS_NONE;
    return {data.begin(), data.end()};
}

bool CanUnpack(tag_K4_BULB_COMPRESS_TYPE method, std::uint64_t packedBytes, std::uint64_t bytes,
               SequenceDefect& defect) {
    std::uint64_t longestPacked = 0;
    std::uint64_t longest = 0;
    switch (method) {
        case K4_BULB_COMPRESS_NONE:
            if (packedBytes != bytes)
                defect.words = "The bulb data has " + std::to_string(packedBytes) +
                               " bytes where the sign needs " + std::to_string(bytes) + ".";
            return packedBytes == bytes;
        case K4_BULB_COMPRESS_RUNS:
            longest = LongestOfRuns(packedBytes);
            longestPacked = LongestPackedRuns(bytes);
            break;
        case K4_BULB_COMPRESS_DEFLATE:
            longest = LongestOfDeflate(packedBytes);
            longestPacked = LongestPackedDeflate(bytes);
            break;
        default:
            defect.words = kUnknownMethod;
            return false;
    }
    if (packedBytes <= longestPacked && bytes <= longest)
        return true;
    defect.words = "The packed data of " + std::to_string(packedBytes) +
                   " bytes can't be bulb data of " + std::to_string(bytes) + " bytes.";
    return false;
}

bool UnpackBulbs(tag_K4_BULB_COMPRESS_TYPE method, std::span<const std::uint8_t> packed,
                 std::span<std::uint8_t> data, SequenceDefect& defect) {
    defect.offset = 0;
    if (!CanUnpack(method, packed.size(), data.size(), defect))
        return false;
    switch (method) {
        case K4_BULB_COMPRESS_RUNS:
            return UnpackRuns(packed, data, defect);
        case K4_BULB_COMPRESS_DEFLATE:
            return UnpackDeflate(packed, data, defect);
        default:
            std::copy(packed.begin(), packed.end(), data.begin());
            return true;
    }
}

}  // namespace k4suite
