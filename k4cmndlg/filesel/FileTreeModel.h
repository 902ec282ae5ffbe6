#pragma once

#include <QAbstractItemModel>
#include <unordered_map>

#include "k4cmndlg/filelist/FileImages.h"
#include "k4cmndlg/filesel/FileTree.h"
#include "k4cmndlg/k4cmndlg_export.h"

namespace k4cmn {

/// A FileTree as the toolkit's views take it. It keeps no item, only numbers for those that
/// somebody has asked for: the number of an item that is gone leads to nothing.
///
/// While the items below one change, it has none.
/// Threads: the user interface thread.
class K4CMNDLG_EXPORT FileTreeModel final : public QAbstractItemModel {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FileTreeModel)

 public:
    explicit FileTreeModel(QObject* parent);

    /// @param tree must outlive the model, or be taken away by null.
    void SetTree(FileTree* tree);
    FileTree* Tree() const { return m_tree; }
    void SetImages(const FileImages& images);

    /// The items below one go.
    void BeginChange(const FileTreeItem& parent);
    /// They are there again.
    void EndChange(const FileTreeItem& parent);

    /// The item of an index; null if it is gone.
    FileTreeItem* ItemOf(const QModelIndex& index) const;
    QModelIndex IndexOf(const FileTreeItem* item) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

 private:
    struct Known {
        FileTreeItem* item;
        int row;
    };

    const FileTreeItem* Above(const QModelIndex& parent) const;
    quintptr NumberOf(FileTreeItem* item, int row) const;
    void Forget(const FileTreeItem& parent);

    FileTree* m_tree = nullptr;
    FileImages m_images;
    const FileTreeItem* m_changing = nullptr;
    mutable std::unordered_map<quintptr, Known> m_items;
    mutable std::unordered_map<const FileTreeItem*, quintptr> m_numbers;
    mutable quintptr m_lastNumber = 0;
};

}  // namespace k4cmn
