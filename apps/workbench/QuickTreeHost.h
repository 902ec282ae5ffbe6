#pragma once

#include <QWidget>
#include <memory>
#include <string>

class CK4CmnDlgK4FileTree;

namespace workbench {

/// Keeps a quick file tree beside a window, and hears what it tells: a file that was picked, and
/// that the tree has lost the focus, which closes it. Itself it is nothing to look at. Owned by the
/// window.
class QuickTreeHost final : public QWidget {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(QuickTreeHost)

 public:
    explicit QuickTreeHost(QWidget* window);
    ~QuickTreeHost() override;

    /// Shows the tree at the window's top left corner.
    void Open();
    /// The tree while it is open; else null.
    CK4CmnDlgK4FileTree* Tree() const { return m_tree.get(); }

 Q_SIGNALS:
    void Chosen(const std::string& path);

 protected:
    bool event(QEvent* event) override;

 private:
    std::unique_ptr<CK4CmnDlgK4FileTree> m_tree;
};

}  // namespace workbench
