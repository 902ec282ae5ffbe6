#include "tests/suite/bulbcv/PlainBulbCv.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "suite/lamps/LampTechnology.h"
#include "suite/lamps/Shades.h"

namespace k4test {

namespace {

using namespace k4suite;

/// A frame's bulb data, read one lamp at a time.
class PlainFrame {
 public:
    PlainFrame(const std::uint8_t* data, std::uint32_t rows, std::uint32_t columns,
               const LampTechnology& technology)
        : m_data(data),
          m_rows(rows),
          m_columns(columns),
          m_words((columns + 15) / 16),
          m_planeBytes(std::size_t{m_words} * 2 * ((rows + 1) / 2 * 2)),
          m_technology(technology) {
        for (std::uint32_t shade = 0; shade <= technology.BrightestShade(); ++shade)
            m_light[shade] = LightOfShade(static_cast<std::uint8_t>(shade), technology);
    }

    /// All bits that decide on the color of a place: the first lamp's shade lowest.
    std::uint32_t ColorBits(std::uint32_t row, std::uint32_t column) const {
        switch (m_technology.family) {
            case LampFamily::Quad: {
                const std::uint32_t upper = row / 2 * 2;
                const std::uint32_t left = column / 2 * 2;
                const unsigned bits = m_technology.bits;
                return Lamp(upper, left) | Lamp(upper, left + 1) << bits |
                       Lamp(upper + 1, left) << 2 * bits | Lamp(upper + 1, left + 1) << 3 * bits;
            }
            case LampFamily::Packed:
                return Packed(row, column);
            case LampFamily::None:
                return 0;
            default:
                return Lamp(row, column);
        }
    }

    /// A pixel's blue, green and red.
    std::array<std::uint8_t, 3> Light(std::uint32_t row, std::uint32_t column) const {
        const std::uint32_t all = ColorBits(row, column);
        const auto light = [&](unsigned channel) {
            return m_light[all >> channel * m_technology.bits & m_technology.BrightestShade()];
        };
        const std::uint32_t white = m_technology.family == LampFamily::Quad ? light(3) : 0;
        const auto mixed = [&](unsigned channel) {
            return static_cast<std::uint8_t>(std::min(light(channel) + white, 255U));
        };
        return {mixed(2), mixed(1), mixed(0)};
    }

 private:
    /// The bits of all planes at one place.
    std::uint32_t Lamp(std::uint32_t row, std::uint32_t column) const {
        if (row >= m_rows || column >= m_columns)
            return 0;
        std::uint32_t bits = 0;
        for (std::uint32_t plane = 0; plane < m_technology.planes; ++plane) {
            const std::uint8_t* at =
                m_data + plane * m_planeBytes + (std::size_t{row} * m_words + column / 16) * 2;
            const unsigned word = at[0] | static_cast<unsigned>(at[1]) << 8;
            bits |= (word >> (15 - column % 16) & 1U) << plane;
        }
        return bits;
    }

    std::uint32_t Packed(std::uint32_t row, std::uint32_t column) const {
        const std::size_t pixelBytes = m_technology.planes / 8U;
        const std::uint8_t* at = m_data + (std::size_t{row} * m_words * 16 + column) * pixelBytes;
        if (pixelBytes == 3)
            return at[2] | static_cast<std::uint32_t>(at[1]) << 8 |
                   static_cast<std::uint32_t>(at[0]) << 16;
        const unsigned word = at[0] | static_cast<unsigned>(at[1]) << 8;
        return (word >> 10 & 31) | (word >> 5 & 31) << 5 | (word & 31) << 10;
    }

