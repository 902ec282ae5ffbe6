#include "k4cmndlg/filesel/contracts/K4QuickFileTreeCtrl.h"

K4QuickFileTreeCtrl::~K4QuickFileTreeCtrl() = default;

namespace k4cmn {

QuickFileTrees::~QuickFileTrees() = default;

namespace {

class AbsentQuickFileTree final : public K4QuickFileTreeCtrl {
 public:
    using K4QuickFileTreeCtrl::K4QuickFileTreeCtrl;

    bool Fill() override { return false; }
    bool IsFolder(K4QuickTreeItem) const override { return false; }
    K4QuickTreeItem SelectedItem() const override { return K4QuickTreeItem::None; }
    std::string PathOf(K4QuickTreeItem) const override { return {}; }
    void Expand(K4QuickTreeItem) override {}
    void ConfineTo(std::uint32_t, std::uint32_t, tag_K4_SIGN_COLOR, tag_K4_PIXEL_TECH) override {}
    K4QuickTreeItem RootItem() const override { return K4QuickTreeItem::None; }
    bool SelectPath(const std::string&) override { return false; }
    bool IsFile(K4QuickTreeItem) const override { return false; }
};

class AbsentQuickFileTrees final : public QuickFileTrees {
 public:
    K4QuickFileTreeCtrl* Create(QWidget* window) override {
        return new AbsentQuickFileTree(window);
    }
};

}  // namespace
}  // namespace k4cmn

K4_DEFINE_PROVIDED(QuickFileTrees, AbsentQuickFileTrees)
