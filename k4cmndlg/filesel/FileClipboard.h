#pragma once

#include <string>
#include <vector>

#include "k4cmndlg/filestore/FileLocation.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// The file selection dialog's own clipboard. A cut moves nothing until it is pasted.
struct FileClipboard {
    std::string sourcePath;          ///< of files: their folder, with '\' at its end; else empty
    std::vector<std::string> files;  ///< names with extension, in the order of the rows
    /// Where files of a library, or a folder, come from. Empty for scripts and download lists.
    std::string server;
    std::string signType;
    std::string library;  ///< empty where a whole sign type was copied
    bool cutPending = false;

    bool HasFiles() const { return !sourcePath.empty(); }
    bool operator==(const FileClipboard&) const = default;
};

/// What a copy puts there; a cut has `cutPending` beside that.
/// @param place where the files lie, or the folder that is copied; its File doesn't count.
/// @param names of files with extension; none for a folder: the library, or without one the sign
///              type.
K4CMNCORE_EXPORT FileClipboard CopiedFrom(const FileLocation& place,
                                          std::vector<std::string> names);

}  // namespace k4cmn
