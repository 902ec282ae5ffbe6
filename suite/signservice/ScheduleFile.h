#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace k4suite {

/// Reads the bytes of a schedule.
/// @param native where it lies.
/// @param problem words where the result is nothing: there is no such file, it can't be read, or it
///                is too long for a schedule.
std::optional<std::vector<std::uint8_t>> ReadScheduleFile(const std::string& native,
                                                          std::string& problem);

}  // namespace k4suite
