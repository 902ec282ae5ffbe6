#pragma once

#include <string>
#include <string_view>

#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// A path in its four parts; joined in order they are the path again.
struct PathParts {
    std::string drive;      ///< "A:", or empty
    std::string folder;     ///< with the separator at its end, or empty
    std::string name;       ///< the last component without its extension
    std::string extension;  ///< with its dot, or empty

    bool operator==(const PathParts&) const = default;
};

/// Splits a path by the usual rule. A drive is a letter and a colon at the beginning and nothing
/// else. The folder reaches to the last '\' or '/'. The extension begins at the last dot of the
/// last component; a component that begins with its only dot is all extension.
K4CMNCORE_EXPORT PathParts SplitPath(std::string_view path);

/// Steps up: cuts the last character of the folder, which is its separator, and splits the rest, so
/// that the last remaining folder becomes name and extension. The drive stays, and no other is
/// looked for. From an empty folder every part but the drive becomes empty.
K4CMNCORE_EXPORT PathParts StepUp(const PathParts& parts);

}  // namespace k4cmn
