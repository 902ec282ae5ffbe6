#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "k4cmndlg/filestore/SignTypes.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

inline constexpr std::uint32_t kMinSignRows = 7;
inline constexpr std::uint32_t kMaxSignRows = 2048;
inline constexpr std::uint32_t kMinSignColumns = 16;
inline constexpr std::uint32_t kMaxSignColumns = 16384;
/// The most pixels: rows times columns.
inline constexpr std::uint32_t kMaxSignPixels = 0x800000;

/// What is wrong with the size of a sign type, one message a broken rule, in the order in which
/// they are shown: rows, columns, their product, multiples of rows, multiples of columns. Each is a
/// message of its own.
/// @param columnsForMultiple the columns that the last rule looks at. A caller that is still about
///        to store new columns checks the ones stored so far.
/// @return the messages; none for a legal size.
K4CMNCORE_EXPORT std::vector<std::string> SignSizeMessages(std::uint32_t rows,
                                                           std::uint32_t columns,
                                                           std::uint32_t columnsForMultiple);

/// As above, with the last rule looking at `columns` too.
K4CMNCORE_EXPORT std::vector<std::string> SignSizeMessages(std::uint32_t rows,
                                                           std::uint32_t columns);

/// What is wrong with a whole sign type: the messages of its size, and last the one of a pair of
/// technologies that isn't valid.
K4CMNCORE_EXPORT std::vector<std::string> SignTypeMessages(std::uint32_t rows,
                                                           std::uint32_t columns,
                                                           tag_K4_SIGN_COLOR color,
                                                           tag_K4_PIXEL_TECH pixel);

/// The message for too many pixels, which other dialogs show too.
K4CMNCORE_EXPORT std::string TooManyPixelsText();
/// The message for rows that are neither 7 nor a multiple of 8, which other dialogs show too.
K4CMNCORE_EXPORT std::string RowsMultipleText();
/// The message for columns that are no multiple of 8, which other dialogs show too.
K4CMNCORE_EXPORT std::string ColumnsMultipleText();
/// The message for a pair of technologies that isn't valid, which other dialogs show too.
K4CMNCORE_EXPORT std::string InvalidTechnologiesText();

/// Whether rows times columns is within the limit, whatever the two are.
constexpr bool IsPixelCountLegal(std::uint32_t rows, std::uint32_t columns) {
    return std::uint64_t{rows} * columns <= kMaxSignPixels;
}
/// Whether rows are 7 or a multiple of 8.
constexpr bool IsRowsMultipleLegal(std::uint32_t rows) {
    return rows == 7 || rows % 8 == 0;
}
/// Whether columns are a multiple of 8.
constexpr bool IsColumnsMultipleLegal(std::uint32_t columns) {
    return columns % 8 == 0;
}

}  // namespace k4cmn
