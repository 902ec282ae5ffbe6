#include "k4cmndlg/filesel/CK4CmnDlgFileListCtrl.h"

#include <QActionGroup>
#include <QContextMenuEvent>
#include <QHeaderView>

#include "k4cmndlg/filelist/FileNamesView.h"
#include "k4cmndlg/filelist/FileReportView.h"
#include "k4cmndlg/filelist/LabelDelegate.h"
#include "k4cmndlg/filelist/RowSelection.h"
#include "k4cmndlg/filesel/FolderListModel.h"
#include "k4cmndlg/frame/Text.h"

using k4cmn::FileNamesView;
using k4cmn::FolderRows;
using k4cmn::ListView;

CK4CmnDlgFileListCtrl::CK4CmnDlgFileListCtrl(int viewMode, QWidget* parent)
    : QStackedWidget(parent),
      m_smallImages(std::make_shared<k4cmn::SystemIcons>()),
      m_largeImages(m_smallImages),
      m_model(new k4cmn::FolderListModel(m_rows, this)),
      m_selection(new k4cmn::RowSelection(m_model, this)),
      m_report(new k4cmn::FileReportView(this)),
      m_names(new FileNamesView(this)),
      m_viewMode(viewMode) {
    SetUp(*m_report);
    SetUp(*m_names);
    setFocusProxy(m_report);
    m_report->header()->hide();
    ShowSortMark();
    connect(m_report->header(), &QHeaderView::sectionClicked, this,
            &CK4CmnDlgFileListCtrl::OnColumnclick);
}

CK4CmnDlgFileListCtrl::~CK4CmnDlgFileListCtrl() {
    // The views outlive the rows otherwise.
    delete m_report;
    delete m_names;
}

void CK4CmnDlgFileListCtrl::SetUp(QAbstractItemView& view) {
    view.setModel(m_model);
    const std::unique_ptr<QItemSelectionModel> own(view.selectionModel());
    view.setSelectionModel(m_selection);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setAccessibleName(tr("Files"));
    new k4cmn::LabelDelegate(&view);  // the view owns it
    connect(&view, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex& index) {
        Q_EMIT FileDoubleClicked(m_rows.Path(static_cast<std::size_t>(index.row())));
    });
    addWidget(&view);
}

QAbstractItemView& CK4CmnDlgFileListCtrl::Shown() const {
    if (currentWidget() == m_report)
        return *m_report;
    return *m_names;
}

bool CK4CmnDlgFileListCtrl::IsDetails() const {
    return k4cmn::ListViewOfMode(m_viewMode) == ListView::Details;
}

int CK4CmnDlgFileListCtrl::InitializeListCtrl() {
    if (!m_smallImages || !m_largeImages)
        return 1;
    if (IsDetails())
        AddColumns();
    m_model->imageOf = [this](const std::string& path) {
        const bool isLarge = k4cmn::ListViewOfMode(m_viewMode) == ListView::LargeIcons;
        return (isLarge ? m_largeImages : m_smallImages)->At(GetIconIndex(path));
    };
    BuildMenus();
    ChangeViewMode(m_viewMode);
    return 1;
}

void CK4CmnDlgFileListCtrl::AddColumns() {
    const int width = (this->width() - 2 * m_report->frameWidth()) / FolderRows::kColumnCount;
    for (int column = 0; column < FolderRows::kColumnCount; ++column)
        m_report->header()->resizeSection(column, width);
    m_report->header()->show();
    m_report->header()->setSortIndicatorShown(true);
    m_hasColumns = true;
}

// Rows ---------------------------------------------------------------------------------------

int CK4CmnDlgFileListCtrl::Refresh(const char* folder, const char* extensions) {
    int result = 0;
    m_model->Refill([&] {
        result = m_rows.Refresh(folder ? folder : "", extensions ? extensions : "", IsDetails());
        if (!IsDetails())
            m_rows.OrderByName();
    });
    ShowSortMark();
    return result;
}

int CK4CmnDlgFileListCtrl::AddItem(const std::string& path) {
    const int added = m_model->Append([&] { return m_rows.AddItem(path, IsDetails()); });
    if (added < 0 || IsDetails())
        return added;
    const QPersistentModelIndex row(m_model->index(added, 0));
    m_model->Reorder([this] { m_rows.OrderByName(); });
    return row.row();
}

void CK4CmnDlgFileListCtrl::DeleteAllItems() {
    m_model->Refill([this] { m_rows.Clear(); });
}

void CK4CmnDlgFileListCtrl::ShowFileDetails(const std::string&, const k4cmn::FileStatus& status,
                                            int row) {
    if (row < 0 || row >= GetItemCount())
        return;
    m_rows.ShowDetails(static_cast<std::size_t>(row), status);
    m_model->RowChanged(row);
}

int CK4CmnDlgFileListCtrl::GetIconIndex(const std::string& path) {
    return m_smallImages ? m_smallImages->IndexOf(path) : -1;
}

int CK4CmnDlgFileListCtrl::IsValidExt(const std::string& extension,
                                      const std::vector<std::string>& list) const {
    return FolderRows::IsValidExt(extension, list);
}

void CK4CmnDlgFileListCtrl::SortColumnEx(int column) {
    m_model->Reorder([&] { m_rows.SortColumnEx(column); });
    ShowSortMark();
}

void CK4CmnDlgFileListCtrl::OnColumnclick(int column) {
    m_model->Reorder([&] { m_rows.ClickColumn(column); });
    ShowSortMark();
}

