#include "suite/lamps/Shades.h"

#include <algorithm>

#include "suite/lamps/Lowered.h"

namespace k4suite {

namespace {

constexpr std::uint32_t kFull = 255;

/// The shade nearest to a light.
std::uint8_t ShadeOf(std::uint32_t light, const LampTechnology& technology) {
    return static_cast<std::uint8_t>((light * technology.BrightestShade() + kFull / 2) / kFull);
}

/// How bright a lamp of one color shines for a color: as its brightest part, so that what another
/// sign with one color shows keeps its shades.
std::uint32_t BrightnessOf(const Rgb& color) {
    return std::max({color.red, color.green, color.blue});
}

Shade ShadeOfPlace(const Rgb& color, const LampTechnology& technology) {
    const auto shade = [&](std::uint32_t light) { return ShadeOf(light, technology); };
    switch (technology.family) {
        case LampFamily::Tri: {
            const std::uint32_t blue = color.blue / 2U;
            return {shade(std::max<std::uint32_t>(color.red, blue)),
                    shade(std::max<std::uint32_t>(color.green, blue)), 0};
        }
        case LampFamily::Rgb:
        case LampFamily::Packed:
            return {shade(color.red), shade(color.green), shade(color.blue)};
        default:
            return {shade(BrightnessOf(color)), 0, 0};
    }
}

/// A cell of two by two lamps, or what of it lies on the sign.
struct Cell {
    std::uint32_t row, column;    ///< its upper left place
    std::uint32_t rows, columns;  ///< 1 or 2

    template <class Grid>
    static Cell At(const Grid& grid, std::uint32_t row, std::uint32_t column) {
        return {row, column, std::min(2U, grid.Rows() - row),
                std::min(2U, grid.Columns() - column)};
    }
};

template <class Grid, class Do>
void ForEachCell(const Grid& grid, Do&& act) {
    for (std::uint32_t row = 0; row < grid.Rows(); row += 2)
        for (std::uint32_t column = 0; column < grid.Columns(); column += 2)
            act(Cell::At(grid, row, column));
}

Rgb MeanOf(const Lamps& picture, const Cell& cell) {
    std::uint32_t red = 0;
    std::uint32_t green = 0;
    std::uint32_t blue = 0;
    for (std::uint32_t row = 0; row < cell.rows; ++row)
        for (std::uint32_t column = 0; column < cell.columns; ++column) {
            const Rgb& lamp = picture.At(cell.row + row, cell.column + column);
            red += lamp.red;
            green += lamp.green;
            blue += lamp.blue;
        }
    const std::uint32_t count = cell.rows * cell.columns;
    const auto mean = [count](std::uint32_t sum) {
        return static_cast<std::uint8_t>((sum + count / 2) / count);
    };
    return {mean(red), mean(green), mean(blue)};
}

void QuantiseCell(const Lamps& picture, const Cell& cell, ShadePicture& shades) {
    const Rgb mean = MeanOf(picture, cell);
    const bool hasWhite = cell.rows == 2 && cell.columns == 2;
    const std::uint8_t white =
        hasWhite ? ShadeOf(std::min({mean.red, mean.green, mean.blue}), shades.technology)
                 : std::uint8_t{0};
    const std::uint32_t common = LightOfShade(white, shades.technology);
    const auto rest = [&](std::uint32_t light) {
        return ShadeOf(light > common ? light - common : 0, shades.technology);
    };
    const std::uint8_t lamps[2][2] = {{rest(mean.red), rest(mean.green)}, {rest(mean.blue), white}};
    for (std::uint32_t row = 0; row < cell.rows; ++row)
        for (std::uint32_t column = 0; column < cell.columns; ++column)
            shades.lamps.At(cell.row + row, cell.column + column)[0] = lamps[row][column];
}

CellShades ShadesOfCell(const ShadePicture& picture, const Cell& cell) {
    const auto shade = [&](std::uint32_t row, std::uint32_t column) {
        const bool exists = row < cell.rows && column < cell.columns;
        return exists ? picture.lamps.At(cell.row + row, cell.column + column)[0] : std::uint8_t{0};
    };
    return {shade(0, 0), shade(0, 1), shade(1, 0), shade(1, 1)};
}

}  // namespace

std::uint32_t LightOfShade(std::uint8_t shade, const LampTechnology& technology) {
    const std::uint32_t brightest = technology.BrightestShade();
    return brightest ? (shade * kFull + brightest / 2) / brightest : 0;
}

Rgb LightOfPlace(const Shade& shade, const LampTechnology& technology, const Rgb& mono) {
    if (shade == Shade{})
        return {};
    const auto light = [&](std::uint8_t one) {
        return static_cast<std::uint8_t>(LightOfShade(one, technology));
    };
    if (technology.family == LampFamily::Mono) {
        const std::uint8_t brightness = light(shade[0]);
        return {Lowered(mono.red, brightness), Lowered(mono.green, brightness),
                Lowered(mono.blue, brightness)};
    }
    return {light(shade[0]), light(shade[1]), light(shade[2])};
}

Rgb LightOfCell(const CellShades& shades, const LampTechnology& technology) {
    const std::uint32_t white = LightOfShade(shades[3], technology);
    const auto mixed = [&](std::uint8_t own) {
        return static_cast<std::uint8_t>(std::min(LightOfShade(own, technology) + white, kFull));
    };
    return {mixed(shades[0]), mixed(shades[1]), mixed(shades[2])};
}

ShadePicture Quantise(const Lamps& picture, LampTechnology technology) {
    ShadePicture shades{technology, LampGrid<Shade>(picture.Rows(), picture.Columns())};
    if (technology.family == LampFamily::Quad) {
        ForEachCell(picture, [&](const Cell& cell) { QuantiseCell(picture, cell, shades); });
        return shades;
    }
    std::transform(picture.All().begin(), picture.All().end(), shades.lamps.All().begin(),
                   [&](const Rgb& color) { return ShadeOfPlace(color, technology); });
    return shades;
}

Lamps LightOf(const ShadePicture& picture, tag_K4_PIXEL_TECH pixel) {
    Lamps light(picture.lamps.Rows(), picture.lamps.Columns());
    if (picture.technology.family == LampFamily::Quad) {
        ForEachCell(light, [&](const Cell& cell) {
            const Rgb mixed = LightOfCell(ShadesOfCell(picture, cell), picture.technology);
            for (std::uint32_t row = 0; row < cell.rows; ++row)
                for (std::uint32_t column = 0; column < cell.columns; ++column)
                    light.At(cell.row + row, cell.column + column) = mixed;
        });
        return light;
    }
    const Rgb mono = MonoLight(pixel);
    std::transform(
        picture.lamps.All().begin(), picture.lamps.All().end(), light.All().begin(),
        [&](const Shade& shade) { return LightOfPlace(shade, picture.technology, mono); });
    return light;
}

void DimShades(ShadePicture& picture, std::uint8_t brightness) {
    for (Shade& shade : picture.lamps.All())
        for (std::uint8_t& lamp : shade)
            lamp = Lowered(lamp, brightness);
}

void DimLight(Lamps& picture, std::uint8_t brightness) {
    for (Rgb& lamp : picture.All())
        lamp = {Lowered(lamp.red, brightness), Lowered(lamp.green, brightness),
                Lowered(lamp.blue, brightness)};
}

}  // namespace k4suite
