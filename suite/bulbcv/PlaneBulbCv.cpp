#include "suite/bulbcv/PlaneBulbCv.h"

#include <algorithm>
#include <limits>

#include "suite/bulbcv/BulbEncoder.h"
#include "suite/bulbcv/OneBitKernels.h"
#include "suite/bulbcv/PackedKernels.h"
#include "suite/bulbcv/PlaneKernels.h"
#include "suite/bulbcv/QuadKernels.h"

namespace k4suite {

namespace {

/// Rows and columns are 16-bit in every record.
constexpr std::uint32_t kMostRowsOrColumns = 65535;

bool IsSize(std::uint32_t rowsOrColumns) {
    return rowsOrColumns >= 1 && rowsOrColumns <= kMostRowsOrColumns;
}

/// The bits of a picture's pixel; 0 for a depth that there isn't.
std::uint32_t BitsOfPixel(const LampTechnology& technology, int depth) {
    if (depth == 1)
        return 1;
    if (depth != 8)
        return 0;
    return IndexBits(technology) <= kMostIndexBits ? 8 : 32;
}

BITMAPINFOHEADER HeaderOf(std::uint32_t rows, std::uint32_t columns, std::uint32_t bitsOfPixel,
                          std::uint32_t colors) {
    BITMAPINFOHEADER header{};
    header.biSize = sizeof header;
    header.biWidth = static_cast<std::int32_t>(columns);
    header.biHeight = -static_cast<std::int32_t>(rows);
    header.biPlanes = 1;
    header.biBitCount = static_cast<std::uint16_t>(bitsOfPixel);
    // 0 stands for "as the sizes say", which a picture too large for the field needs.
    const std::uint64_t size = std::uint64_t{PixelLineBytes(columns, bitsOfPixel)} * rows;
    header.biSizeImage =
        size <= std::numeric_limits<std::uint32_t>::max() ? static_cast<std::uint32_t>(size) : 0;
    header.biClrUsed = colors;
    return header;
}

void ToIndexes(const BulbLines& bulbs, const LampTechnology& technology, const PixelLines& pixels) {
    if (technology.family == LampFamily::Quad)
        CellsToIndexes(bulbs, technology, pixels);
    else
        PlanesToIndexes(bulbs, technology.planes, pixels);
}

void ToLight(const BulbLines& bulbs, const LampTechnology& technology, const PixelLines& pixels) {
    if (technology.family == LampFamily::Quad)
        CellsToLight(bulbs, technology, pixels);
    else if (technology.family == LampFamily::Packed)
        PackedToLight(bulbs, technology, pixels);
    else
        PlanesToLight(bulbs, technology, pixels);
}

}  // namespace

PlaneBulbCv::PlaneBulbCv(tag_K4_PIXEL_TECH pixel) : m_pixel(pixel) {
    for (std::size_t color = 0; color < kColors; ++color) {
        const LampTechnology technology = TechnologyOf(static_cast<tag_K4_SIGN_COLOR>(color));
        if (IndexBits(technology) <= kMostIndexBits)
            m_indexPalettes[color] = IndexPalette(technology, pixel);
    }
}

int PlaneBulbCv::Bulb2DIB(const void* bulbData, std::uint64_t bytesOfFrame, std::uint32_t rows,
                          std::uint32_t columns, tag_K4_SIGN_COLOR color,
                          K4ImageHeader* imageHeader, void* pixels, std::size_t sizeOfPixels,
                          int depth) {
    const LampTechnology technology = TechnologyOf(color);
    const std::uint32_t bitsOfPixel = BitsOfPixel(technology, depth);
    if (!imageHeader || !pixels || !IsSize(rows) || !IsSize(columns) || bitsOfPixel == 0)
        return 0;
    const std::size_t needed = BulbBytes(rows, columns, technology);
    const PixelLines out{static_cast<std::uint8_t*>(pixels), PixelLineBytes(columns, bitsOfPixel)};
    if (bytesOfFrame < needed || (needed > 0 && !bulbData) || sizeOfPixels / out.lineBytes < rows)
        return 0;

    const BulbLines bulbs{static_cast<const std::uint8_t*>(bulbData), rows, columns};
    const auto row = static_cast<std::size_t>(color);
    const BulbPalette palette = bitsOfPixel == 1   ? BitPalette(technology, m_pixel)
                                : bitsOfPixel == 8 ? m_indexPalettes[row < kColors ? row : 0]
                                                   : BulbPalette{};
    imageHeader->bmiHeader = HeaderOf(rows, columns, bitsOfPixel, palette.used);
    std::copy(palette.colors.begin(), palette.colors.end(), imageHeader->bmiColors);
    if (technology.family == LampFamily::None)
        std::fill_n(out.pixels, out.lineBytes * rows, std::uint8_t{0});
    else if (bitsOfPixel == 1)
        BulbsToBits(bulbs, technology, out);
    else if (bitsOfPixel == 8)
        ToIndexes(bulbs, technology, out);
    else
        ToLight(bulbs, technology, out);
    return 1;
}

}  // namespace k4suite
