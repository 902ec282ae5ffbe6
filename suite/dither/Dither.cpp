#include "suite/dither/Dither.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <vector>

#include "suite/lamps/Shades.h"

namespace k4suite {

namespace {

constexpr std::uint32_t kValues = 256;
constexpr std::uint32_t kFullLight = 65535;

/// The light of a picture's value, 0 to kFullLight, by the curve of sRGB.
std::uint32_t LightOfValue(std::uint8_t value) {
    static const auto table = [] {
        std::array<std::uint32_t, kValues> lights{};
        for (std::size_t each = 0; each < lights.size(); ++each) {
            const double part = static_cast<double>(each) / (kValues - 1);
            const double light =
                part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
            lights[each] = static_cast<std::uint32_t>(std::lround(light * kFullLight));
        }
        return lights;
    }();
    return table[value];
}

/// The light of one place, 0 to kFullLight a channel.
struct Light {
    std::uint32_t red = 0;
    std::uint32_t green = 0;
    std::uint32_t blue = 0;
};

Light LightOf(const Rgb& color) {
    return {LightOfValue(color.red), LightOfValue(color.green), LightOfValue(color.blue)};
}

constexpr std::uint32_t kSide = 8;
constexpr std::uint32_t kThresholds = kSide * kSide;

/// The threshold of a place, 0 to kThresholds - 1: each one once in a square, neighbours far apart.
std::uint32_t ThresholdAt(std::uint32_t row, std::uint32_t column) {
    std::uint32_t threshold = 0;
    const std::uint32_t mixed = row ^ column;
    for (std::uint32_t bit = 0; bit < 3; ++bit)
        threshold = threshold << 2 | (mixed >> bit & 1U) << 1 | (row >> bit & 1U);
    return threshold;
}

/// The values that a lamp's shades have in a picture, with the same number added to each.
class Levels {
 public:
    Levels(const LampTechnology& technology, std::uint32_t added) {
        for (std::uint32_t shade = 0; shade <= technology.BrightestShade(); ++shade) {
            const std::uint32_t value =
                LightOfShade(static_cast<std::uint8_t>(shade), technology) + added;
            m_values.push_back(static_cast<std::uint8_t>(std::min(value, kValues - 1)));
        }
    }

    std::uint8_t operator[](std::size_t level) const { return m_values[level]; }

    /// The number of one of the two levels around a light, the brighter one at as many thresholds
    /// as the light is nearer to it; the darkest one for a light that is darker still.
    std::size_t Choose(std::uint32_t light, std::uint32_t threshold) const {
        const auto above = std::upper_bound(
            m_values.begin() + 1, m_values.end(), light,
            [](std::uint32_t wanted, std::uint8_t value) { return wanted < LightOfValue(value); });
        const auto below = static_cast<std::size_t>(above - m_values.begin()) - 1;
        const std::uint32_t low = LightOfValue(m_values[below]);
        if (light <= low || above == m_values.end())
            return below;
        const std::uint64_t part = std::uint64_t{light - low} * 2 * kThresholds;
        const std::uint64_t whole = LightOfValue(*above) - low;
        return part > whole * (2 * threshold + 1) ? below + 1 : below;
    }
    /// The value of the level that is chosen.
    std::uint8_t ChooseValue(std::uint32_t light, std::uint32_t threshold) const {
        return m_values[Choose(light, threshold)];
    }

