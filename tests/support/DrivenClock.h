#pragma once

#include <atomic>

#include "k4cmndlg/frame/contracts/Clock.h"

namespace k4test {

/// A clock that stands still until a test moves it. Any thread.
class DrivenClock final : public k4cmn::Clock {
 public:
    TimePoint Now() override { return TimePoint(std::chrono::milliseconds(m_now.load())); }
    void Advance(std::chrono::milliseconds by) { m_now += by.count(); }
    void Set(TimePoint now) { m_now = now.time_since_epoch().count(); }

 private:
    std::atomic<std::int64_t> m_now{1'800'000'000'000};  // 15 January 2027, 08:00 UTC
};

}  // namespace k4test
