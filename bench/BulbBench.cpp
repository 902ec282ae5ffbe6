// Bulb data turned into pictures, for every color technology on a small and on a huge sign: the
// suite's conversion, beside the plain one that goes lamp by lamp, and beside copying as many bytes
// as the conversion reads and writes.

#include <benchmark/benchmark.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "suite/bulbcv/BulbEncoder.h"
#include "suite/bulbcv/PlaneBulbCv.h"
#include "tests/suite/bulbcv/PlainBulbCv.h"

namespace {

struct Size {
    const char* name;
    std::uint32_t rows;
    std::uint32_t columns;
};

constexpr Size kSizes[] = {{"512x128", 128, 512}, {"2048x4096", 2048, 4096}};

/// By color value. Value 15 has no lamps and is left out; the last one stands for all that have no
/// name.
constexpr const char* kColors[] = {
    "MONO1", "QUAD16", "TRI3",   "QUAD256", "MONO4",   "QUAD64K", "MONO16", "TRI256",  "QUAD16M",
    "RGB64", "RGB4K",  "RGB16M", "MONO64",  "RGB32KB", "RGB16MB", nullptr,  "UNNAMED",
};

/// A frame of noise, and room for its picture. One lives at a time.
struct Frame {
    Frame(const Size& size, int colorValue)
        : color(static_cast<tag_K4_SIGN_COLOR>(colorValue)),
          depth(colorValue == 0 ? 1 : 8),
          bulbs(k4suite::BulbBytes(size.rows, size.columns, k4suite::TechnologyOf(color))),
          pixels(std::size_t{size.rows} * size.columns * 4) {
        std::minstd_rand noise(1);
        for (std::uint8_t& byte : bulbs)
            byte = static_cast<std::uint8_t>(noise() >> 8);
    }

    tag_K4_SIGN_COLOR color;
    int depth;
    std::vector<std::uint8_t> bulbs;
    std::vector<std::uint8_t> pixels;
    K4ImageHeader header{};
};

template <class Conversion>
void Convert(benchmark::State& state, const Size& size, int color) {
    Frame frame(size, color);
    Conversion conversion;
    for (auto _ : state) {
        if (!conversion.Bulb2DIB(frame.bulbs.data(), frame.bulbs.size(), size.rows, size.columns,
                                 frame.color, &frame.header, frame.pixels.data(),
                                 frame.pixels.size(), frame.depth))
            state.SkipWithError("failed");
        benchmark::ClobberMemory();
    }
}

/// Copies the frame's bytes, and a picture's bytes.
void Copy(benchmark::State& state, const Size& size, int color) {
    Frame frame(size, color);
    k4suite::PlaneBulbCv().Bulb2DIB(frame.bulbs.data(), frame.bulbs.size(), size.rows, size.columns,
                                    frame.color, &frame.header, frame.pixels.data(),
                                    frame.pixels.size(), frame.depth);
    std::vector<std::uint8_t> from(frame.bulbs.size() + frame.header.bmiHeader.biSizeImage, 1);
    std::vector<std::uint8_t> to(from.size());
    for (auto _ : state) {
        std::memcpy(to.data(), from.data(), from.size());
        benchmark::ClobberMemory();
    }
}

void Register() {
    for (const Size& size : kSizes)
        for (int color = 0; color < static_cast<int>(std::size(kColors)); ++color) {
            if (!kColors[color])
                continue;
            const std::string name = std::string("/") + kColors[color] + "/" + size.name;
            const auto add = [&](const char* kind, auto* run) {
                benchmark::RegisterBenchmark((kind + name).c_str(), run, size, color);
            };
            add("Bulb2DIB", Convert<k4suite::PlaneBulbCv>);
            add("lamp_by_lamp", Convert<k4test::PlainBulbCv>);
            add("memcpy", Copy);
        }
}

}  // namespace

int main(int argc, char** argv) {
    Register();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
