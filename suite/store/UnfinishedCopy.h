#pragma once

#include <string_view>

namespace k4suite {

/// What the name of a copy begins with until all of it is on the disk. The store doesn't list such
/// files: one that a crash left behind is nobody's.
inline constexpr std::string_view kUnfinishedCopy = ".k4copy-";

}  // namespace k4suite
