#include "suite/signservice/DisplayQueue.h"

#include <utility>

#include "k4cmndlg/frame/Format.h"

namespace k4suite {

namespace {

using k4cmn::Format;

std::string LineOf(const PlayOrder& order) {
    return Format("%u\t%s\t%d\t%u\n", K4_QUEUE_SEQUENCE, order.sequence.c_str(), order.mode,
                  order.param);
}

std::string LineOf(const QueuedEnable& enable) {
    return Format("%u\t%u\t%d\n", K4_QUEUE_WINDOW_ENABLE, enable.window, enable.open ? 1 : 0);
}

std::string LineOf(const QueuedMove& move) {
    return Format("%u\t%u\t%d\t%d\n", K4_QUEUE_WINDOW_MOVE, move.window, move.row, move.column);
}

}  // namespace

bool DisplayQueue::Add(QueueEntry entry) {
    if (m_entries.size() >= kMost)
        return false;
    m_entries.push_back(std::move(entry));
    return true;
}

std::optional<QueueEntry> DisplayQueue::Take() {
    if (m_entries.empty())
        return std::nullopt;
    QueueEntry first = std::move(m_entries.front());
    m_entries.pop_front();
    return first;
}

bool DisplayQueue::Clear() {
    const bool held = !m_entries.empty();
    m_entries.clear();
    return held;
}

std::string DisplayQueue::Text() const {
    std::string text;
    for (const QueueEntry& entry : m_entries)
        text += std::visit([](const auto& one) { return LineOf(one); }, entry);
    return text;
}

}  // namespace k4suite
