#include "suite/quicktree/QuickTreeModel.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "k4cmndlg/filesel/FileTreeItem.h"
#include "k4cmndlg/filestore/Characters.h"
#include "k4cmndlg/filestore/FileTypes.h"
#include "k4cmndlg/frame/Text.h"

namespace k4suite {

using k4cmn::ToQt;

QuickTreeModel::QuickTreeModel(QObject* parent)
    : QAbstractItemModel(parent),
      m_extensions(k4cmn::ExtensionsOf(K4_FILE_TYPE_ALL)),
      m_images(m_extensions) {}

QuickTreeModel::~QuickTreeModel() = default;

// Reading ------------------------------------------------------------------------------------

bool QuickTreeModel::Fill() {
    beginResetModel();
    bool isComplete = false;
    QuickTree::Nodes servers = m_tree.ReadServers(isComplete);
    m_known.clear();
    m_tree.Root().children = std::move(servers);
    endResetModel();
    return isComplete;
}

void QuickTreeModel::Read(const QModelIndex& index) {
    QuickTreeNode* const node = NodeOf(index);
    if (!node || !node->CanBeOpened())
        return;
    QuickTree::Nodes fresh = m_tree.ReadBelow(*node);
    ForgetBelow(*node);
    if (!node->children.empty()) {
        beginRemoveRows(index, 0, static_cast<int>(node->children.size()) - 1);
        node->children.clear();
        endRemoveRows();
    }
    node->isRead = true;
    if (fresh.empty())
        return;
    beginInsertRows(index, 0, static_cast<int>(fresh.size()) - 1);
    node->children = std::move(fresh);
    endInsertRows();
}

// Items --------------------------------------------------------------------------------------

void QuickTreeModel::ForgetBelow(const QuickTreeNode& node) {
    std::erase_if(m_known, [&](const auto& entry) {
        return entry.second != &node && entry.second->IsInside(node);
    });
}

K4QuickTreeItem QuickTreeModel::ItemOf(const QModelIndex& index) const {
    QuickTreeNode* const node = NodeOf(index);
    if (!node)
        return K4QuickTreeItem::None;
    for (const auto& [number, known] : m_known) {
        if (known == node)
            return static_cast<K4QuickTreeItem>(number);
    }
    m_known[++m_lastNumber] = node;
    return static_cast<K4QuickTreeItem>(m_lastNumber);
}

QuickTreeNode* QuickTreeModel::NodeOf(K4QuickTreeItem item) const {
    const auto found = m_known.find(static_cast<std::uintptr_t>(item));
    return found == m_known.end() ? nullptr : found->second;
}

QuickTreeNode* QuickTreeModel::NodeOf(const QModelIndex& index) const {
    return static_cast<QuickTreeNode*>(index.internalPointer());
}

QModelIndex QuickTreeModel::IndexOf(const QuickTreeNode* node) const {
    if (!node || !node->parent)
        return {};
    return createIndex(node->row, 0, node);
}

// As the toolkit asks ------------------------------------------------------------------------

QModelIndex QuickTreeModel::index(int row, int column, const QModelIndex& parent) const {
    if (column != 0 || row < 0 || row >= rowCount(parent))
        return {};
    const QuickTreeNode* const above = parent.isValid() ? NodeOf(parent) : &m_tree.Root();
    return createIndex(row, 0, above->children[static_cast<std::size_t>(row)].get());
}

QModelIndex QuickTreeModel::parent(const QModelIndex& index) const {
    const QuickTreeNode* const node = NodeOf(index);
    return node ? IndexOf(node->parent) : QModelIndex();
}

int QuickTreeModel::rowCount(const QModelIndex& parent) const {
    const QuickTreeNode* const above = parent.isValid() ? NodeOf(parent) : &m_tree.Root();
    return static_cast<int>(above->children.size());
}

int QuickTreeModel::columnCount(const QModelIndex&) const {
    return 1;
}

bool QuickTreeModel::hasChildren(const QModelIndex& parent) const {
    const QuickTreeNode* const above = parent.isValid() ? NodeOf(parent) : &m_tree.Root();
    return !above->children.empty() || (above->CanBeOpened() && !above->isRead);
}

QVariant QuickTreeModel::data(const QModelIndex& index, int role) const {
    const QuickTreeNode* const node = NodeOf(index);
    if (!node)
        return {};
    switch (role) {
        case Qt::DisplayRole:
            return ToQt(node->text);
        case Qt::DecorationRole:
            return PictureOf(*node);
        case Qt::ToolTipRole:
            return ToQt(QuickTree::PathOf(*node));
        default:
            return {};
    }
}

QIcon QuickTreeModel::PictureOf(const QuickTreeNode& node) const {
    switch (node.kind) {
        case QuickTreeKind::Server:
            return m_images.At(k4cmn::kServerImage);
        case QuickTreeKind::SignType:
            return m_images.At(k4cmn::kSignTypeImage);
        case QuickTreeKind::Library:
            return m_images.At(k4cmn::kLibraryImage);
        case QuickTreeKind::File:
            break;
        case QuickTreeKind::Notice:
            return m_images.At(k4cmn::kNoticeImage);
    }
    const std::string_view extension = std::string_view(node.text).substr(node.text.rfind('.') + 1);
    const auto found = std::find_if(
        m_extensions.begin(), m_extensions.end(),
        [&](const std::string& known) { return k4cmn::IsSameWithoutCase(known, extension); });
    return m_images.At(k4cmn::kFirstFileImage + static_cast<int>(found - m_extensions.begin()));
}

}  // namespace k4suite
