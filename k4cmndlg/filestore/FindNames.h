#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// Whether an entry of a folder counts: as a folder, if its name doesn't begin with "."; as a file,
/// always.
/// @param wantFolders not 0 for folders.
K4CMNCORE_EXPORT int IsFileValid(std::string_view name, int wantFolders);

/// Lists the names that match a pattern, in the order of the file system.
/// @param list  replaced once a valid name matched; on a miss it keeps what it held.
/// @param pattern, wantFolders as CK4Files::FindFiles() takes them.
/// @return 1 if at least one name matched, else 0.
K4CMNCORE_EXPORT int FindNames(std::vector<std::string>& list, const std::string& pattern,
                               int wantFolders);

/// The names of folders that match a pattern, each without the characters of its ending.
/// @param ending what the pattern ends in, such as ".Lib"; cut by its length in characters,
/// whatever its case.
/// @return none if nothing matched.
K4CMNCORE_EXPORT std::vector<std::string> FolderNames(const std::string& pattern,
                                                      std::string_view ending);

/// The endings of the folders of the store.
inline constexpr std::string_view kSignEnding = ".Sign";
inline constexpr std::string_view kLibraryEnding = ".Lib";

}  // namespace k4cmn
