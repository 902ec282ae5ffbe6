#pragma once

#include <cstdint>
#include <string>

namespace k4suite {

/// One field of an include frame.
struct IncludeField {
    std::uint16_t status = 1;  ///< 0: not played
    std::string path;          ///< absolute, or from the including file's place
};

/// The most bytes of an include frame's content.
inline constexpr std::uint32_t kLongestInclude = 1U << 20;

}  // namespace k4suite
