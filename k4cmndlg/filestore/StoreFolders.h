#pragma once

#include <string>

#include "k4cmndlg/filestore/FileLocation.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// @name Folders of the store as paths, each with '\' at its end.
/// @{
K4CMNCORE_EXPORT std::string ServerFolder(const std::string& server);
K4CMNCORE_EXPORT std::string SignTypeFolder(const std::string& server, const std::string& signType);
K4CMNCORE_EXPORT std::string LibraryFolder(const std::string& server, const std::string& signType,
                                           const std::string& library);
/// The library folder of a place, whatever its file extension.
K4CMNCORE_EXPORT std::string LibraryFolder(const FileLocation& place);
/// The folder that files of the place's extension lie in: the server or the library.
K4CMNCORE_EXPORT std::string FolderOfFiles(const FileLocation& place);
/// @}

}  // namespace k4cmn
