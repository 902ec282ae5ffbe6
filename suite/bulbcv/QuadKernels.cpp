#include "suite/bulbcv/QuadKernels.h"

#include <algorithm>
#include <cstring>

#include "suite/bulbcv/BitSpread.h"
#include "suite/lamps/Shades.h"

namespace k4suite {

namespace {

/// The lamps of one byte of a plane, seen as four halves of a cell: both lamps of a half get what
/// the left one shows in bit 0 and what the right one shows in bit `Bits`.
template <unsigned Bits>
constexpr auto kSpreadHalves = [] {
    std::array<EightLamps, 256> table{};
    for (unsigned byte = 0; byte < table.size(); ++byte) {
        std::array<std::uint8_t, 8> lamps{};
        for (unsigned left = 0; left < lamps.size(); left += 2) {
            const unsigned half = (byte >> (7 - left) & 1) | (byte >> (6 - left) & 1) << Bits;
            lamps[left] = lamps[left + 1] = static_cast<std::uint8_t>(half);
        }
        table[byte] = std::bit_cast<EightLamps>(lamps);
    }
    return table;
}();

/// The first lamps of eight.
EightLamps MaskOfFirstBytes(std::uint32_t lamps) {
    std::array<std::uint8_t, 8> mask{};
    std::fill_n(mask.begin(), lamps, std::uint8_t{0xFF});
    return std::bit_cast<EightLamps>(mask);
}

/// The two lines that a row of cells takes, and which bits of their bytes stand for lamps.
struct CellLines {
    const std::uint8_t* upper;
    const std::uint8_t* lower;
    std::uint8_t lowerMask;  ///< 0 where the lower line lies beyond the sign
};

CellLines CellLinesOf(const BulbLines& bulbs, std::uint32_t row) {
    // The data has lines in pairs, so that there is something to read in any case.
    return {bulbs.Line(row), bulbs.Line(row) + bulbs.LineBytes(),
            row + 1 < bulbs.rows ? std::uint8_t{0xFF} : std::uint8_t{0}};
}

/// Both lines of a row of cells show the same.
void CopyToLowerLine(const BulbLines& bulbs, std::uint32_t row, const PixelLines& pixels) {
    if (row + 1 < bulbs.rows)
        std::memcpy(pixels.Line(row + 1), pixels.Line(row), pixels.lineBytes);
}

template <unsigned Bits>
EightLamps GatherCells(const CellLines& lines, std::size_t byte, std::size_t planeBytes,
                       std::uint8_t mask) {
    EightLamps cells = 0;
    for (unsigned bit = 0; bit < Bits; ++bit, byte += planeBytes) {
        const auto& spread = kSpreadHalves<Bits>;
        cells |= spread[lines.upper[byte] & mask] << bit;
        cells |= spread[lines.lower[byte] & mask & lines.lowerMask] << (bit + 2 * Bits);
    }
    return cells;
}

template <unsigned Bits>
void IndexLines(const BulbLines& bulbs, const PixelLines& pixels) {
    const std::size_t planeBytes = bulbs.PlaneBytes();
    const std::size_t wholeGroups = bulbs.columns / 8;
    const std::uint32_t rest = bulbs.columns % 8;
    for (std::uint32_t row = 0; row < bulbs.rows; row += 2) {
        const CellLines lines = CellLinesOf(bulbs, row);
        std::uint8_t* out = pixels.Line(row);
        for (std::size_t group = 0; group < wholeGroups; ++group, out += sizeof(EightLamps)) {
            const EightLamps cells = GatherCells<Bits>(lines, ByteOfGroup(group), planeBytes, 0xFF);
            std::memcpy(out, &cells, sizeof cells);
        }
        if (rest != 0) {
            const EightLamps cells =
                GatherCells<Bits>(lines, ByteOfGroup(wholeGroups), planeBytes, MaskOfFirst(rest)) &
                MaskOfFirstBytes(rest);
            std::memcpy(out, &cells, pixels.lineBytes - wholeGroups * sizeof cells);
        }
        CopyToLowerLine(bulbs, row, pixels);
    }
}

/// A lamp's light with the white lamp's light added, by own shade + (white shade << Bits).
template <unsigned Bits>
using Mix = std::array<std::uint8_t, 1U << (2 * Bits)>;

template <unsigned Bits>
Mix<Bits> MakeMix(const LampTechnology& technology) {
    Mix<Bits> mix;
    for (unsigned both = 0; both < mix.size(); ++both) {
        const auto own = static_cast<std::uint8_t>(both & technology.BrightestShade());
        const auto white = static_cast<std::uint8_t>(both >> Bits);
        mix[both] = LightOfCell({own, 0, 0, white}, technology).red;
    }
    return mix;
}

/// The pixels of four cells, each twice.
using EightPixels = std::array<std::uint32_t, 8>;

template <unsigned Bits>
EightPixels MixCells(EightLamps upperLamps, EightLamps lowerLamps, const Mix<Bits>& mix) {
    const auto upper = std::bit_cast<std::array<std::uint8_t, 8>>(upperLamps);
    const auto lower = std::bit_cast<std::array<std::uint8_t, 8>>(lowerLamps);
    EightPixels pixels;
    for (unsigned left = 0; left < pixels.size(); left += 2) {
        const unsigned white = static_cast<unsigned>(lower[left + 1]) << Bits;
        pixels[left] = pixels[left + 1] = PixelOf(
            mix[upper[left] | white], mix[upper[left + 1] | white], mix[lower[left] | white]);
    }
    return pixels;
}

template <unsigned Bits>
void LightLines(const BulbLines& bulbs, const LampTechnology& technology,
                const PixelLines& pixels) {
    static const Mix<Bits> mix = MakeMix<Bits>(technology);
    const std::size_t planeBytes = bulbs.PlaneBytes();
    const std::size_t wholeGroups = bulbs.columns / 8;
    const std::uint32_t rest = bulbs.columns % 8;
    for (std::uint32_t row = 0; row < bulbs.rows; row += 2) {
        const CellLines lines = CellLinesOf(bulbs, row);
        const auto mixed = [&](std::size_t group, std::uint8_t mask) {
            const std::size_t byte = ByteOfGroup(group);
            const auto lowerMask = static_cast<std::uint8_t>(mask & lines.lowerMask);
            return MixCells<Bits>(GatherShades<Bits>(lines.upper + byte, planeBytes, mask),
                                  GatherShades<Bits>(lines.lower + byte, planeBytes, lowerMask),
                                  mix);
        };
        std::uint8_t* out = pixels.Line(row);
        for (std::size_t group = 0; group < wholeGroups; ++group, out += sizeof(EightPixels)) {
            const EightPixels eight = mixed(group, 0xFF);
            std::memcpy(out, eight.data(), sizeof eight);
        }
        if (rest != 0)
            std::memcpy(out, mixed(wholeGroups, MaskOfFirst(rest)).data(),
                        rest * sizeof(std::uint32_t));
        CopyToLowerLine(bulbs, row, pixels);
    }
}

}  // namespace

void CellsToIndexes(const BulbLines& bulbs, const LampTechnology& technology,
                    const PixelLines& pixels) {
    if (technology.bits == 1)
        IndexLines<1>(bulbs, pixels);
    else
        IndexLines<2>(bulbs, pixels);
}

void CellsToLight(const BulbLines& bulbs, const LampTechnology& technology,
                  const PixelLines& pixels) {
    if (technology.bits == 4)
        LightLines<4>(bulbs, technology, pixels);
    else
        LightLines<6>(bulbs, technology, pixels);
}

}  // namespace k4suite
