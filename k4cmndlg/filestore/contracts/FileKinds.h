#pragma once

#include <string>

#include "k4cmndlg/frame/Provided.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// What the system calls the kinds of files, and how it shows them.
/// Threads: any.
class K4CMNCORE_EXPORT FileKinds {
 public:
    virtual ~FileKinds();

    /// The name of a file's kind for people ("Text file"), told by its name; the file isn't opened.
    /// @param path a composed path. @return empty if the system has no name for it.
    virtual std::string TypeName(const std::string& path) = 0;

    /// The name of the icon that stands for a file's kind ("text-plain"), as the freedesktop icon
    /// naming has it. Told by the file's name; the file isn't opened. A name is no promise that the
    /// icon theme has such an icon, nor that there is a theme: who shows it has a picture of its
    /// own for that.
    /// @param path a composed path.
    /// @return empty if the system has none for it; a platform without icons leaves it at that.
    virtual std::string IconName(const std::string& path);
};

}  // namespace k4cmn

K4_DECLARE_PROVIDED(K4CMNCORE_EXPORT, FileKinds)
