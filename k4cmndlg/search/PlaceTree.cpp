#include "k4cmndlg/search/PlaceTree.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <algorithm>

#include "k4cmndlg/filelist/FileImages.h"
#include "k4cmndlg/filestore/Characters.h"
#include "k4cmndlg/frame/Text.h"
#include "k4cmndlg/search/SearchTypes.h"

namespace k4cmn {

namespace {

constexpr int kDataRole = Qt::UserRole;

std::vector<QIcon> Images() {
    std::vector<QIcon> images;
    for (const char* name : {"notice", "file-servers", "server", "sign-type", "library"})
        images.push_back(FileImages::OfTool(name));
    for (const std::string_view extension : kSearchExtensions)
        images.push_back(FileImages::OfExtension(extension));
    return images;
}

QTreeWidgetItem* ChildOf(const QTreeWidgetItem* parent, const std::string& text) {
    const QString wanted = ToQt(text);
    for (int at = 0; at < parent->childCount(); ++at) {
        if (parent->child(at)->text(0) == wanted)
            return parent->child(at);
    }
    return nullptr;
}

}  // namespace

/// An item that is sorted by its text.
class PlaceTree::Item final : public QTreeWidgetItem {
 public:
    using QTreeWidgetItem::QTreeWidgetItem;

    bool operator<(const QTreeWidgetItem& other) const override {
        return IsLessWithoutCase(FromQt(text(0)), FromQt(other.text(0)));
    }
};

PlaceTree::PlaceTree(QWidget* parent) : QTreeWidget(parent), m_images(Images()) {
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setEditTriggers(NoEditTriggers);
    setExpandsOnDoubleClick(false);
    setIconSize(FileImages::SizeBeside(fontMetrics()));
    // A long text makes the tree wide instead of being cut; see sizeHintForColumn().
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    connect(this, &QTreeWidget::itemExpanded, this, &PlaceTree::Opened);
    connect(this, &QTreeWidget::itemCollapsed, this, &PlaceTree::Closed);
}

PlaceTree::~PlaceTree() = default;

// Filling ------------------------------------------------------------------------------------

PlaceTree::Item* PlaceTree::Add(QTreeWidgetItem& parent, const PlaceItem& place) {
    auto* item = new Item(&parent);  // which owns it
    item->setText(0, ToQt(place.text));
    item->setIcon(0, m_images[static_cast<std::size_t>(place.image)]);
    item->setData(0, kDataRole, place.data);
    if (place.hasPlaceholder)
        Add(*item, Placeholder(PathOf(item)));
    return item;
}

void PlaceTree::AddBelow(QTreeWidgetItem& parent) {
    for (const PlaceItem& place : PlacesBelow(PathOf(&parent)))
        Add(parent, place);
}

void PlaceTree::Fill() {
    clear();
    for (const PlaceItem& place : RootPlaces()) {
        Item* const item = Add(*invisibleRootItem(), place);
        if (place.data != kDriveData)
            AddBelow(*item);
    }
}

void PlaceTree::Opened(QTreeWidgetItem* item) {
    // The program can open what a person can't.
    if (item->childCount() == 0)
        return;
    qDeleteAll(item->takeChildren());
    AddBelow(*item);
    item->sortChildren(0, Qt::AscendingOrder);
    if (QTreeWidgetItem* const parent = item->parent())
        parent->sortChildren(0, Qt::AscendingOrder);
}

void PlaceTree::Closed(QTreeWidgetItem* item) {
    const QTreeWidgetItem* above = selectedItems().value(0);
    while (above && above != item)
        above = above->parent();
    if (above)
        setCurrentItem(item);
}

// Places -------------------------------------------------------------------------------------

PlacePath PlaceTree::PathOf(const QTreeWidgetItem* item) {
    PlacePath path;
    for (; item; item = item->parent()) {
        path.texts.insert(path.texts.begin(), FromQt(item->text(0)));
        path.rootData = item->data(0, kDataRole).toInt();
    }
    return path;
}

void PlaceTree::ShowPlace(const SearchPlace& place) {
    QTreeWidgetItem* at = nullptr;
    for (int root = 0; root < topLevelItemCount() && !at; ++root) {
        if (topLevelItem(root)->data(0, kDataRole).toInt() != kDriveData)
            at = topLevelItem(root);
    }
    if (!at)
        return;
    at->setExpanded(true);
    at = ChildOf(at, place.server);
    if (!at)
        return;
    at->setExpanded(true);
    at = ChildOf(at, place.signType);
    if (!at)
        return;
    at->setExpanded(true);
    setCurrentItem(at);
    if (QTreeWidgetItem* const library = ChildOf(at, place.library))
        setCurrentItem(library);
}

SearchPlace PlaceTree::SelectedPlace() const {
    return ReadPlace(PathOf(selectedItems().value(0)));
}

// What a person does -------------------------------------------------------------------------

void PlaceTree::mouseDoubleClickEvent(QMouseEvent* event) {
    QTreeWidget::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton)
        Q_EMIT DoubleClicked();
}

QItemSelectionModel::SelectionFlags PlaceTree::selectionCommand(const QModelIndex& index,
                                                                const QEvent*) const {
    // The place of the keyboard is what is selected, whichever keys are held.
    return index.isValid() ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows
                           : QItemSelectionModel::NoUpdate;
}

// Looks --------------------------------------------------------------------------------------

void PlaceTree::changeEvent(QEvent* event) {
    QTreeWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        setIconSize(FileImages::SizeBeside(fontMetrics()));
}

void PlaceTree::resizeEvent(QResizeEvent* event) {
    QTreeWidget::resizeEvent(event);
    resizeColumnToContents(0);
}

QSize PlaceTree::sizeHint() const {
    constexpr int kLetters = 45;
    constexpr int kRows = 14;
    const int row = std::max(iconSize().height(), fontMetrics().height()) + 2;
    return {kLetters * fontMetrics().averageCharWidth(), kRows * row};
}

int PlaceTree::sizeHintForColumn(int column) const {
    return std::max(QTreeWidget::sizeHintForColumn(column), viewport()->width());
}

}  // namespace k4cmn
