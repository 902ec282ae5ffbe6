#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include "k4cmndlg/filestore/contracts/SequenceRecords.h"
#include "suite/sequence/BulbPacking.h"
#include "suite/sequence/SequenceHead.h"
#include "suite/sequence/SequenceWriter.h"

namespace {

namespace fs = std::filesystem;
using Bytes = std::vector<std::uint8_t>;

constexpr std::uint16_t kRows = 8;
constexpr std::uint16_t kColumns = 17;

void WriteSeed(const fs::path& folder, const std::string& name, const Bytes& bytes) {
    fs::create_directories(folder);
    std::ofstream file(folder / name, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    if (!file.flush())
        throw std::runtime_error("Cannot write " + (folder / name).string());
}

Bytes Joined(Bytes front, const Bytes& rest) {
    front.insert(front.end(), rest.begin(), rest.end());
    return front;
}

/// A sequence with each kind of frame, and a chunk that is none.
Bytes MakeSequence(const fs::path& path, std::uint8_t color, tag_K4_COMPRESS_TYPE level) {
    k4suite::SequenceFacts facts;
    facts.rows = kRows;
    facts.columns = kColumns;
    facts.color = static_cast<tag_K4_SIGN_COLOR>(color);
    facts.level = level;
    facts.keywords = "seed; ";
    k4suite::SequenceWriter writer(path.string(), facts);
    const Bytes bulbs(static_cast<std::size_t>(k4cmn::BytesOfFrame(kRows, kColumns, color)));
    const k4suite::IncludeField fields[] = {{1, "Other.SQ4"}, {0, ""}};
    const bool isWhole = writer.AddGraphic(k4cmn::kGraphicFrame, 100, bulbs) &&
                         writer.AddGraphic(k4cmn::kDataFrame, 100, bulbs) &&
                         writer.AddChunk(k4cmn::FourCharacterCode("own "), {}) &&
                         writer.AddGraphic(k4cmn::kTextFrame, 100, bulbs) &&
                         writer.AddInclude(fields) && writer.Finish();
    if (!isWhole)
        throw std::runtime_error(writer.Problem());
    std::ifstream file(path, std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(file), {});
}

/// The sequence as an input of SequenceFrom(): as it is, and as what stands behind the head.
void WriteSequence(const fs::path& folder, const std::string& name, const Bytes& front,
                   std::uint8_t color, const Bytes& sequence) {
    constexpr std::uint8_t kFrames = 4;
    const Bytes facts = {1, kRows - 1, kColumns - 1, color, kFrames, 0, 0};
    const Bytes frames(sequence.begin() + sizeof(k4suite::SequenceHead), sequence.end());
    WriteSeed(folder, name, Joined(Joined(front, {0}), sequence));
    WriteSeed(folder, name + "frames", Joined(Joined(front, facts), frames));
}

void WriteSequences(const fs::path& seeds) {
    for (const auto level : {K4_COMPRESS_NONE, K4_COMPRESS_LOW, K4_COMPRESS_MEDIUM})
        for (const std::uint8_t color : Bytes{0, 7, 14, 15}) {
            const Bytes sequence = MakeSequence(seeds / "Seed.SQ4", color, level);
            const std::string name =
                "color" + std::to_string(color) + "level" + std::to_string(level);
            WriteSequence(seeds / "SequenceReaderFuzzer", name, {}, color, sequence);
        }
    const Bytes sequence = MakeSequence(seeds / "Seed.SQ4", 0, K4_COMPRESS_LOW);
    // Level 30, thumbnail 2, run time 3, texts of 4 and 5 bytes.
    const Bytes changes = {31, 30, 2, 0, 3, 0, 4, 0, 5, 0};
    for (std::uint8_t step = 0; step < 8; ++step)
        for (const std::uint8_t journal : Bytes{0, 1})
            WriteSequence(seeds / "SequenceSaveFuzzer",
                          "step" + std::to_string(step) + "journal" + std::to_string(journal),
                          Joined(changes, {static_cast<std::uint8_t>(1 << step), 0, 0, 1, journal}),
                          0, sequence);
    fs::remove(seeds / "Seed.SQ4");
}

void WritePacked(const fs::path& folder) {
    for (const auto wanted :
         {K4_BULB_COMPRESS_NONE, K4_BULB_COMPRESS_RUNS, K4_BULB_COMPRESS_DEFLATE}) {
        auto method = wanted;
        const Bytes packed = k4suite::PackBulbs(Bytes(200, 7), method);
        WriteSeed(folder, "method" + std::to_string(wanted),
                  Joined({static_cast<std::uint8_t>(method), 200, 0}, packed));
    }
}

void WriteBulbs(const fs::path& folder) {
    for (std::uint8_t color = 0; color < 18; ++color)
        for (const std::uint8_t depth : Bytes{0, 1})
            WriteSeed(folder, "color" + std::to_string(color) + "depth" + std::to_string(depth),
                      {color, depth, 4, 40, 0, 0xFF, 0, 0x5A, 0x81, 0x3C});
}

/// Two bytes that stand for a day, then the text of a schedule.
void WriteSchedules(const fs::path& folder) {
    constexpr const char* kEntries[] = {
        "at 06:00 mon-fri  play Morning.SQ4\n",
        "at 06:00:30 sat,sun  play \"Weekend Welcome.SQ4\" num-times 3 # twice\r\n",
        "at 02:30 daily next\nat 02:59:59 fri-mon stop\nat 00:00 blank\nat 23:59:59 default\n",
        "at 20:00 dim manual 96\nat 05:55 dim photocell -10\nat 01:00 dim remote\n",
        "at 03:00 dim scheduled\n\nat 1:00 stop\n",
    };
    for (const std::string entries : kEntries) {
        const std::string text = "\x10\x51" + entries;
        WriteSeed(folder, "entries" + std::to_string(entries.size()), {text.begin(), text.end()});
    }
    const std::string whole = "\x10\x51\xEF\xBB\xBFK4 schedule 1\nat 06:00 play a.SQ4 12 1\nbad";
    WriteSeed(folder, "whole", {whole.begin(), whole.end()});
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: SequenceSeeds FOLDER\n", stderr);
        return 2;
    }
    try {
        const fs::path seeds = argv[1];
        fs::create_directories(seeds);
        WriteSequences(seeds);
        WritePacked(seeds / "UnpackersFuzzer");
        WriteSchedules(seeds / "ScheduleFuzzer");
        WriteBulbs(seeds / "BulbsFuzzer");
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
    return 0;
}
