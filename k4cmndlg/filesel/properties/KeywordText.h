#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// The most characters that the fields for keywords and for notes take.
inline constexpr std::size_t kMaxSequenceText = 255;

/// Keywords in the form that files carry: cut at "; ,\t\n" and joined again, each one followed by
/// "; ". Without any keyword the result is empty.
K4CMNCORE_EXPORT std::string NormalisedKeywords(std::string_view text);

}  // namespace k4cmn
