#include "suite/bulbcv/PlaneKernels.h"

#include <algorithm>
#include <cstring>

#include "suite/bulbcv/BitSpread.h"

namespace k4suite {

namespace {

template <unsigned Planes>
void IndexLines(const BulbLines& bulbs, const PixelLines& pixels) {
    const std::size_t planeBytes = bulbs.PlaneBytes();
    const std::size_t wholeGroups = bulbs.columns / 8;
    const std::uint32_t rest = bulbs.columns % 8;
    for (std::uint32_t row = 0; row < bulbs.rows; ++row) {
        const std::uint8_t* line = bulbs.Line(row);
        std::uint8_t* out = pixels.Line(row);
        for (std::size_t group = 0; group < wholeGroups; ++group, out += sizeof(EightLamps)) {
            const EightLamps indexes = GatherShades<Planes>(line + ByteOfGroup(group), planeBytes);
            std::memcpy(out, &indexes, sizeof indexes);
        }
        if (rest == 0)
            continue;
        const EightLamps indexes =
            GatherShades<Planes>(line + ByteOfGroup(wholeGroups), planeBytes, MaskOfFirst(rest));
        std::memcpy(out, &indexes, pixels.lineBytes - wholeGroups * sizeof indexes);
    }
}

/// How many lamps go through the three channels at a time: few enough to stay close by.
constexpr std::size_t kGroupsAtATime = 32;

/// A stretch of one channel's light.
using Stretch = std::array<std::uint8_t, kGroupsAtATime * 8>;

template <unsigned Bits>
void GatherLight(const std::uint8_t* line, std::size_t planeBytes, std::size_t firstGroup,
                 std::size_t groups, Stretch& light) {
    // The brightest shade divides the full light, and the product stays inside of its byte.
    constexpr unsigned scale = 255 / ((1U << Bits) - 1);
    static_assert(scale * ((1U << Bits) - 1) == 255);
    for (std::size_t group = 0; group < groups; ++group) {
        const EightLamps lamps =
            GatherShades<Bits>(line + ByteOfGroup(firstGroup + group), planeBytes) * scale;
        std::memcpy(light.data() + group * sizeof lamps, &lamps, sizeof lamps);
    }
}

void Interleave(const Stretch& red, const Stretch& green, const Stretch& blue, std::size_t lamps,
                std::uint8_t* out) {
    for (std::size_t lamp = 0; lamp < lamps; ++lamp) {
        const std::uint32_t pixel = PixelOf(red[lamp], green[lamp], blue[lamp]);
        std::memcpy(out + lamp * sizeof pixel, &pixel, sizeof pixel);
    }
}

template <unsigned Bits>
void LightLines(const BulbLines& bulbs, const PixelLines& pixels) {
    const std::size_t planeBytes = bulbs.PlaneBytes();
    const std::size_t channelBytes = planeBytes * Bits;
    const std::size_t allGroups = (std::size_t{bulbs.columns} + 7) / 8;
    Stretch red;
    Stretch green;
    Stretch blue;
    for (std::uint32_t row = 0; row < bulbs.rows; ++row) {
        const std::uint8_t* line = bulbs.Line(row);
        for (std::size_t first = 0; first < allGroups; first += kGroupsAtATime) {
            const std::size_t groups = std::min(kGroupsAtATime, allGroups - first);
            GatherLight<Bits>(line, planeBytes, first, groups, red);
            GatherLight<Bits>(line + channelBytes, planeBytes, first, groups, green);
            GatherLight<Bits>(line + 2 * channelBytes, planeBytes, first, groups, blue);
            Interleave(red, green, blue, std::min(groups * 8, bulbs.columns - first * 8),
                       pixels.Line(row) + first * 8 * sizeof(std::uint32_t));
        }
    }
}

}  // namespace

void PlanesToIndexes(const BulbLines& bulbs, std::uint32_t planes, const PixelLines& pixels) {
    using Kernel = void (*)(const BulbLines&, const PixelLines&);
    constexpr Kernel kernels[] = {
        IndexLines<1>, IndexLines<2>, IndexLines<3>, IndexLines<4>,
        IndexLines<5>, IndexLines<6>, IndexLines<7>, IndexLines<8>,
    };
    kernels[planes - 1](bulbs, pixels);
}

void PlanesToLight(const BulbLines& bulbs, const LampTechnology& technology,
                   const PixelLines& pixels) {
    if (technology.bits == 4)
        LightLines<4>(bulbs, pixels);
    else
        LightLines<8>(bulbs, pixels);
}

}  // namespace k4suite
