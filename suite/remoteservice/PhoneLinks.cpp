#include "suite/remoteservice/PhoneLinks.h"

#include <algorithm>

#include "suite/settings/NameText.h"

namespace k4suite {

PhoneLinks::PhoneLinks(const std::vector<std::string>& entries) {
    for (const std::string& entry : entries)
        m_lines.emplace_back().entry = entry;
}

PhoneLinks::Line* PhoneLinks::Named(std::string_view entry) {
    const auto found = std::find_if(m_lines.begin(), m_lines.end(), [&](const Line& line) {
        return IsSameName(line.entry, entry);
    });
    return found == m_lines.end() ? nullptr : &*found;
}

PhoneLinks::Line* PhoneLinks::OfHandle(std::uint32_t handle) {
    const auto found = std::find_if(m_lines.begin(), m_lines.end(), [&](const Line& line) {
        return handle != 0 && line.handle == handle;
    });
    return found == m_lines.end() ? nullptr : &*found;
}

/// Takes a line to another state; that a link comes up or goes down is a change.
void PhoneLinks::Enter(Line& line, DialState state) {
    if ((line.state.phase == Phase::Up) != (state.phase == Phase::Up))
        ++m_changes;
    line.state = state;
}

std::uint32_t PhoneLinks::Dial(std::string_view entry, TimePoint now,
                               std::chrono::milliseconds time) {
    Line* line = Named(entry);
    if (!line)
        return 0;
    if (line->state.phase == Phase::Dialing || line->state.phase == Phase::Up)
        return line->handle;
    if (++m_lastHandle == 0)
        ++m_lastHandle;
    line->handle = m_lastHandle;
    line->begun = now;
    line->due = now + time;
    Enter(*line, {Phase::Dialing});
    return line->handle;
}

DialState PhoneLinks::StateOf(std::uint32_t handle) const {
    const Line* line = const_cast<PhoneLinks*>(this)->OfHandle(handle);
    return line ? line->state : DialState();
}

bool PhoneLinks::HangUp(std::uint32_t handle) {
    Line* line = OfHandle(handle);
    if (!line)
        return false;
    Enter(*line, {});
    line->handle = 0;
    return true;
}

bool PhoneLinks::SetFault(std::string_view entry, LineFault fault) {
    Line* line = Named(entry);
    if (!line)
        return false;
    line->fault = fault;
    if (fault != LineFault::None && line->state.phase == Phase::Up)
        Enter(*line, {Phase::Failed, fault});
    return true;
}

void PhoneLinks::AdvanceTo(TimePoint now) {
    for (Line& line : m_lines) {
        const bool isOver = now >= line.due || now < line.begun;
        if (line.state.phase == Phase::Dialing && isOver)
            Enter(line, {line.fault == LineFault::None ? Phase::Up : Phase::Failed, line.fault});
    }
}

std::optional<PhoneLinks::TimePoint> PhoneLinks::NextDue() const {
    std::optional<TimePoint> next;
    for (const Line& line : m_lines)
        if (line.state.phase == Phase::Dialing)
            next = std::min(next.value_or(line.due), line.due);
    return next;
}

std::vector<PhoneLink> PhoneLinks::Up() const {
    std::vector<PhoneLink> links;
    for (const Line& line : m_lines)
        if (line.state.phase == Phase::Up)
            links.push_back({line.handle, line.entry});
    return links;
}

std::vector<PhoneLine> PhoneLinks::All() const {
    std::vector<PhoneLine> lines;
    for (const Line& line : m_lines)
        lines.push_back({line.entry, line.handle, line.state, line.fault});
    return lines;
}

}  // namespace k4suite
