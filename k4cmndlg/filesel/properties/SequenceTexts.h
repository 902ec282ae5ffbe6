#pragma once

#include <cstdint>
#include <string>

#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// @name What windows show of a sequence's facts. Each begins with a blank.
/// @{
/// " %d x %d": rows, columns.
K4CMNCORE_EXPORT std::string FrameSizeText(std::uint32_t rows, std::uint32_t columns);
/// " %4.2f Seconds".
K4CMNCORE_EXPORT std::string DurationText(std::uint64_t milliseconds);
/// " %d".
K4CMNCORE_EXPORT std::string FrameCountText(std::uint32_t frames);
/// @}

}  // namespace k4cmn
