#include "suite/access/FolderAccess.h"

#include <dirent.h>
#include <fcntl.h>
#include <limits.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "k4cmndlg/filestore/Characters.h"
#include "suite/platform/Descriptor.h"
#include "suite/platform/FileSystem.h"
#include "suite/settings/NameText.h"
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

/// Whether a path can have a name at its end, as NativePath() sees it.
bool HasRoomFor(const std::string& name, const std::string& folder) {
    return name.size() <= NAME_MAX && folder.size() + 1 + name.size() < PATH_MAX;
}

std::optional<k4cmn::FileStatus> StatusAt(int folder, const std::string& name) {
    struct stat told;
    if (fstatat(folder, name.c_str(), &told, 0) != 0)
        return std::nullopt;
    return Told(told);
}

bool IsThere(int folder, const std::string& name) {
    struct stat told;
    return fstatat(folder, name.c_str(), &told, AT_SYMLINK_NOFOLLOW) == 0;
}

/// The entries of a folder by their names without case, as NativePath() finds them: of several
/// that differ in case alone, the first one in byte order.
class NamesWithoutCase {
 public:
    explicit NamesWithoutCase(const std::string& folder) {
        const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(folder.c_str()), closedir);
        while (const dirent* entry = entries ? readdir(entries.get()) : nullptr) {
            const std::string name = entry->d_name;
            if (!IsUtf8(name))
                continue;
            const auto [known, isNew] = m_names.emplace(k4cmn::WithoutCase(name), name);
            if (!isNew && name < known->second)
                known->second = name;
        }
    }

    /// @return null if there is none.
    const std::string* Find(const std::string& name) const {
        const auto found = m_names.find(k4cmn::WithoutCase(name));
        return found == m_names.end() ? nullptr : &found->second;
    }

 private:
    std::unordered_map<std::string, std::string> m_names;
};

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
    std::optional<NamesWithoutCase> others;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (!IsOneEntry(names[i]) || !HasRoomFor(names[i], native))
            continue;
        // A link that leads nowhere is the entry of its name all the same.
        if ((all[i] = StatusAt(entries.Get(), names[i])) || IsThere(entries.Get(), names[i]))
            continue;
        if (!others)
            others.emplace(native);
        if (const std::string* other = others->Find(names[i]))
            all[i] = StatusAt(entries.Get(), *other);
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
