#pragma once

#include <cstddef>
#include <cstdint>

/// The records of a sequence file, byte for byte as they lie in it, low bytes first, and the size
/// of a frame's bulb data. docs/sequence-format.md tells the whole file.

/// How a sequence file is opened.
enum K4OpenFlags : std::uint32_t {
    K4_OPEN_READ = 1,
    K4_OPEN_READWRITE = 2,
};

/// The compression level of a file: how its frames are packed when it is made.
enum tag_K4_COMPRESS_TYPE : std::int32_t {
    K4_COMPRESS_NONE = 0,
    K4_COMPRESS_LOW = 10,
    K4_COMPRESS_MEDIUM = 30,
};

/// How one frame's bulb data is packed.
enum tag_K4_BULB_COMPRESS_TYPE : std::uint32_t {
    K4_BULB_COMPRESS_NONE = 0,
    K4_BULB_COMPRESS_RUNS = 1,
    K4_BULB_COMPRESS_DEFLATE = 2,
};

/// The start record: what a sequence is made for, and how long it is.
struct tag_K4_SOS_FRM {
    std::uint32_t flags;           ///< bit 0: preview only
    std::uint32_t reserved[3];     ///< 0
    std::uint16_t rows;            ///< of the sign, 1 at least
    std::uint16_t columns;         ///< of the sign, 1 at least
    std::uint32_t color;           ///< a tag_K4_SIGN_COLOR, or a value that has no name
    std::uint32_t pixel;           ///< a tag_K4_PIXEL_TECH, or a value that has no name
    std::uint32_t runTime;         ///< milliseconds, without those of included sequences
    std::uint16_t thumbnailFrame;  ///< from 1; 0: none
    std::uint16_t frameCount;
    std::uint16_t includeCount;  ///< how many of the frames are include frames
    std::uint16_t reserved2;     ///< 0
};
static_assert(offsetof(tag_K4_SOS_FRM, flags) == 0);
static_assert(offsetof(tag_K4_SOS_FRM, reserved) == 4);
static_assert(offsetof(tag_K4_SOS_FRM, rows) == 16);
static_assert(offsetof(tag_K4_SOS_FRM, columns) == 18);
static_assert(offsetof(tag_K4_SOS_FRM, color) == 20);
static_assert(offsetof(tag_K4_SOS_FRM, pixel) == 24);
static_assert(offsetof(tag_K4_SOS_FRM, runTime) == 28);
static_assert(offsetof(tag_K4_SOS_FRM, thumbnailFrame) == 32);
static_assert(offsetof(tag_K4_SOS_FRM, frameCount) == 34);
static_assert(offsetof(tag_K4_SOS_FRM, includeCount) == 36);
static_assert(offsetof(tag_K4_SOS_FRM, reserved2) == 38);
static_assert(sizeof(tag_K4_SOS_FRM) == 40);

/// The file record.
struct tag_K4_RIFF_FILE_DATA {
    std::uint32_t version;           ///< of the format: 1
    char maker[512];                 ///< the program that made the file; UTF-8, filled up with 0
    std::uint32_t compressionLevel;  ///< a tag_K4_COMPRESS_TYPE
};
static_assert(offsetof(tag_K4_RIFF_FILE_DATA, version) == 0);
static_assert(offsetof(tag_K4_RIFF_FILE_DATA, maker) == 4);
static_assert(offsetof(tag_K4_RIFF_FILE_DATA, compressionLevel) == 516);
static_assert(sizeof(tag_K4_RIFF_FILE_DATA) == 520);

/// What stands before the bulb data of a graphic frame.
struct tag_K4_GRP_HDR {
    std::uint32_t dwell;            ///< how long the frame stands, milliseconds
    std::uint32_t reserved[11];     ///< 0
    std::uint32_t compressionType;  ///< a tag_K4_BULB_COMPRESS_TYPE
};
static_assert(offsetof(tag_K4_GRP_HDR, dwell) == 0);
static_assert(offsetof(tag_K4_GRP_HDR, reserved) == 4);
static_assert(offsetof(tag_K4_GRP_HDR, compressionType) == 48);
static_assert(sizeof(tag_K4_GRP_HDR) == 52);

namespace k4cmn {

/// A four-character code as the number that CK4RiffChunk::Type() gives: first character lowest.
constexpr std::uint32_t FourCharacterCode(const char (&text)[5]) {
    std::uint32_t code = 0;
    for (int i = 3; i >= 0; --i)
        code = code << 8 | static_cast<unsigned char>(text[i]);
    return code;
}

inline constexpr std::uint32_t kGraphicFrame = FourCharacterCode("grp ");
inline constexpr std::uint32_t kDataFrame = FourCharacterCode("dat ");
inline constexpr std::uint32_t kTextFrame = FourCharacterCode("txt ");
inline constexpr std::uint32_t kIncludeFrame = FourCharacterCode("inc ");

/// The flag of tag_K4_SOS_FRM::flags for a preview-only sequence.
inline constexpr std::uint32_t kPreviewOnlyFlag = 1;

/// The planes of bulb data that a color value has, by its number.
inline constexpr std::uint32_t kPlanes[] = {1, 1, 2, 2, 2, 4, 4, 8, 6, 6, 12, 24, 6, 16, 24, 0};

/// The number of planes of a color value; a value that the table doesn't know has one.
constexpr std::uint32_t PlanesOfColor(std::uint32_t color) {
    return color < sizeof kPlanes / sizeof kPlanes[0] ? kPlanes[color] : 1;
}

/// The bytes of one frame's bulb data: ((columns + 15) / 16) words a line, as many lines as rows,
/// rounded up to even, and so many planes. Up to 12.9 GB for the largest rows and columns.
constexpr std::uint64_t BytesOfFrame(std::uint32_t rows, std::uint32_t columns,
                                     std::uint32_t color) {
    const std::uint64_t words = (std::uint64_t{columns} + 15) / 16;
    const std::uint64_t lines = (std::uint64_t{rows} + 1) & ~std::uint64_t{1};
    return words * lines * PlanesOfColor(color) * 2;
}

}  // namespace k4cmn
