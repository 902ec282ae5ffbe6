#include "k4cmndlg/filesel/SplitterHandle.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace k4cmn {

namespace {

constexpr int kStep = 10;     ///< pixels of an arrow key
constexpr int kBigStep = 50;  ///< with Page Up and Page Down

}  // namespace

SplitterHandle::SplitterHandle(QWidget* parent) : QWidget(parent) {
    setCursor(Qt::SplitHCursor);
    setFocusPolicy(Qt::TabFocus);
    setAccessibleName(QStringLiteral("Border between folders and files"));
    setAccessibleDescription(QStringLiteral("Moved by the arrow keys"));
}

SplitterHandle::~SplitterHandle() = default;

void SplitterHandle::mousePressEvent(QMouseEvent* event) {
    m_isDragging = event->button() == Qt::LeftButton;
}

void SplitterHandle::mouseMoveEvent(QMouseEvent* event) {
    if (m_isDragging)
        Q_EMIT Dragged(mapToParent(event->position().toPoint()).x());
}

void SplitterHandle::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        m_isDragging = false;
}

void SplitterHandle::leaveEvent(QEvent*) {
    if (!m_isDragging)
        Q_EMIT Left();
}

void SplitterHandle::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Left:
            Q_EMIT Stepped(-kStep);
            return;
        case Qt::Key_Right:
            Q_EMIT Stepped(kStep);
            return;
        case Qt::Key_PageUp:
            Q_EMIT Stepped(-kBigStep);
            return;
        case Qt::Key_PageDown:
            Q_EMIT Stepped(kBigStep);
            return;
        default:
            QWidget::keyPressEvent(event);
    }
}

void SplitterHandle::focusInEvent(QFocusEvent*) {
    update();
}

void SplitterHandle::focusOutEvent(QFocusEvent*) {
    update();
    Q_EMIT Left();
}

void SplitterHandle::paintEvent(QPaintEvent*) {
    if (hasFocus())
        QPainter(this).fillRect(rect(), palette().highlight());
}

}  // namespace k4cmn
