#pragma once

#include <cstdint>

/// The numbers of the window messages that the library's windows send each other, and those that
/// applications see. One list, so that no two meanings share a number by accident.
namespace k4cmn {

inline constexpr std::uint32_t WM_CTLCOLORSTATIC = 0x138;  ///< a static asks for its colours
inline constexpr std::uint32_t WM_USER = 1024;             ///< the user's message base

/// To a window with a list of files: fill the list anew.
inline constexpr std::uint32_t WM_SHOW_FILES_LIST = WM_USER + 10;
/// To a window with a list of files: take over the first selected row.
inline constexpr std::uint32_t WM_GET_LIST_FILE = WM_USER + 11;
/// To the parent of a properties sheet: the sheet's window is going.
inline constexpr std::uint32_t WM_PROPERTIES_GONE = WM_USER + 100;

}  // namespace k4cmn
