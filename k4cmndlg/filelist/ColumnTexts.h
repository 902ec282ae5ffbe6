#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// A column of a list of files.
struct FileColumn {
    std::string heading;  ///< with its blanks, which make the column's width
    bool isRightAligned = false;

    bool operator==(const FileColumn&) const = default;
};
/// What a column is wider than its heading's text, in pixels.
inline constexpr int kColumnMargin = 15;

/// The columns that a text resource names: one blank is added at its end, and it is cut at each
/// ",", the blanks being kept.
/// @param rightAligned the index of the column that is aligned to the right.
K4CMNCORE_EXPORT std::vector<FileColumn> ColumnsOf(std::uint32_t resource,
                                                   std::size_t rightAligned);

/// "%5d KB": a size in whole kilobytes, rounded down.
K4CMNCORE_EXPORT std::string SizeText(std::uint64_t bytes);

/// The format of the column "Modified", for TimeText().
inline constexpr char kModifiedFormat[] = "%m/%d/%y %I:%M %p";

}  // namespace k4cmn
