#pragma once

#include <QWidget>
#include <cstdint>
#include <string>

#include "k4cmndlg/filestore/SignTypes.h"
#include "k4cmndlg/frame/Provided.h"
#include "k4cmndlg/k4cmndlg_export.h"

/// An item of a quick file tree. It stays the same item for as long as that is in the tree; one
/// that is gone, since what stands above it was read anew, is treated as none.
enum class K4QuickTreeItem : std::uintptr_t { None = 0 };

/// The tree control of the suite by which a person picks a file: servers, their sign types, the
/// libraries of these, and the files. The quick tree window is a shell around it.
///
/// The control is known by nine numbered operations; the number stands with each of them. Its user
/// tells files from other items by the operations 12 and 32 together.
/// Ownership: the window that it is a child of. Threads: the user interface thread.
class K4CMNDLG_EXPORT K4QuickFileTreeCtrl : public QWidget {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(K4QuickFileTreeCtrl)

 public:
    /// @param parent the window that it is a part of.
    explicit K4QuickFileTreeCtrl(QWidget* parent) : QWidget(parent) {}
    ~K4QuickFileTreeCtrl() override;

    /// 11. Empties the tree and fills its first level; the rest is read when an item is opened.
    /// @return whether what stands there could be read.
    virtual bool Fill() = 0;
    /// 12. Whether an item is a place that files are found below: a server, a sign type, a library.
    /// False for a file, for a notice that nothing was found, and for none.
    virtual bool IsFolder(K4QuickTreeItem item) const = 0;
    /// 13. The selected item, or none.
    virtual K4QuickTreeItem SelectedItem() const = 0;
    /// 20. The path of an item, as composed paths of the store are; empty for a notice and for
    /// none.
    virtual std::string PathOf(K4QuickTreeItem item) const = 0;
    /// 21. Opens an item. One that can't be opened stays as it is.
    virtual void Expand(K4QuickTreeItem item) = 0;
    /// 22. Confines the tree to one sign type, in what is read from now on.
    virtual void ConfineTo(std::uint32_t rows, std::uint32_t columns, tag_K4_SIGN_COLOR color,
                           tag_K4_PIXEL_TECH pixel) = 0;
    /// 30. The first item of the first level; none in an empty tree.
    virtual K4QuickTreeItem RootItem() const = 0;
    /// 31. Selects the item of a path, opening what stands above it, and scrolls it into view.
    /// @return false if there is no such item; the selection stays then.
    virtual bool SelectPath(const std::string& path) = 0;
    /// 32. Whether an item is a file.
    virtual bool IsFile(K4QuickTreeItem item) const = 0;

 Q_SIGNALS:
    /// A person has double-clicked the selected item, or pressed Enter on it, whatever it is.
    void Chosen();
    /// The tree was scrolled up or down.
    void Scrolled();
};

namespace k4cmn {

/// Makes the quick file trees of windows. With nothing installed they have no items: filling them
/// fails, and so does every other operation.
/// Threads: the user interface thread.
class K4CMNDLG_EXPORT QuickFileTrees {
 public:
    virtual ~QuickFileTrees();

    /// Makes a control as a child of a window, which owns it. It isn't filled yet.
    /// @param window not null. @return never null.
    virtual K4QuickFileTreeCtrl* Create(QWidget* window) = 0;
};

}  // namespace k4cmn

K4_DECLARE_PROVIDED(K4CMNDLG_EXPORT, QuickFileTrees)
