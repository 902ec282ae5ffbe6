#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "k4cmndlg/filestore/contracts/SequenceRecords.h"
#include "suite/sequence/ByteSource.h"
#include "suite/sequence/IncludeField.h"
#include "suite/sequence/ReadAhead.h"
#include "suite/sequence/SequenceDefect.h"
#include "suite/sequence/SequenceHead.h"

namespace k4suite {

/// Where a frame lies.
struct FramePlace {
    std::uint64_t offset = 0;  ///< of the chunk's content
    std::uint32_t type = 0;
    std::uint32_t size = 0;  ///< of the chunk's content
    std::uint32_t dwell =
        0;  ///< milliseconds; 0 for an include frame, or one without a whole header
};

/// Whether chunks of a type have a graphic frame's content.
bool IsGraphicFrame(std::uint32_t type);
/// Whether chunks of a type are frames.
bool IsFrame(std::uint32_t type);

/// Finds and reads the frames of a sequence. Chunks are looked through as far as the frames that
/// are asked for, and each chunk once.
/// Threads: one at a time.
class SequenceReader {
 public:
    /// @param bytes the file; must outlive the object.
    /// @param head  its head, without a defect.
    SequenceReader(ByteSource& bytes, const SequenceHead& head);

    /// The bytes of a frame's bulb data.
    std::size_t FrameBytes() const { return m_frameBytes; }
    /// Where the form ends, or the file if that is earlier.
    std::uint64_t End() const { return m_end; }

    /// Finds a frame, from 1.
    /// @return nothing if there are fewer, with the offset and the words of why.
    std::optional<FramePlace> Find(std::uint32_t number, SequenceDefect& defect);

    /// Reads a graphic frame's header.
    bool ReadHeader(const FramePlace& place, tag_K4_GRP_HDR& header, SequenceDefect& defect);
    /// Reads and unpacks a graphic frame's bulb data.
    /// @param data has FrameBytes(); undefined where the result is false.
    bool ReadBulbs(const FramePlace& place, tag_K4_BULB_COMPRESS_TYPE method,
                   std::span<std::uint8_t> data, SequenceDefect& defect);
    /// Whether a frame's size lets it be unpacked, before memory is taken for it.
    bool CanReadBulbs(const FramePlace& place, tag_K4_BULB_COMPRESS_TYPE method,
                      SequenceDefect& defect) const;
    /// Reads an include frame.
    bool ReadInclude(const FramePlace& place, std::vector<IncludeField>& fields,
                     SequenceDefect& defect);

 private:
    bool FindNext(SequenceDefect& defect);
    bool ReadDwell(FramePlace& place, SequenceDefect& defect);
    bool ReadExactly(std::uint64_t offset, std::span<std::uint8_t> bytes, SequenceDefect& defect);

    ByteSource& m_bytes;
    ReadAhead m_ahead;
    std::size_t m_frameBytes;
    std::uint64_t m_end;
    std::uint64_t m_next;  ///< the first chunk that wasn't looked at
    std::vector<FramePlace> m_places;
};

}  // namespace k4suite
