#include "apps/preview/TimeLine.h"

#include <algorithm>
#include <utility>

namespace preview {

void TimeLine::Append(Moment moment) {
    moment.start = Duration();
    if (moment.dwell.count() > 0)
        m_lastTimed = m_moments.size();
    if (moment.kind != MomentKind::Frame && m_problems++ == 0)
        m_firstProblem = m_moments.size();
    m_moments.push_back(moment);
}

std::uint32_t TimeLine::AddFile(FileFacts facts) {
    m_files.push_back(std::move(facts));
    return static_cast<std::uint32_t>(m_files.size() - 1);
}

std::uint32_t TimeLine::AddWords(std::string words) {
    m_words.push_back(std::move(words));
    return static_cast<std::uint32_t>(m_words.size() - 1);
}

milliseconds TimeLine::Duration() const {
    return m_moments.empty() ? milliseconds(0) : m_moments.back().End();
}

std::size_t TimeLine::IndexAt(milliseconds time) const {
    if (time >= Duration())
        return m_lastTimed;
    // Of moments that begin at one time, the last one takes it.
    const auto after = std::upper_bound(
        m_moments.begin(), m_moments.end(), std::max(time, milliseconds(0)),
        [](milliseconds value, const Moment& moment) { return value < moment.start; });
    return static_cast<std::size_t>(after - m_moments.begin()) - 1;
}

}  // namespace preview
