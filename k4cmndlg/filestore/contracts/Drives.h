#pragma once

#include <string>
#include <vector>

#include "k4cmndlg/frame/Provided.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// The drives of this system.
/// Threads: any.
class K4CMNCORE_EXPORT Drives {
 public:
    virtual ~Drives();

    /// The roots of the removable drives, each with its '\' ("A:\"), whether something lies in them
    /// or not; none with nothing installed.
    virtual std::vector<std::string> RemovableRoots() = 0;
};

}  // namespace k4cmn

K4_DECLARE_PROVIDED(K4CMNCORE_EXPORT, Drives)
