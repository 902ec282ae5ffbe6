#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "k4cmndlg/clients/SignServiceTypes.h"

namespace k4suite {

/// One sign window: another sign's picture at a place on the sign's grid.
struct SignWindow {
    std::string sign;            ///< whose picture it shows
    std::uint32_t signRows = 1;  ///< that sign's size
    std::uint32_t signColumns = 1;
    bool open = false;
    std::int32_t row = 0;  ///< place of the upper left lamp, from 0
    std::int32_t column = 0;
};

/// The 16 windows of a sign, numbered from 1. All of them are there at all times, each with a sign
/// and a place. A window with a higher number lies on top.
class SignWindows {
 public:
    /// @param rows,columns the size of the sign that has the windows.
    SignWindows(std::uint32_t rows, std::uint32_t columns) : m_rows(rows), m_columns(columns) {}

    static bool IsWindow(std::uint32_t window) {
        return window >= 1 && window <= K4_MAX_SIGN_WINDOWS;
    }

    /// @param window 1 to 16.
    const SignWindow& At(std::uint32_t window) const { return m_windows[window - 1]; }
    const std::array<SignWindow, K4_MAX_SIGN_WINDOWS>& All() const { return m_windows; }

    /// Says whose picture a window shows.
    void SetSign(std::uint32_t window, std::string sign, std::uint32_t rows, std::uint32_t columns);

    /// Whether a window could stand there: it lies on the sign at least in part, or it touches the
    /// sign from above or from the left, where operators park what is to slide in.
    bool CanMove(std::uint32_t window, std::int32_t row, std::int32_t column) const;

    /// @return false if there is no such window.
    bool Enable(std::uint32_t window, bool open);
    /// @return false if the window can't stand there; see CanMove().
    bool Move(std::uint32_t window, std::int32_t row, std::int32_t column);
    /// Brings a place that was kept from before to where the window can stand.
    void MoveNear(std::uint32_t window, std::int32_t row, std::int32_t column);

 private:
    std::uint32_t m_rows;
    std::uint32_t m_columns;
    std::array<SignWindow, K4_MAX_SIGN_WINDOWS> m_windows;
};

}  // namespace k4suite
