#pragma once

#include <memory>
#include <string>

#include "apps/k4ctl/Answer.h"
#include "apps/k4ctl/sequence/FilePlace.h"
#include "suite/sequence/FileBytes.h"
#include "suite/sequence/SequenceReader.h"

namespace k4ctl {

/// A sequence file that is open for reading, with all that stands in it.
class OpenSequence {
 public:
    /// @return null, with the failure in the answer, where the file can't be read as a sequence.
    static std::unique_ptr<OpenSequence> Open(const std::string& file, const FilePlaces& places,
                                              Answer& answer);

    const k4suite::SequenceHead& Head() const { return m_head; }
    k4suite::SequenceReader& Reader() { return m_reader; }
    /// How many frames the file says that it has.
    std::uint32_t FrameCount() const { return m_head.start.frameCount; }

 private:
    OpenSequence(std::unique_ptr<k4suite::FileBytes> bytes, const k4suite::SequenceHead& head)
        : m_bytes(std::move(bytes)), m_head(head), m_reader(*m_bytes, m_head) {}

    const std::unique_ptr<k4suite::FileBytes> m_bytes;
    const k4suite::SequenceHead m_head;
    k4suite::SequenceReader m_reader;
};

/// Words about one frame of a file.
std::string FrameWords(std::uint32_t frame, const k4suite::SequenceDefect& defect);

}  // namespace k4ctl
