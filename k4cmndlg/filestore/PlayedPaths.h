#pragma once

#include <string>
#include <vector>

#include "k4cmndlg/filestore/contracts/CK4IncFrame.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// The paths of an include frame that are played, in their order: those of fields whose status
/// isn't 0. They outlive the frame, which goes when another one is fetched from its file, as may
/// happen while the paths are followed.
K4CMNCORE_EXPORT std::vector<std::string> PlayedPaths(const CK4IncFrame& frame);

}  // namespace k4cmn
