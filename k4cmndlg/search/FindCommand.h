#pragma once

#include <cstdint>

namespace k4cmn {

/// The command by which a page of the search dialog presses its sheet's Find button: the first
/// parameter of a WM_COMMAND to the sheet, and the id of that button.
inline constexpr std::uint32_t kFindCommand = 1160;

}  // namespace k4cmn
