#include "suite/signservice/SignWindows.h"

#include <algorithm>
#include <utility>

namespace k4suite {

namespace {

bool IsWithin(std::int32_t at, std::uint32_t windowSize, std::uint32_t signSize) {
    return at >= -static_cast<std::int64_t>(windowSize) && at < static_cast<std::int64_t>(signSize);
}

std::int32_t Near(std::int32_t at, std::uint32_t windowSize, std::uint32_t signSize) {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(
        at, -static_cast<std::int64_t>(windowSize), static_cast<std::int64_t>(signSize) - 1));
}

}  // namespace

void SignWindows::SetSign(std::uint32_t window, std::string sign, std::uint32_t rows,
                          std::uint32_t columns) {
    SignWindow& at = m_windows[window - 1];
    at.sign = std::move(sign);
    at.signRows = rows;
    at.signColumns = columns;
}

bool SignWindows::CanMove(std::uint32_t window, std::int32_t row, std::int32_t column) const {
    return IsWindow(window) && IsWithin(row, At(window).signRows, m_rows) &&
           IsWithin(column, At(window).signColumns, m_columns);
}

bool SignWindows::Enable(std::uint32_t window, bool open) {
    if (!IsWindow(window))
        return false;
    m_windows[window - 1].open = open;
    return true;
}

bool SignWindows::Move(std::uint32_t window, std::int32_t row, std::int32_t column) {
    if (!CanMove(window, row, column))
        return false;
    m_windows[window - 1].row = row;
    m_windows[window - 1].column = column;
    return true;
}

void SignWindows::MoveNear(std::uint32_t window, std::int32_t row, std::int32_t column) {
    const SignWindow& at = At(window);
    Move(window, Near(row, at.signRows, m_rows), Near(column, at.signColumns, m_columns));
}

}  // namespace k4suite
