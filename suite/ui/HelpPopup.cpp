#include "suite/ui/HelpPopup.h"

#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QToolTip>
#include <QVBoxLayout>
#include <algorithm>

namespace k4suite {

namespace {

constexpr int kWidth = 320;
constexpr int kGap = 2;
constexpr int kEdge = 4;  // kept free at the edges of the screen

}  // namespace

void HelpPopup::ShowAt(QWidget* control, const QString& markdown) {
    auto* const popup = new HelpPopup(control, markdown);
    popup->PlaceAt(control ? QRect(control->mapToGlobal(QPoint(0, 0)), control->size())
                           : QRect(QCursor::pos(), QSize(1, 1)));
    popup->show();
    popup->setFocus();
}

HelpPopup::HelpPopup(QWidget* control, const QString& markdown)
    : QFrame(control ? control->window() : nullptr, Qt::Popup) {
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("helpPopup"));
    setFrameShape(QFrame::Box);
    setPalette(QToolTip::palette());
    setBackgroundRole(QPalette::ToolTipBase);
    setForegroundRole(QPalette::ToolTipText);
    setFocusPolicy(Qt::StrongFocus);

    auto* const label = new QLabel(this);
    label->setTextFormat(Qt::MarkdownText);
    label->setText(markdown);
    label->setWordWrap(true);
    label->setForegroundRole(QPalette::ToolTipText);
    // As wide as it may be before it wraps: a label left to itself would rather be square.
    label->setMinimumWidth(std::min(kWidth, label->fontMetrics().horizontalAdvance(markdown)));
    label->setMaximumWidth(kWidth);
    setAccessibleName(tr("Help"));
    setAccessibleDescription(markdown);

    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(8, 6, 8, 6);
    rows->addWidget(label);
}

void HelpPopup::PlaceAt(const QRect& control) {
    adjustSize();
    const QScreen* screen = QGuiApplication::screenAt(control.center());
    const QRect room = (screen ? screen : QGuiApplication::primaryScreen())
                           ->availableGeometry()
                           .adjusted(kEdge, kEdge, -kEdge, -kEdge);
    QPoint place(control.left(), control.bottom() + kGap);
    if (place.y() + height() > room.bottom())
        place.setY(control.top() - kGap - height());
    place.setX(std::max(room.left(), std::min(place.x(), room.right() - width())));
    place.setY(std::max(room.top(), place.y()));
    move(place);
}

void HelpPopup::keyPressEvent(QKeyEvent*) {
    close();
}

void HelpPopup::mousePressEvent(QMouseEvent*) {
    close();
}

}  // namespace k4suite
