#include "k4cmndlg/filesel/FileTreeModel.h"

#include <algorithm>

#include "k4cmndlg/frame/Text.h"

namespace k4cmn {

FileTreeModel::FileTreeModel(QObject* parent) : QAbstractItemModel(parent) {}

void FileTreeModel::SetTree(FileTree* tree) {
    beginResetModel();
    m_items.clear();
    m_numbers.clear();
    m_changing = nullptr;
    m_tree = tree;
    endResetModel();
}

void FileTreeModel::SetImages(const FileImages& images) {
    m_images = images;
    const int count = rowCount();
    if (count > 0)
        Q_EMIT dataChanged(index(0, 0), index(count - 1, 0), {Qt::DecorationRole});
}

void FileTreeModel::BeginChange(const FileTreeItem& parent) {
    if (!m_tree)
        return;
    const QModelIndex above = IndexOf(&parent);
    const int count = rowCount(above);
    if (count > 0)
        beginRemoveRows(above, 0, count - 1);
    m_changing = &parent;
    Forget(parent);
    if (count > 0)
        endRemoveRows();
}

void FileTreeModel::EndChange(const FileTreeItem& parent) {
    if (!m_tree)
        return;
    const int count = static_cast<int>(parent.Children().size());
    if (count > 0)
        beginInsertRows(IndexOf(&parent), 0, count - 1);
    m_changing = nullptr;
    if (count > 0)
        endInsertRows();
}

void FileTreeModel::Forget(const FileTreeItem& parent) {
    for (const auto& item : parent.Children()) {
        Forget(*item);
        const auto found = m_numbers.find(item.get());
        if (found == m_numbers.end())
            continue;
        m_items.erase(found->second);
        m_numbers.erase(found);
    }
}

quintptr FileTreeModel::NumberOf(FileTreeItem* item, int row) const {
    const auto [entry, isNew] = m_numbers.try_emplace(item, m_lastNumber + 1);
    if (isNew)
        m_items[++m_lastNumber] = {item, row};
    return entry->second;
}

FileTreeItem* FileTreeModel::ItemOf(const QModelIndex& index) const {
    const auto found = m_items.find(index.isValid() ? index.internalId() : 0);
    return found == m_items.end() ? nullptr : found->second.item;
}

QModelIndex FileTreeModel::IndexOf(const FileTreeItem* item) const {
    if (!m_tree || !item || item == &m_tree->Root())
        return {};
    if (const auto known = m_numbers.find(item); known != m_numbers.end())
        return createIndex(m_items.at(known->second).row, 0, known->second);
    const FileTreeItem& above = item->Parent() ? *item->Parent() : m_tree->Root();
    const auto& beside = above.Children();
    const auto at = std::find_if(beside.begin(), beside.end(),
                                 [&](const auto& candidate) { return candidate.get() == item; });
    if (at == beside.end())
        return {};
    const int row = static_cast<int>(at - beside.begin());
    return createIndex(row, 0, NumberOf(at->get(), row));
}

const FileTreeItem* FileTreeModel::Above(const QModelIndex& parent) const {
    if (!m_tree)
        return nullptr;
    const FileTreeItem* const item = parent.isValid() ? ItemOf(parent) : &m_tree->Root();
    return parent.column() > 0 || item == m_changing ? nullptr : item;
}

QModelIndex FileTreeModel::index(int row, int column, const QModelIndex& parent) const {
    const FileTreeItem* const above = Above(parent);
    if (!above || column != 0 || row < 0 || row >= static_cast<int>(above->Children().size()))
        return {};
    return createIndex(row, 0,
                       NumberOf(above->Children()[static_cast<std::size_t>(row)].get(), row));
}

QModelIndex FileTreeModel::parent(const QModelIndex& index) const {
    const FileTreeItem* const item = ItemOf(index);
    return item ? IndexOf(item->Parent()) : QModelIndex();
}

int FileTreeModel::rowCount(const QModelIndex& parent) const {
    const FileTreeItem* const above = Above(parent);
    return above ? static_cast<int>(above->Children().size()) : 0;
}

int FileTreeModel::columnCount(const QModelIndex&) const {
    return 1;
}

QVariant FileTreeModel::data(const QModelIndex& index, int role) const {
    const FileTreeItem* const item = ItemOf(index);
    if (item && role == Qt::DisplayRole)
        return ToQt(item->Text());
    if (item && role == Qt::DecorationRole)
        return m_images.At(item->Image());
    return {};
}

}  // namespace k4cmn
