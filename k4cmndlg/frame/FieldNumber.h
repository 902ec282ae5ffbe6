#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// Takes a number off the front of a text: blanks, an optional sign, digits.
/// @return the number, pinned far outside of 32 bits, with the text moved behind it; or nothing
/// without digits.
K4CMNCORE_EXPORT std::optional<std::int64_t> TakeNumber(std::string_view& text);

/// The number that a field's whole text stands for: blanks, an optional sign, digits, blanks.
/// @return the number, or nothing if the text is anything else or doesn't fit 32 bits.
K4CMNCORE_EXPORT std::optional<std::int32_t> ParseInteger(std::string_view text);

/// The number without a sign that a field's whole text stands for, as ParseInteger() reads one.
/// @return the number, pinned to the nearer end of 32 bits, so that no number of digits is a wrong
/// text; or nothing if the text is anything else.
K4CMNCORE_EXPORT std::optional<std::uint32_t> ParseUnsigned(std::string_view text);

/// The number that a field's text begins with: blanks, an optional sign and the digits behind it.
/// @return the number, pinned to the nearer end of 32 bits; 0 without digits.
K4CMNCORE_EXPORT std::int32_t LeadingNumber(std::string_view text);

}  // namespace k4cmn
