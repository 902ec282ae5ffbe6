#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace k4suite {

/// Eight lamps at once: a number with one byte a lamp, which lies in memory in the order of the
/// lamps. Bits are only ever moved inside of a byte, so that the order of a number's bytes on this
/// machine makes no difference.
using EightLamps = std::uint64_t;

/// By bit of a shade and byte of a plane: the byte's lamps, with that bit where one is lit. The
/// byte's highest bit is the leftmost lamp.
inline constexpr auto kSpread = [] {
    std::array<std::array<EightLamps, 256>, 8> table{};
    for (unsigned bit = 0; bit < table.size(); ++bit)
        for (unsigned byte = 0; byte < table[bit].size(); ++byte) {
            std::array<std::uint8_t, 8> lamps{};
            for (unsigned lamp = 0; lamp < lamps.size(); ++lamp)
                lamps[lamp] = static_cast<std::uint8_t>((byte >> (7 - lamp) & 1) << bit);
            table[bit][byte] = std::bit_cast<EightLamps>(lamps);
        }
    return table;
}();

/// Where the byte of the given eight lamps lies in a line: words have their low byte first, and the
/// left eight lamps in the high one.
constexpr std::size_t ByteOfGroup(std::size_t group) {
    return group ^ 1;
}

/// The bits of a plane's byte that stand for the first `lamps` of its eight.
constexpr std::uint8_t MaskOfFirst(std::uint32_t lamps) {
    return static_cast<std::uint8_t>(0xFF00U >> lamps);
}

/// Gathers the shades of eight lamps.
/// @param at   the lamps' byte in the plane of the lowest bit.
/// @param mask the bits of a byte that count.
template <unsigned Bits>
EightLamps GatherShades(const std::uint8_t* at, std::size_t planeBytes, std::uint8_t mask = 0xFF) {
    EightLamps shades = 0;
    for (unsigned bit = 0; bit < Bits; ++bit, at += planeBytes)
        shades |= kSpread[bit][*at & mask];
    return shades;
}

/// A 32-bit pixel as it lies in memory: blue, green, red and a zero. Each part is a light times its
/// unit, so that this too holds for any order of bytes.
inline constexpr auto kBlueUnit = std::bit_cast<std::uint32_t>(std::array<std::uint8_t, 4>{1});
inline constexpr auto kGreenUnit = std::bit_cast<std::uint32_t>(std::array<std::uint8_t, 4>{0, 1});
inline constexpr auto kRedUnit = std::bit_cast<std::uint32_t>(std::array<std::uint8_t, 4>{0, 0, 1});

constexpr std::uint32_t PixelOf(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
    return red * kRedUnit | green * kGreenUnit | blue * kBlueUnit;
}

}  // namespace k4suite
