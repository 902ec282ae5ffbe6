#pragma once

#include <cstdint>

/// The numbers of the window messages that the library's windows send each other, and those that
/// applications see. One list, so that no two meanings share a number by accident.
namespace k4cmn {

inline constexpr std::uint32_t WM_COMMAND = 0x111;         ///< a command, its number first
inline constexpr std::uint32_t WM_CTLCOLORSTATIC = 0x138;  ///< a static asks for its colours
inline constexpr std::uint32_t WM_USER = 1024;             ///< the user's message base

/// To a window with a list of files: fill the list anew.
inline constexpr std::uint32_t WM_SHOW_FILES_LIST = WM_USER + 10;
/// To a window with a list of files: take over the first selected row.
inline constexpr std::uint32_t WM_GET_LIST_FILE = WM_USER + 11;
/// To the parent of a properties sheet: the sheet's window is going.
inline constexpr std::uint32_t WM_PROPERTIES_GONE = WM_USER + 100;
/// To the parent of a quick tree window: a file was chosen. The parent of a properties sheet knows
/// the same number as something else.
inline constexpr std::uint32_t WM_QUICK_TREE_CHOSEN = WM_USER + 100;
/// To the parent of a quick tree window: it has lost the focus. The first parameter is the window
/// (QWidget*) that gets it, 0 where that is none of this program; it may be gone by then.
inline constexpr std::uint32_t WM_QUICK_TREE_LEFT = WM_USER + 101;

}  // namespace k4cmn
