#include "apps/samplepictures/Brushwork.h"

#include <QLinearGradient>
#include <QPen>
#include <QPolygonF>
#include <QRadialGradient>
#include <cstdint>

namespace k4sample {

void UseCells(QPainter& painter) {
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.scale(2, 2);
}

double Chance(int one, int other) {
    std::uint32_t mixed = static_cast<std::uint32_t>(one) * 2654435761U ^
                          (static_cast<std::uint32_t>(other) + 17U) * 2246822519U;
    mixed ^= mixed >> 15;
    mixed *= 2246822519U;
    mixed ^= mixed >> 13;
    mixed *= 3266489917U;
    mixed ^= mixed >> 16;
    return mixed / 4294967296.0;
}

double Rise(double time, double from, double to) {
    const double part = std::clamp((time - from) / (to - from), 0.0, 1.0);
    return part * part * (3 - 2 * part);
}

QColor Hue(double hue, double saturation, double value) {
    const double turned = hue - std::floor(hue);
    return QColor::fromHsvF(static_cast<float>(std::min(turned, 0.9999)),
                            static_cast<float>(std::clamp(saturation, 0.0, 1.0)),
                            static_cast<float>(std::clamp(value, 0.0, 1.0)));
}

QColor Dimmed(QColor color, double part) {
    const double kept = std::clamp(part, 0.0, 1.0);
    return QColor::fromRgbF(static_cast<float>(color.redF() * kept),
                            static_cast<float>(color.greenF() * kept),
                            static_cast<float>(color.blueF() * kept));
}

QBrush Downwards(double top, double bottom, QColor first, QColor last) {
    QLinearGradient gradient(0, top, 0, bottom);
    gradient.setColorAt(0, first);
    gradient.setColorAt(1, last);
    return gradient;
}

void DrawRays(QPainter& painter, QPointF centre, double radius, int count, double turn,
              QColor color) {
    QRadialGradient gradient(centre, radius);
    gradient.setColorAt(0, color);
    gradient.setColorAt(1, Dimmed(color, 0.15));
    painter.setPen(Qt::NoPen);
    painter.setBrush(gradient);
    for (int ray = 0; ray < count; ++ray) {
        const double angle = (turn + static_cast<double>(ray) / count) * kTurn;
        const double half = kTurn / count / 4;
        const auto corner = [&](double at) {
            return centre + QPointF(std::cos(at), std::sin(at)) * radius;
        };
        painter.drawPolygon(QPolygonF{centre, corner(angle - half), corner(angle + half)});
    }
}

void DrawBall(QPainter& painter, QPointF centre, double radius, double turn) {
    constexpr int kPatches = 5;
    QRadialGradient gradient(centre - QPointF(radius, radius) * 0.35, radius * 1.6);
    gradient.setColorAt(0, Qt::white);
    gradient.setColorAt(1, QColor(120, 130, 150));
    painter.setPen(Qt::NoPen);
    painter.setBrush(gradient);
    painter.drawEllipse(centre, radius, radius);
    painter.setBrush(QColor(15, 20, 40));
    const auto patch = [&](QPointF at, double size, double angle) {
        QPolygonF shape;
        for (int corner = 0; corner < kPatches; ++corner) {
            const double to = angle + kTurn * corner / kPatches;
            shape << at + QPointF(std::cos(to), std::sin(to)) * size;
        }
        painter.drawPolygon(shape);
    };
    patch(centre, radius * 0.34, turn * kTurn);
    for (int each = 0; each < kPatches; ++each) {
        const double angle = (turn + static_cast<double>(each) / kPatches) * kTurn;
        patch(centre + QPointF(std::cos(angle), std::sin(angle)) * radius * 0.78, radius * 0.22,
              angle + kTurn / 2);
    }
}

void DrawBurst(QPainter& painter, QPointF centre, double radius, double age, int seed,
               QColor color) {
    constexpr int kSparks = 40;
    if (age <= 0 || age >= 1)
        return;
    const double reach = radius * (1 - (1 - age) * (1 - age));
    for (int spark = 0; spark < kSparks; ++spark) {
        const double angle = Chance(seed, spark) * kTurn;
        const double speed = 0.35 + 0.65 * Chance(spark, seed);
        const QPointF direction(std::cos(angle), std::sin(angle));
        const QPointF fall(0, radius * 0.35 * age * age);
        const QPointF tip = centre + direction * reach * speed + fall;
        const QPointF tail = centre + direction * reach * speed * 0.8 + fall * 0.8;
        const double light = (1 - age * age) * (0.7 + 0.3 * Chance(spark, spark));
        painter.setPen(QPen(Dimmed(age < 0.2 ? QColor(Qt::white) : color, light), 1.8,
                            Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(tail, tip);
    }
}

void DrawArrow(QPainter& painter, const QRectF& field, double turn, const QBrush& brush) {
    const double side = std::min(field.width(), field.height());
    painter.save();
    painter.translate(field.center());
    painter.rotate(turn * 360);
    painter.scale(side, side);
    painter.setPen(Qt::NoPen);
    painter.setBrush(brush);
    painter.drawPolygon(QPolygonF{{-0.14, -0.46},
                                  {0.14, -0.46},
                                  {0.14, 0.02},
                                  {0.42, 0.02},
                                  {0, 0.46},
                                  {-0.42, 0.02},
                                  {-0.14, 0.02}});
    painter.restore();
}

void DrawCross(QPainter& painter, const QRectF& field, const QBrush& brush) {
    const double side = std::min(field.width(), field.height());
    painter.setPen(QPen(brush, side * 0.2, Qt::SolidLine, Qt::FlatCap));
    const QPointF arm(side * 0.38, side * 0.38);
    const QPointF other(side * 0.38, -side * 0.38);
    painter.drawLine(field.center() - arm, field.center() + arm);
    painter.drawLine(field.center() - other, field.center() + other);
}

}  // namespace k4sample
