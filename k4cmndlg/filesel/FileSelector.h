#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "k4cmndlg/filesel/FileClipboard.h"
#include "k4cmndlg/filesel/FileMenu.h"
#include "k4cmndlg/filesel/FileRows.h"
#include "k4cmndlg/filesel/FileSelectorView.h"
#include "k4cmndlg/filesel/FileTree.h"
#include "k4cmndlg/filesel/OkDecision.h"
#include "k4cmndlg/filesel/RemoteEntries.h"
#include "k4cmndlg/filestore/FileLocation.h"
#include "k4cmndlg/filestore/FileTypes.h"
#include "k4cmndlg/filestore/SignTypes.h"
#include "k4cmndlg/frame/Prompt.h"
#include "k4cmndlg/frame/contracts/Programs.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// What the search dialog ended with.
struct FoundFile {
    std::string server;
    std::string signType;
    std::string library;
    std::string file;
    tag_K4_FILE_TYPE type = K4_FILE_TYPE_ALL;
};

/// Whether the dialog is over.
enum class SelectorEnd : std::uint8_t { Stay, Ok };

/// The file selection dialog without its window: which files it shows, what is selected, what each
/// button and menu entry does. The window shows what FileSelectorView is told, and calls one
/// operation for each thing a person does.
///
/// The registry's keys are those of FileLocation.h and "Tree Right Edge".
///
/// Operations with an int result give 1 for success and 0 for failure. One thread: the window's.
class K4CMNCORE_EXPORT FileSelector {
 public:
    /// Reads the last place, or takes the given one. Without the key in the registry there is no
    /// requested path, also not the given one: on purpose.
    /// @param path    null: the last place.
    /// @param entries the connected phone book entries; must outlive the object. Null: those of the
    ///                remote service.
    explicit FileSelector(const char* path = nullptr, ConnectedEntries* entries = nullptr);
    ~FileSelector();
    FileSelector(const FileSelector&) = delete;
    FileSelector& operator=(const FileSelector&) = delete;

    /// The window; must outlive the object. Before it is set nothing may be called but the setters
    /// that follow.
    void SetView(FileSelectorView& view);

    // Before opening.
    void SetMode(tag_K4_FILE_MODE mode) { m_requestedMode = mode; }
    void SetType(tag_K4_FILE_TYPE type) { m_requestedType = type; }
    void SetPath(const std::string& path) { m_requestedPath = path; }
    void SetShowSignDirOnly(int only) { m_tree.filter.onlyCurrent = only != 0; }
    /// Checks a size with a message for each broken rule, and stores it if none is broken. The rule
    /// for multiples of columns looks at the columns stored so far, on purpose: wrong new ones are
    /// found on opening. Empties the requested path if it doesn't hold the sign type's text.
    int SetSignParams(std::uint32_t rows, std::uint32_t columns, tag_K4_SIGN_COLOR color,
                      tag_K4_PIXEL_TECH pixel, int palette, Prompt& prompt);
    /// Takes "Pre&view" out of the context menu.
    void DeletePreviewMenuItem() { m_hasPreviewEntry = false; }
    bool HasPreviewEntry() const { return m_hasPreviewEntry; }

    /// Opens the dialog: what is requested counts from here on.
    void Open(Prompt& prompt);

    // The tree.
    FileTree& Tree() { return m_tree; }
    int GetTreeSelections();
    /// Rebuilds the tree and selects a place; the values are copied, since they may be the
    /// selector's own.
    void FillTreeListCtrls(std::string server, std::string signType, std::string library,
                           std::string file);
    void UpOneLevel();
    void ToggleSignFilter();

    // The list.
    const FileRows& Rows() const { return m_rows; }
    int ShowFilesList();
    /// Takes over the first selected row as File.
    int GetListFile();
    /// What follows each change of the selected rows.
    void ListChanged();
    /// A click on a column's heading. The selection stays at its positions, and File becomes that
    /// of the first of them.
    void ClickColumn(int column);
    /// Another entry of the combo box "File Types:".
    void FileTypeChanged();
    int GetFileSelection();
    int GetExtSelection();

    // Ends.
    SelectorEnd PressOk(Prompt& prompt);
    /// Cancel, in whichever way: empties the result.
    void Cancel() { m_result.clear(); }
    /// A double-click on a row.
    SelectorEnd DoubleClick(Prompt& prompt);
    /// What the dialog gives: a path, or the empty text.
    const std::string& Result() const { return m_result; }
    /// After OK: the full paths of all rows taken.
    const std::vector<std::string>& SelectedFiles() const { return m_selectedFiles; }

