#include "suite/store/StorePath.h"

#include <algorithm>

namespace k4suite {

namespace {

constexpr bool IsLetter(char byte) {
    return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
}

std::size_t ComponentEnd(std::string_view path, std::size_t at) {
    while (at < path.size() && !IsStoreSeparator(path[at]))
        ++at;
    return at;
}

}  // namespace

bool HasDrive(std::string_view path) {
    return path.size() >= 2 && IsLetter(path[0]) && path[1] == ':';
}

bool IsAbsoluteStorePath(std::string_view path) {
    return HasDrive(path) || path.substr(0, 2) == "\\\\" || path.substr(0, 1) == "/";
}

std::vector<std::string_view> StoreComponents(std::string_view path) {
    std::vector<std::string_view> components;
    for (std::size_t at = 0; at < path.size();) {
        const std::size_t end = ComponentEnd(path, at);
        if (end > at)
            components.push_back(path.substr(at, end - at));
        at = end + 1;
    }
    return components;
}

std::size_t StoreRootLength(std::string_view path) {
    if (HasDrive(path))
        return 2;
    if (path.substr(0, 2) != "\\\\")
        return 0;
    const std::size_t hostEnd = ComponentEnd(path, 2);
    return hostEnd == path.size() ? hostEnd : ComponentEnd(path, hostEnd + 1);
}

std::string JoinStorePath(std::string folder, std::size_t rootLength, std::string_view relative,
                          char separator) {
    for (const std::string_view component : StoreComponents(relative)) {
        if (component == ".")
            continue;
        if (component != "..") {
            // A relative folder of no text has nothing to be separated from.
            if (!folder.empty())
                folder += separator;
            folder += component;
            continue;
        }
        const std::size_t cut = folder.find_last_of("\\/");
        folder.resize(cut == std::string::npos ? rootLength : std::max(cut, rootLength));
    }
    return folder;
}

}  // namespace k4suite
