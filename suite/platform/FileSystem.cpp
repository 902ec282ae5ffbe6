#include "suite/platform/FileSystem.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <filesystem>

namespace k4suite {

namespace fs = std::filesystem;

namespace {

/// What tells one mount from another; 0 where it can't be told.
std::uint64_t MountIdOf(const fs::path& folder) {
    struct statx status {};
    if (statx(AT_FDCWD, folder.c_str(), AT_NO_AUTOMOUNT, STATX_MNT_ID, &status) != 0)
        return 0;
    if (status.stx_mask & STATX_MNT_ID)
        return status.stx_mnt_id;
    return (std::uint64_t{status.stx_dev_major} << 32 | status.stx_dev_minor) + 1;
}

}  // namespace

std::string MountTopOf(const std::string& folder) {
    std::error_code failure;
    fs::path at = fs::canonical(folder, failure);
    if (failure)
        return {};
    const std::uint64_t mount = MountIdOf(at);
    while (at.has_relative_path() && MountIdOf(at.parent_path()) == mount)
        at = at.parent_path();
    return at.string();
}

int RenameToFreeName(const std::string& from, const std::string& to) {
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS)
        return errno;
    // A file system without the exclusive form.
    struct stat status;
    if (lstat(to.c_str(), &status) == 0)
        return EEXIST;
    return std::rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

int WriteAll(int descriptor, const char* bytes, std::size_t count) {
    while (count > 0) {
        const ssize_t written = write(descriptor, bytes, count);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return written < 0 ? errno : EIO;
        bytes += written;
        count -= static_cast<std::size_t>(written);
    }
    return 0;
}

std::string AbsolutePath(const std::string& path) {
    if (path.empty())
        return {};
    std::error_code failure;
    fs::path absolute = fs::absolute(path, failure).lexically_normal();
    if (failure)
        return {};
    if (!absolute.has_filename() && absolute.has_relative_path())
        absolute = absolute.parent_path();
    return absolute.string();
}

std::string NameOf(const std::string& path) {
    return fs::path(path).filename().string();
}

std::string FolderOf(const std::string& path) {
    return fs::path(path).parent_path().string();
}

}  // namespace k4suite
