#pragma once

#include <string>

#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// Makes a text by a printf format. The compiler checks the arguments against the format.
/// @return the text, of any length; empty if the format can't be carried out.
K4CMNCORE_EXPORT std::string Format(const char* format, ...) __attribute__((format(printf, 1, 2)));

}  // namespace k4cmn
