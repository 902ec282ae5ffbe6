#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "k4cmndlg/filestore/contracts/SequenceRecords.h"
#include "suite/sequence/BulbPacking.h"
#include "suite/sequence/SequenceWriter.h"

namespace {

namespace fs = std::filesystem;

/// A sequence with each kind of frame, and a chunk that is none.
void MakeSequence(const fs::path& path, std::uint32_t color, tag_K4_COMPRESS_TYPE level) {
    k4suite::SequenceFacts facts;
    facts.rows = 8;
    facts.columns = 17;
    facts.color = static_cast<tag_K4_SIGN_COLOR>(color);
    facts.level = level;
    facts.keywords = "seed; ";
    k4suite::SequenceWriter writer(path.string(), facts);
    std::vector<std::uint8_t> bulbs(
        static_cast<std::size_t>(k4cmn::BytesOfFrame(facts.rows, facts.columns, color)));
    const k4suite::IncludeField fields[] = {{1, "Other.SQ4"}, {0, ""}};
    const bool isWhole = writer.AddGraphic(k4cmn::kGraphicFrame, 100, bulbs) &&
                         writer.AddGraphic(k4cmn::kDataFrame, 100, bulbs) &&
                         writer.AddChunk(k4cmn::FourCharacterCode("own "), {}) &&
                         writer.AddGraphic(k4cmn::kTextFrame, 100, bulbs) &&
                         writer.AddInclude(fields) && writer.Finish();
    if (!isWhole)
        throw std::runtime_error(writer.Problem());
}

void MakePacked(const fs::path& path, tag_K4_BULB_COMPRESS_TYPE method) {
    const std::vector<std::uint8_t> data(200, 7);
    const std::vector<std::uint8_t> packed = k4suite::PackBulbs(data, method);
    std::ofstream file(path, std::ios::binary);
    file.put(static_cast<char>(method)).put(static_cast<char>(200)).put(0);
    file.write(reinterpret_cast<const char*>(packed.data()),
               static_cast<std::streamsize>(packed.size()));
    if (!file.flush())
        throw std::runtime_error("Cannot write " + path.string());
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: SequenceSeeds FOLDER\n", stderr);
        return 2;
    }
    try {
        const fs::path reader = fs::path(argv[1]) / "reader";
        const fs::path unpackers = fs::path(argv[1]) / "unpackers";
        fs::create_directories(reader);
        fs::create_directories(unpackers);
        for (const auto level : {K4_COMPRESS_NONE, K4_COMPRESS_LOW, K4_COMPRESS_MEDIUM})
            for (const std::uint32_t color : {0U, 7U, 14U})
                MakeSequence(reader / ("color" + std::to_string(color) + "level" +
                                       std::to_string(level) + ".SQ4"),
                             color, level);
        for (const auto method :
             {K4_BULB_COMPRESS_NONE, K4_BULB_COMPRESS_RUNS, K4_BULB_COMPRESS_DEFLATE})
            MakePacked(unpackers / ("method" + std::to_string(method)), method);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
    return 0;
}
