#include "k4cmndlg/frame/contracts/Clock.h"

namespace k4cmn {

Clock::~Clock() = default;

namespace {

class SystemClock final : public Clock {
 public:
    TimePoint Now() override {
        return std::chrono::time_point_cast<std::chrono::milliseconds>(
            std::chrono::system_clock::now());
    }
};

}  // namespace
}  // namespace k4cmn

K4_DEFINE_PROVIDED(Clock, SystemClock)
