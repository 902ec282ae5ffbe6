#pragma once

#include <cstdint>

namespace k4suite {

inline constexpr std::uint32_t kFileOperationDone = 0;          ///< all of it is done
inline constexpr std::uint32_t kFileOperationFailed = 1;        ///< some of it, or nothing, is done
inline constexpr std::uint32_t kFileOperationCancelled = 1223;  ///< a person ended it

}  // namespace k4suite
