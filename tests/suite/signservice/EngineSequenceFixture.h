#pragma once

#include <functional>
#include <stdexcept>
#include <string>

#include "tests/suite/signservice/EngineRig.h"
#include "tests/suite/signservice/SequenceFiles.h"

namespace k4test {

/// A rig with sequences of the test's own in its store.
class EngineSequenceFixture : public testing::Test {
 protected:
    using Bytes = std::vector<std::uint8_t>;
    using Writer = k4suite::SequenceWriter;

    /// The settings of a sign of "Local".
    const k4cmn::SignSettings& Settings(const std::string& sign = "Main") const {
        for (const k4suite::SignSetup& setup : rig.settings.services[0].signs)
            if (setup.name == sign)
                return setup.settings;
        throw std::invalid_argument(sign);
    }
    k4suite::SequenceFacts Facts(const std::string& sign = "Main",
                                 tag_K4_COMPRESS_TYPE level = K4_COMPRESS_NONE) const {
        return FactsFor(Settings(sign), level);
    }

    /// Makes "S:\NAME" with what `fill` adds to it.
    std::string Make(const std::string& name, const k4suite::SequenceFacts& facts,
                     const std::function<void(Writer&)>& fill) {
        Writer writer((rig.store.Path() / name).string(), facts);
        fill(writer);
        EXPECT_TRUE(writer.Finish()) << writer.Problem();
        return "S:\\" + name;
    }
    /// Makes a sequence for "Main" of frames with these seeds, 100 ms each.
    std::string MakeOf(const std::string& name, const std::vector<std::uint32_t>& seeds,
                       tag_K4_COMPRESS_TYPE level = K4_COMPRESS_NONE) {
        const k4suite::SequenceFacts facts = Facts("Main", level);
        return Make(name, facts, [&](Writer& writer) {
            for (const std::uint32_t seed : seeds)
                writer.AddGraphic(k4cmn::kGraphicFrame, 100, NoiseBulbs(facts, seed));
        });
    }
    /// The bulb data of a frame that MakeOf() made.
    Bytes Frame(std::uint32_t seed) const { return NoiseBulbs(Facts(), seed); }

    /// Whether a sequence is one that can be played.
    bool CanPlay(const std::string& file, const char* sign = "Main") {
        const bool can =
            rig.rpc->k4ssCheckSequence(sign, file.c_str(), K4_PLAY_SEQ_CONTINUOUS, 0) == 0;
        EXPECT_EQ(rig.Play(file, K4_PLAY_SEQ_CONTINUOUS, 0, sign) == 0, can);
        return can;
    }
    /// Plays a sequence on "Main", and gives the seeds of what each of its frames shows; 0 for the
    /// dark, 9999 for something else.
    std::vector<std::uint32_t> SeedsShown(const std::string& file,
                                          const std::vector<std::uint32_t>& known) {
        EXPECT_EQ(rig.Play(file, K4_PLAY_SEQ_SINGLE_STEP), 0) << file;
        std::vector<std::uint32_t> seeds;
        const std::uint32_t count = rig.Status().count;
        for (std::uint32_t frame = 0; frame < count; ++frame) {
            seeds.push_back(SeedOf(rig.Bulbs(), known));
            rig.rpc->k4ssSingleStepFrame("Main", 1);
        }
        return seeds;
    }
    std::uint32_t SeedOf(const Bytes& bulbs, const std::vector<std::uint32_t>& known) const {
        if (bulbs == Bytes(bulbs.size()))
            return 0;
        for (const std::uint32_t seed : known)
            if (bulbs == Frame(seed))
                return seed;
        return 9999;
    }

    EngineRig rig;
};

}  // namespace k4test
