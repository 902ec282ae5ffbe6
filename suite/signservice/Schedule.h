#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "suite/signservice/PlayOrder.h"

namespace k4suite {

// What a schedule says; docs/schedule-format.md tells the file. The actions of entries:

/// Plays a sequence. Its name is as the schedule has it: absolute, or from the schedule's place.
struct SchedulePlay {
    PlayOrder order;
    bool operator==(const SchedulePlay&) const = default;
};
/// Holds the frame that shows.
struct ScheduleStop {
    bool operator==(const ScheduleStop&) const = default;
};
/// Makes the sign dark.
struct ScheduleBlank {
    bool operator==(const ScheduleBlank&) const = default;
};
/// Goes back to the default sequence.
struct ScheduleDefault {
    bool operator==(const ScheduleDefault&) const = default;
};
/// Goes on to the queue's next item.
struct ScheduleNext {
    bool operator==(const ScheduleNext&) const = default;
};
/// Sets the dimming.
struct ScheduleDim {
    tag_K4_SIGN_DIM_MODE mode = K4_SIGN_DIM_MANUAL;
    std::int32_t value = 0;  ///< manual: the level; photocell: the offset; else 0
    bool operator==(const ScheduleDim&) const = default;
};
using ScheduleAction = std::variant<SchedulePlay, ScheduleStop, ScheduleBlank, ScheduleDefault,
                                    ScheduleNext, ScheduleDim>;

/// Days of the week, a bit each from Sunday (bit 0) to Saturday.
using ScheduleDays = std::uint8_t;
inline constexpr ScheduleDays kEveryDay = 0x7F;

/// One entry of a schedule: what to do, and when.
struct ScheduleEntry {
    std::uint32_t line = 0;         ///< of the file, from 1
    std::chrono::seconds time{0};   ///< of the day
    ScheduleDays days = kEveryDay;  ///< on which it is due
    ScheduleAction action = ScheduleStop{};
    bool operator==(const ScheduleEntry&) const = default;
};

/// What is wrong with a line of a schedule.
struct ScheduleProblem {
    std::uint32_t line = 0;  ///< from 1
    std::string words;       ///< a sentence
};

/// A schedule, as its file says it.
struct ParsedSchedule {
    std::vector<ScheduleEntry> entries;     ///< the sound ones, in the order of the file
    std::vector<ScheduleProblem> problems;  ///< of every bad line; with any it can't be run
};

/// A longer schedule isn't taken.
inline constexpr std::size_t kLongestSchedule = 64 * 1024;

}  // namespace k4suite
