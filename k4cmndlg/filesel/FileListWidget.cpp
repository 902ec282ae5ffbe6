#include "k4cmndlg/filesel/FileListWidget.h"

#include <QEvent>
#include <QHeaderView>
#include <memory>

#include "k4cmndlg/filelist/FileNamesView.h"
#include "k4cmndlg/filelist/FileReportView.h"
#include "k4cmndlg/filelist/LabelDelegate.h"
#include "k4cmndlg/filelist/ListLooks.h"
#include "k4cmndlg/filelist/RowSelection.h"
#include "k4cmndlg/filesel/FileListModel.h"

namespace k4cmn {

FileListWidget::FileListWidget(QWidget* parent)
    : QStackedWidget(parent),
      m_model(new FileListModel(this)),
      m_selection(new RowSelection(m_model, this)),
      m_report(new FileReportView(this)),
      m_names(new FileNamesView(this)),
      m_reportLabels(SetUp(*m_report)),
      m_namesLabels(SetUp(*m_names)) {
    setFocusProxy(m_report);
    connect(m_report->header(), &QHeaderView::sectionClicked, this, [this](int column) {
        // Whose label is edited, that would be another row afterwards.
        m_report->setFocus();
        Q_EMIT HeadingClicked(column);
    });
    connect(m_selection, &QItemSelectionModel::selectionChanged, this, [this] {
        if (!m_isReplacing)
            Q_EMIT SelectionChanged();
    });
}

FileListWidget::~FileListWidget() = default;

LabelDelegate* FileListWidget::SetUp(QAbstractItemView& view) {
    view.setModel(m_model);
    const std::unique_ptr<QItemSelectionModel> own(view.selectionModel());
    view.setSelectionModel(m_selection);
    view.setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::SelectedClicked);
    view.setAccessibleName(tr("Files"));
    auto* const labels = new LabelDelegate(&view);
    connect(labels, &LabelDelegate::LabelEdited, this, [this](int row, const QString& text) {
        Q_EMIT LabelEdited(static_cast<std::size_t>(row), text);
    });
    connect(&view, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex& index) {
        Q_EMIT RowDoubleClicked(static_cast<std::size_t>(index.row()));
    });
    addWidget(&view);
    return labels;
}

QAbstractItemView& FileListWidget::Shown() const {
    if (ShowsDetails())
        return *m_report;
    return *m_names;
}

// Rows and columns ---------------------------------------------------------------------------

void FileListWidget::SetRows(const FileRows* rows) {
    m_isReplacing = true;
    m_model->SetRows(rows);
    m_isReplacing = false;
}

void FileListWidget::SetImages(const FileImages& images) {
    m_model->SetImages(images);
}

void FileListWidget::RowsChanged(bool withColumns) {
    m_reportLabels->Leave();
    m_namesLabels->Leave();
    m_isReplacing = true;
    if (withColumns) {
        m_model->MakeColumns();
        ShapeColumns(*m_report->header());
    }
    m_model->RowsChanged();
    m_isReplacing = false;
}

void FileListWidget::changeEvent(QEvent* event) {
    QStackedWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        ShapeColumns(*m_report->header());
}

// Selection ----------------------------------------------------------------------------------

std::vector<std::size_t> FileListWidget::SelectedRows() const {
    return m_selection->Rows();
}

void FileListWidget::SelectRow(std::size_t row) {
    const QModelIndex index = m_model->index(static_cast<int>(row), 0);
    if (!index.isValid())
        return;
    Shown().scrollTo(index);
    m_selection->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
}

// Labels -------------------------------------------------------------------------------------

void FileListWidget::EditRow(std::size_t row) {
    const QModelIndex index = m_model->index(static_cast<int>(row), 0);
    if (!index.isValid())
        return;
    m_selection->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    Shown().scrollTo(index);
    if (ShowsDetails())
        m_report->EditLabel(index);
    else
        m_names->EditLabel(index);
}

RowLabelSize FileListWidget::FirstLabelSize() const {
    return k4cmn::FirstLabelSize(Shown());
}

// Views --------------------------------------------------------------------------------------

void FileListWidget::ShowDetails(bool details) {
    QAbstractItemView* const before = &Shown();
    QAbstractItemView* const view = details ? static_cast<QAbstractItemView*>(m_report) : m_names;
    if (view == before)
        return;
    const bool hadFocus = before->hasFocus() || before->isAncestorOf(focusWidget());
    setCurrentWidget(view);
    setFocusProxy(view);
    if (hadFocus)
        view->setFocus();
    view->scrollTo(m_selection->currentIndex());
}

bool FileListWidget::ShowsDetails() const {
    return currentWidget() == m_report;
}

}  // namespace k4cmn
