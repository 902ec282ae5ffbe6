#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <set>
#include <string>
#include <string_view>

#include "fuzz/FuzzInput.h"
#include "suite/signservice/FileNames.h"
#include "suite/signservice/ScheduleParser.h"
#include "suite/signservice/ScheduleTimes.h"
#include "suite/signservice/ScheduleWords.h"

namespace {

using namespace k4suite;
using k4fuzz::Require;

std::string ActionText(const SchedulePlay& play) {
    return "play \"" + play.order.sequence + "\" " + WordOfMode(play.order.mode) + " " +
           std::to_string(play.order.param);
}

std::string ActionText(const ScheduleDim& dim) {
    switch (dim.mode) {
        case K4_SIGN_DIM_MANUAL:
            return "dim manual " + std::to_string(dim.value);
        case K4_SIGN_DIM_PHOTOCELL:
            return "dim photocell " + std::to_string(dim.value);
        default:
            return dim.mode == K4_SIGN_DIM_SCHEDULED ? "dim scheduled" : "dim remote";
    }
}

std::string ActionText(const ScheduleStop&) {
    return "stop";
}

std::string ActionText(const ScheduleBlank&) {
    return "blank";
}

std::string ActionText(const ScheduleDefault&) {
    return "default";
}

std::string ActionText(const ScheduleNext&) {
    return "next";
}

/// A schedule's text that says the same, each entry on the line that it was on.
std::string TextOf(const ParsedSchedule& schedule) {
    std::string text = "K4 schedule 1";
    std::uint32_t line = 1;
    for (const ScheduleEntry& entry : schedule.entries) {
        for (; line < entry.line; ++line)
            text += '\n';
        std::string days;
        for (const std::string& day : NamesOfDays(entry.days))
            days += (days.empty() ? "" : ",") + day;
        text += "at " + WordOfTime(entry.time) + " " + days + " " +
                std::visit([](const auto& action) { return ActionText(action); }, entry.action);
    }
    return text;
}

bool IsPossible(const ScheduleEntry& entry) {
    const auto* play = std::get_if<SchedulePlay>(&entry.action);
    const auto* dim = std::get_if<ScheduleDim>(&entry.action);
    const bool isPlay =
        !play || (IsFileName(play->order.sequence) && IsSequenceName(play->order.sequence) &&
                  play->order.mode >= 0 && play->order.mode <= K4_PLAY_SEQ_LAST);
    const bool isDim = !dim || (dim->value >= K4_DIM_OFFSET_MIN && dim->value <= K4_DIM_LEVEL_MAX);
    return entry.line >= 2 && entry.time.count() >= 0 && entry.time < std::chrono::hours(24) &&
           entry.days != 0 && entry.days <= kEveryDay && isPlay && isDim;
}

void CheckLines(const ParsedSchedule& schedule, std::uint32_t lines) {
    std::set<std::uint32_t> told;
    for (const ScheduleProblem& problem : schedule.problems)
        Require(problem.line >= 1 && problem.line <= lines && problem.words.ends_with('.') &&
                told.insert(problem.line).second);
    for (const ScheduleEntry& entry : schedule.entries)
        Require(entry.line <= lines && IsPossible(entry) && told.insert(entry.line).second);
}

/// Looks whether what is due in nine days begins with what is due next, and is in order. A few
/// entries are enough for that.
void CheckTimes(const ParsedSchedule& schedule, TimePoint from) {
    constexpr std::size_t kMost = 16;
    const auto count = std::min(schedule.entries.size(), kMost);
    const ScheduleTimes times(
        {schedule.entries.begin(), schedule.entries.begin() + static_cast<std::ptrdiff_t>(count)});
    const auto next = times.NextAfter(from);
    Require(next.has_value() == !schedule.entries.empty());
    const std::vector<DueEntry> due = times.Between(from, from + std::chrono::days(9));
    Require(std::is_sorted(due.begin(), due.end(),
                           [](const DueEntry& a, const DueEntry& b) { return a.at < b.at; }));
    Require(due.empty() == !next.has_value() && (due.empty() || due.front().at == *next));
}

}  // namespace

/// Clocks are set forward and back in the course of the year.
extern "C" int LLVMFuzzerInitialize(int*, char***) {
    setenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3", 1);
    tzset();
    return 0;
}

/// A schedule, read as it is and, behind the mark of one, once more; what is sound in it is
/// written, read again, and asked for its times from an instant that the first bytes say.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    k4fuzz::FuzzInput input(bytes, size);
    const std::uint32_t day = input.Word() % 40'000U;
    const std::string_view text(reinterpret_cast<const char*>(input.Rest().data()),
                                input.Rest().size());
    for (const std::string& whole : {std::string(text), "K4 schedule 1\n" + std::string(text)}) {
        const auto lines = static_cast<std::uint32_t>(std::count(whole.begin(), whole.end(), '\n'));
        const ParsedSchedule schedule = ParseSchedule(whole);
        CheckLines(schedule, lines + 1);
        const ParsedSchedule again = ParseSchedule(TextOf(schedule));
        Require(again.problems.empty() && again.entries == schedule.entries);
        CheckTimes(schedule, TimePoint(std::chrono::days(day)));
    }
    return 0;
}
