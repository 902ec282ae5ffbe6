#pragma once

#include <string>

#include "k4cmndlg/filesel/contracts/K4QuickFileTreeCtrl.h"

namespace k4suite {

class QuickTreeModel;
class QuickTreeView;

/// The quick file tree over the store: what QuickTree reads, in a view that keys and mouse handle.
///
/// Keys: the arrows walk, Right and + open, Left and - close, letters look for a name, Enter
/// chooses. A double click on a folder opens or closes it. Whoever opens an item reads what stands
/// below it anew.
///
/// Reading blocks until the store has answered. Nothing says a word of what can't be read: a notice
/// stands in its place.
class QuickFileTree final : public K4QuickFileTreeCtrl {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(QuickFileTree)

 public:
    explicit QuickFileTree(QWidget* parent);
    ~QuickFileTree() override;

    /// False if the servers of this system can't be read: then only the removable drives are there.
    bool Fill() override;
    bool IsFolder(K4QuickTreeItem item) const override;
    K4QuickTreeItem SelectedItem() const override;
    std::string PathOf(K4QuickTreeItem item) const override;
    void Expand(K4QuickTreeItem item) override;
    /// Also leaves away what lies at the servers' roots, which belongs to no sign type.
    void ConfineTo(std::uint32_t rows, std::uint32_t columns, tag_K4_SIGN_COLOR color,
                   tag_K4_PIXEL_TECH pixel) override;
    K4QuickTreeItem RootItem() const override;
    /// The path may be that of a folder too, with or without '\' at its end; '/' separates as well,
    /// and case doesn't count. What isn't found in an open folder is looked for once more on the
    /// disk.
    bool SelectPath(const std::string& path) override;
    bool IsFile(K4QuickTreeItem item) const override;

 private:
    /// What a search finds: the item of a path, also if it came into an open folder in the
    /// meantime, or the last one on the way to it that is shown.
    enum class Search : bool { Exact, Nearest };

    QModelIndex Find(const std::string& path, Search search);
    bool Select(const QModelIndex& index);

    QuickTreeModel* m_model;
    QuickTreeView* m_view;
};

/// Makes them for the library's windows.
class EmbeddedQuickFileTrees final : public k4cmn::QuickFileTrees {
 public:
    K4QuickFileTreeCtrl* Create(QWidget* window) override;
};

}  // namespace k4suite
