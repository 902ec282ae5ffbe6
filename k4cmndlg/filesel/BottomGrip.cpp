#include "k4cmndlg/filesel/BottomGrip.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

namespace k4cmn {

BottomGrip::BottomGrip(QWidget* window) : QWidget(window) {
    setCursor(Qt::SizeVerCursor);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAccessibleName(tr("Height"));
    setToolTip(tr("Drag to change the height, or press Alt+Up or Alt+Down"));
}

BottomGrip::~BottomGrip() = default;

QSize BottomGrip::sizeHint() const {
    const int height = std::max(8, fontMetrics().height() / 2);
    return {8 * height, height};
}

void BottomGrip::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    m_isDragged = true;
    const QWidget* const shell = window();
    m_offset = shell->y() + shell->height() - event->globalPosition().toPoint().y();
}

void BottomGrip::mouseMoveEvent(QMouseEvent* event) {
    if (m_isDragged)
        Q_EMIT Dragged(event->globalPosition().toPoint().y() + m_offset - window()->y());
}

void BottomGrip::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        m_isDragged = false;
}

void BottomGrip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), palette().window());
    // A bar in the middle, that says where to take hold.
    const double thickness = height() / 4.0;
    QRectF bar(0, 0, std::min(width() / 3.0, 5.0 * height()), thickness);
    bar.moveCenter(QRectF(rect()).center());
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::Dark));
    painter.drawRoundedRect(bar, thickness / 2, thickness / 2);
}

}  // namespace k4cmn
