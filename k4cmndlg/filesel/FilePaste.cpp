#include "k4cmndlg/filesel/FilePaste.h"

#include <algorithm>
#include <map>
#include <utility>

#include "k4cmndlg/filestore/Characters.h"
#include "k4cmndlg/filestore/FileNameRules.h"
#include "k4cmndlg/filestore/FindNames.h"
#include "k4cmndlg/filestore/StoreFolders.h"
#include "k4cmndlg/filestore/contracts/StoreAccess.h"
#include "k4cmndlg/frame/FileOperations.h"
#include "k4cmndlg/frame/contracts/Shell.h"

namespace k4cmn {

namespace {

StoreAccess& Store() {
    return Provided<StoreAccess>::Current();
}

bool Holds(const std::vector<std::string>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// The libraries of a sign type's folder, which is given with its '\'.
std::vector<std::string> LibrariesIn(const std::string& signTypeFolder) {
    return FolderNames(signTypeFolder + "*.Lib", kLibraryEnding);
}

bool IsFolder(const std::string& path) {
    FileStatus status;
    return Store().GetStatus(path, &status) && status.isFolder;
}

/// Whether two paths lead to one entry, as far as the store can tell.
bool IsSameEntry(const std::string& one, const std::string& other) {
    const std::string identity = Store().IdentityOf(one);
    return !identity.empty() && identity == Store().IdentityOf(other);
}

/// Whether two files may be copies of each other. A store may keep times to two seconds.
bool LooksTheSame(const FileStatus& one, const FileStatus& other) {
    return one.size == other.size &&
           std::max(one.modified, other.modified) - 2 <= std::min(one.modified, other.modified);
}

}  // namespace

/// One file on its way, and what lay in its place before.
struct FilePaste::Item {
    std::string source;
    std::string target;
    std::string before{};  ///< the identity of the target; empty if there was none
    std::string after{};   ///< the same once everything is copied
};

FilePaste::FilePaste(const FileLocation& place, FileClipboard& clipboard, Prompt& prompt)
    : m_place(place), m_clipboard(clipboard), m_prompt(prompt) {}

bool FilePaste::Run() {
    return m_clipboard.HasFiles() ? PasteFiles() : PasteFolder();
}

void FilePaste::Say(std::string text) {
    m_prompt.Ask(PlainMessage(std::move(text)));
}

// Where to -----------------------------------------------------------------------------------

bool FilePaste::MakeAfterQuestion(const std::string& question, const std::string& folder,
                                  const std::string& refused) {
    if (m_prompt.Ask(
            {question + folder + "?", {}, MessageButtons::OkCancel, MessageIcon::Question}) !=
        MessageAnswer::Ok) {
        Say(refused);
        return false;
    }
    if (!Store().MakeFolder(folder))
        Say("Error Creating: " + folder);
    return true;
}

bool FilePaste::FindSignType(std::string_view wrongSignType, std::string& target) {
    if (!m_place.signType.empty()) {
        target = SignTypeFolder(m_place.server, m_place.signType);
        if (IsSameWithoutCase(m_place.signType, m_clipboard.signType))
            return true;
        Say(std::string(wrongSignType));
        return false;
    }
    target = SignTypeFolder(m_place.server, m_clipboard.signType);
    if (Holds(FolderNames(SignTypePattern(m_place.server), kSignEnding), m_clipboard.signType))
        return true;
    return MakeAfterQuestion("Create Sign Type: \n", target,
                             "Cannot paste files -- Sign Type not specified");
}

bool FilePaste::FindLibrary(const std::string& signTypeFolder, const std::string& library,
                            std::string& target) {
    target = signTypeFolder + library + ".Lib\\";
    if (Holds(LibrariesIn(signTypeFolder), library))
        return true;
    return MakeAfterQuestion("Create Library: \n", target,
                             "Cannot paste files -- Library not specified");
}

// What ---------------------------------------------------------------------------------------

bool FilePaste::PasteFiles() {
    std::string target = ServerFolder(m_place.server);
    if (!LiesAtServerRoot(m_place.fileExtension)) {
        std::string signType;
        if (!FindSignType("Incorrect sign type specified", signType))
            return false;
        target = signType + m_place.library + ".Lib\\";
        if (m_place.library.empty() && !FindLibrary(signType, m_clipboard.library, target))
            return false;
    }
    CopyNames(m_clipboard.files, m_clipboard.sourcePath, target);
    EmptyAfterCut();
    return true;
}

bool FilePaste::PasteFolder() {
    std::string target;
    if (!FindSignType("Incorrect sign type specified.", target))
        return false;
    const std::string source = SignTypeFolder(m_clipboard.server, m_clipboard.signType);
    const bool isDone =
        m_clipboard.library.empty() ? PasteSignType(source, target) : PasteLibrary(source, target);
    if (!isDone)
        return false;
    m_clipboard.sourcePath.clear();
    EmptyAfterCut();
    return true;
}

bool FilePaste::PasteSignType(const std::string& source, const std::string& target) {
    if (!m_place.library.empty()) {
        Say("Invalid library");
        return false;
    }
    for (const std::string& library : LibrariesIn(source)) {
        m_clipboard.library = library;
        std::string libraryTarget;
        if (!FindLibrary(target, library, libraryTarget))
            return false;
        const std::string librarySource = source + library + ".Lib\\";
        CopyFolder(librarySource, libraryTarget);
        RemoveMoved(librarySource, libraryTarget);
    }
    RemoveMoved(source, target);
    return true;
}

bool FilePaste::PasteLibrary(const std::string& source, std::string target) {
    const std::string library = m_clipboard.library + ".Lib\\";
    if (m_place.library.empty()) {
        std::string found;
        if (!FindLibrary(target, m_clipboard.library, found))
            return false;
    } else if (!IsSameWithoutCase(m_place.library, m_clipboard.library)) {
        Say("Incorrect Library Specified");
        return false;
    }
    target += library;
    CopyFolder(source + library, target);
    RemoveMoved(source + library, target);
    return true;
}

// Copying ------------------------------------------------------------------------------------

void FilePaste::CopyFolder(const std::string& source, const std::string& target) {
    std::vector<std::string> names;
    FindNames(names, source + "*.*", 0);
    CopyNames(names, source, target);
}

void FilePaste::CopyNames(const std::vector<std::string>& names, const std::string& source,
                          const std::string& target) {
    std::vector<Item> items;
    std::vector<std::string> sources;
    for (const std::string& name : names) {
        if (source + name == target + name || !IsNameOfOneEntry(name))
            continue;
        items.push_back({source + name, target + name});
        sources.push_back(source + name);
        if (m_clipboard.cutPending)
            items.back().before = Store().IdentityOf(items.back().target);
    }
    if (items.empty())
        return;
    // Without its folder a single file would be copied under the folder's name.
    if (!IsFolder(target) || !k4cmnCopyFile(sources, target))
        Say("Paste failed");
    else if (m_clipboard.cutPending)
        DeleteMoved(items);
}

void FilePaste::DeleteMoved(std::vector<Item>& items) {
    std::map<std::string, int> arrivals;
    for (Item& item : items) {
        item.after = Store().IdentityOf(item.target);
        ++arrivals[item.after];
    }
    for (const Item& item : items) {
        if (!Store().GetStatus(item.target, nullptr)) {
            Say("Paste failed");
            continue;
        }
        const bool isShared = !item.after.empty() && arrivals[item.after] > 1;
        if (!isShared && HasArrived(item) && !Provided<Shell>::Current().DeleteFile(item.source))
            Say("Paste failed");
    }
}

/// Whether what lies at the target is the file of the source, and not one that was there before or
/// that somebody has written since. A source that is gone counts as arrived.
bool FilePaste::HasArrived(const Item& item) {
    if (!item.after.empty() && item.after == item.before)
        return false;
    FileStatus from;
    FileStatus to;
    if (!Store().GetStatus(item.source, &from))
        return true;
    return Store().GetStatus(item.target, &to) && LooksTheSame(from, to);
}

void FilePaste::RemoveMoved(const std::string& source, const std::string& target) {
    if (m_clipboard.cutPending && source != target && !IsSameEntry(source, target) &&
        !Store().RemoveFolder(source))
        Say("Error removing Library");
}

void FilePaste::EmptyAfterCut() {
    if (m_clipboard.cutPending)
        m_clipboard = FileClipboard();
}

}  // namespace k4cmn
