#include "apps/preview/PlayClock.h"

#include <algorithm>

namespace preview {

void PlayClock::Run() {
    if (m_isRunning)
        return;
    m_isRunning = true;
    m_since = Now();
}

void PlayClock::Stand() {
    Position();
    m_isRunning = false;
}

PlayClock::microseconds PlayClock::Position() {
    if (m_isRunning) {
        const auto now = Now();
        const milliseconds gone = std::max(now - m_since, milliseconds(0));
        m_position += microseconds(gone) * kSpeeds[m_speed] / 4;
        m_since = now;
    }
    return m_position;
}

void PlayClock::SetPosition(microseconds position) {
    m_position = position;
    if (m_isRunning)
        m_since = Now();
}

void PlayClock::SetSpeed(std::size_t speed) {
    Position();
    m_speed = std::min(speed, kSpeeds.size() - 1);
}

PlayClock::milliseconds PlayClock::Until(microseconds position) {
    const microseconds left = position - Position();
    if (left.count() <= 0)
        return milliseconds(0);
    return std::chrono::ceil<milliseconds>(left * 4 / kSpeeds[m_speed]);
}

}  // namespace preview
