#pragma once

#include <QIcon>
#include <string>
#include <unordered_map>
#include <vector>

#include "k4cmndlg/k4cmndlg_export.h"

namespace k4cmn {

/// The system's icons of files, each in every size: that of the icon theme under the name that
/// FileKinds gives, and where there is none the library's own picture of the file's kind.
/// Threads: the user interface thread.
class K4CMNDLG_EXPORT SystemIcons {
 public:
    /// The index of a file's icon; files with one icon have one index.
    /// @param path a composed path; the file isn't looked at.
    int IndexOf(const std::string& path);
    /// The icon at an index; the empty one out of range.
    QIcon At(int index) const;

 private:
    std::unordered_map<std::string, int> m_indexes;  ///< by name in the theme, or "." extension
    std::vector<QIcon> m_icons;
};

}  // namespace k4cmn
