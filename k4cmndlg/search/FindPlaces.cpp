#include "k4cmndlg/search/FindPlaces.h"

#include <utility>

#include "k4cmndlg/filestore/FileLocation.h"
#include "k4cmndlg/filestore/FindNames.h"
#include "k4cmndlg/filestore/contracts/CK4Registry.h"
#include "k4cmndlg/filestore/contracts/Drives.h"
#include "k4cmndlg/filestore/contracts/StoreAccess.h"

namespace k4cmn {

namespace {

std::vector<PlaceItem> Servers() {
    std::vector<std::string> names;
    if (!CK4Registry::GetRegistryServers(names))
        return {};
    std::vector<PlaceItem> items;
    for (std::string& name : names) {
        const int index = static_cast<int>(items.size());
        items.push_back({std::move(name), PlaceImage::Server, index});
    }
    return items;
}

/// An item for each folder; without any, a notice.
std::vector<PlaceItem> Folders(std::vector<std::string> names, PlaceImage image,
                               bool hasPlaceholder, const char* notice) {
    if (names.empty())
        return {{notice, PlaceImage::Notice, 0, false}};
    std::vector<PlaceItem> items;
    for (std::string& name : names)
        items.push_back({std::move(name), image, 0, hasPlaceholder});
    return items;
}

std::vector<PlaceItem> SignTypes(const std::string& server) {
    return Folders(FolderNames(SignTypePattern(server), kSignEnding), PlaceImage::SignType, true,
                   "No signs");
}

std::vector<PlaceItem> Libraries(const std::string& server, const std::string& signType) {
    return Folders(FolderNames(LibraryPattern(server, signType), kLibraryEnding),
                   PlaceImage::Library, false, "No Libraries");
}

/// How many items stand above the one that stands for a server.
std::size_t AboveServer(const PlacePath& path) {
    return path.rootData == kDriveData ? 0 : 1;
}

}  // namespace

int CheckRM(const std::string& root) {
    return Provided<StoreAccess>::Current().GetStatus(root + ".", nullptr);
}

std::vector<PlaceItem> RootPlaces() {
    std::vector<PlaceItem> items;
    for (const std::string& root : Provided<Drives>::Current().RemovableRoots()) {
        if (CheckRM(root))
            items.push_back({root.substr(0, root.size() - (root.ends_with('\\') ? 1 : 0)),
                             PlaceImage::Server, kDriveData});
    }
    items.push_back({kFileServers, PlaceImage::FileServers, 0, false});
    return items;
}

std::vector<PlaceItem> PlacesBelow(const PlacePath& path) {
    const std::size_t server = AboveServer(path);
    const auto& texts = path.texts;
    if (texts.size() == server)
        return Servers();
    if (texts.size() == server + 1)
        return SignTypes(texts[server]);
    if (texts.size() == server + 2)
        return Libraries(texts[server], texts[server + 1]);
    return {};
}

PlaceItem Placeholder(const PlacePath& path) {
    const bool isServer = path.texts.size() == AboveServer(path) + 1;
    return {{}, isServer ? PlaceImage::SignType : PlaceImage::Library, 0, false};
}

SearchPlace ReadPlace(const PlacePath& path) {
    const auto& texts = path.texts;
    const auto text = [&](std::size_t at) { return at < texts.size() ? texts[at] : std::string(); };
    const std::size_t server = AboveServer(path);
    if (texts.size() <= server)
        return {text(0), {}, {}};
    return {text(server), text(server + 1), text(server + 2)};
}

}  // namespace k4cmn
