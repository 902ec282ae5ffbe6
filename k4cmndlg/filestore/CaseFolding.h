#pragma once

#include <string_view>

#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// What NextCharacter() gives where there is no well-formed character.
inline constexpr char32_t kMalformed = 0xFFFFFFFF;

/// Reads the UTF-8 character at `at`, which must lie inside, and steps over it. Where it is
/// malformed, over as many of its bytes as look like one.
K4CMNCORE_EXPORT char32_t NextCharacter(std::string_view bytes, std::size_t& at);

/// A character without its case, so that two that differ only in case become one: the simple case
/// folding of Unicode, whatever the locale. The ASCII letters become lower case.
K4CMNCORE_EXPORT char32_t FoldedCharacter(char32_t character);

}  // namespace k4cmn
