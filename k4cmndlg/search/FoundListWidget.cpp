#include "k4cmndlg/search/FoundListWidget.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QVBoxLayout>
#include <algorithm>
#include <memory>

#include "k4cmndlg/filelist/FileReportView.h"
#include "k4cmndlg/filelist/ListLooks.h"
#include "k4cmndlg/filelist/RowSelection.h"
#include "k4cmndlg/search/FoundListModel.h"

namespace k4cmn {

FoundListWidget::FoundListWidget(QWidget* parent)
    : QWidget(parent),
      m_model(new FoundListModel(this)),
      m_selection(new RowSelection(m_model, this)),
      m_report(new FileReportView(this)) {
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_report);
    setFocusProxy(m_report);
    setAccessibleName(tr("Found files"));
    SetUpView();
}

FoundListWidget::~FoundListWidget() = default;

void FoundListWidget::SetUpView() {
    m_report->setModel(m_model);
    const std::unique_ptr<QItemSelectionModel> own(m_report->selectionModel());
    m_report->setSelectionModel(m_selection);
    m_report->setSelectionMode(QAbstractItemView::SingleSelection);
    m_report->setEditTriggers(QAbstractItemView::NoEditTriggers);
    // Paths differ at their ends.
    m_report->setTextElideMode(Qt::ElideMiddle);
    m_report->setAccessibleName(accessibleName());
    ShapeColumns(*m_report->header());
    m_report->installEventFilter(this);
    m_report->viewport()->installEventFilter(this);
    connect(m_report->header(), &QHeaderView::sectionClicked, this, [this](int column) {
        m_report->setFocus();
        Q_EMIT HeadingClicked(column);
    });
    connect(m_selection, &QItemSelectionModel::selectionChanged, this, [this] {
        if (!m_isReplacing)
            Q_EMIT SelectionChanged();
    });
}

// Rows ---------------------------------------------------------------------------------------

void FoundListWidget::SetRows(const FoundRows* rows) {
    m_isReplacing = true;
    m_model->SetRows(rows);
    m_isReplacing = false;
}

void FoundListWidget::RowsChanged() {
    m_isReplacing = true;
    const int current = m_selection->currentIndex().row();
    m_model->RowsChanged();
    // Where a row has gone the arrow keys go on.
    const int last = m_model->rowCount() - 1;
    m_selection->setCurrentIndex(m_model->index(std::min(current, last), 0),
                                 QItemSelectionModel::NoUpdate);
    m_isReplacing = false;
}

std::optional<std::size_t> FoundListWidget::SelectedRow() const {
    const std::vector<std::size_t> rows = m_selection->Rows();
    return rows.empty() ? std::nullopt : std::optional(rows.front());
}

void FoundListWidget::SelectRow(std::size_t row) {
    const QModelIndex index = m_model->index(static_cast<int>(row), 0);
    if (!index.isValid())
        return;
    m_report->scrollTo(index);
    m_selection->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
}

// Looks --------------------------------------------------------------------------------------

RowLabelSize FoundListWidget::FirstLabelSize() const {
    return k4cmn::FirstLabelSize(*m_report);
}

void FoundListWidget::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        ShapeColumns(*m_report->header());
}

// Mouse and keys -----------------------------------------------------------------------------

bool FoundListWidget::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ContextMenu) {
        const auto& request = static_cast<QContextMenuEvent&>(*event);
        if (request.reason() == QContextMenuEvent::Keyboard)
            AskForMenuByKey();
        else if (watched == m_report->viewport())
            AskForMenu(m_report->indexAt(request.pos()), request.globalPos());
        return true;
    }
    if (watched == m_report && event->type() == QEvent::KeyPress)
        return TakeKey(static_cast<QKeyEvent&>(*event));
    if (watched == m_report->viewport())
        LookAtMouse(*event);
    return QWidget::eventFilter(watched, event);
}

bool FoundListWidget::TakeKey(const QKeyEvent& key) {
    const Qt::KeyboardModifiers modifiers = key.modifiers() & ~Qt::KeypadModifier;
    if (key.key() == Qt::Key_F10 && modifiers == Qt::ShiftModifier) {
        // The same request as that of the menu key, which not every platform makes of these keys.
        AskForMenuByKey();
        return true;
    }
    const bool isArrow = key.key() == Qt::Key_Up || key.key() == Qt::Key_Down;
    const QModelIndex current = m_selection->currentIndex();
    if (isArrow && modifiers == Qt::NoModifier && current.isValid() && !SelectedRow()) {
        SelectRow(static_cast<std::size_t>(current.row()));
        return true;
    }
    const bool isEnter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
    if (!isEnter || modifiers != Qt::NoModifier || !SelectedRow())
        return false;
    if (!key.isAutoRepeat())
        QMetaObject::invokeMethod(this, &FoundListWidget::Chosen, Qt::QueuedConnection);
    return true;
}

void FoundListWidget::LookAtMouse(const QEvent& event) {
    const bool isDouble = event.type() == QEvent::MouseButtonDblClick;
    if (!isDouble && event.type() != QEvent::MouseButtonPress)
        return;
    const auto& mouse = static_cast<const QMouseEvent&>(event);
    // The toolkit keeps the one row that is selected.
    if (!m_report->indexAt(mouse.position().toPoint()).isValid())
        m_selection->clearSelection();
    if (isDouble && mouse.button() == Qt::LeftButton)
        QMetaObject::invokeMethod(this, &FoundListWidget::DoubleClicked, Qt::QueuedConnection);
}

void FoundListWidget::AskForMenu(const QModelIndex& row, const QPoint& place) {
    if (!row.isValid())
        return;
    m_selection->setCurrentIndex(row, QItemSelectionModel::ClearAndSelect);
    Q_EMIT MenuRequested(place);
}

void FoundListWidget::AskForMenuByKey() {
    const std::optional<std::size_t> row = SelectedRow();
    if (!row)
        return;
    const QModelIndex index = m_model->index(static_cast<int>(*row), 0);
    m_report->scrollTo(index);
    const QPoint place = m_report->visualRect(index).center();
    AskForMenu(index, m_report->viewport()->mapToGlobal(place));
}

}  // namespace k4cmn
