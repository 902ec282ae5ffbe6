#pragma once

#include <string>

#include "k4cmndlg/frame/Prompt.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// Has a file printed by the program made for it.
/// @param prompt told of a failure: "ERROR: Could not print " and the path.
K4CMNCORE_EXPORT void PrintFile(const std::string& path, Prompt& prompt);

}  // namespace k4cmn
