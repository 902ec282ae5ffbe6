// Playing a sequence on the sign service's engine, as one that shows the sign would ask for it: at
// 40 frames a second, for each frame the change flag and the picture. What is measured is the
// processor time that a second of playing takes, beside copying as many bytes as go in and out, and
// beside the second itself, of which a tenth may be used.

#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <atomic>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "k4cmndlg/frame/contracts/Clock.h"
#include "suite/sequence/SequenceWriter.h"
#include "suite/settings/DataHome.h"
#include "suite/settings/MachineSettings.h"
#include "suite/signservice/EngineRpc.h"
#include "suite/signservice/SignEngine.h"
#include "suite/store/FolderFiles.h"

namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t kRows = 256;
constexpr std::uint32_t kColumns = 512;
constexpr tag_K4_SIGN_COLOR kColor = K4_SIGN_COLOR_RGB16M;
constexpr std::uint32_t kDwell = 25;  // milliseconds
constexpr std::uint32_t kFramesOfSecond = 40;
constexpr std::size_t kPictureBytes = 40 + std::size_t{kRows} * kColumns * 4;
constexpr char kSign[] = "Arena";

/// A clock that the measurement moves from frame to frame.
class FrameClock final : public k4cmn::Clock {
 public:
    TimePoint Now() override { return m_now; }
    void NextFrame() { m_now += std::chrono::milliseconds(kDwell); }

