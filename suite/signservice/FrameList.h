#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "suite/signservice/SequenceParts.h"

namespace k4suite {

/// A frame that is shown: which file it is in, and which of its frames it is, both from 0.
struct ListedFrame {
    std::uint32_t part = 0;
    std::uint32_t frame = 0;
};

/// The frames of a sequence in the order in which a sign shows them. At the place of an include
/// frame stand the frames of the sequences that it names, field by field where the field is
/// switched on. A path is absolute or begins at the file that names it.
///
/// Included sequences include others, eight deep at most. One that can't be opened is passed over,
/// and so is one inside of itself. Since a handful of small files can come to more frames than any
/// machine holds, no more than kMostFrames are listed, and no more than kMostIncludes include
/// frames and fields of them looked at; what comes behind isn't shown. Threads: one at a time.
class FrameList {
 public:
    static constexpr std::size_t kMostFrames = 262'144;
    static constexpr std::size_t kMostIncludes = 65'536;
    static constexpr std::size_t kDeepest = 8;

    /// @param parts its files; must outlive the object.
    explicit FrameList(SequenceParts& parts) : m_parts(parts) {}

    /// Lists the frames of a file, with those that it includes.
    void Add(std::uint32_t part);

    const std::vector<ListedFrame>& Frames() const { return m_frames; }

 private:
    void AddIncluded(const std::vector<IncludeField>& fields);
    bool IsOnTheWay(std::uint32_t part) const;
    bool IsFull() const { return m_frames.size() >= kMostFrames || m_includes >= kMostIncludes; }

    SequenceParts& m_parts;
    std::vector<ListedFrame> m_frames;
    std::vector<std::uint32_t> m_way;  ///< from the sequence down to the file that is being listed
    std::size_t m_includes = 0;        ///< include frames and fields that were looked at
};

}  // namespace k4suite
