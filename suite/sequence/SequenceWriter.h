#pragma once

#include <cstdint>
#include <cstdio>
#include <span>
#include <string>
#include <vector>

#include "k4cmndlg/filestore/SignTypes.h"
#include "k4cmndlg/filestore/contracts/SequenceRecords.h"
#include "suite/sequence/IncludeField.h"
#include "suite/sequence/SequenceHead.h"

namespace k4suite {

/// What a sequence that is made says of itself, but for what follows from its frames.
struct SequenceFacts {
    std::uint16_t rows = 0;
    std::uint16_t columns = 0;
    tag_K4_SIGN_COLOR color = K4_SIGN_COLOR_MONO1;
    tag_K4_PIXEL_TECH pixel = K4_PIXEL_TECH_INCAND;
    tag_K4_COMPRESS_TYPE level = K4_COMPRESS_NONE;
    bool previewOnly = false;
    std::uint16_t thumbnailFrame = 0;  ///< from 1; 0: none
    std::string maker;                 ///< the program; 511 bytes at most
    std::string keywords;              ///< 1023 bytes at most
    std::string notes;                 ///< 1023 bytes at most
};

/// Makes a sequence file. The file appears, or replaces the one that was there, when Finish()
/// succeeds; until then it is written beside its place, without a name, and goes with the object or
/// with the process. Where the disk has no files without a name it has one that the store doesn't
/// list, and goes with the object.
/// After the first failure every operation fails, with the words of that failure.
/// Threads: one at a time.
class SequenceWriter {
 public:
    /// @param path native.
    SequenceWriter(std::string path, const SequenceFacts& facts);
    ~SequenceWriter();
    SequenceWriter(const SequenceWriter&) = delete;
    SequenceWriter& operator=(const SequenceWriter&) = delete;

    /// Adds a graphic frame.
    /// @param type  k4cmn::kGraphicFrame, kDataFrame or kTextFrame.
    /// @param dwell milliseconds.
    /// @param bulbs unpacked, k4cmn::BytesOfFrame() bytes.
    bool AddGraphic(std::uint32_t type, std::uint32_t dwell, std::span<const std::uint8_t> bulbs);
    /// Adds an include frame of at most 65535 fields and 1 MiB, with paths of at most 65535 bytes.
    bool AddInclude(std::span<const IncludeField> fields);
    /// Adds a chunk as it is. One of a frame's type counts as that frame; any other is passed over
    /// by readers.
    /// @param type a four-character code, not 0.
    bool AddChunk(std::uint32_t type, std::span<const std::uint8_t> content);
    /// Completes the file.
    bool Finish();

    /// The words of the first failure; empty if there was none.
    const std::string& Problem() const { return m_problem; }

 private:
    bool Fail(const std::string& words);
    bool Write(std::span<const std::uint8_t> bytes);
    bool WriteChunk(std::uint32_t type, std::span<const std::uint8_t> first,
                    std::span<const std::uint8_t> second);
    bool CountFrame(std::uint32_t type, std::uint32_t dwell);
    bool CompleteHead();

    const std::string m_path;
    std::string m_unfinished;  ///< the path beside the place; empty while there is none
    std::FILE* m_file = nullptr;
    SequenceHead m_head;
    std::uint64_t m_written = 0;
    std::uint64_t m_runTime = 0;
    std::string m_problem;
};

}  // namespace k4suite
