#include "suite/signservice/DibEncoder.h"

namespace k4suite {

namespace {

constexpr std::size_t kHeaderBytes = 40;
constexpr std::size_t kPixelBytes = 4;

void PutWord(std::uint8_t* at, std::uint32_t word) {
    for (int byte = 0; byte < 4; ++byte)
        at[byte] = static_cast<std::uint8_t>(word >> (8 * byte));
}

}  // namespace

std::size_t DibBytes(std::uint32_t rows, std::uint32_t columns) {
    return kHeaderBytes + kPixelBytes * rows * columns;
}

std::span<std::uint8_t> EncodeDibHeader(std::uint32_t rows, std::uint32_t columns,
                                        std::span<std::uint8_t> bytes) {
    const auto pixels = static_cast<std::uint32_t>(DibBytes(rows, columns) - kHeaderBytes);
    constexpr std::uint32_t onePlane = 1;
    constexpr std::uint32_t bits = 32;
    const std::uint32_t header[] = {
        kHeaderBytes, columns, 0U - rows, onePlane | bits << 16, 0, pixels, 0, 0, 0, 0,
    };
    static_assert(sizeof header == kHeaderBytes);
    std::uint8_t* at = bytes.data();
    for (const std::uint32_t word : header) {
        PutWord(at, word);
        at += sizeof word;
    }
    return bytes.subspan(kHeaderBytes, pixels);
}

void EncodeDib(const Lamps& picture, std::span<std::uint8_t> bytes) {
    std::uint8_t* at = EncodeDibHeader(picture.Rows(), picture.Columns(), bytes).data();
    for (const Rgb& lamp : picture.All()) {
        at[0] = lamp.blue;
        at[1] = lamp.green;
        at[2] = lamp.red;
        at[3] = 0;
        at += kPixelBytes;
    }
}

}  // namespace k4suite
