#include "k4cmndlg/signctl/WindowPlacing.h"

#include <algorithm>
#include <limits>

#include "k4cmndlg/filestore/Characters.h"

namespace k4cmn {

namespace {

constexpr tag_K4_SIGN_COLOR kQuadColors[] = {
    K4_SIGN_COLOR_QUAD16,
    K4_SIGN_COLOR_QUAD256,
    K4_SIGN_COLOR_QUAD64K,
    K4_SIGN_COLOR_QUAD16M,
};

constexpr WindowPlacing::Speeds kQuadRowSpeeds{{{0, 2}, {2, 8}, {4, 16}}};
constexpr WindowPlacing::Speeds kRowSpeeds{{{0, 1}, {2, 8}, {4, 16}}};
constexpr WindowPlacing::Speeds kColumnSpeeds{{{0, 8}, {2, 16}, {4, 32}}};

constexpr const char* kQuadRowWords = "For Quad color signs, row must be on odd boundry";
constexpr const char* kColumnWords = "Columns must be on boundries of 8. (1 based)";

std::int32_t Pinned(std::int64_t number) {
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>(number, Limits::min(), Limits::max()));
}

std::int32_t UpperBound(std::uint32_t extent, bool quad) {
    const std::int64_t bound = extent;
    return Pinned(quad && bound % 2 == 0 ? bound - 1 : bound);
}

// How far a column lies off the grid, with the sign of the truncating division.
std::int64_t Remainder(std::int32_t column) {
    return (std::int64_t{column} - 1) % 8;
}

}  // namespace

void WindowPlacing::Window::SetSize(std::uint32_t signRows, std::uint32_t signColumns) {
    rowMinimum = Pinned(1 - std::int64_t{signRows});
    columnMinimum = Pinned(8 - std::int64_t{signColumns});
}

bool WindowPlacing::IsQuad() const {
    return std::find(std::begin(kQuadColors), std::end(kQuadColors), color) !=
           std::end(kQuadColors);
}

std::int32_t WindowPlacing::RowMaximum() const {
    return UpperBound(rows, IsQuad());
}

std::int32_t WindowPlacing::ColumnMaximum() const {
    return UpperBound(columns, IsQuad());
}

WindowPlacing::Speeds WindowPlacing::RowSpeeds() const {
    return IsQuad() ? kQuadRowSpeeds : kRowSpeeds;
}

WindowPlacing::Speeds WindowPlacing::ColumnSpeeds() {
    return kColumnSpeeds;
}

std::int32_t WindowPlacing::SnapRow(std::int32_t row) const {
    // The greatest number is odd, so that the next row always exists.
    return IsQuad() && row % 2 == 0 ? row + 1 : row;
}

std::int32_t WindowPlacing::SnapColumn(std::int32_t column) {
    if (Remainder(column) == 0)
        return column;
    constexpr std::int64_t kLast = (std::numeric_limits<std::int32_t>::max() - 1) / 8 * 8 + 1;
    const std::int64_t nearest = ((std::int64_t{column} + 3) & ~std::int64_t{7}) + 1;
    return static_cast<std::int32_t>(std::min(nearest, kLast));
}

std::int16_t WindowPlacing::NextPosition(std::int32_t position, std::int32_t step) {
    std::int64_t next = position;
    if (const std::int64_t d = step; d != 0)
        next = (next + d - 1) / d * d + 1;
    return static_cast<std::int16_t>(static_cast<std::uint16_t>(next & 0xFFFF));
}

std::optional<WindowPlacing::Fault> WindowPlacing::FindFault() const {
    if (IsQuad()) {
        for (std::size_t k = 0; k < kWindows; ++k) {
            if (windows[k].row % 2 == 0)
                return Fault{k, true, kQuadRowWords};
        }
    }
    std::int64_t sum = 0;
    for (const Window& window : windows)
        sum += Remainder(window.column);
    if (sum == 0)
        return std::nullopt;
    const auto off = std::find_if(windows.begin(), windows.end(), [](const Window& window) {
        return Remainder(window.column) != 0;
    });
    return Fault{static_cast<std::size_t>(off - windows.begin()), false, kColumnWords};
}

std::vector<std::string> WindowPlacing::WindowSignEntries(std::vector<std::string> signs) {
    std::stable_sort(signs.begin(), signs.end(), IsLessWithoutCase);
    signs.insert(signs.begin(), std::string());
    return signs;
}

}  // namespace k4cmn
