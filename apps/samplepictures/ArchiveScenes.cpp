#include <QPen>
#include <QPolygonF>
#include <QRadialGradient>
#include <array>

#include "apps/samplepictures/Brushwork.h"
#include "apps/samplepictures/Scene.h"
#include "apps/samplepictures/StrokeLetters.h"

namespace k4sample {

namespace {

void Sunset(Canvas& canvas) {
    QPainter& p = canvas.painter;
    p.fillRect(canvas.All(), Downwards(0, 44, QColor(60, 20, 110), QColor(255, 120, 40)));
    const QPointF sun(64, 36);
    QRadialGradient glow(sun, 46);
    glow.setColorAt(0, QColor(255, 240, 150, 220));
    glow.setColorAt(1, QColor(255, 120, 40, 0));
    p.fillRect(canvas.All(), glow);
    p.setPen(Qt::NoPen);
    p.setBrush(Downwards(20, 52, QColor(255, 250, 200), QColor(255, 170, 60)));
    p.drawEllipse(sun, 16, 16);
    p.fillRect(QRectF(0, 44, 128, 20), Downwards(44, 64, QColor(120, 40, 90), QColor(10, 10, 50)));
    for (int line = 0; line < 10; ++line) {
        const double y = 45 + line * 2.0;
        const double width = 13 - line * 0.6 + 3 * std::sin(canvas.Time() * kTurn * 2 + line * 1.3);
        p.fillRect(QRectF(64 - width, y, width * 2, 1), QColor(255, 200, 110, 210 - line * 16));
    }
    for (int gull = 0; gull < 3; ++gull) {
        const double x = std::fmod(20 + gull * 46 + canvas.Time() * 128, 128.0);
        const double y = 10 + gull * 4 + std::sin(canvas.Time() * kTurn * 2 + gull);
        const double wing = 1.6 * std::sin(canvas.Time() * kTurn * 8 + gull * 2);
        p.setPen(QPen(QColor(30, 10, 40), 1));
        p.setBrush(Qt::NoBrush);
        p.drawPolyline(QPolygonF{{x - 4, y - wing}, {x, y}, {x + 4, y - wing}});
    }
}

void Comet(Canvas& canvas) {
    QPainter& p = canvas.painter;
    for (int star = 0; star < 40; ++star)
        p.fillRect(static_cast<int>(Chance(star, 1) * 128), static_cast<int>(Chance(star, 2) * 32),
                   1, 1, Dimmed(Qt::white, 0.15 + 0.35 * Chance(star, canvas.frame / 3)));
    const QPointF head(-30 + canvas.Time() * 200, 24 - canvas.Time() * 18);
    for (int bit = 40; bit >= 0; --bit) {
        const double part = bit / 40.0;
        p.setPen(Qt::NoPen);
        p.setBrush(Dimmed(Hue(0.1 + 0.5 * part, 0.3 + 0.7 * part, 1), (1 - part) * (1 - part)));
        p.drawEllipse(head - QPointF(bit * 1.4, -bit * 0.13), 3.4 * (1 - part) + 0.5,
                      3.4 * (1 - part) + 0.5);
    }
}

void Carousel(Canvas& canvas) {
    QPainter& p = canvas.painter;
    const QPointF centre(48, 24);
    DrawRays(p, centre, 60, 8, canvas.Time() / 8, QColor(170, 0, 85));
    DrawRays(p, centre, 60, 8, canvas.Time() / 8 + 1.0 / 16, QColor(0, 0, 170));
    for (int lamp = 0; lamp < 12; ++lamp) {
        const double angle = (canvas.Time() / 2 + lamp / 12.0) * kTurn;
        p.setPen(Qt::NoPen);
        p.setBrush(Hue(lamp / 6.0));
        p.drawEllipse(centre + QPointF(std::cos(angle) * 40, std::sin(angle) * 18), 4, 4);
    }
    p.setBrush(QColor(255, 255, 85));
    p.drawEllipse(centre, 8, 8);
}

void Moon(Canvas& canvas) {
    QPainter& p = canvas.painter;
    for (int star = 0; star < 30; ++star)
        p.fillRect(static_cast<int>(Chance(star, 4) * 96), static_cast<int>(Chance(star, 5) * 32),
                   1, 1, Dimmed(Qt::white, 0.2 + 0.3 * Chance(star, 6)));
    const QPointF centre(48, 16);
    QRadialGradient light(centre - QPointF(4, 4), 20);
    light.setColorAt(0, Qt::white);
    light.setColorAt(1, QColor(110, 110, 110));
    p.setPen(Qt::NoPen);
    p.setBrush(light);
    p.drawEllipse(centre, 13, 13);
    p.setBrush(QColor(150, 150, 150));
    p.drawEllipse(centre + QPointF(4, -3), 3, 3);
    p.drawEllipse(centre + QPointF(-5, 4), 2.2, 2.2);
    p.drawEllipse(centre + QPointF(1, 7), 1.6, 1.6);
    p.setBrush(QColor(Qt::black));
    p.drawEllipse(centre + QPointF(-30 + 60 * canvas.Time(), 0), 13.6, 13.6);
}

void Equaliser(Canvas& canvas) {
    for (int bar = 0; bar < 16; ++bar) {
        const double level = 0.5 + 0.3 * std::sin(canvas.Time() * kTurn * 2 + bar * 0.9) +
                             0.2 * std::sin(canvas.Time() * kTurn * 3 + bar * 1.7);
        for (int step = 0; step < static_cast<int>(level * 12); ++step)
            canvas.painter.fillRect(
                bar * 5, 22 - step * 2, 4, 1,
                QColor(std::min(255, step * 34), std::max(0, 255 - std::max(0, step - 6) * 60), 0));
    }
}

}  // namespace

std::vector<SceneSet> ArchiveScenes() {
    return {
        {64,
         128,
         "RGB16MB",
         "LED",
         {{"Default", "Sunset", 40, "80", "sea sunset", "Old pier sign, taken down.", Sunset}}},
        {32, 128, "RGB4K", "LED", {{"Default", "Comet", 40, "50", "comet stars", "", Comet}}},
        {48,
         96,
         "Quad256",
         "Incand",
         {{"Default", "Carousel", 32, "80", "fair carousel", "Fair of the harbour days.",
           Carousel}}},
        {32,
         96,
         "Mono64",
         "LED",
         {{"Default", "Moon", 40, "100", "moon night", "", Moon, {"--thumbnail", "8"}}}},
        {24,
         80,
         "Tri256",
         "LED",
         {{"Default", "Equaliser", 40, "60", "music bars", "", Equaliser}}},
    };
}

}  // namespace k4sample
