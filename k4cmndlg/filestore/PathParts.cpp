#include "k4cmndlg/filestore/PathParts.h"

namespace k4cmn {

namespace {

constexpr bool IsLetter(char byte) {
    return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
}

PathParts SplitWithoutDrive(std::string_view path) {
    PathParts parts;
    const std::size_t separator = path.find_last_of("\\/");
    const std::size_t folderEnd = separator == std::string_view::npos ? 0 : separator + 1;
    parts.folder = path.substr(0, folderEnd);
    const std::string_view last = path.substr(folderEnd);
    const std::size_t dot = last.find_last_of('.');
    parts.name = last.substr(0, dot);
    if (dot != std::string_view::npos)
        parts.extension = last.substr(dot);
    return parts;
}

}  // namespace

PathParts SplitPath(std::string_view path) {
    const bool hasDrive = path.size() >= 2 && IsLetter(path[0]) && path[1] == ':';
    const std::size_t driveEnd = hasDrive ? 2 : 0;
    PathParts parts = SplitWithoutDrive(path.substr(driveEnd));
    parts.drive = path.substr(0, driveEnd);
    return parts;
}

PathParts StepUp(const PathParts& parts) {
    const std::string_view folder = parts.folder;
    PathParts above = SplitWithoutDrive(folder.substr(0, folder.empty() ? 0 : folder.size() - 1));
    above.drive = parts.drive;
    return above;
}

}  // namespace k4cmn
