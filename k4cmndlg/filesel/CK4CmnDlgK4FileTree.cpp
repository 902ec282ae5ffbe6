#include "k4cmndlg/filesel/CK4CmnDlgK4FileTree.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>

#include "k4cmndlg/filesel/BottomGrip.h"
#include "k4cmndlg/filesel/contracts/K4QuickFileTreeCtrl.h"
#include "k4cmndlg/frame/WaitCursor.h"
#include "k4cmndlg/frame/WindowMessage.h"
#include "k4cmndlg/frame/WindowMessages.h"

using k4cmn::QuickTreePlace;
using k4cmn::ScreenPlace;

namespace {

constexpr std::uint32_t kNoTemplate = 0;
constexpr int kBorder = 1;
constexpr QSize kOwnSize(260, 320);

/// The screen that a point lies on; the first one for a point off all screens. Places are told from
/// its corner, so that on every screen the same rules hold.
struct ScreenView {
    explicit ScreenView(const QPoint& point) {
        const QScreen* screen = QGuiApplication::screenAt(point);
        if (!screen)
            screen = QGuiApplication::primaryScreen();
        corner = screen->geometry().topLeft();
        size = screen->geometry().size();
        usable = screen->availableGeometry();
    }
    ScreenPlace ToScreen(const QRect& rect) const {
        return {rect.x() - corner.x(), rect.y() - corner.y(), rect.width(), rect.height()};
    }
    QRect FromScreen(const ScreenPlace& place) const {
        return {place.left + corner.x(), place.top + corner.y(), place.width, place.height};
    }

    QPoint corner;
    QSize size;
    QRect usable;  ///< the part of the screen that no panel takes
};

}  // namespace

CK4CmnDlgK4FileTree::CK4CmnDlgK4FileTree(QWidget* parent, const char* registryKey, int expand)
    : CDialog(kNoTemplate, parent),
      m_target(parent),
      m_keeper(registryKey),
      m_opensRoot(expand != 0),
      m_tree(k4cmn::Provided<k4cmn::QuickFileTrees>::Current().Create(this)) {
    setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    setWindowTitle(tr("Files"));
    auto* grip = new k4cmn::BottomGrip(this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kBorder, kBorder, kBorder, kBorder);
    layout->setSpacing(0);
    // The window is as large as its owner says, whatever its parts would like.
    layout->setSizeConstraint(QLayout::SetNoConstraint);
    layout->addWidget(m_tree, 1);
    layout->addWidget(grip);
    resize(kOwnSize);
    SetUpKeys();
    connect(grip, &k4cmn::BottomGrip::Dragged, this, &CK4CmnDlgK4FileTree::ChangeHeight);
    connect(m_tree, &K4QuickFileTreeCtrl::Chosen, this, &CK4CmnDlgK4FileTree::FileChosen);
    connect(m_tree, &K4QuickFileTreeCtrl::Scrolled, this, &CK4CmnDlgK4FileTree::RepaintTree);
    connect(qApp, &QApplication::focusChanged, this, &CK4CmnDlgK4FileTree::FocusMoved);
}

CK4CmnDlgK4FileTree::~CK4CmnDlgK4FileTree() {
    DestroyWindow();
}

void CK4CmnDlgK4FileTree::SetUpKeys() {
    const auto step = [this](int direction) {
        const QRect screen(ScreenView(pos()).corner, ScreenView(pos()).size);
        const int next = height() + direction * fontMetrics().lineSpacing();
        // A window that was opened lower than the border may be moved grows to where it may.
        ChangeHeight(direction > 0 ? std::max(next, screen.height() / 7 + 1) : next);
    };
    for (const auto& [key, direction] : {std::pair(Qt::Key_Down, 1), std::pair(Qt::Key_Up, -1)}) {
        auto* shortcut = new QShortcut(QKeySequence(Qt::ALT | key), this);
        connect(shortcut, &QShortcut::activated, this, [step, by = direction] { step(by); });
    }
}

// Before it opens ----------------------------------------------------------------------------

void CK4CmnDlgK4FileTree::SetSignDirectory(std::uint32_t rows, std::uint32_t columns,
                                           tag_K4_SIGN_COLOR color, tag_K4_PIXEL_TECH pixel) {
    m_signType = SignType{rows, columns, color, pixel};
}

