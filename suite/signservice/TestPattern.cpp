#include "suite/signservice/TestPattern.h"

#include <algorithm>
#include <cmath>

#include "suite/signservice/NameHash.h"

namespace k4suite {

namespace {

constexpr std::uint32_t kHues = 6 * 256;
constexpr std::uint32_t kFull = 255;
/// Below this size a border would leave nothing inside.
constexpr std::uint32_t kLeastForBorder = 12;

/// A saw of 0 to 255 that closes after `period`.
std::uint32_t Saw(std::uint32_t at, std::uint32_t period) {
    return at % period * (kFull + 1) / period;
}

/// A triangle of 0 to 255 to 0 over `period`.
std::uint32_t Wave(std::uint32_t at, std::uint32_t period) {
    const std::uint32_t saw = Saw(at, period);
    return saw < 128 ? saw * 2 : (kFull - saw) * 2;
}

/// A fully saturated color of the color circle.
Rgb Pure(std::uint32_t hue) {
    const auto rise = static_cast<std::uint8_t>(hue % 256);
    const auto fall = static_cast<std::uint8_t>(kFull - hue % 256);
    switch (hue / 256 % 6) {
        case 0:
            return {255, rise, 0};
        case 1:
            return {fall, 255, 0};
        case 2:
            return {0, 255, rise};
        case 3:
            return {0, fall, 255};
        case 4:
            return {rise, 0, 255};
        default:
            return {255, 0, fall};
    }
}

}  // namespace

/// Where a lamp lies in the pattern, in cells, with the frame's movement.
struct TestPattern::Place {
    std::uint32_t row, column;    ///< in cells
    std::uint32_t rows, columns;  ///< of the sign, in cells
    std::uint32_t frame;
    /// How far a pattern of that period has gone.
    std::uint32_t Shift(std::uint32_t period) const { return frame * period / kFrames; }
};

TestPattern::TestPattern(const std::string& name, const k4cmn::SignSettings& sign)
    : m_rows(sign.rows), m_columns(sign.columns), m_technology(TechnologyOf(sign.color)) {
    const std::uint64_t look = NameHash(name);
    m_grain = m_technology.family == LampFamily::Quad ? 2 : 1;
    m_kind = static_cast<std::uint32_t>(look % 4);
    m_hue = static_cast<std::uint32_t>((look >> 8) % kHues);
    m_backwards = (look >> 32 & 1) != 0;
}

Rgb TestPattern::Colored(std::uint32_t hue, std::uint32_t value) const {
    const bool oneColor =
        m_technology.family == LampFamily::Mono || m_technology.family == LampFamily::None;
    const Rgb pure = oneColor ? Rgb{255, 255, 255} : Pure((m_hue + hue) % kHues);
    const auto part = [value](std::uint8_t channel) {
        return static_cast<std::uint8_t>(channel * value / kFull);
    };
    return {part(pure.red), part(pure.green), part(pure.blue)};
}

Rgb TestPattern::Field(const Place& place) const {
    const std::uint32_t period = std::max(8U, std::min(place.rows * 2, place.columns));
    const std::uint32_t shift = place.Shift(period);
    switch (m_kind) {
        case 0: {  // upright bars, each a hue
            const std::uint32_t bar = (place.column + shift) % period * 8 / period;
            return Colored(bar * kHues / 8, kFull - bar * 24);
        }
        case 1: {  // slanted waves
            const std::uint32_t at = place.column + place.row + shift;
            return Colored(place.row * 512 / place.rows, Wave(at, period));
        }
        case 2: {  // rings around the middle
            const double down = (place.row + 0.5 - place.rows / 2.0) * 2;
            const double across = place.column + 0.5 - place.columns / 2.0;
            const auto distance = static_cast<std::uint32_t>(std::hypot(down, across));
            const std::uint32_t at = distance + period - shift;
            return Colored(Saw(distance, period * 2) * 4, Wave(at, period));
        }
        default: {  // checks that change places
            const std::uint32_t edge = std::max(2U, period / 4);
            const bool odd = ((place.column + shift) / edge + place.row / edge) % 2 != 0;
            const std::uint32_t at = place.column * kHues / (2 * place.columns);
            return odd ? Colored(at, kFull) : Colored(at + kHues / 2, 72);
        }
    }
}

FramePicture TestPattern::Picture(std::uint32_t frame) {
    if (m_drawn != frame) {
        m_picture = RenderFrame(frame);
        m_drawn = frame;
    }
    return {{}, &m_picture};
}

Lamps TestPattern::RenderFrame(std::uint32_t frame) const {
    Lamps picture(m_rows, m_columns);
    Place place{};
    place.rows = (m_rows + m_grain - 1) / m_grain;
    place.columns = (m_columns + m_grain - 1) / m_grain;
    place.frame = m_backwards ? kFrames - 1 - frame % kFrames : frame % kFrames;
    const std::uint32_t sweep = place.Shift(place.columns + place.rows);
    const bool hasBorder = std::min(place.rows, place.columns) >= kLeastForBorder;
    for (std::uint32_t row = 0; row < m_rows; ++row) {
        place.row = row / m_grain;
        for (std::uint32_t column = 0; column < m_columns; ++column) {
            place.column = column / m_grain;
            const bool onEdge = place.row == 0 || place.column == 0 ||
                                place.row + 1 == place.rows || place.column + 1 == place.columns;
            Rgb& lamp = picture.At(row, column);
            if (hasBorder && onEdge) {
                const bool lit = (place.row + place.column + place.frame) % 4 < 2;
                lamp = lit ? Rgb{255, 255, 255} : Rgb{};
            } else if (place.row + place.column == sweep) {
                lamp = {255, 255, 255};
            } else {
                lamp = Field(place);
            }
        }
    }
    return picture;
}

}  // namespace k4suite
