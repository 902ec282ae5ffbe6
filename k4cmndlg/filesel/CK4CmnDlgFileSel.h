#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "k4cmndlg/filesel/FileListOwner.h"
#include "k4cmndlg/filesel/FileMenu.h"
#include "k4cmndlg/filesel/OkDecision.h"
#include "k4cmndlg/filestore/FileTypes.h"
#include "k4cmndlg/filestore/SignTypes.h"
#include "k4cmndlg/frame/CK4CmnDlgBase.h"
#include "k4cmndlg/k4cmndlg_export.h"

namespace k4cmn {
class FileTreeItem;
enum class SelectorEnd : std::uint8_t;
struct FileSelParts;
}  // namespace k4cmn

/// The dialog "Select File", through which every application picks, names and manages files of the
/// sign file store: on the left the tree of servers, sign types and libraries, on the right the
/// files of the place that is selected. By its mode it opens, makes or saves a file, picks a file
/// or a folder, or is the file manager "K4File".
///
/// It comes back to the last place, file and type that were taken, which the user's registry keeps
/// with the width of the tree. Files are cut, copied, pasted, renamed, deleted, previewed and
/// printed, libraries and sign folders made, by the context menu of tree and list or its keys:
///
///     Ctrl+X, Ctrl+C, Ctrl+V    cut, copy, paste            F5               refresh
///     F2, Delete                rename, delete (list)       Alt+Return       properties
///     Backspace, Alt+Up         up one level                Menu, Shift+F10  the context menu
///
/// "Advanced File Search" opens CK4CmnDlgFind, which looks for a file in the whole store; the one
/// that was found is taken at once.
///
/// The properties sheet stands beside the dialog and follows the list. When the dialog ends, the
/// sheet is closed as by its own OK.
///
/// Window messages it understands: WM_SHOW_FILES_LIST repeats ShowFilesList(), WM_GET_LIST_FILE
/// repeats GetListFile(), and WM_COMMAND with 1009 opens the context menu without a click.
///
/// Use:
///
///     CK4CmnDlgFileSel dialog(0, nullptr, this);
///     dialog.SetMode(K4_FILE_SAVE_AS);
///     dialog.SetType(K4_FILE_TYPE_SEQUENCE);
///     const std::string path = dialog.DoFileSelection();
///
/// Ownership: the caller's; the parent isn't owned. The dialog may be deleted or ended while one of
/// its messages is shown. Threads: the user interface thread.
class K4CMNDLG_EXPORT CK4CmnDlgFileSel final : public CK4CmnDlgBase, public k4cmn::FileListOwner {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CK4CmnDlgFileSel)

 public:
    /// @param mode has no effect: opening sets the mode that SetMode() asked for.
    /// @param path where to begin, a path of the store; null for the last place. Where the registry
    ///             knows no last place, a path that is given here is dropped too.
    /// @param parent may be null.
    explicit CK4CmnDlgFileSel(unsigned long mode = 0, const char* path = nullptr,
                              QWidget* parent = nullptr);
    ~CK4CmnDlgFileSel() override;

    // Before opening.
    /// What the dialog is for; at first K4_FILE_OPEN.
    void SetMode(tag_K4_FILE_MODE mode);
    /// Which files it offers; at first K4_FILE_TYPE_ALL.
    void SetType(tag_K4_FILE_TYPE type);
    /// Where to begin, instead of the last place and of the constructor's path.
    void SetPath(const std::string& path);
    /// Whether (1) the dialog opens with "Show Only Current Sign Type" pressed.
    void SetShowSignDirOnly(int only);
    /// Checks a sign's size and technologies, with a message for each rule that is broken, and
    /// stores them for the filter if none is. A requested path that doesn't hold the text of that
    /// sign type is emptied.
    /// @param rows 7 to 2048, and 7 or a multiple of 8. @param cols 16 to 16384, a multiple of 8;
    ///        tested is the number stored so far, and what was stored is tested when the dialog
    ///        opens. At most 8388608 lamps in all. @param palette 1 for the palette's sign type.
    /// @return 1, or 0 with nothing stored.
    int SetSignParams(std::uint32_t rows, std::uint32_t cols, tag_K4_SIGN_COLOR color,
                      tag_K4_PIXEL_TECH pixel, int palette);
    /// Does nothing; it stays for the applications that call it.
    void SetDialogMode(int mode);
    /// Takes "Pre&view" out of the context menu.
    void DeletePreviewMenuItem();

    /// Runs the dialog as a modal one.
    /// @return the full path that was taken; in mode K4_FILE_PICK also that of a folder. Empty
    /// where the dialog ended without one, or was cancelled.
    std::string DoFileSelection();
    /// After OK: the full paths of all rows taken, the result first.
    std::vector<std::string> GetSelectedFiles() const;

    /// Fills the list anew. @return 1, or 0 with an empty list if the selection isn't complete.
    int ShowFilesList() override;
    /// Takes over the first selected row as the file. @return 1, or 0 if no row is selected.
    int GetListFile() override;
    /// Opens the properties sheet of the selected sequence; other files have none.
    void PropertiesButtonPressed() override;

 protected:
    int OnCreate() override;
    int OnInitDialog() override;
    void OnDestroy() override;
    void DoDataExchange(CDataExchange* pDX) override;
    void OnOK() override;
    void OnCancel() override;
    int OnContextMenu(QWidget* window, const QPoint& point) override;
    std::intptr_t OnWindowMessage(std::uint32_t message, std::uintptr_t wParam,
                                  std::intptr_t lParam) override;

 private:
    void SetUpControls();
    void SetUpTreeAndList();
    void SetUpKeys();
    void End(k4cmn::SelectorEnd end);
    void OnViewChosen(bool details);
    void OnUpDir();
    void OnFileselRadioSign();
    void OnFileselSearch();
    void OnSortColumn(int column);
    void OnDoubleClick();
    void OnRenamed(std::size_t row, const QString& text);

    // The context menu.
    void OnFileOptions();
    void OpenMenu(k4cmn::FileTreeItem* item, const QPoint& where);
    void OpenMenuByKey();
    void RunByKey(k4cmn::FileCommand command);
    void Run(k4cmn::FileCommand command);
    void OnFileselSeqPreview();
    void OnPopupCut();
    void OnPopupCopy();
    void OnPopupPaste();
    void OnPopupRename();
    void OnPopupDelete();
    void OnPopupCreateLibrary();
    void OnPopupRemoveLibrary();
    void OnPopupCreateSignFolder();
    void OnPopupPrint();
    void OnPopupPrintFileList();
    void OnFileselRadioPreview();

    std::shared_ptr<k4cmn::FileSelParts> m_parts;
};
