#pragma once

#include <cstdint>

/// The numbers of the window messages that the library's windows send each other, and those that
/// applications see. One list, so that no two meanings share a number by accident.
namespace k4cmn {

inline constexpr std::uint32_t WM_CTLCOLORSTATIC = 0x138;  ///< a static asks for its colours
inline constexpr std::uint32_t WM_USER = 1024;             ///< the user's message base

}  // namespace k4cmn