    const std::uint8_t* m_data;
    std::uint32_t m_rows;
    std::uint32_t m_columns;
    std::uint32_t m_words;
    std::size_t m_planeBytes;
    LampTechnology m_technology;
    std::array<std::uint32_t, 256> m_light{};
};

std::uint32_t ColorBitsOf(const LampTechnology& technology) {
    return technology.family == LampFamily::Quad ? 4U * technology.bits : technology.planes;
}

RGBQUAD Entry(const Rgb& color) {
    return {color.blue, color.green, color.red, 0};
}

/// The color of an index, by way of a sign of one cell whose lamps show it.
Rgb ColorOf(std::uint32_t index, const LampTechnology& technology) {
    const auto shade = [&](unsigned channel) {
        return static_cast<std::uint8_t>(index >> channel * technology.bits &
                                         technology.BrightestShade());
    };
    ShadePicture picture{technology, LampGrid<Shade>(2, 2)};
    if (technology.family == LampFamily::Quad)
        for (unsigned lamp = 0; lamp < 4; ++lamp)
            picture.lamps.All()[lamp][0] = shade(lamp);
    else
        picture.lamps.At(0, 0) = {shade(0), shade(1), shade(2)};
    return LightOf(picture, K4_PIXEL_TECH_INCAND).At(0, 0);
}

std::uint32_t FillColors(const LampTechnology& technology, unsigned bitsOfPixel, RGBQUAD* colors) {
    std::fill_n(colors, 256, RGBQUAD{});
    if (bitsOfPixel == 32)
        return 0;
    if (bitsOfPixel == 1) {
        colors[1] = Entry(technology.family == LampFamily::Mono ? MonoLight(K4_PIXEL_TECH_INCAND)
                                                                : Rgb{255, 255, 255});
        return 2;
    }
    const std::uint32_t used = 1U << ColorBitsOf(technology);
    for (std::uint32_t index = 0; index < used; ++index)
        colors[index] = Entry(ColorOf(index, technology));
    return used;
}

}  // namespace

int PlainBulbCv::Bulb2DIB(const void* bulbData, std::uint64_t, std::uint32_t rows,
                          std::uint32_t columns, tag_K4_SIGN_COLOR color,
                          K4ImageHeader* imageHeader, void* pixels, std::size_t, int depth) {
    const LampTechnology technology = TechnologyOf(color);
    const unsigned bitsOfPixel = depth == 1 ? 1 : ColorBitsOf(technology) <= 8 ? 8 : 32;
    const std::uint32_t lineBytes = (columns * bitsOfPixel + 31) / 32 * 4;
    BITMAPINFOHEADER& header = imageHeader->bmiHeader;
    header = {};
    header.biSize = 40;
    header.biWidth = static_cast<std::int32_t>(columns);
    header.biHeight = -static_cast<std::int32_t>(rows);
    header.biPlanes = 1;
    header.biBitCount = static_cast<std::uint16_t>(bitsOfPixel);
    header.biSizeImage = lineBytes * rows;
    header.biClrUsed = FillColors(technology, bitsOfPixel, imageHeader->bmiColors);

    const PlainFrame frame(static_cast<const std::uint8_t*>(bulbData), rows, columns, technology);
    for (std::uint32_t row = 0; row < rows; ++row) {
        auto* line = static_cast<std::uint8_t*>(pixels) + std::size_t{row} * lineBytes;
        if (bitsOfPixel != 32)
            std::memset(line, 0, lineBytes);
        for (std::uint32_t column = 0; column < columns; ++column) {
            if (bitsOfPixel == 1) {
                if (frame.ColorBits(row, column) != 0)
                    line[column / 8] =
                        static_cast<std::uint8_t>(line[column / 8] | 0x80U >> column % 8);
            } else if (bitsOfPixel == 8) {
                line[column] = static_cast<std::uint8_t>(frame.ColorBits(row, column));
            } else {
                const std::array<std::uint8_t, 3> light = frame.Light(row, column);
                line[4 * column] = light[0];
                line[4 * column + 1] = light[1];
                line[4 * column + 2] = light[2];
                line[4 * column + 3] = 0;
            }
        }
    }
    return 1;
}

}  // namespace k4test
