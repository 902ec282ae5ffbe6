#pragma once

#include <cstddef>
#include <cstdint>

namespace k4suite {

/// The bulb data of one frame, seen as planes of lines. Owns nothing.
struct BulbLines {
    const std::uint8_t* data = nullptr;
    std::uint32_t rows = 0;     ///< 1 to 65535
    std::uint32_t columns = 0;  ///< 1 to 65535

    /// The 16-bit words of a plane's line.
    std::size_t Words() const { return (std::size_t{columns} + 15) / 16; }
    std::size_t LineBytes() const { return 2 * Words(); }
    /// Lines are stored in pairs, also where the rows are odd.
    std::size_t PlaneBytes() const { return LineBytes() * ((std::size_t{rows} + 1) / 2 * 2); }
    /// A line of plane 0.
    const std::uint8_t* Line(std::uint32_t row) const { return data + row * LineBytes(); }
    /// A line of packed pixels, each of which takes as many bits as there are planes.
    const std::uint8_t* PackedLine(std::uint32_t row, std::uint32_t planes) const {
        return data + row * LineBytes() * planes;
    }
};

/// The bytes of one line of a picture: its pixels, rounded up to a multiple of 4 bytes.
constexpr std::size_t PixelLineBytes(std::uint32_t columns, std::uint32_t bitsOfPixel) {
    return (std::size_t{columns} * bitsOfPixel + 31) / 32 * 4;
}

/// The lines of a picture's pixels, the first one on top. Owns nothing.
struct PixelLines {
    std::uint8_t* pixels = nullptr;
    std::size_t lineBytes = 0;

    std::uint8_t* Line(std::uint32_t row) const { return pixels + row * lineBytes; }
};

}  // namespace k4suite
