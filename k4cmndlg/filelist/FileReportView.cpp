#include "k4cmndlg/filelist/FileReportView.h"

#include <QEvent>
#include <QHeaderView>
#include <QMouseEvent>

#include "k4cmndlg/filelist/FileImages.h"

namespace k4cmn {

FileReportView::FileReportView(QWidget* parent) : QTreeView(parent) {
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(ExtendedSelection);
    setIconSize(FileImages::SizeBeside(fontMetrics()));
    header()->setSectionsMovable(false);
    header()->setSectionsClickable(true);
    header()->setStretchLastSection(false);
    header()->setHighlightSections(false);
}

void FileReportView::EditLabel(const QModelIndex& index) {
    // The toolkit's way to end that waiting, during which it edits nothing.
    edit(index, CurrentChanged, nullptr);
    edit(index, AllEditTriggers, nullptr);
}

void FileReportView::dataChanged(const QModelIndex& first, const QModelIndex& last,
                                 const QList<int>& roles) {
    // Of a range the toolkit would look for the place of every row, also of those out of sight.
    QTreeView::dataChanged(first, last.siblingAtRow(first.row()), roles);
    viewport()->update();
}

void FileReportView::changeEvent(QEvent* event) {
    QTreeView::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        setIconSize(FileImages::SizeBeside(fontMetrics()));
}

void FileReportView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        QTreeView::mouseDoubleClickEvent(event);
}

}  // namespace k4cmn
