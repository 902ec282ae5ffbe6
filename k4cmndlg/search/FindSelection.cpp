#include "k4cmndlg/search/FindSelection.h"

#include "k4cmndlg/filestore/StoreFolders.h"

namespace k4cmn {

int FindSelection::Take(std::string_view path) {
    FoundPath found = TakeApartFoundPath(path);
    place = std::move(found.place);
    file = std::move(found.file);
    type = found.type;
    return type != kUnknownSearchType;
}

void FindSelection::TakeSearchPath(std::string_view path) {
    const int before = type;
    if (!Take(path))
        type = before;
}

std::string FindSelection::Path() const {
    return LibraryFolder(place.server, place.signType, place.library) + file + "." +
           std::string(Extension());
}

std::vector<std::string> FindSelection::PathsToDelete(const std::vector<std::string>& names) const {
    if (type == kUnknownSearchType)
        return {};
    const std::string extension(Extension());
    const std::string folder =
        FolderOfFiles({place.server, place.signType, place.library, {}, extension});
    std::vector<std::string> paths;
    for (const std::string& name : names)
        paths.push_back(folder + name + "." + extension);
    return paths;
}

bool FindSelection::CanPrint() const {
    return type != kUnknownSearchType && !file.empty() &&
           file.find_first_of(" #%;/\\") == std::string::npos;
}

std::string FoundCountText(std::size_t count) {
    if (count == 0)
        return "No files found";
    return std::to_string(count) + (count == 1 ? " file" : " files");
}

}  // namespace k4cmn
