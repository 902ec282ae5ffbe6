#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>
#include <system_error>
#include <vector>

#include "suite/sequence/SequenceFile.h"
#include "suite/sequence/SequenceWriter.h"

namespace {

namespace fs = std::filesystem;

/// A sequence of 16 rows and 80 columns with so many frames.
class LongSequence {
 public:
    explicit LongSequence(std::int64_t frames) {
        std::string folder = (fs::temp_directory_path() / "k4bench-XXXXXX").string();
        if (!mkdtemp(folder.data()))
            std::abort();
        m_folder = folder;
        k4suite::SequenceFacts facts;
        facts.rows = 16;
        facts.columns = 80;
        facts.keywords = "bench; ";
        k4suite::SequenceWriter writer(Path(), facts);
        const std::vector<std::uint8_t> bulbs(
            static_cast<std::size_t>(k4cmn::BytesOfFrame(16, 80, facts.color)), 0x55);
        for (std::int64_t i = 0; i < frames; ++i)
            writer.AddGraphic(k4cmn::kGraphicFrame, 25, bulbs);
        if (!writer.Finish())
            std::abort();
    }
    ~LongSequence() {
        std::error_code ignored;
        fs::remove_all(m_folder, ignored);
    }
    LongSequence(const LongSequence&) = delete;
    LongSequence& operator=(const LongSequence&) = delete;

    std::string Path() const { return (m_folder / "Long.SQ4").string(); }

 private:
    fs::path m_folder;
};

const LongSequence& SequenceOf(std::int64_t frames) {
    static std::map<std::int64_t, LongSequence> sequences;
    return sequences.try_emplace(frames, frames).first->second;
}

void OpenForFacts(benchmark::State& state) {
    const std::string path = SequenceOf(state.range(0)).Path();
    for ([[maybe_unused]] auto round : state) {
        k4suite::SequenceFile file;
        if (!file.Open(path, K4_OPEN_READ))
            state.SkipWithError(file.GetPtrToErrorString());
        benchmark::DoNotOptimize(file.FrameCount());
        benchmark::DoNotOptimize(file.GetPtrToKeywords());
    }
}

/// The least that any reading of a file's first page has to do.
void BareRead(benchmark::State& state) {
    const std::string path = SequenceOf(state.range(0)).Path();
    std::vector<char> page(4096);
    for ([[maybe_unused]] auto round : state) {
        const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
        if (file < 0 || read(file, page.data(), page.size()) <= 0)
            state.SkipWithError("the file can't be read");
        benchmark::DoNotOptimize(page.data());
        close(file);
    }
}

BENCHMARK(OpenForFacts)->Name("open_sequence")->Arg(10)->Arg(60000);
BENCHMARK(BareRead)->Name("open_and_read_4K")->Arg(10)->Arg(60000);

}  // namespace

BENCHMARK_MAIN();
