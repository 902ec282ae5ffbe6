#pragma once

#include <string_view>

#include "suite/signservice/Schedule.h"

namespace k4suite {

/// Reads the text of a schedule; docs/schedule-format.md tells how it is written.
/// @return its entries, and what is wrong with each line that isn't right.
ParsedSchedule ParseSchedule(std::string_view text);

}  // namespace k4suite
