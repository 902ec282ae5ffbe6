#include "suite/quicktree/QuickTreeView.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>

#include "k4cmndlg/filelist/FileImages.h"

namespace k4suite {

QuickTreeView::QuickTreeView(QWidget* parent) : QTreeView(parent) {
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setFrameShape(QFrame::NoFrame);
    setIconSize(k4cmn::FileImages::SizeBeside(fontMetrics()));
    setAccessibleName(tr("Files"));
    // A long text makes the tree wide instead of being cut; see sizeHintForColumn().
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    connect(this, &QTreeView::collapsed, this, &QuickTreeView::TakeOverSelection);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &QuickTreeView::Scrolled);
}

QuickTreeView::~QuickTreeView() = default;

void QuickTreeView::SelectItem(const QModelIndex& index) {
    setCurrentIndex(index);
    scrollTo(index);
}

QModelIndex QuickTreeView::SelectedItem() const {
    const QModelIndexList selected =
        selectionModel() ? selectionModel()->selectedIndexes() : QModelIndexList();
    return selected.value(0);
}

void QuickTreeView::TakeOverSelection(const QModelIndex& closed) {
    for (QModelIndex above = currentIndex().parent(); above.isValid(); above = above.parent()) {
        if (above != closed)
            continue;
        setCurrentIndex(closed);
        return;
    }
}

void QuickTreeView::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QTreeView::keyPressEvent(event);
        return;
    }
    event->accept();
    if (SelectedItem().isValid())
        Q_EMIT Chosen();
}

void QuickTreeView::mouseDoubleClickEvent(QMouseEvent* event) {
    const QPersistentModelIndex index(indexAt(event->position().toPoint()));
    QTreeView::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton && index.isValid() && index == SelectedItem())
        Q_EMIT Chosen();
}

void QuickTreeView::focusInEvent(QFocusEvent* event) {
    QTreeView::focusInEvent(event);
    if (currentIndex().isValid() && !SelectedItem().isValid())
        setCurrentIndex(currentIndex());
}

void QuickTreeView::changeEvent(QEvent* event) {
    QTreeView::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        setIconSize(k4cmn::FileImages::SizeBeside(fontMetrics()));
}

void QuickTreeView::resizeEvent(QResizeEvent* event) {
    QTreeView::resizeEvent(event);
    resizeColumnToContents(0);
}

int QuickTreeView::sizeHintForColumn(int column) const {
    return std::max(QTreeView::sizeHintForColumn(column), viewport()->width());
}

QItemSelectionModel::SelectionFlags QuickTreeView::selectionCommand(const QModelIndex& index,
                                                                    const QEvent*) const {
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

}  // namespace k4suite
