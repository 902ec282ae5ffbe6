#pragma once

#include <array>
#include <chrono>
#include <cstddef>

#include "k4cmndlg/frame/contracts/Clock.h"

namespace preview {

/// The speeds of playing, in quarters: from a quarter of the sequence's own to eight times of it.
inline constexpr std::array<int, 6> kSpeeds{1, 2, 4, 8, 16, 32};
/// The place of the sequence's own speed among them.
inline constexpr std::size_t kOwnSpeed = 2;

/// Where playing is, as the time that has gone by says. It runs at one of the speeds or stands;
/// nothing needs to be done while it runs. A clock that is set back doesn't take it back.
/// Threads: one at a time.
class PlayClock {
 public:
    using microseconds = std::chrono::microseconds;
    using milliseconds = std::chrono::milliseconds;

    bool IsRunning() const { return m_isRunning; }
    void Run();
    void Stand();

    /// The time within the sequence.
    microseconds Position();
    void SetPosition(microseconds position);

    /// The place of the speed in kSpeeds.
    std::size_t Speed() const { return m_speed; }
    void SetSpeed(std::size_t speed);

    /// How long it takes until playing is at a position; 0 if it is there already.
    milliseconds Until(microseconds position);

 private:
    static k4cmn::Clock::TimePoint Now() { return k4cmn::Provided<k4cmn::Clock>::Current().Now(); }

    bool m_isRunning = false;
    std::size_t m_speed = kOwnSpeed;
    microseconds m_position{0};
    k4cmn::Clock::TimePoint m_since;  ///< when playing was at m_position
};

}  // namespace preview
