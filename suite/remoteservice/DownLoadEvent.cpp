#include "suite/remoteservice/DownLoadEvent.h"

#include <chrono>
#include <cstdio>

#include "k4cmndlg/frame/Format.h"

namespace k4suite {

namespace {

constexpr int kLastYear = 9999;

bool IsPossible(const DownLoadEvent& event) {
    using namespace std::chrono;
    const year_month_day date(year(event.year), month(static_cast<unsigned>(event.month)),
                              day(static_cast<unsigned>(event.day)));
    return !event.path.empty() && event.year >= 1 && event.year <= kLastYear && date.ok() &&
           event.hour >= 0 && event.hour <= 23 && event.minute >= 0 && event.minute <= 59;
}

std::optional<DownLoadEvent> IfPossible(DownLoadEvent event) {
    return IsPossible(event) ? std::optional(std::move(event)) : std::nullopt;
}

}  // namespace

std::optional<DownLoadEvent> DownLoadEventOf(std::string_view path, std::uint32_t time,
                                             std::uint32_t date) {
    // Far beyond what a year or an hour can be, and small enough for an int.
    constexpr std::uint32_t kHighest = 1U << 20;
    if (date >> 9 >= kHighest || time >> 6 >= kHighest)
        return std::nullopt;
    return IfPossible({std::string(path), static_cast<int>(date >> 9),
                       static_cast<int>(date >> 5 & 0xF), static_cast<int>(date & 0x1F),
                       static_cast<int>(time >> 6), static_cast<int>(time & 0x3F)});
}

std::string WhenText(const DownLoadEvent& event) {
    return k4cmn::Format("%04d-%02d-%02d %02d:%02d", event.year, event.month, event.day, event.hour,
                         event.minute);
}

std::optional<DownLoadEvent> DownLoadEventAt(std::string_view path, const std::string& when) {
    DownLoadEvent event;
    event.path = path;
    if (std::sscanf(when.c_str(), "%4d-%2d-%2d %2d:%2d", &event.year, &event.month, &event.day,
                    &event.hour, &event.minute) != 5)
        return std::nullopt;
    std::optional<DownLoadEvent> possible = IfPossible(std::move(event));
    // What is more or other than the text of that time isn't understood.
    return possible && WhenText(*possible) == when ? possible : std::nullopt;
}

}  // namespace k4suite