void CK4CmnDlgK4FileTree::SetInitialPosition(const QRect& rect, int useStoredSize) {
    m_place = rect;
    if (!useStoredSize)
        return;
    const ScreenView screen(rect.topLeft());
    m_place->setHeight(m_keeper.InitialHeight(rect.y() - screen.usable.y(), this->rect().height(),
                                              screen.usable.height()));
}

void CK4CmnDlgK4FileTree::MoveDialog(int x, int y, int width, int height, int useStoredSize) {
    QRect place(x, y, width, height);
    if (useStoredSize) {
        const ScreenView screen(place.topLeft());
        place.setHeight(m_keeper.MovedHeight(y - screen.usable.y(), screen.usable.height()));
    }
    m_place = place;
    if (HasWindow())
        setGeometry(place);
}

// Opening and ending -------------------------------------------------------------------------

int CK4CmnDlgK4FileTree::OnInitDialog() {
    CDialog::OnInitDialog();
    if (m_signType)
        m_tree->ConfineTo(m_signType->rows, m_signType->columns, m_signType->color,
                          m_signType->pixel);
    {
        const k4cmn::WaitCursor busy;
        m_tree->Fill();
    }
    if (m_opensRoot)
        m_tree->Expand(m_tree->RootItem());
    ShowAtPlace();
    return 1;
}

void CK4CmnDlgK4FileTree::ShowAtPlace() {
    const QRect place = m_place.value_or(geometry());
    const ScreenView screen(place.topLeft());
    setGeometry(screen.FromScreen(QuickTreePlace::OnScreen(
        screen.ToScreen(place), screen.size.width(), screen.size.height())));
    show();
    raise();
    activateWindow();
    m_tree->setFocus();
}

void CK4CmnDlgK4FileTree::OnDestroy() {
    m_keeper.Keep(rect().height());
    CDialog::OnDestroy();
}

void CK4CmnDlgK4FileTree::OnOK() {}

void CK4CmnDlgK4FileTree::OnCancel() {
    QWidget* const owner = m_target ? m_target->window() : nullptr;
    if (owner && owner->isVisible())
        owner->activateWindow();
    else
        DestroyWindow();
}

// Files --------------------------------------------------------------------------------------

bool CK4CmnDlgK4FileTree::IsFileSelected() const {
    const K4QuickTreeItem item = m_tree->SelectedItem();
    return !m_tree->IsFolder(item) && m_tree->IsFile(item);
}

void CK4CmnDlgK4FileTree::GetSelectedFile(std::string& path) const {
    path = IsFileSelected() ? m_tree->PathOf(m_tree->SelectedItem()) : std::string();
}

void CK4CmnDlgK4FileTree::SetSelectedFile(const std::string& path) {
    if (!path.empty())
        m_tree->SelectPath(path);
}

void CK4CmnDlgK4FileTree::FileChosen() {
    if (IsFileSelected())
        k4cmn::PostWindowMessage(m_target, k4cmn::WM_QUICK_TREE_CHOSEN);
}

// What a person does -------------------------------------------------------------------------

void CK4CmnDlgK4FileTree::FocusMoved(QWidget* from, QWidget* to) {
    const auto isOurs = [this](const QWidget* widget) {
        return widget && (widget == this || isAncestorOf(widget));
    };
    QWidget* const next = to ? to : QApplication::activeWindow();
    if (!isOurs(from) || isOurs(next))
        return;
    k4cmn::PostWindowMessage(m_target, k4cmn::WM_QUICK_TREE_LEFT,
                             reinterpret_cast<std::uintptr_t>(next));
}

void CK4CmnDlgK4FileTree::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        event->accept();
    else
        CDialog::keyPressEvent(event);
}

void CK4CmnDlgK4FileTree::RepaintTree() {
    m_tree->repaint();
    const QList<QWidget*> parts = m_tree->findChildren<QWidget*>();
    for (QWidget* part : parts) {
        if (part->isVisible())
            part->repaint();
    }
}

void CK4CmnDlgK4FileTree::ChangeHeight(int height) {
    const QRect dragged(pos(), QSize(width(), height));
    const ScreenView screen(pos());
    if (QuickTreePlace::AcceptsBottomDrag(screen.ToScreen(dragged), screen.size.width(),
                                          screen.size.height()))
        setGeometry(dragged);
}

void CK4CmnDlgK4FileTree::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Dark));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}
