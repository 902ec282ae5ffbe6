#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace k4suite {

/// Finds the top folder of the mount that a folder lies in.
using TopFolderOf = std::function<std::string(const std::string& folder)>;

/// The top folder of the mount that an existing folder lies in: "/" or a mount point. A bind mount
/// is a mount of its own, as files can't be renamed across its border.
std::string MountTopOf(const std::string& folder);

/// Renames without ever replacing what is there.
/// @return 0, or the system's error: EEXIST where there is something.
int RenameToFreeName(const std::string& from, const std::string& to);

/// Writes all bytes to a descriptor, however many calls it takes.
/// @return 0, or the system's error.
int WriteAll(int descriptor, const char* bytes, std::size_t count);

/// An absolute path without ".", ".." and a '/' at its end, taken as text; empty for an empty one.
std::string AbsolutePath(const std::string& path);

/// The last component of a path, for people.
std::string NameOf(const std::string& path);
/// The folder of an absolute path.
std::string FolderOf(const std::string& path);

}  // namespace k4suite
