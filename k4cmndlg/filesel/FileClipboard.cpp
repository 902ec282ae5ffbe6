#include "k4cmndlg/filesel/FileClipboard.h"

#include <utility>

#include "k4cmndlg/filestore/StoreFolders.h"

namespace k4cmn {

FileClipboard CopiedFrom(const FileLocation& place, std::vector<std::string> names) {
    FileClipboard clipboard;
    const bool isOfServer = !names.empty() && LiesAtServerRoot(place.fileExtension);
    if (!names.empty())
        clipboard.sourcePath = FolderOfFiles(place);
    clipboard.files = std::move(names);
    if (!isOfServer) {
        clipboard.server = place.server;
        clipboard.signType = place.signType;
        clipboard.library = place.library;
    }
    return clipboard;
}

}  // namespace k4cmn
