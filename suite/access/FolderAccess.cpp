#include "suite/access/FolderAccess.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>
#include <utility>

#include "suite/platform/Descriptor.h"
#include "suite/platform/FileSystem.h"
#include "suite/store/NativePath.h"
#include "suite/store/StorePath.h"

namespace k4suite {

namespace {

constexpr mode_t kFolderPermissions = 0777;  // less what the user's mask takes

k4cmn::FileStatus Told(const struct stat& status) {
    return {S_ISDIR(status.st_mode), static_cast<std::uint64_t>(status.st_size),
            static_cast<std::int64_t>(status.st_mtime)};
}

bool IsOneEntry(const std::string& name) {
    return !name.empty() && name != "." && name != ".." &&
           name.find_first_of(std::string_view("/\\\0", 3)) == std::string::npos;
}

std::string LastComponent(const std::string& path) {
    const std::vector<std::string_view> components = StoreComponents(path);
    return components.empty() ? std::string() : std::string(components.back());
}

}  // namespace

FolderAccess::FolderAccess(DataHome home) : m_home(std::move(home)) {}

std::string FolderAccess::Native(const std::string& path) const {
    std::string native = NativePath(m_home, path);
    if (native.empty())
        errno = ENOENT;
    return native;
}

int FolderAccess::GetStatus(const std::string& path, k4cmn::FileStatus* status) {
    const std::string native = Native(path);
    struct stat told;
    if (native.empty() || stat(native.c_str(), &told) != 0)
        return 0;
    if (status)
        *status = Told(told);
    return 1;
}

std::string FolderAccess::IdentityOf(const std::string& path) {
    const std::string native = Native(path);
    struct stat told;
    if (native.empty() || stat(native.c_str(), &told) != 0)
        return {};
    return std::to_string(told.st_dev) + ":" + std::to_string(told.st_ino);
}

std::vector<std::optional<k4cmn::FileStatus>> FolderAccess::StatusIn(
    const std::string& folder, const std::vector<std::string>& names) {
    std::vector<std::optional<k4cmn::FileStatus>> all(names.size());
    const std::string native = Native(folder);
    if (native.empty())
        return all;
    const Descriptor entries(open(native.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!entries)
        return all;
    for (std::size_t i = 0; i < names.size(); ++i) {
        struct stat told;
        if (IsOneEntry(names[i]) && fstatat(entries.Get(), names[i].c_str(), &told, 0) == 0)
            all[i] = Told(told);
    }
    return all;
}

int FolderAccess::MakeFolder(const std::string& path) {
    const std::string native = Native(path);
    return !native.empty() && mkdir(native.c_str(), kFolderPermissions) == 0;
}

int FolderAccess::RemoveFolder(const std::string& path) {
    const std::string native = Native(path);
    return !native.empty() && rmdir(native.c_str()) == 0;
}

int FolderAccess::Move(const std::string& from, const std::string& to) {
    const std::string source = Native(from);
    std::string target = source.empty() ? std::string() : Native(to);
    if (target.empty())
        return 0;
    // A target that is the source by another case is the name as it is to be written.
    if (target == source)
        target = FolderOf(source) + "/" + LastComponent(to);
    if (target == source)
        return access(source.c_str(), F_OK) == 0;
    const int error = RenameToFreeName(source, target);
    errno = error;
    return error == 0;
}

int FolderAccess::MarkReadOnly(const std::string& path) {
    k4cmn::FileStatus status;
    return GetStatus(path, &status) && status.isFolder;
}

}  // namespace k4suite
