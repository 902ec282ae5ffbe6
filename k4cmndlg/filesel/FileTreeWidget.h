#pragma once

#include <QTreeView>

#include "k4cmndlg/filelist/FileImages.h"
#include "k4cmndlg/filesel/FileTree.h"
#include "k4cmndlg/k4cmndlg_export.h"

namespace k4cmn {

class FileTreeModel;
class RowSelection;

/// Shows a FileTree, and tells it what a person opens, closes and selects. The tree decides what is
/// there: the widget asks it for every item and keeps none, so the tree may change at any time,
/// also while it is told what a person does.
///
/// A person who closes an item with the selected one below it selects it by that. A click beside
/// all items leaves the selection, and so does every key but those that move.
///
/// A right click selects the item under it. The context-menu event, of the mouse and of the
/// keyboard, goes on to the parent; one of the mouse has its place in the parent's coordinates.
///
/// The operations under "As FileTreeView asks" are called by the view that the tree was given.
/// Ownership: the parent's; the tree isn't owned. Threads: the user interface thread.
class K4CMNDLG_EXPORT FileTreeWidget final : public QTreeView {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FileTreeWidget)

 public:
    explicit FileTreeWidget(QWidget* parent);
    ~FileTreeWidget() override;

    /// @param tree must outlive the widget, or be taken away by null.
    void SetTree(FileTree* tree);
    void SetImages(const FileImages& images);

    /// The item at a point of the viewport; null beside all items.
    FileTreeItem* ItemAt(const QPoint& point) const;
    /// Scrolls an item into view, unless one above it is closed.
    void ShowItem(const FileTreeItem& item);

    /// @name As FileTreeView asks
    /// @{
    void AboutToChange(const FileTreeItem& parent);
    void Changed(const FileTreeItem& parent);
    void SelectionChanged();
    /// The marked item is drawn selected and highlighted, whatever has the focus.
    void MarkChanged();
    const FileTreeItem* FirstVisible() const;
    /// @}

    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

 Q_SIGNALS:
    /// The tree has got the focus, and not from a menu that only closes. After a click that selects
    /// another item it isn't told: what follows that does what follows this.
    void FocusTaken();

 protected:
    void changeEvent(QEvent* event) override;
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override;
    void resizeEvent(QResizeEvent* event) override;
    /// As wide as the longest text that is shown, and no narrower than the window.
    int sizeHintForColumn(int column) const override;
    void focusInEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& before) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;

 private:
    void Opened(const QModelIndex& index);
    void Closed(const QModelIndex& index);
    void ShowOpened(const FileTreeItem& item);
    void TellFocus();

    FileTreeModel* const m_model;
    RowSelection* const m_selection;
    int m_following = 0;           ///< above 0 while the view does what the tree has done
    bool m_isFocusUntold = false;  ///< by a click, of which it isn't known yet what it selects
};

}  // namespace k4cmn