 private:
    TimePoint m_now{std::chrono::hours(24 * 20'000)};
};

/// What a frame holds: colors that run into one another and wander, as films and drawings have.
std::uint32_t LightOf(std::uint32_t row, std::uint32_t column, std::uint32_t channel,
                      std::uint32_t frame) {
    const double wave = std::sin(row * 0.031 + frame * 0.15 + channel * 2.1) +
                        std::sin(column * 0.017 - frame * 0.11 + channel * 1.3);
    return static_cast<std::uint32_t>(std::lround(127.5 + wave * 63.75));
}

std::vector<std::uint8_t> BulbsOf(std::uint32_t frame) {
    constexpr std::size_t lineBytes = kColumns / 8;
    constexpr std::size_t planeBytes = lineBytes * kRows;
    std::vector<std::uint8_t> bulbs(
        static_cast<std::size_t>(k4cmn::BytesOfFrame(kRows, kColumns, kColor)));
    for (std::uint32_t channel = 0; channel < 3; ++channel)
        for (std::uint32_t row = 0; row < kRows; ++row)
            for (std::uint32_t column = 0; column < kColumns; ++column) {
                const std::uint32_t light = LightOf(row, column, channel, frame);
                const std::size_t byte = row * lineBytes + (column / 8 ^ 1U);
                for (std::uint32_t bit = 0; bit < 8; ++bit)
                    if (light >> bit & 1)
                        bulbs[(channel * 8 + bit) * planeBytes + byte] |=
                            static_cast<std::uint8_t>(0x80U >> column % 8);
            }
    return bulbs;
}

/// An engine with one large sign, over a data home of its own whose drive A: holds the sequences.
class Stage {
 public:
    Stage() : m_folder(MakeFolder()), m_files(k4suite::DataHome(m_folder)) {
        fs::create_directories(m_folder / "drives" / "A");
        k4suite::SignSetup sign;
        sign.name = kSign;
        sign.settings.rows = kRows;
        sign.settings.columns = kColumns;
        sign.settings.color = kColor;
        sign.settings.pixel = K4_PIXEL_TECH_LED;
        k4suite::MachineSettings settings;
        settings.services = {{"Local", {}, {}, {sign}}};
        m_engine =
            std::make_unique<k4suite::SignEngine>(settings, m_folder / "state", clock, m_files);
        rpc = std::make_unique<k4suite::EngineRpc>(*m_engine);
        rpc->k4ssConnectSignAsUser(".", nullptr, nullptr, nullptr);
    }
    ~Stage() {
        std::error_code ignored;  // nothing measured depends on it
        fs::remove_all(m_folder, ignored);
    }
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    /// Plays a sequence of a second's frames, packed by a level. @return the bytes of its file.
    std::uint64_t Play(tag_K4_COMPRESS_TYPE level) {
        const std::string name = "Level" + std::to_string(level) + ".SQ4";
        const fs::path path = m_folder / "drives" / "A" / name;
        if (!fs::exists(path))
            Write(path, level);
        const std::string file = "A:\\" + name;
        if (rpc->k4ssPlaySequence(kSign, file.c_str(), K4_PLAY_SEQ_CONTINUOUS, 0) != 0)
            std::abort();
        return fs::file_size(path);
    }

    FrameClock clock;
    std::unique_ptr<k4suite::EngineRpc> rpc;

 private:
    static fs::path MakeFolder() {
        std::string folder = (fs::temp_directory_path() / "k4bench-XXXXXX").string();
        if (!mkdtemp(folder.data()))
            std::abort();
        return folder;
    }
    static void Write(const fs::path& path, tag_K4_COMPRESS_TYPE level) {
        k4suite::SequenceFacts facts;
        facts.rows = kRows;
        facts.columns = kColumns;
        facts.color = kColor;
        facts.pixel = K4_PIXEL_TECH_LED;
        facts.level = level;
        k4suite::SequenceWriter writer(path.string(), facts);
        for (std::uint32_t frame = 0; frame < kFramesOfSecond; ++frame)
            writer.AddGraphic(k4cmn::kGraphicFrame, kDwell, BulbsOf(frame));
        if (!writer.Finish())
            std::abort();
    }

    fs::path m_folder;
    k4suite::FolderFiles m_files;
    std::unique_ptr<k4suite::SignEngine> m_engine;
};

Stage& TheStage() {
    static Stage stage;
    return stage;
}

/// The processor time that this process has used, in seconds.
double ProcessorSeconds() {
    timespec used{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &used);
    return static_cast<double>(used.tv_sec) + static_cast<double>(used.tv_nsec) * 1e-9;
}

/// One second of playing: what shows the sign asks whether it has changed, and for its picture.
void PlayASecond(Stage& stage, std::vector<char>& picture, benchmark::State& state) {
    for (std::uint32_t frame = 0; frame < kFramesOfSecond; ++frame) {
        stage.clock.NextFrame();
        std::uint32_t flag = 0;
        std::uint32_t length = 0;
        if (stage.rpc->k4ssGetChangeFlag(kSign, &flag) != 0 ||
            stage.rpc->k4ssGetDIB(kSign, picture.data(), static_cast<std::uint32_t>(picture.size()),
                                  &length) != 0)
            state.SkipWithError("failed");
        benchmark::DoNotOptimize(flag);
        benchmark::ClobberMemory();
    }
}

void Played(benchmark::State& state, tag_K4_COMPRESS_TYPE level, std::int32_t brightness) {
    Stage& stage = TheStage();
    state.counters["file_bytes"] = static_cast<double>(stage.Play(level));
    stage.rpc->k4ssSetDimming(kSign, K4_SIGN_DIM_MANUAL, brightness);
    std::vector<char> picture(kPictureBytes);
    double used = 0;
    for ([[maybe_unused]] auto round : state) {
        const double before = ProcessorSeconds();
        PlayASecond(stage, picture, state);
        const double of = ProcessorSeconds() - before;
        state.SetIterationTime(of);
        used += of;
    }
    state.counters["cpu_seconds_per_second"] = used / static_cast<double>(state.iterations());
}

/// The least that playing a second could do: each frame's bytes go in, each picture's go out.
void Copied(benchmark::State& state) {
    const auto frameBytes = static_cast<std::size_t>(k4cmn::BytesOfFrame(kRows, kColumns, kColor));
    const std::vector<char> frames(frameBytes * kFramesOfSecond, 1);
    const std::vector<char> pictures(kPictureBytes * 2, 1);
    std::vector<char> frame(frameBytes);
    std::vector<char> picture(kPictureBytes);
    for ([[maybe_unused]] auto round : state) {
        const double before = ProcessorSeconds();
        for (std::uint32_t at = 0; at < kFramesOfSecond; ++at) {
            std::memcpy(frame.data(), frames.data() + at * frameBytes, frameBytes);
            std::memcpy(picture.data(), pictures.data() + at % 2 * kPictureBytes, kPictureBytes);
            benchmark::ClobberMemory();
        }
        state.SetIterationTime(ProcessorSeconds() - before);
    }
}

/// The second that is played, by the times that the service tells.
void Second(benchmark::State& state) {
    Stage& stage = TheStage();
    stage.Play(K4_COMPRESS_NONE);
    for ([[maybe_unused]] auto round : state) {
        double milliseconds = 0;
        for (std::uint32_t frame = 1; frame <= kFramesOfSecond; ++frame) {
            std::uint32_t dwell = 0;
            if (stage.rpc->k4ssGetFrameStatus(kSign, nullptr, nullptr, nullptr, nullptr, nullptr,
                                              &dwell, nullptr) != 0)
                state.SkipWithError("failed");
            stage.clock.NextFrame();
            milliseconds += dwell;
        }
        state.SetIterationTime(milliseconds * 1e-3);
    }
}

BENCHMARK_CAPTURE(Played, none, K4_COMPRESS_NONE, 255)->Name("play/none")->UseManualTime();
BENCHMARK_CAPTURE(Played, runs, K4_COMPRESS_LOW, 255)->Name("play/runs")->UseManualTime();
BENCHMARK_CAPTURE(Played, deflate, K4_COMPRESS_MEDIUM, 255)->Name("play/deflate")->UseManualTime();
BENCHMARK_CAPTURE(Played, none_dimmed, K4_COMPRESS_NONE, 96)
    ->Name("play/none_dimmed")
    ->UseManualTime();
BENCHMARK_CAPTURE(Played, deflate_dimmed, K4_COMPRESS_MEDIUM, 96)
    ->Name("play/deflate_dimmed")
    ->UseManualTime();
BENCHMARK(Copied)->Name("memcpy_of_a_second")->UseManualTime();
BENCHMARK(Second)->Name("a_second")->UseManualTime();

}  // namespace

BENCHMARK_MAIN();
