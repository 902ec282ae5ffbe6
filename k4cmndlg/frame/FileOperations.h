#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "k4cmndlg/k4cmncore_export.h"

/// @name Files, through the installed Shell.
/// Nothing is shown by these themselves: the shell shows its own progress and questions. They
/// return when the shell is done. Any thread that the shell allows.
///
/// A list goes to the shell in one packed block. A path that the block can't carry, because it is
/// empty or has a zero in it, fails the whole call before anything is touched; where files are
/// deleted one at a time, it fails alone.
/// @{

/// Deletes files so that it can be undone: whatever flags the caller gives, FOF_ALLOWUNDO (0x40) is
/// added. On a platform older than version 4, or one that doesn't tell its version, the files are
/// deleted one at a time and for good, and the flags don't count.
/// @param flags the sum of FOF_ values (k4cmndlg/frame/contracts/Shell.h).
/// @return 1 if all are gone, else 0.
K4CMNCORE_EXPORT int k4cmnDeleteFile(const std::vector<std::string>& paths, std::uint16_t flags);
K4CMNCORE_EXPORT int k4cmnDeleteFile(const std::string& path, std::uint16_t flags);

/// Copies files; folders are left out. On a platform older than version 4, or one that doesn't tell
/// its version, nothing is copied.
/// @param destination a folder or, for a single file, a file.
/// @return 1 if the copy went well, else 0.
K4CMNCORE_EXPORT int k4cmnCopyFile(const std::vector<std::string>& paths,
                                   const std::string& destination);
K4CMNCORE_EXPORT int k4cmnCopyFile(const std::string& path, const std::string& destination);

/// @}