 private:
    std::vector<std::uint8_t> m_values;
};

/// Whether a color is the light of a lamp of one color, at some brightness.
bool IsLightOfLamp(const Rgb& color, const Rgb& lamp) {
    const std::uint32_t brightness = std::max({color.red, color.green, color.blue});
    const auto matches = [&](std::uint32_t value, std::uint32_t full) {
        const std::uint32_t expected = (full * brightness + (kValues - 1) / 2) / (kValues - 1);
        return std::abs(static_cast<int>(value) - static_cast<int>(expected)) <= 1;
    };
    return matches(color.red, lamp.red) && matches(color.green, lamp.green) &&
           matches(color.blue, lamp.blue);
}

std::uint32_t LuminanceOf(const Rgb& color, const Rgb& lamp) {
    if (IsLightOfLamp(color, lamp))
        return LightOfValue(std::max({color.red, color.green, color.blue}));
    const Light light = LightOf(color);
    return (2126 * light.red + 7152 * light.green + 722 * light.blue) / 10000;
}

Rgb DitheredPlace(const Rgb& color, LampFamily family, const Levels& levels, const Rgb& lamp,
                  std::uint32_t threshold) {
    const auto choose = [&](std::uint32_t light) { return levels.ChooseValue(light, threshold); };
    if (family == LampFamily::Mono) {
        const std::uint8_t value = choose(LuminanceOf(color, lamp));
        return {value, value, value};
    }
    if (family == LampFamily::Tri) {
        const auto blue = static_cast<std::uint8_t>(color.blue / 2);
        return {choose(LightOfValue(std::max(color.red, blue))),
                choose(LightOfValue(std::max(color.green, blue))), 0};
    }
    const Light light = LightOf(color);
    return {choose(light.red), choose(light.green), choose(light.blue)};
}

Lamps DitheredPlaces(const Lamps& picture, const LampTechnology& technology,
                     tag_K4_PIXEL_TECH pixel) {
    const Levels levels(technology, 0);
    const Rgb lamp = MonoLight(pixel);
    Lamps dithered(picture.Rows(), picture.Columns());
    for (std::uint32_t row = 0; row < picture.Rows(); ++row)
        for (std::uint32_t column = 0; column < picture.Columns(); ++column)
            dithered.At(row, column) = DitheredPlace(picture.At(row, column), technology.family,
                                                     levels, lamp, ThresholdAt(row, column));
    return dithered;
}

/// A cell of a quad sign, as far as it lies on the sign.
struct Cell {
    std::uint32_t row, column, endRow, endColumn;

    template <class Do>
    void ForEachPlace(Do&& act) const {
        for (std::uint32_t each = row; each < endRow; ++each)
            for (std::uint32_t other = column; other < endColumn; ++other)
                act(each, other);
    }
};

Light MeanLight(const Lamps& picture, const Cell& cell) {
    Light sum;
    cell.ForEachPlace([&](std::uint32_t row, std::uint32_t column) {
        const Light light = LightOf(picture.At(row, column));
        sum.red += light.red;
        sum.green += light.green;
        sum.blue += light.blue;
    });
    const std::uint32_t places = (cell.endRow - cell.row) * (cell.endColumn - cell.column);
    return {sum.red / places, sum.green / places, sum.blue / places};
}

Lamps DitheredCells(const Lamps& picture, const LampTechnology& technology) {
    const Levels white(technology, 0);
    // What the white lamp gives is added to each of the other lamps.
    std::vector<Levels> beside;
    for (std::uint32_t shade = 0; shade <= technology.BrightestShade(); ++shade)
        beside.emplace_back(technology, white[shade]);
    Lamps dithered(picture.Rows(), picture.Columns());
    for (std::uint32_t row = 0; row < picture.Rows(); row += 2)
        for (std::uint32_t column = 0; column < picture.Columns(); column += 2) {
            const Cell cell{row, column, std::min(row + 2, picture.Rows()),
                            std::min(column + 2, picture.Columns())};
            const Light mean = MeanLight(picture, cell);
            const std::uint32_t threshold = ThresholdAt(row / 2, column / 2);
            const std::uint32_t common = std::min({mean.red, mean.green, mean.blue});
            const Levels& levels = beside[white.Choose(common, threshold)];
            // What all three have in common is white alone.
            const auto choose = [&](std::uint32_t light) {
                return light == common ? levels[0] : levels.ChooseValue(light, threshold);
            };
            const Rgb color{choose(mean.red), choose(mean.green), choose(mean.blue)};
            cell.ForEachPlace(
                [&](std::uint32_t each, std::uint32_t other) { dithered.At(each, other) = color; });
        }
    return dithered;
}

}  // namespace

bool HasFewerShades(const LampTechnology& technology) {
    return technology.family != LampFamily::None && technology.bits < 8;
}

Lamps Dithered(const Lamps& picture, const LampTechnology& technology, tag_K4_PIXEL_TECH pixel) {
    if (!HasFewerShades(technology))
        return picture;
    return technology.family == LampFamily::Quad ? DitheredCells(picture, technology)
                                                 : DitheredPlaces(picture, technology, pixel);
}

}  // namespace k4suite
