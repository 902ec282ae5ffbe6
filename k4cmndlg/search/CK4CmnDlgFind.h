#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "k4cmndlg/frame/CPropertySheet.h"
#include "k4cmndlg/k4cmndlg_export.h"

class QMenu;
class QPushButton;

namespace k4cmn {
class FindParts;
}

/// The dialog "Find Files": looks for files of the store by name, keywords, sign, size and time,
/// and lists what it finds. A search in "New" mode goes through the store; one in "Previous" mode
/// narrows what is listed. A double click on a row ends the dialog with that file.
///
/// The list appears at the first search. Its context menu shows the properties of the selected
/// sequence (the sheet stays and follows the selection), deletes and prints the file, and prints
/// the list. What is listed stands until the next search, whatever becomes of the files meanwhile.
///
///     Enter in a page    Find            Enter on a row      chooses it, as a double click does
///     Delete             the file        Alt+Return          its properties
///     Menu, Shift+F10    the menu        Escape              Cancel
///
/// Deleting goes by the place, name and type that were taken over: a script counts as one at its
/// server's root, and rows go by their names alone. Files of a type that the search doesn't know
/// can't be deleted, printed or looked at.
///
/// Places, in pixels. The buttons stand in a strip right of the pages, 10 from the window's right
/// edge, the first one their height and 4 from its top, 2 apart; they have the size of a sheet's OK
/// button or, where the font needs more, of the largest of them. The list begins 5 from the left
/// edge and ends 10 from the right one and 30 from the bottom. What the window becomes higher by is
/// the list's.
///
/// Window messages it understands: WM_COMMAND with k4cmn::kFindCommand presses Find;
/// WM_GET_LIST_FILE takes the selected row over once more.
///
/// Use:
///
///     CK4CmnDlgFind dialog("Find Files", this, 0);
///     dialog.SetSearchPath(path);
///     dialog.SetFileType(0);
///     if (dialog.DoModal() == IDOK)
///         Open(dialog.GetSearchPath(), dialog.GetFileSel(), dialog.GetFileType());
///
/// Ownership: the caller's; the parent isn't owned. The dialog may be deleted or ended while one of
/// its messages is shown. Threads: the user interface thread.
class K4CMNDLG_EXPORT CK4CmnDlgFind final : public CPropertySheet {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CK4CmnDlgFind)

 public:
    /// @param captionId resource number of the title. @param parent may be null.
    /// @param firstPage has no effect: the page "Name" is in front.
    CK4CmnDlgFind(std::uint32_t captionId, QWidget* parent, int firstPage = 0);
    /// @param caption the title.
    CK4CmnDlgFind(const char* caption, QWidget* parent, int firstPage = 0);
    ~CK4CmnDlgFind() override;

    // Before the dialog runs.
    void SetServer(const std::string& server);
    void SetSignType(const std::string& signType);
    void SetLibrary(const std::string& library);
    /// @param type an index in k4cmn::kSearchExtensions.
    void SetFileType(int type);
    /// Takes a path apart into the place to search, and shows it in "Look in:". The file type
    /// becomes that of the path, if it has a known one.
    void SetSearchPath(const std::string& path);

    // After it has ended: the row that was selected last.
    const std::string& GetServer() const;
    const std::string& GetSignType() const;
    const std::string& GetLibrary() const;
    /// The name of the chosen file without its extension; empty for none.
    const std::string& GetFileSel() const;
    /// The file type of the chosen file; -1 for one out of the list of types, and for none.
    int GetFileType() const;
    /// The folder of the chosen file, with '\' at its end; empty without a server.
    std::string GetSearchPath() const;

    /// Runs the dialog with the library's own texts in force, and gives the application its own
    /// back afterwards.
    int DoModal() override;

 protected:
    int OnInitDialog() override;
    void OnDestroy() override;
    std::intptr_t OnWindowMessage(std::uint32_t message, std::uintptr_t wParam,
                                  std::intptr_t lParam) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

 private:
    void SetUp();
    bool IsInPage(const QWidget* control) const;
    void OnFind();

    // The controls.
    void MakeControls();
    void PlaceControls();
    QSize ButtonSize() const;
    void MakeList();
    void RemoveList();
    void StayOnScreen();

    // The list.
    void OnSelectionChanged();
    void OnDoubleClick();
    void OnSortColumn(int column);
    void FollowSelection();

    // The context menu.
    struct MenuEntry;
    static const MenuEntry kMenu[];
    void SetUpKeys();
    void OpenMenu(const QPoint& where);
    bool IsEnabled(const MenuEntry& entry) const;
    void Choose(const MenuEntry& entry);
    void OnPopupProperties();
    void OnPopupDelete();
    void OnPopupPrint();
    void OnPopupPrintFileList();

    std::shared_ptr<k4cmn::FindParts> m_parts;
    QPushButton* m_standardOk = nullptr;  ///< gives the buttons their size and font
    QMenu* m_menu = nullptr;              ///< made when it is first asked for
    int m_below = 0;                      ///< the room below the pages without the list
    int m_listGap = 0;                    ///< between pages and list
};
