#include "k4cmndlg/frame/LocalTime.h"

#include <locale.h>

#include <algorithm>

#include "k4cmndlg/frame/contracts/Clock.h"

namespace k4cmn {

namespace {

constexpr std::int64_t kDay = 86400;
// A day inside the ends, whatever the time zone.
constexpr std::int64_t kFirst = -62'167'219'200 + kDay;  // 2 January of the year 0
constexpr std::int64_t kLast = 253'402'300'799 - kDay;   // 30 December 9999

}  // namespace

std::tm LocalTime(std::int64_t seconds) {
    const std::time_t time = std::clamp(seconds, kFirst, kLast);
    std::tm local{};
    localtime_r(&time, &local);
    return local;
}

std::string TimeText(const char* format, const std::tm& time) {
    static const locale_t english = newlocale(LC_ALL_MASK, "C", nullptr);
    char text[256];
    return std::string(text, strftime_l(text, sizeof text, format, &time, english));
}

std::int64_t SecondsNow() {
    const auto now = Provided<Clock>::Current().Now().time_since_epoch();
    return std::chrono::floor<std::chrono::seconds>(now).count();
}

}  // namespace k4cmn
