#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "k4cmndlg/filestore/contracts/RegistryProvider.h"
#include "suite/sequence/SequenceWriter.h"

namespace k4test {

/// What a sequence for a sign says of itself.
inline k4suite::SequenceFacts FactsFor(const k4cmn::SignSettings& sign,
                                       tag_K4_COMPRESS_TYPE level = K4_COMPRESS_NONE) {
    k4suite::SequenceFacts facts;
    facts.rows = static_cast<std::uint16_t>(sign.rows);
    facts.columns = static_cast<std::uint16_t>(sign.columns);
    facts.color = sign.color;
    facts.pixel = sign.pixel;
    facts.level = level;
    return facts;
}

/// Bulb data in which every bit that has a lamp may be set, and no other; the same for the same
/// seed.
inline std::vector<std::uint8_t> NoiseBulbs(const k4suite::SequenceFacts& facts,
                                            std::uint32_t seed) {
    std::vector<std::uint8_t> bulbs(
        static_cast<std::size_t>(k4cmn::BytesOfFrame(facts.rows, facts.columns, facts.color)));
    const std::uint32_t planes = k4cmn::PlanesOfColor(facts.color);
    const bool isPacked =
        facts.color == K4_SIGN_COLOR_RGB32KB || facts.color == K4_SIGN_COLOR_RGB16MB;
    const std::size_t words = (facts.columns + 15U) / 16U;
    const std::size_t lines = (facts.rows + 1U) & ~1U;
    const std::size_t pixelBytes = planes / 8;
    for (std::size_t at = 0; at < bulbs.size(); ++at) {
        seed = seed * 1664525 + 1013904223;
        auto byte = static_cast<std::uint8_t>(seed >> 24);
        if (isPacked) {
            const std::size_t lineBytes = words * 16 * pixelBytes;
            const bool isLamp =
                at / lineBytes < facts.rows && at % lineBytes / pixelBytes < facts.columns;
            if (facts.color == K4_SIGN_COLOR_RGB32KB && at % 2 == 1)
                byte &= 0x7F;
            bulbs[at] = isLamp ? byte : std::uint8_t{0};
            continue;
        }
        const std::size_t first = (at % (2 * words) ^ 1) * 8;  // the column of the highest bit
        const std::size_t row = at / (2 * words) % lines;
        const std::size_t count = first < facts.columns ? facts.columns - first : 0;
        const auto mask = static_cast<std::uint8_t>(count >= 8 ? 0xFF : 0xFF00U >> count);
        bulbs[at] = row < facts.rows ? byte & mask : 0;
    }
    return bulbs;
}

/// Adds so many frames of noise, 100 ms each; their seeds are `seed` and the numbers behind it.
inline void AddNoise(k4suite::SequenceWriter& writer, const k4suite::SequenceFacts& facts,
                     std::uint32_t frames, std::uint32_t seed) {
    for (std::uint32_t frame = 0; frame < frames; ++frame)
        ASSERT_TRUE(
            writer.AddGraphic(k4cmn::kGraphicFrame, 100, NoiseBulbs(facts, seed * 1000 + frame)))
            << writer.Problem();
}

/// Writes a sequence for a sign, of frames of noise that stand 100 ms each.
inline void WriteSequence(const std::filesystem::path& path, const k4cmn::SignSettings& sign,
                          std::uint32_t frames, std::uint32_t seed,
                          tag_K4_COMPRESS_TYPE level = K4_COMPRESS_NONE) {
    const k4suite::SequenceFacts facts = FactsFor(sign, level);
    k4suite::SequenceWriter writer(path.string(), facts);
    AddNoise(writer, facts, frames, seed);
    ASSERT_TRUE(writer.Finish()) << writer.Problem();
}

/// An include frame's field that is played.
inline k4suite::IncludeField Including(const std::string& path) {
    return {1, path};
}

}  // namespace k4test
