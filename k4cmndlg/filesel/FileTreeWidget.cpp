#include "k4cmndlg/filesel/FileTreeWidget.h"

#include <QFocusEvent>
#include <QHeaderView>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>
#include <memory>
#include <utility>

#include "k4cmndlg/filelist/RowSelection.h"
#include "k4cmndlg/filesel/FileTreeModel.h"

namespace k4cmn {

namespace {

/// Counts up for the life of a scope.
class Scope {
 public:
    explicit Scope(int& count) : m_count(count) { ++m_count; }
    ~Scope() { --m_count; }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

 private:
    int& m_count;
};

/// Draws the marked item as the selected one of a tree that has the focus.
class MarkDelegate final : public QStyledItemDelegate {
 public:
    explicit MarkDelegate(FileTreeModel& model, QObject* parent)
        : QStyledItemDelegate(parent), m_model(model) {}

 protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        const FileTreeItem* const item = m_model.ItemOf(index);
        if (item && item == m_model.Tree()->Marked())
            option->state |= QStyle::State_Selected | QStyle::State_Active;
    }

 private:
    FileTreeModel& m_model;
};

}  // namespace

FileTreeWidget::FileTreeWidget(QWidget* parent)
    : QTreeView(parent),
      m_model(new FileTreeModel(this)),
      m_selection(new RowSelection(m_model, this)) {
    setModel(m_model);
    const std::unique_ptr<QItemSelectionModel> own(selectionModel());
    setSelectionModel(m_selection);
    setItemDelegate(new MarkDelegate(*m_model, this));
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setEditTriggers(NoEditTriggers);
    setIconSize(FileImages::SizeBeside(fontMetrics()));
    setAccessibleName(tr("Folders"));
    // A long text makes the tree wide instead of being cut; see sizeHintForColumn().
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    connect(this, &QTreeView::expanded, this, &FileTreeWidget::Opened);
    connect(this, &QTreeView::collapsed, this, &FileTreeWidget::Closed);
}

FileTreeWidget::~FileTreeWidget() = default;

void FileTreeWidget::SetTree(FileTree* tree) {
    const Scope following(m_following);
    m_model->SetTree(tree);
    if (!tree)
        return;
    ShowOpened(tree->Root());
    SelectionChanged();
}

void FileTreeWidget::SetImages(const FileImages& images) {
    m_model->SetImages(images);
}

FileTreeItem* FileTreeWidget::ItemAt(const QPoint& point) const {
    return m_model->ItemOf(indexAt(point));
}

void FileTreeWidget::ShowItem(const FileTreeItem& item) {
    scrollTo(m_model->IndexOf(&item));
}

// As the tree asks ---------------------------------------------------------------------------

void FileTreeWidget::AboutToChange(const FileTreeItem& parent) {
    const Scope following(m_following);
    m_model->BeginChange(parent);
}

void FileTreeWidget::Changed(const FileTreeItem& parent) {
    const Scope following(m_following);
    m_model->EndChange(parent);
    ShowOpened(parent);
    SelectionChanged();
}

void FileTreeWidget::ShowOpened(const FileTreeItem& item) {
    const QModelIndex index = m_model->IndexOf(&item);
    if (index.isValid() && isExpanded(index) != item.IsExpanded())
        setExpanded(index, item.IsExpanded());
    for (const auto& below : item.Children()) {
        if (!below->Children().empty())
            ShowOpened(*below);
    }
}

void FileTreeWidget::SelectionChanged() {
    const Scope following(m_following);
    const FileTree* const tree = m_model->Tree();
    const QModelIndex index = m_model->IndexOf(tree ? tree->Selected() : nullptr);
    if (index.isValid())
        m_selection->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    else
        m_selection->clear();
}

void FileTreeWidget::MarkChanged() {
    if (const FileTree* const tree = m_model->Tree(); tree && tree->Marked())
        ShowItem(*tree->Marked());
    viewport()->update();
}

const FileTreeItem* FileTreeWidget::FirstVisible() const {
    return ItemAt(QPoint(0, 0));
}

// What a person does -------------------------------------------------------------------------

void FileTreeWidget::Opened(const QModelIndex& index) {
    FileTreeItem* const item = m_model->ItemOf(index);
    if (item && m_following == 0)
        m_model->Tree()->Expand(*item);
}

void FileTreeWidget::Closed(const QModelIndex& index) {
    FileTreeItem* const item = m_model->ItemOf(index);
    if (item && m_following == 0)
        m_model->Tree()->Collapse(*item);
}

void FileTreeWidget::selectionChanged(const QItemSelection& selected,
                                      const QItemSelection& before) {
    QTreeView::selectionChanged(selected, before);
    FileTreeItem* const item =
        selected.isEmpty() ? nullptr : m_model->ItemOf(selected.indexes().value(0));
    if (!item || m_following > 0)
        return;
    m_isFocusUntold = false;
    m_model->Tree()->Select(item);
}

QItemSelectionModel::SelectionFlags FileTreeWidget::selectionCommand(const QModelIndex& index,
                                                                     const QEvent*) const {
    // The place of the keyboard is what is selected, whichever keys are held.
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

void FileTreeWidget::focusInEvent(QFocusEvent* event) {
    QTreeView::focusInEvent(event);
    m_isFocusUntold = event->reason() != Qt::PopupFocusReason;
    if (event->reason() != Qt::MouseFocusReason)
        TellFocus();
    else  // the click comes next, unless it is one on a scroll bar
        QMetaObject::invokeMethod(this, &FileTreeWidget::TellFocus, Qt::QueuedConnection);
}

void FileTreeWidget::mousePressEvent(QMouseEvent* event) {
    QTreeView::mousePressEvent(event);
    // Now, since a menu may open by the same click.
    TellFocus();
}

void FileTreeWidget::TellFocus() {
    if (std::exchange(m_isFocusUntold, false))
        Q_EMIT FocusTaken();
}

// Looks --------------------------------------------------------------------------------------

void FileTreeWidget::scrollTo(const QModelIndex& index, ScrollHint hint) {
    // The toolkit would open what is closed.
    for (QModelIndex above = index.parent(); above.isValid(); above = above.parent()) {
        if (!isExpanded(above))
            return;
    }
    QTreeView::scrollTo(index, hint);
}

void FileTreeWidget::changeEvent(QEvent* event) {
    QTreeView::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        setIconSize(FileImages::SizeBeside(fontMetrics()));
}

void FileTreeWidget::resizeEvent(QResizeEvent* event) {
    QTreeView::resizeEvent(event);
    resizeColumnToContents(0);
}

int FileTreeWidget::sizeHintForColumn(int column) const {
    return std::max(QTreeView::sizeHintForColumn(column), viewport()->width());
}

void FileTreeWidget::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
    QTreeView::drawRow(painter, option, index);
    const FileTreeItem* const item = m_model->ItemOf(index);
    if (!item || item != m_model->Tree()->Marked())
        return;
    painter->save();
    painter->setPen(QPen(option.palette.color(QPalette::Active, QPalette::WindowText), 1));
    painter->drawRect(visualRect(index).adjusted(0, 0, -1, -1));
    painter->restore();
}

}  // namespace k4cmn
