#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// A rectangle of the screen in pixels; right and bottom are the first ones outside.
struct PixelRect {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;

    bool operator==(const PixelRect&) const = default;
};

/// Where a window stands, and how: the ten fields of a saved place.
struct WindowPlacement {
    static constexpr std::uint32_t kRestoreToMaximized = 2;  ///< of flags
    static constexpr std::uint32_t kShowNormal = 1;          ///< of showState
    static constexpr std::uint32_t kShowMinimized = 2;       ///< of showState
    static constexpr std::uint32_t kShowMaximized = 3;       ///< of showState

    std::uint32_t flags = 0;
    std::uint32_t showState = kShowNormal;
    std::int32_t minimizedX = -1;  ///< -1: the platform's own place
    std::int32_t minimizedY = -1;
    std::int32_t maximizedX = -1;
    std::int32_t maximizedY = -1;
    PixelRect normal;

    bool operator==(const WindowPlacement&) const = default;
};

/// The section of the profile that keeps the place of a dialog with a title: "Dialogs\%s".
K4CMNCORE_EXPORT std::string PlacementSection(const std::string& title);

/// The name of the value there.
inline constexpr const char* kPlacementValue = "WindowPos";

/// The saved text of a place: "%u,%u,%d,%d,%d,%d,%d,%d,%d,%d".
K4CMNCORE_EXPORT std::string FormatPlacement(const WindowPlacement& placement);

/// Reads a saved text. Each field is a number, with blanks before it at most; one that doesn't fit
/// is pinned to the nearer end; what follows the tenth is not looked at.
/// @return the place, or nothing if there are fewer than ten numbers between commas.
K4CMNCORE_EXPORT std::optional<WindowPlacement> ParsePlacement(std::string_view text);

/// The rectangle of a window that goes back to a saved place: the saved left and top with the
/// window's present size. Saved right and bottom don't count.
K4CMNCORE_EXPORT PixelRect RestoredRect(const PixelRect& saved, const PixelRect& present);

/// A rectangle held on the screens that there are. One that lies wholly on them stays; any other
/// moves by the least that brings it onto the screen that shows most of it, or is nearest to it.
/// One larger than that screen goes to its left and top. Without screens it stays.
K4CMNCORE_EXPORT PixelRect ClampToScreens(const PixelRect& rect,
                                          std::span<const PixelRect> screens);

}  // namespace k4cmn
