#pragma once

#include <string>
#include <string_view>

#include "suite/settings/DataHome.h"

namespace k4suite {

/// Maps a path of the store to a path of this machine's file system: the one place where the two
/// meet.
///
/// | path                | lies in                                            |
/// |---------------------|----------------------------------------------------|
/// | A:\x, a:\x, A:x     | the home's drives, folder "A"; a drive has no current folder |
/// | \\HOST\SHARE\x      | the home's network places, folder "HOST/SHARE"     |
/// | /x                  | here already: a server text may be a native folder |
///
/// '\' and '/' both separate, and repeated ones count as one. "." and ".." are resolved in the
/// text, and ".." doesn't leave the drive, the share, or the root. Where the path as written
/// doesn't exist, a component that differs only in case finds the entry that does (the first one in
/// byte order). What doesn't exist is kept as written, so that it can be made.
///
/// @param path any bytes.
/// @return the native path; empty if there is no such place: an empty or relative path, one with an
///         embedded zero, one longer than the system takes, a host or share named "." or "..".
/// Threads: any.
std::string NativePath(const DataHome& home, std::string_view path);

}  // namespace k4suite
