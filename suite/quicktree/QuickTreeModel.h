#pragma once

#include <QAbstractItemModel>
#include <QIcon>
#include <string>
#include <unordered_map>
#include <vector>

#include "k4cmndlg/filelist/FileImages.h"
#include "k4cmndlg/filesel/contracts/K4QuickFileTreeCtrl.h"
#include "suite/quicktree/QuickTree.h"

namespace k4suite {

/// A QuickTree as the toolkit's views take it, with numbers for the items that somebody outside has
/// asked for: the number of an item that is gone leads to nothing.
/// Threads: the user interface thread.
class QuickTreeModel final : public QAbstractItemModel {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(QuickTreeModel)

 public:
    explicit QuickTreeModel(QObject* parent);
    ~QuickTreeModel() override;

    QuickTree& Tree() { return m_tree; }
    /// Empties the tree and reads the servers. @return whether all could be read.
    bool Fill();
    /// Reads what stands below an item anew.
    void Read(const QModelIndex& index);

    /// @name Items as others know them
    /// @{
    K4QuickTreeItem ItemOf(const QModelIndex& index) const;
    /// @return null for none, and for an item that is gone.
    QuickTreeNode* NodeOf(K4QuickTreeItem item) const;
    /// @}
    QuickTreeNode* NodeOf(const QModelIndex& index) const;
    QModelIndex IndexOf(const QuickTreeNode* node) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

 private:
    QIcon PictureOf(const QuickTreeNode& node) const;
    void ForgetBelow(const QuickTreeNode& node);

    mutable QuickTree m_tree;
    const std::vector<std::string> m_extensions;
    const k4cmn::FileImages m_images;
    mutable std::unordered_map<std::uintptr_t, QuickTreeNode*> m_known;
    mutable std::uintptr_t m_lastNumber = 0;
};

}  // namespace k4suite
