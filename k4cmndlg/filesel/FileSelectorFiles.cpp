#include "k4cmndlg/filelist/FilePrinting.h"
#include "k4cmndlg/filesel/FileChanges.h"
#include "k4cmndlg/filesel/FilePaste.h"
#include "k4cmndlg/filesel/FileSelector.h"
#include "k4cmndlg/filestore/FileNameRules.h"
#include "k4cmndlg/filestore/StoreFolders.h"
#include "k4cmndlg/filestore/contracts/CK4Registry.h"
#include "k4cmndlg/frame/FileOperations.h"
#include "k4cmndlg/frame/contracts/Shell.h"

namespace k4cmn {

/// The selected rows as names with extension, from the top.
std::vector<std::string> FileSelector::SelectedNames() {
    std::vector<std::string> names;
    for (const std::size_t row : m_view->SelectedRows()) {
        if (row < m_rows.Rows().size())
            names.push_back(m_rows.Rows()[row].name + "." + m_place.fileExtension);
    }
    return names;
}

FileMenuState FileSelector::OpenMenu(FileTreeItem* item) {
    if (item)
        m_tree.Select(item);
    GetTreeSelections();
    return MenuState(GetListFile() != 0);
}

FileMenuState FileSelector::MenuByKey() {
    GetTreeSelections();
    return MenuState(!m_view->SelectedRows().empty() && GetListFile());
}

FileMenuState FileSelector::MenuState(bool isRowSelected) const {
    FileMenuSituation situation;
    situation.isRowSelected = isRowSelected;
    situation.place = m_place;
    situation.clipboard = m_clipboard;
    situation.hasPreviewEntry = m_hasPreviewEntry;
    return FileMenuState(situation);
}

// Clipboard ----------------------------------------------------------------------------------

void FileSelector::Copy() {
    GetTreeSelections();
    m_clipboard = CopiedFrom(m_place, SelectedNames());
}

void FileSelector::Cut() {
    Copy();
    m_clipboard.cutPending = true;
}

void FileSelector::Paste(Prompt& prompt) {
    m_view->Wait(true);
    GetTreeSelections();
    if (FilePaste(m_place, m_clipboard, prompt).Run())
        ShowFilesList();
    m_view->Wait(false);
}

// Files --------------------------------------------------------------------------------------

void FileSelector::StartRename() {
    const std::vector<std::size_t> selected = m_view->SelectedRows();
    if (!selected.empty())
        m_view->EditRow(selected.front());
}

void FileSelector::Renamed(const FileLocation& file, const std::string& text, Prompt& prompt) {
    if (RenameFile(file, text, prompt))
        ShowFilesList();
}

void FileSelector::Delete() {
    GetTreeSelections();
    std::vector<std::string> paths = SelectedNames();
    const std::string folder = FolderOfFiles(m_place);
    for (std::string& path : paths)
        path.insert(0, folder);
    if (!paths.empty())
        k4cmnDeleteFile(paths, FOF_ALLOWUNDO);
    ShowFilesList();
}

void FileSelector::Print(Prompt& prompt) {
    const bool isPlace = GetTreeSelections() != 0;
    const bool isFile = GetFileSelection() != 0;
    if (!isPlace || !isFile || !CanTakeOverFileName(m_place.file))
        return;
    PrintFile(LibraryFolder(m_place) + m_fileWithExtension, prompt);
}

std::optional<std::string> FileSelector::PropertiesPath() const {
    if (m_place.fileExtension != "SQ4" || m_place.file.empty())
        return std::nullopt;
    return m_place.Path();
}

void FileSelector::Preview(Prompt& prompt) {
    if (m_place.fileExtension == "SQ4")
        m_previewPath = m_place.Path();
    constexpr std::uint32_t show = 1;
    CK4Registry::SetPreviewOptions(m_previewPath, nullptr, nullptr, &show);
    if (m_previewProcess && m_previewProcess->IsRunning())
        return;
    std::string application;
    CK4Registry::GetExePath(application);
    application += "\\K4Prevu.exe";
    m_previewProcess = Provided<Programs>::Current().Start(application, SW_RESTORE);
    if (!m_previewProcess)
        prompt.Ask(PlainMessage("ERROR: Could not start " + application));
}

// Libraries ----------------------------------------------------------------------------------

void FileSelector::CreateLibrary(Prompt& prompt) {
    GetTreeSelections();
    if (m_place.server.empty() || m_place.signType.empty()) {
        prompt.Ask(PlainMessage("Must select server and sign type to create a library."));
        return;
    }
    const std::string folder = SignTypeFolder(m_place.server, m_place.signType);
    std::string name;
    while (m_view->AskLibraryName(m_place.server + "\\" + m_place.signType, name)) {
        const std::string path = folder + name + ".Lib";
        if (prompt.Ask({"Create Library: \n" + path + "?",
                        {},
                        MessageButtons::OkCancel,
                        MessageIcon::Question}) != MessageAnswer::Ok)
            continue;
        MakeLibrary(folder, name, prompt);
        RefillLibraries();
        ShowFilesList();
        return;
    }
}

void FileSelector::RemoveLibrary(Prompt& prompt) {
    GetTreeSelections();
    if (!k4cmn::RemoveLibrary(m_place, prompt))
        return;
    RefillLibraries();
    ShowFilesList();
}

/// Brings the libraries of the selected sign type, or of the selected library's, up to date.
void FileSelector::RefillLibraries() {
    FileTreeItem* const selected = m_tree.Selected();
    FileTreeItem* const above = selected ? selected->Parent() : nullptr;
    if (!above)
        return;
    m_tree.RefillLibraries(above->Parent() ? *above : *selected);
}

}  // namespace k4cmn
