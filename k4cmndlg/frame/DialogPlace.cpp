#include "k4cmndlg/frame/DialogPlace.h"

#include <QGuiApplication>
#include <QScreen>
#include <vector>

#include "k4cmndlg/frame/CDialog.h"
#include "k4cmndlg/frame/Text.h"
#include "k4cmndlg/frame/WindowPlacement.h"
#include "k4cmndlg/frame/contracts/Profile.h"

namespace k4cmn {

namespace {

PixelRect FromQtRect(const QRect& rect) {
    return {rect.x(), rect.y(), rect.x() + rect.width(), rect.y() + rect.height()};
}

std::vector<PixelRect> Screens() {
    std::vector<PixelRect> screens;
    for (const QScreen* screen : QGuiApplication::screens())
        screens.push_back(FromQtRect(screen->availableGeometry()));
    return screens;
}

std::string SectionOf(const CDialog& dialog) {
    return PlacementSection(FromQt(dialog.windowTitle()));
}

bool IsSpread(const CDialog& dialog) {
    return (dialog.windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen)) != 0;
}

std::uint32_t ShowState(const CDialog& dialog) {
    if (dialog.isMinimized())
        return WindowPlacement::kShowMinimized;
    return dialog.isMaximized() ? WindowPlacement::kShowMaximized : WindowPlacement::kShowNormal;
}

}  // namespace

void DialogPlace::Restore(CDialog& dialog) {
    if (!dialog.isWindow())
        return;
    const std::string section = SectionOf(dialog);
    const PixelRect present = FromQtRect({dialog.pos(), dialog.size()});
    const auto placement =
        ParsePlacement(Provided<Profile>::Current().GetString(section, kPlacementValue));
    if (!placement)
        return;
    const PixelRect place = ClampToScreens(RestoredRect(placement->normal, present), Screens());
    m_restored = QPoint(place.left, place.top);
    dialog.move(m_restored);
    if (placement->showState != WindowPlacement::kShowMaximized)
        return;
    dialog.setWindowState(dialog.windowState() | Qt::WindowMaximized);
    m_normalThenKnown = dialog.normalGeometry();
}

QPoint DialogPlace::NormalPosition(const CDialog& dialog) const {
    if (!IsSpread(dialog))
        return dialog.pos();
    // The toolkit knows the normal place without its frame. A dialog that never left the state that
    // it opened in still has the place it was given; for any other the frame is as wide as now.
    if (dialog.normalGeometry() == m_normalThenKnown)
        return m_restored;
    return dialog.normalGeometry().topLeft() - (dialog.geometry().topLeft() - dialog.pos());
}

void DialogPlace::Save(const CDialog& dialog) const {
    const std::string section = SectionOf(dialog);
    const QSize size = IsSpread(dialog) ? dialog.normalGeometry().size() : dialog.size();
    if (!dialog.isWindow() || !size.isValid())
        return;
    WindowPlacement placement;
    placement.flags = dialog.isMaximized() ? WindowPlacement::kRestoreToMaximized : 0;
    placement.showState = ShowState(dialog);
    placement.normal = FromQtRect({NormalPosition(dialog), size});
    Provided<Profile>::Current().WriteString(section, kPlacementValue, FormatPlacement(placement));
}

}  // namespace k4cmn
