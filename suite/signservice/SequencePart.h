#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "suite/sequence/FileBytes.h"
#include "suite/sequence/IncludeField.h"
#include "suite/sequence/SequenceReader.h"

namespace k4suite {

/// One sequence file among those that a sign plays together: the one that was given, or one that
/// it includes. Its frames are looked up once; afterwards the file may be closed and opened again.
///
/// An open file stays what it was when it is replaced or deleted. Opened again, it is only taken if
/// it is the same file still. Threads: one at a time.
class SequencePart {
 public:
    /// Tells files apart, whatever names lead to them.
    using Identity = std::pair<std::uint64_t, std::uint64_t>;

    /// Opens a file and looks up its frames.
    /// @param path   in the store.
    /// @param native where that lies.
    /// @param most   how many frames are looked up at most.
    /// @return null if it isn't a sequence.
    static std::unique_ptr<SequencePart> Open(std::string path, std::string native,
                                              std::size_t most);

    const std::string& Path() const { return m_path; }
    const Identity& Id() const { return m_id; }
    const tag_K4_SOS_FRM& Facts() const { return m_facts; }
    /// The frames that are there, of every type, in their order.
    const std::vector<FramePlace>& Frames() const { return m_frames; }

    bool IsOpen() const { return m_reader.has_value(); }
    void Close();
    /// @return false if the same file can't be opened any more.
    bool Reopen();

    /// Reads an include frame of the open file. @return no fields if it can't be read.
    std::vector<IncludeField> ReadInclude(const FramePlace& place);
    /// Reads a graphic frame of the open file.
    /// @param bulbs gets its bulb data; undefined where the result is false.
    bool ReadBulbs(const FramePlace& place, std::vector<std::uint8_t>& bulbs);

 private:
    SequencePart(std::string path, std::string native);
    bool OpenFile();
    void LookUpFrames(std::size_t most);

    std::string m_path;
    std::string m_native;
    Identity m_id;
    tag_K4_SOS_FRM m_facts{};
    std::vector<FramePlace> m_frames;
    std::unique_ptr<FileBytes> m_bytes;
    std::optional<SequenceReader> m_reader;
};

}  // namespace k4suite
