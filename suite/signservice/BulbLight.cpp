#include "suite/signservice/BulbLight.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <stdexcept>
#include <vector>

#include "suite/bulbcv/BulbLines.h"
#include "suite/bulbcv/BulbPalette.h"
#include "suite/bulbcv/PlaneBulbCv.h"
#include "suite/lamps/Lowered.h"
#include "suite/signservice/DibEncoder.h"

namespace k4suite {

namespace {

constexpr std::uint8_t kFull = 255;
constexpr std::size_t kPixelBytes = 4;
/// The depth that gives a picture all of its colors.
constexpr int kDepth = 8;

/// Whether a picture of a color technology is made by way of indexes into its colors.
bool HasIndexes(tag_K4_SIGN_COLOR color) {
    return IndexBits(TechnologyOf(color)) <= kMostIndexBits;
}

PlaneBulbCv& ConverterFor(tag_K4_PIXEL_TECH pixel) {
    static std::array<PlaneBulbCv, 3> converters = {PlaneBulbCv(K4_PIXEL_TECH_INCAND),
                                                    PlaneBulbCv(K4_PIXEL_TECH_REFLECT),
                                                    PlaneBulbCv(K4_PIXEL_TECH_LED)};
    return converters[static_cast<std::size_t>(pixel - K4_PIXEL_TECH_INCAND)];
}

void Convert(const SignBulbs& from, K4ImageHeader& header, std::span<std::uint8_t> pixels) {
    // The color is known and the sizes are right, so there is nothing that it could refuse.
    if (!ConverterFor(from.pixel)
             .Bulb2DIB(from.bulbs.data(), from.bulbs.size(), from.rows, from.columns, from.color,
                       &header, pixels.data(), pixels.size(), kDepth))
        throw std::logic_error("bulb data that is no frame's");
}

/// Pixels of 8 bits become pixels of 32, by the picture's colors, dimmed before.
void Color(const SignBulbs& from, const RGBQUAD (&colors)[256], std::uint8_t brightness,
           const std::vector<std::uint8_t>& indexes, std::uint8_t* pixels) {
    std::array<std::array<std::uint8_t, kPixelBytes>, 256> table;
    std::transform(std::begin(colors), std::end(colors), table.begin(), [&](const RGBQUAD& color) {
        return std::array<std::uint8_t, kPixelBytes>{Lowered(color.rgbBlue, brightness),
                                                     Lowered(color.rgbGreen, brightness),
                                                     Lowered(color.rgbRed, brightness), 0};
    });
    const std::size_t lineBytes = indexes.size() / from.rows;
    for (std::uint32_t row = 0; row < from.rows; ++row) {
        const std::uint8_t* index = indexes.data() + row * lineBytes;
        for (std::uint32_t column = 0; column < from.columns; ++column, pixels += kPixelBytes)
            std::memcpy(pixels, table[index[column]].data(), kPixelBytes);
    }
}

}  // namespace

void BulbsToDib(const SignBulbs& from, std::uint8_t brightness, std::span<std::uint8_t> bytes) {
    const std::span<std::uint8_t> pixels = EncodeDibHeader(from.rows, from.columns, bytes);
    K4ImageHeader header;
    if (HasIndexes(from.color)) {
        std::vector<std::uint8_t> indexes(PixelLineBytes(from.columns, 8) * from.rows);
        Convert(from, header, indexes);
        Color(from, header.bmiColors, brightness, indexes, pixels.data());
        return;
    }
    Convert(from, header, pixels);
    // The zero of a pixel stays one.
    if (brightness != kFull)
        std::transform(pixels.begin(), pixels.end(), pixels.begin(),
                       [brightness](std::uint8_t light) { return Lowered(light, brightness); });
}

Lamps BulbsToLight(const SignBulbs& from) {
    std::vector<std::uint8_t> dib(DibBytes(from.rows, from.columns));
    BulbsToDib(from, kFull, dib);
    Lamps light(from.rows, from.columns);
    const std::uint8_t* pixel = dib.data() + dib.size() - kPixelBytes * light.All().size();
    for (Rgb& lamp : light.All()) {
        lamp = {pixel[2], pixel[1], pixel[0]};
        pixel += kPixelBytes;
    }
    return light;
}

}  // namespace k4suite
