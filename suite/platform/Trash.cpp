#include "suite/platform/Trash.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <utility>

namespace k4suite {

namespace fs = std::filesystem;

namespace {

std::string HomeFolder() {
    if (const char* home = std::getenv("HOME"); home && home[0] == '/')
        return home;
    const passwd* user = getpwuid(geteuid());
    return user && user->pw_dir ? user->pw_dir : "/";
}

std::string NearestExisting(fs::path folder) {
    std::error_code ignored;
    while (folder.has_relative_path() && !fs::is_directory(folder, ignored))
        folder = folder.parent_path();
    return folder.string();
}

/// Whether the administrator's ".Trash" of a mount may be used: a folder and no link, in which
/// nobody can rename what is another's.
bool IsSharedTrash(const std::string& folder) {
    struct stat status;
    return lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
           (status.st_mode & S_ISVTX) != 0;
}

}  // namespace

Trash::Trash(TopFolderOf topFolderOf) : m_topFolderOf(std::move(topFolderOf)) {}

std::string Trash::HomeTrash() {
    const char* data = std::getenv("XDG_DATA_HOME");
    const std::string folder = data && data[0] == '/' ? data : HomeFolder() + "/.local/share";
    return AbsolutePath(folder + "/Trash");
}

Trash::Result Trash::Move(const std::string& path) const {
    struct stat status;
    if (path.empty() || lstat(path.c_str(), &status) != 0)
        return {Outcome::Missing, path.empty() ? ENOENT : errno};

    std::error_code failure;
    const std::string folder = fs::canonical(FolderOf(path), failure).string();
    const std::string name = NameOf(path);
    if (failure || name.empty())  // the root of everything has no name
        return {Outcome::Failed, failure ? failure.value() : EBUSY};
    if (faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) != 0)
        return {Outcome::Failed, errno};

    int error = 0;
    for (const Place& place : PlacesFor(folder)) {
        error = place.trash.Prepare(place.makesParents);
        if (error)
            continue;
        bool itsFault = false;
        error = place.trash.Take((fs::path(folder) / name).string(), itsFault);
        if (!error)
            return {Outcome::Moved, 0};
        if (itsFault)
            return {Outcome::Failed, error};
    }
    return {Outcome::NoPlace, error};
}

std::vector<Trash::Place> Trash::PlacesFor(const std::string& folder) const {
    const std::string home = HomeTrash();
    const std::string top = m_topFolderOf(folder);
    if (top.empty() || top == m_topFolderOf(NearestExisting(home)))
        return {{TrashFolder(home), true}};

    std::vector<Place> places;
    const std::string user = std::to_string(geteuid());
    const std::string shared = fs::path(top) / ".Trash";
    if (IsSharedTrash(shared))
        places.push_back({TrashFolder(shared + "/" + user, top), false});
    places.push_back({TrashFolder(shared + "-" + user, top), false});
    return places;
}

}  // namespace k4suite
