#include "apps/workbench/QuickTreeHost.h"

#include "k4cmndlg/filesel/CK4CmnDlgK4FileTree.h"
#include "k4cmndlg/frame/WindowMessage.h"
#include "k4cmndlg/frame/WindowMessages.h"

namespace workbench {

namespace {

constexpr char kKey[] = "Workbench";
constexpr QRect kInWindow(24, 64, 420, 360);  // from the window's top left corner

}  // namespace

QuickTreeHost::QuickTreeHost(QWidget* window) : QWidget(window) {
    hide();
}

QuickTreeHost::~QuickTreeHost() = default;

void QuickTreeHost::Open() {
    m_tree = std::make_unique<CK4CmnDlgK4FileTree>(this, kKey, 1);
    m_tree->SetInitialPosition(kInWindow.translated(window()->mapToGlobal(QPoint(0, 0))), 1);
    m_tree->Create();
}

bool QuickTreeHost::event(QEvent* event) {
    const k4cmn::WindowMessage* message = k4cmn::WindowMessage::From(event);
    if (!message)
        return QWidget::event(event);
    if (message->number == k4cmn::WM_QUICK_TREE_CHOSEN && m_tree) {
        std::string path;
        m_tree->GetSelectedFile(path);
        m_tree.reset();
        Q_EMIT Chosen(path);
    } else if (message->number == k4cmn::WM_QUICK_TREE_LEFT) {
        m_tree.reset();
    }
    return true;
}

}  // namespace workbench
