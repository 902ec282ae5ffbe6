#include "suite/signservice/FrameList.h"

#include <algorithm>

namespace k4suite {

void FrameList::Add(std::uint32_t part) {
    m_way.push_back(part);
    const bool includes = m_way.size() <= kDeepest;
    const std::vector<FramePlace>& frames = m_parts.Part(part).Frames();
    for (std::uint32_t frame = 0; frame < frames.size() && !IsFull(); ++frame) {
        if (IsGraphicFrame(frames[frame].type)) {
            m_frames.push_back({part, frame});
            continue;
        }
        ++m_includes;
        if (SequencePart* open = includes ? m_parts.Opened(part) : nullptr)
            AddIncluded(open->ReadInclude(frames[frame]));
    }
    m_way.pop_back();
}

void FrameList::AddIncluded(const std::vector<IncludeField>& fields) {
    const std::uint32_t from = m_way.back();
    for (const IncludeField& field : fields) {
        if (IsFull())
            return;
        ++m_includes;
        const auto part = field.status != 0 ? m_parts.Find(field.path, from) : std::nullopt;
        if (part && !IsOnTheWay(*part))
            Add(*part);
    }
}

bool FrameList::IsOnTheWay(std::uint32_t part) const {
    return std::any_of(m_way.begin(), m_way.end(), [&](std::uint32_t passed) {
        return m_parts.Part(passed).Id() == m_parts.Part(part).Id();
    });
}

}  // namespace k4suite
