#include "suite/store/NativePath.h"

#include <dirent.h>
#include <limits.h>
#include <sys/stat.h>

#include <memory>
#include <vector>

#include "suite/settings/NameText.h"
#include "suite/store/StorePath.h"

namespace k4suite {

namespace {

constexpr char Upper(char byte) {
    return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 32) : byte;
}

/// A path as the place where it begins and the components below that.
struct Place {
    std::string root;                ///< native; empty: there is no such place
    std::vector<std::string> fixed;  ///< components that ".." can't leave: drive, or host and share
    std::vector<std::string> below;
};

std::vector<std::string> Components(std::string_view path) {
    const std::vector<std::string_view> components = StoreComponents(path);
    return {components.begin(), components.end()};
}

void Resolve(std::vector<std::string>& components) {
    std::vector<std::string> resolved;
    for (std::string& component : components) {
        if (component == "..") {
            if (!resolved.empty())
                resolved.pop_back();
        } else if (component != ".") {
            resolved.push_back(std::move(component));
        }
    }
    components = std::move(resolved);
}

/// Takes host and share off the front of a network path.
bool TakeShare(Place& place) {
    while (place.fixed.size() < 2 && !place.below.empty()) {
        std::string& name = place.below.front();
        if (name == "." || name == "..")
            return false;
        place.fixed.push_back(std::move(name));
        place.below.erase(place.below.begin());
    }
    return !place.fixed.empty();
}

Place Locate(const DataHome& home, std::string_view path) {
    Place place;
    if (path.front() == '/') {
        place.root = "/";
        place.below = Components(path);
    } else if (HasDrive(path)) {
        place.root = home.Drives().string();
        place.fixed.emplace_back(1, Upper(path[0]));
        place.below = Components(path.substr(2));
    } else if (path.substr(0, 2) == "\\\\") {
        place.below = Components(path);
        if (TakeShare(place))
            place.root = home.Network().string();
    }
    Resolve(place.below);
    return place;
}

bool Exists(const std::string& path) {
    struct stat status;
    return lstat(path.c_str(), &status) == 0;
}

/// The entry of a folder whose name is the wanted one but for case; empty if there is none.
std::string EntryLike(const std::string& folder, const std::string& wanted) {
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(folder.c_str()), closedir);
    std::string found;
    while (const dirent* entry = entries ? readdir(entries.get()) : nullptr) {
        const std::string_view name = entry->d_name;
        if (IsSameName(name, wanted) && (found.empty() || name < found))
            found = name;
    }
    return found;
}

void Append(std::string& path, const std::string& component) {
    if (path.back() != '/')
        path += '/';
    path += component;
}

std::string AsWritten(const std::string& root, const std::vector<std::string>& components) {
    std::string path = root;
    for (const std::string& component : components)
        Append(path, component);
    return path;
}

std::string AsItExists(const std::string& root, const std::vector<std::string>& components) {
    std::string path = root;
    for (const std::string& component : components) {
        std::string next = path;
        Append(next, component);
        const std::string like = Exists(next) ? std::string() : EntryLike(path, component);
        if (like.empty())
            path = std::move(next);
        else
            Append(path, like);
    }
    return path;
}

}  // namespace

std::string NativePath(const DataHome& home, std::string_view path) {
    if (path.empty() || path.size() >= PATH_MAX || path.find('\0') != std::string_view::npos)
        return {};
    Place place = Locate(home, path);
    if (place.root.empty())
        return {};
    std::vector<std::string> components = std::move(place.fixed);
    components.insert(components.end(), place.below.begin(), place.below.end());
    std::string native = AsWritten(place.root, components);
    if (!Exists(native))
        native = AsItExists(place.root, components);
    for (const std::string& component : components) {
        if (component.size() > NAME_MAX)
            return {};
    }
    return native.size() < PATH_MAX ? native : std::string();
}

}  // namespace k4suite
