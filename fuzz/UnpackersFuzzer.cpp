#include <algorithm>
#include <vector>

#include "fuzz/FuzzInput.h"
#include "suite/sequence/BulbPacking.h"

/// The first byte is the method, the next two the size of the bulb data, the rest the packed data.
/// The same bytes are packed and unpacked too, and must come back.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    k4fuzz::FuzzInput input(bytes, size);
    auto method = static_cast<tag_K4_BULB_COMPRESS_TYPE>(input.Byte() % 4);
    std::vector<std::uint8_t> data(input.Word() & ~1U);
    const std::span<const std::uint8_t> packed = input.Rest();
    k4suite::SequenceDefect defect;
    if (!k4suite::UnpackBulbs(method, packed, data, defect))
        k4fuzz::Require(!defect.words.empty() && defect.offset <= packed.size());

    const auto even = packed.first(packed.size() & ~std::size_t{1});
    if (method > K4_BULB_COMPRESS_DEFLATE)
        return 0;
    const std::vector<std::uint8_t> repacked = k4suite::PackBulbs(even, method);
    k4fuzz::Require(repacked.size() <= even.size());
    std::vector<std::uint8_t> back(even.size());
    k4fuzz::Require(k4suite::UnpackBulbs(method, repacked, back, defect) &&
                    std::equal(back.begin(), back.end(), even.begin(), even.end()));
    return 0;
}
