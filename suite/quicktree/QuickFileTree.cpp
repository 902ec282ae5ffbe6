#include "suite/quicktree/QuickFileTree.h"

#include <QVBoxLayout>
#include <string_view>

#include "suite/quicktree/QuickTreeModel.h"
#include "suite/quicktree/QuickTreeView.h"

namespace k4suite {

QuickFileTree::QuickFileTree(QWidget* parent)
    : K4QuickFileTreeCtrl(parent),
      m_model(new QuickTreeModel(this)),
      m_view(new QuickTreeView(this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
    setFocusProxy(m_view);
    m_view->setModel(m_model);
    connect(m_view, &QTreeView::expanded, m_model, &QuickTreeModel::Read);
    connect(m_view, &QuickTreeView::Chosen, this, &K4QuickFileTreeCtrl::Chosen);
    connect(m_view, &QuickTreeView::Scrolled, this, &K4QuickFileTreeCtrl::Scrolled);
}

QuickFileTree::~QuickFileTree() = default;

bool QuickFileTree::Fill() {
    return m_model->Fill();
}

bool QuickFileTree::IsFolder(K4QuickTreeItem item) const {
    const QuickTreeNode* const node = m_model->NodeOf(item);
    return node && node->CanBeOpened();
}

bool QuickFileTree::IsFile(K4QuickTreeItem item) const {
    const QuickTreeNode* const node = m_model->NodeOf(item);
    return node && node->kind == QuickTreeKind::File;
}

K4QuickTreeItem QuickFileTree::SelectedItem() const {
    return m_model->ItemOf(m_view->SelectedItem());
}

K4QuickTreeItem QuickFileTree::RootItem() const {
    return m_model->ItemOf(m_model->index(0, 0));
}

std::string QuickFileTree::PathOf(K4QuickTreeItem item) const {
    const QuickTreeNode* const node = m_model->NodeOf(item);
    return node ? QuickTree::PathOf(*node) : std::string();
}

void QuickFileTree::Expand(K4QuickTreeItem item) {
    const QuickTreeNode* const node = m_model->NodeOf(item);
    if (node && node->CanBeOpened())
        m_view->expand(m_model->IndexOf(node));
}

void QuickFileTree::ConfineTo(std::uint32_t rows, std::uint32_t columns, tag_K4_SIGN_COLOR color,
                              tag_K4_PIXEL_TECH pixel) {
    m_model->Tree().ConfineTo(rows, columns, color, pixel);
}

bool QuickFileTree::SelectPath(const std::string& path) {
    const std::string before = PathOf(SelectedItem());
    if (Select(Find(path, Search::Exact)))
        return true;
    // Looking for it may have read anew what the selected item stood in.
    if (PathOf(SelectedItem()) != before)
        Select(Find(before, Search::Nearest));
    return false;
}

bool QuickFileTree::Select(const QModelIndex& index) {
    if (!index.isValid())
        return false;
    for (QModelIndex above = index.parent(); above.isValid(); above = above.parent()) {
        // Telling of it would have it read anew, and the item be gone.
        const QSignalBlocker quiet(m_view);
        m_view->expand(above);
    }
    m_view->SelectItem(index);
    return true;
}

QModelIndex QuickFileTree::Find(const std::string& path, Search search) {
    std::string_view rest = path;
    QuickTreeNode* node = &m_model->Tree().Root();
    while (!rest.empty()) {
        const QModelIndex place = m_model->IndexOf(node);
        const bool isOpen = !place.isValid() || m_view->isExpanded(place);
        if (!isOpen)
            m_model->Read(place);
        QuickTreeNode* next = QuickTree::Next(*node, rest);
        if (!next && isOpen && search == Search::Exact && QuickTree::IsOnDisk(*node, rest)) {
            m_model->Read(place);
            next = QuickTree::Next(*node, rest);
        }
        if (!next)
            return search == Search::Nearest ? place : QModelIndex();
        node = next;
    }
    return m_model->IndexOf(node);
}

K4QuickFileTreeCtrl* EmbeddedQuickFileTrees::Create(QWidget* window) {
    return new QuickFileTree(window);
}

}  // namespace k4suite
