#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "k4cmndlg/frame/Prompt.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// The most characters of a file name, without its extension.
inline constexpr std::size_t kMaxFileNameLength = 32;

/// Whether a name has at most kMaxFileNameLength characters.
K4CMNCORE_EXPORT bool IsFileNameShortEnough(std::string_view name);

/// Whether a typed name holds one of the twelve characters "\/:;*?"<>|#%", which a person is told
/// about when pressing OK.
K4CMNCORE_EXPORT bool HoldsForbiddenCharacter(std::string_view name);

/// What the person is told: a stop message with the title "Invalid Filename".
K4CMNCORE_EXPORT Message InvalidFileNameMessage();

/// A text without the white space at its end.
K4CMNCORE_EXPORT std::string WithoutTrailingSpace(std::string_view text);

/// The silent check whenever a selection is taken over: not empty once trailing white space is cut,
/// and none of the five characters "#%;/\". Other forbidden characters pass it.
K4CMNCORE_EXPORT bool CanTakeOverFileName(std::string_view name);

/// Whether a name holds one of "a" to "z", "A" to "Z", "0" to "9"; without one no result path is
/// composed.
K4CMNCORE_EXPORT bool HoldsLetterOrDigit(std::string_view name);

/// Whether a text put behind a folder names an entry of that folder: one that holds '\' or '/'
/// leads elsewhere.
K4CMNCORE_EXPORT bool IsNameOfOneEntry(std::string_view name);

}  // namespace k4cmn