void CK4CmnDlgFileListCtrl::ShowSortMark() {
    // The views without columns have an order of their own.
    const int column = IsDetails() ? GetSortColumn() : FolderRows::kName;
    const bool isAscending = !IsDetails() || GetSortAscending();
    m_report->header()->setSortIndicator(column,
                                         isAscending ? Qt::AscendingOrder : Qt::DescendingOrder);
}

int CK4CmnDlgFileListCtrl::GetItemCount() const {
    return static_cast<int>(m_rows.Count());
}

std::string CK4CmnDlgFileListCtrl::GetItemText(int row, int column) const {
    return row >= 0 && row < GetItemCount() ? m_rows.Text(static_cast<std::size_t>(row), column)
                                            : std::string();
}

std::vector<std::string> CK4CmnDlgFileListCtrl::GetSelectedPaths() const {
    std::vector<std::string> paths;
    for (const std::size_t row : m_selection->Rows())
        paths.push_back(m_rows.Path(row));
    return paths;
}

QItemSelectionModel* CK4CmnDlgFileListCtrl::SelectionModel() const {
    return m_selection;
}

// Views --------------------------------------------------------------------------------------

void CK4CmnDlgFileListCtrl::ChangeViewMode(int mode) {
    m_viewMode = mode;
    const bool hadFocus = Shown().hasFocus();
    switch (k4cmn::ListViewOfMode(mode)) {
        case ListView::Details:
            if (!m_hasColumns)
                AddColumns();
            break;
        case ListView::List:
            m_names->SetForm(FileNamesView::Form::Columns);
            break;
        case ListView::SmallIcons:
            m_names->SetForm(FileNamesView::Form::Rows);
            break;
        case ListView::LargeIcons:
            m_names->SetForm(FileNamesView::Form::LargeImages);
            break;
    }
    if (!IsDetails()) {
        m_model->Reorder([this] { m_rows.OrderByName(); });
        ShowSortMark();
    }
    setCurrentWidget(IsDetails() ? static_cast<QWidget*>(m_report) : m_names);
    setFocusProxy(&Shown());
    if (hadFocus)
        Shown().setFocus();
}

void CK4CmnDlgFileListCtrl::OnPopupViewDetails() {
    ChangeViewMode(static_cast<int>(ListView::Details));
}

void CK4CmnDlgFileListCtrl::OnPopupViewLargeIcon() {
    ChangeViewMode(static_cast<int>(ListView::LargeIcons));
}

void CK4CmnDlgFileListCtrl::OnPopupViewSmallIcon() {
    ChangeViewMode(static_cast<int>(ListView::SmallIcons));
}

void CK4CmnDlgFileListCtrl::OnPopupViewList() {
    ChangeViewMode(static_cast<int>(ListView::List));
}

void CK4CmnDlgFileListCtrl::OnPopupRefresh() {
    const std::string folder = m_rows.Folder();
    const std::string extensions = m_rows.Extensions();
    Refresh(folder.c_str(), extensions.c_str());
}

// The menu -----------------------------------------------------------------------------------

void CK4CmnDlgFileListCtrl::BuildMenus() {
    m_popupMenu = std::make_unique<QMenu>(this);
    m_viewMenu = m_popupMenu->addMenu(k4cmn::ToQt(k4cmn::kListViewMenuText));
    m_views = new QActionGroup(m_viewMenu);
    for (const k4cmn::ListViewEntry& entry : k4cmn::kListViewEntries) {
        QAction* const action = m_viewMenu->addAction(k4cmn::ToQt(entry.text));
        action->setCheckable(true);
        action->setData(entry.command);
        m_views->addAction(action);
    }
    m_popupMenu->addSeparator();
    m_popupMenu->addAction(k4cmn::ToQt(k4cmn::kListRefreshText))
        ->setData(k4cmn::kListRefreshCommand);
    connect(m_popupMenu.get(), &QMenu::triggered, this,
            [this](QAction* action) { OnCommand(action->data().toInt()); });
}

void CK4CmnDlgFileListCtrl::OnCommand(int command) {
    if (command == k4cmn::kListRefreshCommand)
        OnPopupRefresh();
    for (const k4cmn::ListViewEntry& entry : k4cmn::kListViewEntries) {
        if (entry.command != command)
            continue;
        switch (entry.view) {
            case ListView::Details:
                return OnPopupViewDetails();
            case ListView::List:
                return OnPopupViewList();
            case ListView::SmallIcons:
                return OnPopupViewSmallIcon();
            case ListView::LargeIcons:
                return OnPopupViewLargeIcon();
        }
    }
}

void CK4CmnDlgFileListCtrl::OnContextMenu(const QPoint& point) {
    if (!m_popupMenu)
        return;
    window()->activateWindow();
    for (QAction* action : m_views->actions())
        action->setChecked(action->data().toInt() == k4cmn::CheckedListViewCommand(m_viewMode));
    m_popupMenu->popup(point);
}

void CK4CmnDlgFileListCtrl::contextMenuEvent(QContextMenuEvent* event) {
    const QWidget& inside = *Shown().viewport();
    if (event->reason() == QContextMenuEvent::Keyboard) {
        OnContextMenu(inside.mapToGlobal(inside.rect().center()));
        return;
    }
    const QPoint point = inside.mapFromGlobal(event->globalPos());
    if (m_popupMenu && inside.rect().contains(point) && !Shown().indexAt(point).isValid())
        OnContextMenu(event->globalPos());
    else
        event->ignore();
}
