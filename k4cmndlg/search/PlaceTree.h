#pragma once

#include <QIcon>
#include <QTreeWidget>
#include <vector>

#include "k4cmndlg/k4cmndlg_export.h"
#include "k4cmndlg/search/FindPlaces.h"

namespace k4cmn {

/// The tree of places to search. What stands below an item is read anew whenever that is opened, by
/// a person or by the program; until then a placeholder stands there. What is below an item, and
/// what is beside it, is then sorted by text without regard to case. The root keeps its order.
///
/// Closing an item with the selected one below it selects it. A click beside all items leaves the
/// selection. A double click opens nothing.
/// Ownership: the parent's. Threads: the user interface thread.
class K4CMNDLG_EXPORT PlaceTree final : public QTreeWidget {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PlaceTree)

 public:
    explicit PlaceTree(QWidget* parent = nullptr);
    ~PlaceTree() override;

    /// Makes the tree anew: the drives, and "File Servers" with the servers of this system below
    /// it. Nothing is open or selected.
    void Fill();
    /// Opens "File Servers", and below it the server, its sign type and library, as far as there
    /// are items of exactly these texts. The sign type is selected, and then the library. A drive
    /// is never looked for.
    void ShowPlace(const SearchPlace& place);
    /// The place that the selected item means; an empty one without a selection.
    SearchPlace SelectedPlace() const;

    QSize sizeHint() const override;

 Q_SIGNALS:
    /// A person has double-clicked anywhere in the tree.
    void DoubleClicked();

 protected:
    void changeEvent(QEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    /// As wide as the longest text that is shown, and no narrower than the window.
    int sizeHintForColumn(int column) const override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;

 private:
    class Item;

    Item* Add(QTreeWidgetItem& parent, const PlaceItem& place);
    void AddBelow(QTreeWidgetItem& parent);
    void Opened(QTreeWidgetItem* item);
    void Closed(QTreeWidgetItem* item);
    static PlacePath PathOf(const QTreeWidgetItem* item);

    std::vector<QIcon> m_images;  ///< at the positions of PlaceImage, then one for each file type
};

}  // namespace k4cmn
