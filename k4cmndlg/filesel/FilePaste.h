#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "k4cmndlg/filesel/FileClipboard.h"
#include "k4cmndlg/filestore/FileLocation.h"
#include "k4cmndlg/frame/Prompt.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// Pastes what the dialog's clipboard holds to a place: files, a library, or a whole sign type with
/// its libraries. Copying goes through the installed Shell, which shows progress, asks before it
/// replaces a file, and can be cancelled between files; a file is there whole or not at all.
///
/// A message that ends a paste leaves the clipboard as it was, but for the library field while a
/// whole sign type is pasted: that names the library at work, and stays behind after a copy too, so
/// that the next paste is of that library alone.
///
/// Moving deletes a source only after its folder's copying went well, and only where the copy lies
/// at the target at that moment: not where the person kept the file that was to be replaced, where
/// the source was written anew or the copy taken away meanwhile, or where another source of the
/// paste has taken the copy's place (names that differ in case alone). A copy that isn't there
/// counts as a failed deletion. A name with a separator in it, which the store can't say, stays
/// where it is. A folder isn't removed where both paths lead to one folder.
///
/// Made for one paste, on the user interface thread, which it blocks.
class K4CMNCORE_EXPORT FilePaste {
 public:
    /// @param place     where to: server, sign type and library, each as selected or empty, and the
    ///                  file extension at work.
    /// @param clipboard changed as told above; a cut empties it.
    FilePaste(const FileLocation& place, FileClipboard& clipboard, Prompt& prompt);

    /// @return whether the paste went its way; false where a message ended it.
    bool Run();

 private:
    struct Item;

    bool PasteFiles();
    bool PasteFolder();
    bool PasteSignType(const std::string& source, const std::string& target);
    bool PasteLibrary(const std::string& source, std::string target);
    bool FindSignType(std::string_view wrongSignType, std::string& target);
    bool FindLibrary(const std::string& signTypeFolder, const std::string& library,
                     std::string& target);
    bool MakeAfterQuestion(const std::string& question, const std::string& folder,
                           const std::string& refused);
    void CopyFolder(const std::string& source, const std::string& target);
    void CopyNames(const std::vector<std::string>& names, const std::string& source,
                   const std::string& target);
    void DeleteMoved(std::vector<Item>& items);
    static bool HasArrived(const Item& item);
    void RemoveMoved(const std::string& source, const std::string& target);
    void EmptyAfterCut();
    void Say(std::string text);

    const FileLocation m_place;
    FileClipboard& m_clipboard;
    Prompt& m_prompt;
};

}  // namespace k4cmn
