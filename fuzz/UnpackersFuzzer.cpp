#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <vector>

#include "suite/sequence/BulbPacking.h"

/// The first byte is the method, the next two the size of the bulb data, the rest the packed data.
/// The same bytes are packed and unpacked too, and must come back.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* input, std::size_t size) {
    if (size < 3)
        return 0;
    auto method = static_cast<tag_K4_BULB_COMPRESS_TYPE>(input[0] % 4);
    const std::span<const std::uint8_t> packed(input + 3, size - 3);
    std::vector<std::uint8_t> data((input[1] | std::size_t{input[2]} << 8) & ~std::size_t{1});
    k4suite::SequenceDefect defect;
    if (!k4suite::UnpackBulbs(method, packed, data, defect) &&
        (defect.words.empty() || defect.offset > packed.size()))
        std::abort();

    const auto even = packed.first(packed.size() & ~std::size_t{1});
    if (method > K4_BULB_COMPRESS_DEFLATE)
        return 0;
    const std::vector<std::uint8_t> repacked = k4suite::PackBulbs(even, method);
    std::vector<std::uint8_t> back(even.size());
    if (!k4suite::UnpackBulbs(method, repacked, back, defect) ||
        !std::equal(back.begin(), back.end(), even.begin(), even.end()))
        std::abort();
    return 0;
}
