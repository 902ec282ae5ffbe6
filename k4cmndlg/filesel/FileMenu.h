#pragma once

#include <array>
#include <string>

#include "k4cmndlg/filesel/FileClipboard.h"
#include "k4cmndlg/filestore/FileLocation.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// The commands of the context menu, in its order.
enum class FileCommand {
    Preview,
    Cut,
    Copy,
    Paste,
    Rename,
    Delete,
    CreateLibrary,
    RemoveLibrary,
    CreateSignFolder,
    Print,
    PrintFileList,
    Properties,
    Count
};

/// An entry of the context menu.
struct FileMenuEntry {
    FileCommand command;
    const char* text;
    const char* toolText;  ///< empty for none
    bool isGroupEnd;       ///< a separator follows
};

inline constexpr std::array<FileMenuEntry, static_cast<std::size_t>(FileCommand::Count)> kFileMenu{{
    {FileCommand::Preview, "Pre&view", "Preview the Sequence", true},
    {FileCommand::Cut, "Cu&t", "Cut selected file\nCut file", false},
    {FileCommand::Copy, "&Copy", "Copy selected file\nCopy file", false},
    {FileCommand::Paste, "&Paste", "Paste file\nPaste file", false},
    {FileCommand::Rename, "Re&name", "", false},
    {FileCommand::Delete, "&Delete", "", true},
    {FileCommand::CreateLibrary, "Cre&ate Library...", "", false},
    {FileCommand::RemoveLibrary, "&Remove Library", "", false},
    {FileCommand::CreateSignFolder, "Create &Sign Folder...", "", false},
    {FileCommand::Print, "Pr&int...", "", false},
    {FileCommand::PrintFileList, "Print &File List", "", true},
    {FileCommand::Properties, "Pr&operties", "", false},
}};

/// How far from the window's top left corner the menu opens without a click, in both directions.
inline constexpr int kMenuOffset = 200;

/// What the context menu's entries depend on.
struct FileMenuSituation {
    FileLocation place;  ///< of the tree's selection, and the file type's extension
    FileClipboard clipboard;
    bool isRowSelected = false;
    bool hasPreviewEntry = true;  ///< else "Pre&view" isn't in the menu
};

/// Which entries are enabled.
class K4CMNCORE_EXPORT FileMenuState {
 public:
    explicit FileMenuState(const FileMenuSituation& situation);

    bool IsEnabled(FileCommand command) const {
        return m_isEnabled[static_cast<std::size_t>(command)];
    }

 private:
    void Enable(FileCommand command, bool isEnabled) {
        m_isEnabled[static_cast<std::size_t>(command)] = isEnabled;
    }

    std::array<bool, static_cast<std::size_t>(FileCommand::Count)> m_isEnabled{};
};

}  // namespace k4cmn