    // The search dialog: what it is given, and what follows.
    tag_K4_FILE_TYPE SearchType() const;
    /// A file that was found is taken as if its name had been typed at its place, and OK pressed;
    /// its type isn't taken over, but refused where another one is requested.
    /// @param found null where it ended without OK.
    SelectorEnd AfterSearch(const FoundFile* found, Prompt& prompt);

    // The context menu.
    /// What is enabled; selects `item` first if the click was on one.
    FileMenuState OpenMenu(FileTreeItem* item);
    /// What is enabled for the keys of the menu's entries. They read what opening it reads, but
    /// leave a typed name where no row is selected.
    FileMenuState MenuByKey();
    void Copy();
    void Cut();
    void Paste(Prompt& prompt);
    void StartRename();
    /// The end of editing a row's label. The text isn't checked; one that leads to another folder
    /// fails like any that the file system refuses, and no file is replaced.
    /// @param file the row's file, and where it lies: meanwhile another place may be selected.
    void Renamed(const FileLocation& file, const std::string& text, Prompt& prompt);
    void Delete();
    /// A name that leads to another folder fails like any that the file system refuses.
    void CreateLibrary(Prompt& prompt);
    void RemoveLibrary(Prompt& prompt);
    void Print(Prompt& prompt);
    /// The sequence that the properties sheet is to show; nothing where the button does nothing.
    std::optional<std::string> PropertiesPath() const;
    /// Passes the selected sequence on to the preview application, and starts it unless it still
    /// runs: then it sees the new request by itself.
    void Preview(Prompt& prompt);

    // The place of the splitter, which is kept.
    std::uint32_t TreeRightEdge() const { return m_treeRightEdge; }
    void SetTreeRightEdge(std::uint32_t edge) { m_treeRightEdge = edge; }
    void SaveTreeRightEdge() const;

    const FileLocation& Place() const { return m_place; }
    const FileClipboard& Clipboard() const { return m_clipboard; }
    tag_K4_FILE_MODE Mode() const { return m_mode; }
    const std::vector<std::string>& Extensions() const { return m_extensions; }
    const std::string& RequestedPath() const { return m_requestedPath; }
    /// File "." File Extension of the last GetFileSelection().
    const std::string& FileWithExtension() const { return m_fileWithExtension; }
    const std::string& PreviewPath() const { return m_previewPath; }
    int SortAscending() const { return m_sortAscending; }

 private:
    class TreeWatch;

    void ReadRegistry(const char* path);
    void SaveRegistry() const;
    void RebuildExtensions();
    void StartFilter(Prompt& prompt);
    int ReadControls();
    FileSelectorFields Fields() const;
    void SelectNamedRow(const std::string& file);
    std::string ComposeResult();
    std::string FolderResult() const;
    SelectorEnd AfterAnswer(OkStep asked, Prompt& prompt);
    void TakeSelectedRows();
    void ClearRows();
    std::vector<std::string> SelectedNames();
    void RefillLibraries();
    FileMenuState MenuState(bool isRowSelected) const;

    FileSelectorView* m_view = nullptr;
    std::unique_ptr<TreeWatch> m_watch;
    RemoteEntries m_remoteEntries;
    FileTree m_tree;
    FileRows m_rows;
    FileClipboard m_clipboard;

    FileLocation m_place;
    int m_fileTypeIndex = 0;
    int m_lastModifiedIndex = -1;
    int m_sortAscending = 1;
    std::vector<std::string> m_extensions;
    std::string m_fileWithExtension;
    std::string m_result;
    std::vector<std::string> m_selectedFiles;
    std::string m_previewPath;
    std::unique_ptr<RunningProgram> m_previewProcess;  ///< the one started last
    std::uint32_t m_treeRightEdge = 0;
    tag_K4_FILE_MODE m_mode = K4_FILE_OPEN;
    bool m_hasPreviewEntry = true;

    tag_K4_FILE_MODE m_requestedMode = K4_FILE_OPEN;
    tag_K4_FILE_TYPE m_requestedType = kDefaultFileType;
    std::string m_requestedPath;
    std::uint32_t m_signRows = 7;
    std::uint32_t m_signColumns = 16;
    tag_K4_SIGN_COLOR m_signColor = K4_SIGN_COLOR_MONO1;
    tag_K4_PIXEL_TECH m_signPixel = K4_PIXEL_TECH_INCAND;
};

}  // namespace k4cmn
