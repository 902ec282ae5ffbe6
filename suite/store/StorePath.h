#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace k4suite {

/// Paths of the store as texts, before anybody asks where they lie. '\' and '/' both separate.

/// A byte that separates two components.
constexpr bool IsStoreSeparator(char byte) {
    return byte == '\\' || byte == '/';
}

/// Whether a path begins with a drive ("A:").
bool HasDrive(std::string_view path);

/// Whether a path begins with a drive, a host ("\\HOST") or a leading '/'.
bool IsAbsoluteStorePath(std::string_view path);

/// The components, without empty ones; a drive is a component.
std::vector<std::string_view> StoreComponents(std::string_view path);

/// How many bytes at the front of a path name its root, without a separator behind it: "A:",
/// "\\HOST\SHARE", "" for a native path and for a relative one.
std::size_t StoreRootLength(std::string_view path);

/// Adds a relative path to a folder, "." and ".." resolved in the text.
/// @param folder     the folder, without a separator at its end.
/// @param rootLength how much of the folder ".." can't take away.
/// @param separator  what is put between the components that are added.
std::string JoinStorePath(std::string folder, std::size_t rootLength, std::string_view relative,
                          char separator);

}  // namespace k4suite
