#pragma once

#include <cstdint>

#include "k4cmndlg/frame/StringTable.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// @name Resource numbers of the library's texts.
/// @{
inline constexpr std::uint32_t IDS_FILE_COLUMNS = 102;            ///< headings of a list of files
inline constexpr std::uint32_t IDS_FOUND_COLUMNS = 103;           ///< headings of the found files
inline constexpr std::uint32_t IDS_DOWNLOAD_COLUMNS = 32803;      ///< headings of a download list
inline constexpr std::uint32_t IDS_CONNECT_COLUMNS = 32804;       ///< headings of remote services
inline constexpr std::uint32_t AFX_IDP_PARSE_INT = 0xF110;        ///< a field must hold an integer
inline constexpr std::uint32_t AFX_IDP_PARSE_INT_RANGE = 0xF112;  ///< ... of a range
inline constexpr std::uint32_t AFX_IDP_PARSE_STRING_SIZE = 0xF114;  ///< ... no longer a text
/// @}

/// The texts of this library, the toolkit's own words among them. Column headings are pieces
/// between commas, and the blanks of a piece count: they set the width of its column.
K4CMNCORE_EXPORT StringTable LibraryStrings();

}  // namespace k4cmn
