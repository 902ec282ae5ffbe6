#include "apps/preview/PictureArea.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include "apps/parts/SignView.h"
#include "apps/preview/ZoomSteps.h"

namespace preview {

namespace {

constexpr int kWheelStep = 120;  // an eighth of a degree is the unit
constexpr int kKeyStep = 40;     // in units of the window

}  // namespace

PictureArea::PictureArea(QWidget* parent) : QScrollArea(parent), m_view(new parts::SignView) {
    setObjectName(QStringLiteral("area"));
    setAccessibleName(tr("Picture"));
    setFrameShape(QFrame::NoFrame);
    setAlignment(Qt::AlignCenter);
    setFocusPolicy(Qt::StrongFocus);
    m_view->setObjectName(QStringLiteral("picture"));
    setWidget(m_view);
    QPalette colors = viewport()->palette();
    colors.setColor(QPalette::Window, parts::SignView::AroundColor());
    viewport()->setPalette(colors);
    viewport()->setAutoFillBackground(true);
}

void PictureArea::SetPicture(const QImage& picture) {
    const bool otherSize = picture.size() != m_view->Picture().size();
    m_view->SetPicture(picture);
    if (otherSize)
        Arrange();
}

void PictureArea::SetWords(const QString& words) {
    m_view->SetWords(words);
    Arrange();
}

int PictureArea::Zoom() const {
    return m_view->Zoom();
}

void PictureArea::SetZoom(int zoom) {
    ZoomAt(viewport()->rect().center(), zoom);
}

void PictureArea::ZoomIn() {
    SetZoom(LargerZoom(Zoom(), m_view->LampSize()));
}

void PictureArea::ZoomOut() {
    SetZoom(SmallerZoom(Zoom(), m_view->LampSize()));
}

void PictureArea::ZoomAt(const QPoint& point, int zoom) {
    if (zoom == Zoom())
        return;
    const QPointF lamp = m_view->LampAt(point - m_view->pos());
    m_view->SetZoom(zoom);
    Arrange();
    // The same lamp stays under the point.
    Scroll((m_view->PointOf(lamp) + m_view->pos()).toPoint() - point);
    Q_EMIT ZoomChanged(zoom);
}

void PictureArea::Arrange() {
    const bool fits = Zoom() == kFit || m_view->Picture().isNull();
    const auto policy = fits ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded;
    setHorizontalScrollBarPolicy(policy);
    setVerticalScrollBarPolicy(policy);
    m_view->resize(fits ? maximumViewportSize() : m_view->sizeHint());
}

void PictureArea::Scroll(const QPoint& by) {
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + by.x());
    verticalScrollBar()->setValue(verticalScrollBar()->value() + by.y());
}

void PictureArea::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    Arrange();
}

void PictureArea::wheelEvent(QWheelEvent* event) {
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QScrollArea::wheelEvent(event);
        return;
    }
    event->accept();
    m_wheel += event->angleDelta().y();
    const QPoint point = event->position().toPoint();
    for (; m_wheel >= kWheelStep; m_wheel -= kWheelStep)
        ZoomAt(point, LargerZoom(Zoom(), m_view->LampSize()));
    for (; m_wheel <= -kWheelStep; m_wheel += kWheelStep)
        ZoomAt(point, SmallerZoom(Zoom(), m_view->LampSize()));
}

void PictureArea::keyPressEvent(QKeyEvent* event) {
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QScrollArea::keyPressEvent(event);
        return;
    }
    switch (event->key()) {
        case Qt::Key_Left:
            return Scroll({-kKeyStep, 0});
        case Qt::Key_Right:
            return Scroll({kKeyStep, 0});
        case Qt::Key_Up:
            return Scroll({0, -kKeyStep});
        case Qt::Key_Down:
            return Scroll({0, kKeyStep});
        default:
            QScrollArea::keyPressEvent(event);
    }
}

void PictureArea::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    m_dragged = event->position().toPoint();
    if (Zoom() != kFit)
        viewport()->setCursor(Qt::ClosedHandCursor);
}

void PictureArea::mouseMoveEvent(QMouseEvent* event) {
    if (!event->buttons().testFlag(Qt::LeftButton))
        return;
    const QPoint point = event->position().toPoint();
    Scroll(m_dragged - point);
    m_dragged = point;
}

void PictureArea::mouseReleaseEvent(QMouseEvent*) {
    viewport()->unsetCursor();
}

}  // namespace preview
