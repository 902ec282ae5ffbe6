#include "suite/bulbcv/BulbEncoder.h"

namespace k4suite {

namespace {

constexpr std::uint32_t kWordBits = 16;

std::size_t WordsOfLine(std::uint32_t columns) {
    return (columns + kWordBits - 1) / kWordBits;
}

std::size_t LinesOf(std::uint32_t rows) {
    return (std::size_t{rows} + 1) & ~std::size_t{1};
}

/// How many lamps stand at one place of the planes.
std::uint32_t ChannelsOf(LampFamily family) {
    switch (family) {
        case LampFamily::Tri:
            return 2;
        case LampFamily::Rgb:
            return 3;
        default:
            return 1;
    }
}

void EncodePlane(const ShadePicture& picture, std::uint32_t channel, std::uint32_t bit,
                 std::uint8_t* plane) {
    const std::size_t lineBytes = 2 * WordsOfLine(picture.lamps.Columns());
    for (std::uint32_t row = 0; row < picture.lamps.Rows(); ++row) {
        std::uint8_t* line = plane + row * lineBytes;
        for (std::uint32_t column = 0; column < picture.lamps.Columns(); ++column) {
            if (!(picture.lamps.At(row, column)[channel] >> bit & 1U))
                continue;
            // The word's high byte holds the left eight lamps and stands second.
            const std::size_t byte = 2 * (column / kWordBits) + (column % kWordBits < 8 ? 1 : 0);
            line[byte] = static_cast<std::uint8_t>(line[byte] | (0x80U >> (column % 8)));
        }
    }
}

void EncodePixel(const Shade& shade, std::uint32_t bits, std::uint8_t* pixel) {
    if (bits == 8) {
        pixel[0] = shade[2];
        pixel[1] = shade[1];
        pixel[2] = shade[0];
        return;
    }
    const std::uint32_t word =
        std::uint32_t{shade[0]} << 10 | std::uint32_t{shade[1]} << 5 | std::uint32_t{shade[2]};
    pixel[0] = static_cast<std::uint8_t>(word);
    pixel[1] = static_cast<std::uint8_t>(word >> 8);
}

void EncodePacked(const ShadePicture& picture, std::vector<std::uint8_t>& bytes) {
    const std::size_t pixelBytes = picture.technology.planes / 8U;
    const std::size_t lineBytes = WordsOfLine(picture.lamps.Columns()) * kWordBits * pixelBytes;
    for (std::uint32_t row = 0; row < picture.lamps.Rows(); ++row)
        for (std::uint32_t column = 0; column < picture.lamps.Columns(); ++column)
            EncodePixel(picture.lamps.At(row, column), picture.technology.bits,
                        bytes.data() + row * lineBytes + column * pixelBytes);
}

}  // namespace

std::size_t BulbBytes(std::uint32_t rows, std::uint32_t columns, const LampTechnology& technology) {
    return WordsOfLine(columns) * LinesOf(rows) * technology.planes * 2;
}

std::vector<std::uint8_t> EncodeBulbs(const ShadePicture& picture) {
    const LampTechnology& technology = picture.technology;
    const std::size_t planeBytes =
        2 * WordsOfLine(picture.lamps.Columns()) * LinesOf(picture.lamps.Rows());
    std::vector<std::uint8_t> bytes(planeBytes * technology.planes);
    if (technology.family == LampFamily::None)
        return bytes;
    if (technology.family == LampFamily::Packed) {
        EncodePacked(picture, bytes);
        return bytes;
    }
    std::uint8_t* plane = bytes.data();
    for (std::uint32_t channel = 0; channel < ChannelsOf(technology.family); ++channel)
        for (std::uint32_t bit = 0; bit < technology.bits; ++bit, plane += planeBytes)
            EncodePlane(picture, channel, bit, plane);
    return bytes;
}

}  // namespace k4suite
