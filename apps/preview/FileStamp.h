#pragma once

#include <cstdint>
#include <string>

namespace preview {

/// What tells whether the content of a file is still the one that was read. A plain value.
struct FileStamp {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;  ///< 0: there is no file
    std::int64_t size = 0;
    std::int64_t seconds = 0;  ///< of the last change
    std::int64_t nanoseconds = 0;

    /// The stamp of a file of the store as it is now.
    static FileStamp Of(const std::string& path);
    /// The stamp of a file of this machine as it is now.
    static FileStamp OfNative(const std::string& path);

    bool Exists() const { return inode != 0; }
    bool operator==(const FileStamp&) const = default;
};

}  // namespace preview
