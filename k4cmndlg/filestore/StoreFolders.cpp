#include "k4cmndlg/filestore/StoreFolders.h"

#include "k4cmndlg/filestore/FileTypes.h"

namespace k4cmn {

std::string ServerFolder(const std::string& server) {
    return server + "\\";
}

std::string SignTypeFolder(const std::string& server, const std::string& signType) {
    return ServerFolder(server) + signType + ".Sign\\";
}

std::string LibraryFolder(const std::string& server, const std::string& signType,
                          const std::string& library) {
    return SignTypeFolder(server, signType) + library + ".Lib\\";
}

std::string LibraryFolder(const FileLocation& place) {
    return LibraryFolder(place.server, place.signType, place.library);
}

std::string FolderOfFiles(const FileLocation& place) {
    return LiesAtServerRoot(place.fileExtension) ? ServerFolder(place.server)
                                                 : LibraryFolder(place);
}

}  // namespace k4cmn
