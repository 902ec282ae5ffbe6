#pragma once

#include <cstdint>
#include <string_view>

namespace k4suite {

/// A number that derives from bytes, for good (FNV-1a, 64 bits).
constexpr std::uint64_t NameHash(std::string_view name,
                                 std::uint64_t from = 0xCBF29CE484222325ULL) {
    for (const char byte : name) {
        from ^= static_cast<unsigned char>(byte);
        from *= 0x100000001B3ULL;
    }
    return from;
}

/// The same, over one more number.
constexpr std::uint64_t NumberHash(std::uint64_t number, std::uint64_t from) {
    for (int byte = 0; byte < 8; ++byte) {
        from ^= number >> (8 * byte) & 0xFFU;
        from *= 0x100000001B3ULL;
    }
    return from;
}

}  // namespace k4suite
