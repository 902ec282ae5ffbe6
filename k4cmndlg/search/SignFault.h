#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "k4cmndlg/filestore/SignTypes.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// The fields of a sign type that a person can be led to.
enum class SignField : std::uint8_t { Rows, Columns, Technologies };

/// Why a sign type is refused, and the field that a person should look at.
struct SignFault {
    SignField field;
    std::string words;
};

/// Checks a sign type whose rows and columns are in their ranges: their product, the multiples of
/// rows and of columns (of 8), and whether the installed store has the pair of technologies.
/// @return the first rule that is broken; nothing for a sign type that there may be.
K4CMNCORE_EXPORT std::optional<SignFault> FindSignFault(std::uint32_t rows, std::uint32_t columns,
                                                        tag_K4_SIGN_COLOR color,
                                                        tag_K4_PIXEL_TECH pixel);

}  // namespace k4cmn
