#include "apps/preview/TransportIcon.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

namespace preview {

namespace {

// The signs are drawn in a square of 16 by 16.
constexpr double kEdge = 16;

QPainterPath Triangle(double from, double to) {
    QPainterPath path(QPointF(from, 3));
    path.lineTo(to, 8);
    path.lineTo(from, 13);
    path.closeSubpath();
    return path;
}

QPainterPath Bar(double left, double width) {
    QPainterPath path;
    path.addRect(left, 3, width, 10);
    return path;
}

/// A ring that is open at its upper right, with the head of an arrow there.
QPainterPath LoopPath() {
    QPainterPath arc;
    const QRectF circle(3, 3, 10, 10);
    arc.arcMoveTo(circle, 60);
    arc.arcTo(circle, 60, 300);
    QPainterPathStroker pen;
    pen.setWidth(2);
    QPainterPath path = pen.createStroke(arc);
    path.moveTo(14.8, 4.2);
    path.lineTo(14.2, 9.6);
    path.lineTo(9.8, 7.2);
    path.closeSubpath();
    return path;
}

QPainterPath PathOf(Transport sign) {
    switch (sign) {
        case Transport::First:
            return Bar(2.5, 2) + Triangle(13, 5);
        case Transport::Back:
            return Bar(11, 2) + Triangle(9.5, 3);
        case Transport::Play:
            return Triangle(4, 13);
        case Transport::Pause:
            return Bar(4, 3) + Bar(9, 3);
        case Transport::Forward:
            return Bar(3, 2) + Triangle(6.5, 13);
        case Transport::Last:
            return Triangle(3, 11) + Bar(11.5, 2);
        case Transport::Loop:
            return LoopPath();
    }
    return {};
}

class TransportEngine final : public QIconEngine {
 public:
    explicit TransportEngine(Transport sign) : m_sign(sign) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / kEdge, rect.height() / kEdge);
        painter->fillPath(PathOf(m_sign),
                          QGuiApplication::palette().color(group, QPalette::ButtonText));
        painter->restore();
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }
    QIconEngine* clone() const override { return new TransportEngine(m_sign); }

 private:
    const Transport m_sign;
};

}  // namespace

QIcon TransportIcon(Transport sign) {
    return QIcon(new TransportEngine(sign));
}

}  // namespace preview
