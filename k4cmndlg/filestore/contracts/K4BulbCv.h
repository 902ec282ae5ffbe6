#pragma once

#include <cstddef>
#include <cstdint>

#include "k4cmndlg/filestore/SignTypes.h"
#include "k4cmndlg/frame/Provided.h"
#include "k4cmndlg/k4cmncore_export.h"

/// The head of a device-independent bitmap, low bytes first.
struct BITMAPINFOHEADER {
    std::uint32_t biSize;  ///< 40
    std::int32_t biWidth;
    std::int32_t biHeight;  ///< negative for a picture whose first line is its top one
    std::uint16_t biPlanes;
    std::uint16_t biBitCount;
    std::uint32_t biCompression;
    std::uint32_t biSizeImage;
    std::int32_t biXPelsPerMeter;
    std::int32_t biYPelsPerMeter;
    std::uint32_t biClrUsed;
    std::uint32_t biClrImportant;
};
static_assert(offsetof(BITMAPINFOHEADER, biSize) == 0);
static_assert(offsetof(BITMAPINFOHEADER, biWidth) == 4);
static_assert(offsetof(BITMAPINFOHEADER, biHeight) == 8);
static_assert(offsetof(BITMAPINFOHEADER, biPlanes) == 12);
static_assert(offsetof(BITMAPINFOHEADER, biBitCount) == 14);
static_assert(offsetof(BITMAPINFOHEADER, biCompression) == 16);
static_assert(offsetof(BITMAPINFOHEADER, biSizeImage) == 20);
static_assert(offsetof(BITMAPINFOHEADER, biXPelsPerMeter) == 24);
static_assert(offsetof(BITMAPINFOHEADER, biYPelsPerMeter) == 28);
static_assert(offsetof(BITMAPINFOHEADER, biClrUsed) == 32);
static_assert(offsetof(BITMAPINFOHEADER, biClrImportant) == 36);
static_assert(sizeof(BITMAPINFOHEADER) == 40);

/// One entry of a bitmap's table of colors.
struct RGBQUAD {
    std::uint8_t rgbBlue;
    std::uint8_t rgbGreen;
    std::uint8_t rgbRed;
    std::uint8_t rgbReserved;
};
static_assert(offsetof(RGBQUAD, rgbBlue) == 0);
static_assert(offsetof(RGBQUAD, rgbGreen) == 1);
static_assert(offsetof(RGBQUAD, rgbRed) == 2);
static_assert(offsetof(RGBQUAD, rgbReserved) == 3);
static_assert(sizeof(RGBQUAD) == 4);

/// The head of a picture with room for 256 colors: 1064 bytes.
struct K4ImageHeader {
    BITMAPINFOHEADER bmiHeader;
    RGBQUAD bmiColors[256];
};
static_assert(offsetof(K4ImageHeader, bmiHeader) == 0);
static_assert(offsetof(K4ImageHeader, bmiColors) == 40);
static_assert(sizeof(K4ImageHeader) == 1064);

/// Turns the bulb data of a frame into a picture. docs/sequence-format.md tells what bulb data is.
/// Threads: any.
class K4CMNCORE_EXPORT K4BulbCv {
 public:
    virtual ~K4BulbCv();

    /// Converts one frame. The picture has a pixel for each lamp place, its first line is the top
    /// one (so the head's height is negative), and its lines are filled up to a multiple of 4
    /// bytes.
    /// @param bulbData     the unpacked bulb data.
    /// @param bytesOfFrame how many bytes stand there: k4cmn::BytesOfFrame().
    /// @param rows, columns of the sign.
    /// @param color        the color technology.
    /// @param imageHeader  filled, with its colors where the picture has 8 bits a pixel or fewer.
    /// @param pixels       filled with the picture.
    /// @param sizeOfPixels the bytes that `pixels` has room for.
    /// @param depth        1 makes a picture of one bit a pixel. 8 makes one of 8 bits where the
    ///                     technology shows 256 colors or fewer, and one of 32 bits otherwise.
    /// @return 1, or 0 with nothing written: an argument is null or out of range, the bytes are
    ///         too few for the sign, or the picture doesn't fit.
    virtual int Bulb2DIB(const void* bulbData, std::uint64_t bytesOfFrame, std::uint32_t rows,
                         std::uint32_t columns, tag_K4_SIGN_COLOR color, K4ImageHeader* imageHeader,
                         void* pixels, std::size_t sizeOfPixels, int depth) = 0;
};

K4_DECLARE_PROVIDED(K4CMNCORE_EXPORT, K4BulbCv)
