#pragma once

#include <QMenu>
#include <QStackedWidget>
#include <memory>
#include <string>
#include <vector>

#include "k4cmndlg/filesel/FolderRows.h"
#include "k4cmndlg/filesel/SystemIcons.h"
#include "k4cmndlg/filestore/contracts/StoreAccess.h"
#include "k4cmndlg/k4cmndlg_export.h"

class QAbstractItemView;
class QActionGroup;
class QItemSelectionModel;

namespace k4cmn {
class FileNamesView;
class FileReportView;
class FolderListModel;
class RowSelection;
}  // namespace k4cmn

/// A list of the files of one folder that fills itself: with the system's icons, in four views,
/// with details of each file in one of them. A click on a heading sorts, and a menu of its own
/// offers the views and filling anew.
///
/// Use:
///
///     CK4CmnDlgFileListCtrl list(0, this);
///     list.InitializeListCtrl();                       // once the window around it stands
///     list.Refresh("A:\\16x80.Mono1.LED.Sign\\Default.Lib", "SQ4;SD4");
///
/// Two of the toolkit's views stand in it, one at a time: a tree view without branches for details,
/// a list view for the others. They share model and selection, whichever is shown.
///
/// The sizes and dates sort as the texts that they are. In the views without details the rows stand
/// in ascending order of their names, whatever was sorted before, and rows that are added then have
/// no details, until the list is filled anew in the view that shows them.
///
/// The menu opens by a right click beside all rows, and by the menu key. A right click on a row
/// goes on to the parent.
///
/// Ownership: the parent's. Threads: the user interface thread.
class K4CMNDLG_EXPORT CK4CmnDlgFileListCtrl : public QStackedWidget {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CK4CmnDlgFileListCtrl)

 public:
    /// @param viewMode 0 details, 1 list, 2 small icons, 3 large icons. Any other value shows large
    ///        icons, and "&Details" as the current entry of the menu.
    explicit CK4CmnDlgFileListCtrl(int viewMode, QWidget* parent = nullptr);
    ~CK4CmnDlgFileListCtrl() override;

    /// Makes columns, images, menu and view; to be called once, when the control has its size. A
    /// list that begins in another view than details gets its columns when it first shows them.
    /// @return 1, also where there are no system icons: then nothing was done.
    int InitializeListCtrl();
    /// Fills the list anew, sorted as it was sorted last, and remembers both arguments.
    /// @param folder a composed path. @param extensions between ";", case not counting; "*" stands
    ///        for all files, an empty text for none. Null counts as empty.
    /// @return 1, or 0 with an empty list if the folder can't be read.
    int Refresh(const char* folder, const char* extensions);
    /// Removes all rows. What Refresh() was given stays remembered.
    void DeleteAllItems();
    /// Shows another view. @param mode as in the constructor.
    void ChangeViewMode(int mode);

    /// The column sorted last: 0 name, 1 size, 2 type, 3 modified.
    int GetSortColumn() const { return m_rows.SortColumn(); }
    /// 1 if the last sort was ascending, else 0.
    int GetSortAscending() const { return m_rows.SortAscending(); }

    /// How many rows there are.
    int GetItemCount() const;
    /// The text of a row in a column; empty out of range.
    std::string GetItemText(int row, int column = 0) const;
    /// The paths of the selected rows, from the top.
    std::vector<std::string> GetSelectedPaths() const;
    /// The selection of both views; whole rows. Not null; owned by the control.
    QItemSelectionModel* SelectionModel() const;

 Q_SIGNALS:
    /// A row was double-clicked. @param path of its file.
    void FileDoubleClicked(const std::string& path);

 protected:
    /// Makes the four columns, each a quarter of the control's width.
    void AddColumns();
    /// Adds a file at the end, with details in the view that shows them; in the other views it
    /// comes to its place by name. @return its row, or -1 if its status can't be read.
    int AddItem(const std::string& path);
    /// Fills the columns beside the name of a row. @param path that of the row's file; the type is
    ///        told by it. @param row a row that there is; any other does nothing.
    void ShowFileDetails(const std::string& path, const k4cmn::FileStatus& status, int row);
    /// The index of a file's icon in the lists of icons.
    virtual int GetIconIndex(const std::string& path);
    /// 1 if the list has the extension, case not counting, or "*".
    int IsValidExt(const std::string& extension, const std::vector<std::string>& list) const;
    /// Sorts by a column in the present direction; what is selected stays so.
    void SortColumnEx(int column);

    /// A click on a heading: turns the direction, then sorts by that column.
    void OnColumnclick(int column);
    /// Opens the menu, with the entry of the present view checked.
    /// @param point on the screen.
    void OnContextMenu(const QPoint& point);
    void OnPopupViewDetails();
    void OnPopupViewLargeIcon();
    void OnPopupViewSmallIcon();
    void OnPopupViewList();
    /// Fills the list anew with what the last Refresh() was given.
    void OnPopupRefresh();

    void contextMenuEvent(QContextMenuEvent* event) override;

    /// The icons of all views but large icons, and of that one. The toolkit's icons have every
    /// size, so both are one list.
    std::shared_ptr<k4cmn::SystemIcons> m_smallImages;
    std::shared_ptr<k4cmn::SystemIcons> m_largeImages;
    /// What the menu shows; null before InitializeListCtrl().
    std::unique_ptr<QMenu> m_popupMenu;
    QMenu* m_viewMenu = nullptr;  ///< its "&View"; the menu owns it

 private:
    void SetUp(QAbstractItemView& view);
    QAbstractItemView& Shown() const;
    bool IsDetails() const;
    void BuildMenus();
    void OnCommand(int command);
    void ShowSortMark();

    k4cmn::FolderRows m_rows;
    k4cmn::FolderListModel* const m_model;
    k4cmn::RowSelection* const m_selection;
    k4cmn::FileReportView* const m_report;
    k4cmn::FileNamesView* const m_names;
    QActionGroup* m_views = nullptr;  ///< the entries of "&View"
    int m_viewMode;
    bool m_hasColumns = false;
};
