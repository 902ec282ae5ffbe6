#include "k4cmndlg/search/SearchPlace.h"

#include "k4cmndlg/filestore/PathParts.h"
#include "k4cmndlg/filestore/StoreFolders.h"

namespace k4cmn {

std::string SearchPathText(const SearchPlace& place) {
    if (place.server.empty())
        return {};
    if (place.signType.empty())
        return ServerFolder(place.server);
    if (place.library.empty())
        return SignTypeFolder(place.server, place.signType);
    return LibraryFolder(place.server, place.signType, place.library);
}

FoundPath TakeApartFoundPath(std::string_view path) {
    FoundPath found;
    const PathParts file = SplitPath(path);
    found.type = GetFileType(path);
    if (found.type != kUnknownSearchType)
        found.file = file.name;
    const PathParts library = StepUp(file);
    found.place.library = library.name;
    const PathParts signType = StepUp(library);
    found.place.signType = signType.name;
    const PathParts server = StepUp(signType);
    found.place.server = file.drive + server.folder + server.name;
    return found;
}

}  // namespace k4cmn
