#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace k4suite {

/// The light of one lamp, 0 to 255 a channel.
struct Rgb {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    bool operator==(const Rgb&) const = default;
};

/// A picture on a sign's grid, one value a lamp, the first row on top. New lamps are dark.
template <class Lamp>
class LampGrid {
 public:
    LampGrid() = default;
    LampGrid(std::uint32_t rows, std::uint32_t columns)
        : m_rows(rows), m_columns(columns), m_lamps(std::size_t{rows} * columns) {}

    std::uint32_t Rows() const { return m_rows; }
    std::uint32_t Columns() const { return m_columns; }

    Lamp& At(std::uint32_t row, std::uint32_t column) {
        return m_lamps[std::size_t{row} * m_columns + column];
    }
    const Lamp& At(std::uint32_t row, std::uint32_t column) const {
        return m_lamps[std::size_t{row} * m_columns + column];
    }
    std::vector<Lamp>& All() { return m_lamps; }
    const std::vector<Lamp>& All() const { return m_lamps; }

    bool operator==(const LampGrid&) const = default;

 private:
    std::uint32_t m_rows = 0;
    std::uint32_t m_columns = 0;
    std::vector<Lamp> m_lamps;
};

using Lamps = LampGrid<Rgb>;

}  // namespace k4suite
