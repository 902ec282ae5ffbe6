#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// How many characters a text has (not bytes); a malformed byte counts as one.
K4CMNCORE_EXPORT std::size_t CharacterCount(std::string_view text);

/// The first characters of a text, `most` at most, and none of them in pieces.
K4CMNCORE_EXPORT std::string FirstCharacters(std::string_view text, std::size_t most);

/// A text less its last characters, as many as it has at most.
K4CMNCORE_EXPORT std::string WithoutLastCharacters(std::string_view text, std::size_t count);

/// A text as it counts where case doesn't: each character by FoldedCharacter(). Malformed bytes are
/// kept as they are.
K4CMNCORE_EXPORT std::string WithoutCase(std::string_view text);

/// Whether two texts are the same without regard to case.
K4CMNCORE_EXPORT bool IsSameWithoutCase(std::string_view one, std::string_view other);

/// Whether a text comes before another one, character by character, without regard to case.
/// Malformed bytes come behind all characters.
K4CMNCORE_EXPORT bool IsLessWithoutCase(std::string_view one, std::string_view other);

}  // namespace k4cmn
