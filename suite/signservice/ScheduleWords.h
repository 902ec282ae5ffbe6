#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "suite/signservice/Schedule.h"

namespace k4suite {

// The words of a schedule's lines, and what they stand for. Case doesn't count.

/// Splits a line into its words, without its remark.
/// @param problem words, where the result is nothing.
std::optional<std::vector<std::string>> SplitScheduleLine(std::string_view line,
                                                          std::string& problem);

/// Whether a word is a keyword.
bool IsWord(std::string_view word, std::string_view keyword);

/// A time of day, "HH:MM" or "HH:MM:SS".
std::optional<std::chrono::seconds> TimeOfWord(std::string_view word);
/// Days, such as "daily", "mon-fri" or "sat,sun".
std::optional<ScheduleDays> DaysOfWord(std::string_view word);
/// A play mode, by its name with hyphens or its number.
std::optional<tag_K4_PLAY_SEQ_MODE> ModeOfWord(std::string_view word);
/// A whole number from `least` to `most`.
std::optional<std::int64_t> NumberOfWord(std::string_view word, std::int64_t least,
                                         std::int64_t most);

/// The names of the modes as they stand in schedules, with commas.
std::string ScheduleModeNames();
/// A play mode as it stands in schedules: its name, or its number where it has none.
std::string WordOfMode(tag_K4_PLAY_SEQ_MODE mode);
/// A time of day: "HH:MM", or "HH:MM:SS" where it has seconds.
std::string WordOfTime(std::chrono::seconds time);
/// The short names of days from Monday on; see DaysOfWord().
std::vector<std::string> NamesOfDays(ScheduleDays days);

}  // namespace k4suite
