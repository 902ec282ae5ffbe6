#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "k4cmndlg/filestore/SignTypes.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// Number of color technologies that have names: the values 0 to 14.
inline constexpr int kSignColorCount = 15;
/// Number of pixel technologies: the values 1 to 3.
inline constexpr int kPixelTechCount = 3;

/// The name shown next to the size of a sign ("RGB16M"). Empty for a value out of range.
K4CMNCORE_EXPORT std::string_view ColorShortName(tag_K4_SIGN_COLOR color);
/// The name in the combo boxes for new sign folders and groups. Empty for a value out of range.
K4CMNCORE_EXPORT std::string_view ColorLongName(tag_K4_SIGN_COLOR color);
/// The name in the search page "Sign", which differs from the long name on purpose. Empty for a
/// value out of range.
K4CMNCORE_EXPORT std::string_view ColorSearchName(tag_K4_SIGN_COLOR color);

/// The short name of a pixel technology ("Reflect"). Empty for a value out of range.
K4CMNCORE_EXPORT std::string_view PixelShortName(tag_K4_PIXEL_TECH pixel);
/// The long name of a pixel technology ("Reflective"). Empty for a value out of range.
K4CMNCORE_EXPORT std::string_view PixelLongName(tag_K4_PIXEL_TECH pixel);

/// Whether signs of this color technology are made with this pixel technology. Values out of range
/// fit nothing.
K4CMNCORE_EXPORT bool IsColorAndPixelTechValid(tag_K4_SIGN_COLOR color, tag_K4_PIXEL_TECH pixel);

/// "%s pixel technology is not valid for %s color technology.", with the pixel's long name and the
/// color's short name.
K4CMNCORE_EXPORT std::string TechnologiesDontFitText(tag_K4_SIGN_COLOR color,
                                                     tag_K4_PIXEL_TECH pixel);

/// The size and color of a sign, "%dx%d  %s": rows, columns, the color's short name.
K4CMNCORE_EXPORT std::string SignSizeText(std::uint32_t rows, std::uint32_t columns,
                                          tag_K4_SIGN_COLOR color);
/// The label of a sign type, "Sign Type : %dx%d  %s".
K4CMNCORE_EXPORT std::string SignTypeLabel(std::uint32_t rows, std::uint32_t columns,
                                           tag_K4_SIGN_COLOR color);

}  // namespace k4cmn
