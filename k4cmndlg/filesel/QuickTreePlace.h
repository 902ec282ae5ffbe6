#pragma once

#include <string>

#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// The place of a window, in pixels of the screen.
struct ScreenPlace {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    bool operator==(const ScreenPlace&) const = default;
};

/// Where the quick tree window goes, and how high it is. The height is kept under a key of the
/// user's settings that the application names; the two rules for reading it differ on purpose.
/// One thread.
class K4CMNCORE_EXPORT QuickTreePlace {
 public:
    /// @param key null: nothing is kept.
    explicit QuickTreePlace(const char* key);

    /// The height for a place given before the window opens: the kept one, else the window's own,
    /// but no more than lies between its top and the end of the usable screen. Below 10 it is 100.
    /// @param top from the beginning of the usable screen.
    int InitialHeight(int top, int clientHeight, int usableHeight) const;
    /// The height for a window that is moved: the kept one, else a seventh of the usable screen,
    /// with the same limit. 0 becomes 100, and nothing else does.
    int MovedHeight(int top, int usableHeight) const;
    /// Keeps the height, when the window goes.
    void Keep(int clientHeight) const;

    /// A place whose left edge or top lies off the screen begins at 0 there, as large as it was.
    static ScreenPlace OnScreen(ScreenPlace place, int screenWidth, int screenHeight);
    /// Whether a drag of the bottom edge is accepted: it leaves more than a fifth of the screen's
    /// width and more than a seventh of its height. Drags of other edges never are.
    static bool AcceptsBottomDrag(const ScreenPlace& place, int screenWidth, int screenHeight);

 private:
    int KeptHeight(int fallback) const;

    const bool m_hasKey;
    const std::string m_key;
};

}  // namespace k4cmn
