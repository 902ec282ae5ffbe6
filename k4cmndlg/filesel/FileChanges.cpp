#include "k4cmndlg/filesel/FileChanges.h"

#include "k4cmndlg/filestore/FileNameRules.h"
#include "k4cmndlg/filestore/StoreFolders.h"
#include "k4cmndlg/filestore/contracts/StoreAccess.h"
#include "k4cmndlg/frame/FileOperations.h"
#include "k4cmndlg/frame/contracts/Shell.h"

namespace k4cmn {

bool RenameFile(const FileLocation& file, const std::string& name, Prompt& prompt) {
    const std::string folder = FolderOfFiles(file);
    const std::string from = folder + file.file + "." + file.fileExtension;
    const std::string to = folder + name + "." + file.fileExtension;
    if (from == to)
        return false;
    if (!IsNameOfOneEntry(name) || !Provided<StoreAccess>::Current().Move(from, to))
        prompt.Ask(PlainMessage("Rename failed"));
    return true;
}

bool MakeLibrary(const std::string& signTypeFolder, const std::string& name, Prompt& prompt) {
    const std::string path = signTypeFolder + name + ".Lib";
    if (IsNameOfOneEntry(name) && Provided<StoreAccess>::Current().MakeFolder(path))
        return true;
    prompt.Ask(PlainMessage("Error Creating: " + path));
    return false;
}

bool RemoveLibrary(const FileLocation& library, Prompt& prompt) {
    if (library.server.empty() || library.signType.empty() || library.library.empty()) {
        prompt.Ask(PlainMessage("Must select server, sign type and the library to remove."));
        return false;
    }
    std::string path = LibraryFolder(library);
    path.pop_back();
    if (k4cmnDeleteFile(path, FOF_ALLOWUNDO))
        return true;
    prompt.Ask(PlainMessage("Error removing Library"));
    return false;
}

}  // namespace k4cmn
