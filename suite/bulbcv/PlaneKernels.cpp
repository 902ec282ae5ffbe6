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

/// How many words of lamps go through the three channels at a time: few enough to stay close by,
/// and enough to use up what comes with a read of memory before other planes drive it out.
constexpr std::size_t kWordsAtATime = 32;
constexpr std::size_t kLampsOfWord = 16;

/// A stretch of one channel's light.
using Stretch = std::array<std::uint8_t, kWordsAtATime * kLampsOfWord>;

template <unsigned Bits>
void GatherLight(const std::uint8_t* words, std::size_t count, std::size_t planeBytes,
                 Stretch& light) {
    // The brightest shade divides the full light, and the product stays inside of its byte.
    constexpr unsigned scale = 255 / ((1U << Bits) - 1);
    static_assert(scale * ((1U << Bits) - 1) == 255);
    std::uint8_t* out = light.data();
    for (std::size_t word = 0; word < count; ++word, words += 2, out += kLampsOfWord) {
        const EightLamps lamps[] = {
            GatherShades<Bits>(words + ByteOfGroup(0), planeBytes) * scale,
            GatherShades<Bits>(words + ByteOfGroup(1), planeBytes) * scale,
        };
        std::memcpy(out, lamps, sizeof lamps);
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
    const std::size_t allWords = bulbs.Words();
    Stretch red;
    Stretch green;
    Stretch blue;
    for (std::uint32_t row = 0; row < bulbs.rows; ++row) {
        for (std::size_t first = 0; first < allWords; first += kWordsAtATime) {
            const std::uint8_t* words = bulbs.Line(row) + 2 * first;
            const std::size_t count = std::min(kWordsAtATime, allWords - first);
            GatherLight<Bits>(words, count, planeBytes, red);
            GatherLight<Bits>(words + channelBytes, count, planeBytes, green);
            GatherLight<Bits>(words + 2 * channelBytes, count, planeBytes, blue);
            const std::size_t column = first * kLampsOfWord;
            Interleave(red, green, blue, std::min(count * kLampsOfWord, bulbs.columns - column),
                       pixels.Line(row) + column * sizeof(std::uint32_t));
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
