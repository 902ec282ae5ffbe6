#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace k4cmn {

/// Finds a window's line in a reply that has one line a window; runs of newlines are one line end.
/// @param window counted from 1.
/// @return whether the reply holds the line; none beyond the sixteenth counts.
bool FindWindowLine(std::string_view reply, std::uint32_t window, std::string_view& line);

/// Stores the four fields of a window's line: the sign shown, the open flag, the row and the
/// column, the last two counted from 0 in the line and from 1 in the outputs. Null outputs aren't
/// wanted.
/// @return false at the first field that is wanted and missing; those before it are stored.
bool StoreWindowLine(std::string_view line, std::int32_t* open, std::int32_t* row,
                     std::int32_t* column, std::string* name);

}  // namespace k4cmn
