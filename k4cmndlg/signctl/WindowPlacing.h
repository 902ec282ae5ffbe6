#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "k4cmndlg/filestore/SignTypes.h"
#include "k4cmndlg/frame/SpinSteps.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// Where the windows of a sign lie on its pixel grid: the main sign, its first eight windows, and
/// the rules that a place has to keep.
///
/// Rows and columns count from 1. A window may stick out over the top and the left edge: at its
/// lower bounds one row and eight columns of it remain on the sign. A column is of the form 8n + 1;
/// on a sign of a quad color a row is odd.
///
/// Numbers come from services and from people, so any 32-bit number may turn up anywhere: all of
/// this computes in 64 bits, and what doesn't fit the result is pinned to its nearer end.
///
/// A plain value. Threads: as any value.
struct K4CMNCORE_EXPORT WindowPlacing {
    static constexpr std::size_t kWindows = 8;

    struct Window {
        std::string windowSign;  ///< name of the sign that the window shows
        int enabled = 0;         ///< 1 open, 0 closed
        std::int32_t row = 0;
        std::int32_t column = 0;
        std::int32_t rowMinimum = 1;
        std::int32_t columnMinimum = 1;

        /// Takes the size of the window's sign, which gives the lower bounds.
        void SetSize(std::uint32_t signRows, std::uint32_t signColumns);
    };

    /// The three speeds of a spin.
    using Speeds = std::array<SpinAccel, 3>;

    /// Why a placing is refused, and the field that a person should look at.
    struct Fault {
        std::size_t window;  ///< index into `windows`
        bool inRow;          ///< its row, else its column
        const char* words;
    };

    std::uint32_t rows = 7;  ///< of the main sign, like `columns` and `color`
    std::uint32_t columns = 16;
    tag_K4_SIGN_COLOR color = K4_SIGN_COLOR_MONO1;
    std::array<Window, kWindows> windows;

    /// Whether the main sign's color is one of the four quad colors.
    bool IsQuad() const;
    /// The upper bounds: the size of the main sign, for quad an even one less 1. That columns are
    /// cut like rows is meant so.
    std::int32_t RowMaximum() const;
    std::int32_t ColumnMaximum() const;
    /// The speeds of a row's spin, in rows: 1, or 2 on a quad sign, so that an odd row stays odd;
    /// 8 after two seconds and 16 after four.
    Speeds RowSpeeds() const;
    /// The speeds of a column's spin, in columns, on any sign: 8, 16 after two seconds, 32 after
    /// four. All keep to the grid of 8n + 1.
    static Speeds ColumnSpeeds();

    /// The row that a row becomes when its field is left: for quad an even one goes to the next.
    std::int32_t SnapRow(std::int32_t row) const;
    /// The column that a column becomes when its field is left: the nearest 8n + 1, ties going up.
    static std::int32_t SnapColumn(std::int32_t column);
    /// Where a spin goes from a position by a step, signed by direction: onto the step's grid of
    /// d*n + 1. Only the low 16 bits of the result are taken, as a spin's position is that wide. A
    /// step of 0 goes nowhere.
    static std::int16_t NextPosition(std::int32_t position, std::int32_t step);

    /// Checks all eight windows, whether enabled or not: first, for quad, that every row is odd;
    /// then that the signed remainders of the columns add up to 0, so that two windows off the grid
    /// in opposite directions pass. The bounds are not looked at here.
    std::optional<Fault> FindFault() const;

    /// The entries of a window sign list: an empty one, then the signs, sorted without regard to
    /// case.
    static std::vector<std::string> WindowSignEntries(std::vector<std::string> signs);
};

}  // namespace k4cmn
