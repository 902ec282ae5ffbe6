#include <QPen>
#include <QPolygonF>
#include <QRadialGradient>
#include <string>

#include "apps/samplepictures/Brushwork.h"
#include "apps/samplepictures/Scene.h"
#include "apps/samplepictures/StrokeLetters.h"

namespace k4sample {

namespace {

const QColor kGold(255, 196, 32);
const QColor kGrass(24, 120, 48);
const QColor kNight(8, 12, 44);

void DrawSpotlight(QPainter& painter, QPointF foot, double angle, QColor color, double length) {
    QRadialGradient gradient(foot, length);
    QColor begin = color;
    QColor end = color;
    begin.setAlpha(170);
    end.setAlpha(0);
    gradient.setColorAt(0, begin);
    gradient.setColorAt(1, end);
    const auto edge = [&](double at) {
        return foot + QPointF(std::sin(at), -std::cos(at)) * length;
    };
    painter.setPen(Qt::NoPen);
    painter.setBrush(gradient);
    painter.drawPolygon(QPolygonF{foot, edge(angle - 0.13), edge(angle + 0.13)});
}

void DrawCrowd(QPainter& painter, int columns, int top, int rows, double time) {
    for (int row = 0; row < rows; row += 3)
        for (int column = row % 2; column < columns; column += 3) {
            const double hue = 0.55 + 0.5 * Chance(column, row);
            const double flash = Chance(column * 7 + row, static_cast<int>(time * 24)) > 0.985;
            painter.fillRect(
                column, top + row, 2, 2,
                flash > 0 ? QColor(Qt::white) : Hue(hue, 0.5, 0.18 + 0.2 * Chance(row, column)));
        }
}

void Welcome(Canvas& canvas) {
    QPainter& p = canvas.painter;
    const double time = canvas.Time();
    p.fillRect(canvas.All(), Downwards(0, canvas.rows, kNight, QColor(40, 24, 96)));
    DrawCrowd(p, canvas.columns, canvas.rows - 15, 15, time);
    p.setCompositionMode(QPainter::CompositionMode_Plus);
    const double sway = std::sin(time * kTurn);
    DrawSpotlight(p, {20, 64.0}, 0.45 + 0.35 * sway, QColor(90, 140, 255), 95);
    DrawSpotlight(p, {172, 64.0}, -0.45 + 0.35 * sway, QColor(255, 90, 160), 95);
    DrawSpotlight(p, {96, 66.0}, -0.5 * std::sin(time * kTurn + 1), QColor(120, 255, 200), 85);
    p.setCompositionMode(QPainter::CompositionMode_SourceOver);
    const StrokeLetters letters("WELCOME", 25);
    letters.DrawGlowing(p, {0, 5, 192, 32}, Downwards(8, 34, Qt::white, kGold),
                        QColor(255, 150, 0));
    StrokeLetters("TO THE STADIUM", 10.5, 0.19).DrawCentred(p, {0, 37, 192, 14}, Qt::white);
}

void Goal(Canvas& canvas) {
    QPainter& p = canvas.painter;
    const double time = canvas.Time();
    p.fillRect(canvas.All(), QColor(0, 24, 60));
    DrawRays(p, {96, 32}, 130, 12, time / 12 * 3, QColor(0, 90, 200));
    const double shown = Rise(time, 0.28, 0.42);
    if (time < 0.42) {
        const double fly = Rise(time, 0, 0.34);
        DrawBall(p, {-20 + 116 * fly, 54 - 22 * fly - 14 * std::sin(fly * 3.1)}, 6 + 15 * fly,
                 time * 4);
    }
    if (shown <= 0)
        return;
    for (int burst = 0; burst < 5; ++burst)
        DrawBurst(p, {20 + 38.0 * burst, 14 + 12.0 * (burst % 2)}, 34,
                  (time - 0.36 - 0.09 * burst) / 0.28, burst, Hue(0.13 * burst));
    const double beat = 1 + 0.06 * std::sin((time - 0.42) * kTurn * 4) * Rise(time, 0.42, 0.5);
    p.save();
    p.translate(96, 32);
    p.scale(shown * beat, shown * beat);
    StrokeLetters("GOAL!", 46, 0.19)
        .DrawGlowing(p, {-96, -32, 192, 64},
                     Downwards(0, 46, QColor(255, 244, 150), QColor(255, 120, 0)),
                     QColor(255, 60, 0));
    p.restore();
}

void KickOff(Canvas& canvas) {
    QPainter& p = canvas.painter;
    constexpr int kSteps = 4;
    const double step = canvas.Time() * kSteps;
    const int number = 3 - static_cast<int>(step);
    const double part = step - std::floor(step);
    // The pitch from above.
    for (int stripe = 0; stripe < 12; ++stripe)
        p.fillRect(stripe * 16, 0, 16, 64, stripe % 2 ? kGrass : kGrass.darker(125));
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(QColor(200, 240, 200, 150), 1.2));
    p.drawRect(QRectF(3, 3, 186, 58));
    p.drawLine(QPointF(96, 3), QPointF(96, 61));
    p.drawEllipse(QPointF(96, 32), 20, 20);
    p.drawRect(QRectF(3, 16, 22, 32));
    p.drawRect(QRectF(167, 16, 22, 32));
    if (number > 0) {
        p.setPen(QPen(QColor(255, 255, 255, static_cast<int>(255 * (1 - part))), 3));
        p.drawEllipse(QPointF(96, 32), 22 + part * 60, 22 + part * 60);
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(0, 0, 0, 150));
        p.drawEllipse(QPointF(96, 32), 27, 27);
        const double size = 30 + 16 * (1 - Rise(part, 0, 0.35));
        StrokeLetters(std::to_string(number), size, 0.2).DrawCentred(p, canvas.All(), kGold);
        return;
    }
    StrokeLetters("KICK-OFF", 30, 0.19)
        .DrawGlowing(p, canvas.All(), Qt::white, QColor(0, 0, 0, 220));
}

void HalfTime(Canvas& canvas) {
    QPainter& p = canvas.painter;
    p.fillRect(canvas.All(), Downwards(0, 64, QColor(30, 30, 60), Qt::black));
    p.fillRect(QRectF(0, 0, 192, 15), Downwards(0, 15, QColor(200, 20, 40), QColor(110, 0, 20)));
    StrokeLetters("HALF TIME", 10, 0.2).DrawCentred(p, {0, 0, 192, 15}, Qt::white);
    const double shine = canvas.Time() * 260 - 30;
    p.fillRect(QRectF(shine, 0, 10, 15), QColor(255, 255, 255, 60));
    const QBrush gold = Downwards(24, 58, QColor(255, 240, 170), kGold);
    p.setPen(Qt::NoPen);
    for (const double left : {10.0, 108.0}) {
        p.setBrush(Downwards(22, 60, QColor(60, 60, 90), QColor(20, 20, 40)));
        p.drawRoundedRect(QRectF(left, 20, 74, 40), 5, 5);
    }
    StrokeLetters("2", 32).DrawCentred(p, {50, 20, 34, 40}, gold);
    StrokeLetters("1", 32).DrawCentred(p, {108, 20, 34, 40}, gold);
    StrokeLetters("HAR", 13, 0.19).DrawCentred(p, {12, 20, 42, 40}, QColor(90, 190, 255));
    StrokeLetters("ROV", 13, 0.19).DrawCentred(p, {139, 20, 42, 40}, QColor(255, 110, 110));
    if (canvas.frame % 10 < 7) {
        p.setBrush(Qt::white);
        p.drawEllipse(QPointF(96, 34), 2.4, 2.4);
        p.drawEllipse(QPointF(96, 46), 2.4, 2.4);
    }
}

void CrowdWave(Canvas& canvas) {
    QPainter& p = canvas.painter;
    p.setPen(Qt::NoPen);
    for (int row = 0; row < 10; ++row)
        for (int column = 0; column < 32; ++column) {
            const double phase = canvas.Time() - column / 32.0 + row * 0.012;
            const double lift = std::pow(0.5 + 0.5 * std::cos(phase * kTurn), 3);
            const QPointF at(3 + column * 6.0, 8 + row * 6.0 - lift * 5);
            p.setBrush(Hue(0.58 + 0.34 * lift, 0.9, 0.3 + 0.7 * lift));
            p.drawEllipse(at, 2.3 + lift * 0.7, 2.3 + lift * 0.7);
        }
}

void WayOut(Canvas& canvas) {
    QPainter& p = canvas.painter;
    p.fillRect(canvas.All(), QColor(0, 66, 34));
    p.setPen(QPen(Qt::white, 2));
    p.setBrush(Qt::NoBrush);
    p.drawRoundedRect(QRectF(2, 2, 188, 60), 6, 6);
    StrokeLetters("EXIT", 30).DrawCentred(p, {8, 0, 96, 64}, Qt::white);
    for (int arrow = 0; arrow < 3; ++arrow) {
        const double light = std::fmod(canvas.Time() * 2 - arrow * 0.22 + 2, 1.0);
        DrawArrow(p, {108 + arrow * 25.0, 19, 26, 26}, -0.25,
                  Dimmed(Qt::white, 0.25 + 0.75 * (1 - light)));
    }
}

void OpeningTitle(Canvas& canvas) {
    QPainter& p = canvas.painter;
    const double time = canvas.Time();
    p.fillRect(canvas.All(), Downwards(0, 64, Qt::black, QColor(60, 0, 50)));
    for (int star = 0; star < 70; ++star) {
        const double depth = std::fmod(Chance(star) + time * (1 + star % 2), 1.0);
        const double angle = Chance(star, 3) * kTurn;
        const QPointF at =
            QPointF(96, 32) + QPointF(std::cos(angle) * 110, std::sin(angle) * 50) * depth;
        p.fillRect(QRectF(at, QSizeF(1 + depth, 1 + depth)), Dimmed(Qt::white, depth));
    }
    StrokeLetters("OPENING", 20)
        .DrawGlowing(p, {0, 6, 192, 26}, Downwards(8, 30, Qt::white, QColor(120, 200, 255)),
                     QColor(0, 90, 255));
    StrokeLetters("SHOW", 20)
        .DrawGlowing(p, {0, 33, 192, 26},
                     Downwards(34, 56, QColor(255, 240, 160), QColor(255, 130, 20)),
                     QColor(255, 40, 0));
}

}  // namespace

SceneSet MainBoardScenes() {
    return {64,
            192,
            "RGB16M",
            "LED",
            {
                {"Default", "Welcome", 40, "60", "welcome gates crowd",
                 "Before the gates open.\nLoops without a seam.", Welcome},
                {"Default",
                 "Half Time",
                 20,
                 "100",
                 "score half time",
                 "Change the figures before the game!",
                 HalfTime,
                 {"--thumbnail", "4"}},
                {"Default",
                 "Opening Show",
                 24,
                 "50",
                 "show opening",
                 "Title, welcome, countdown, wave. For the first game of the season.",
                 OpeningTitle,
                 {"--include", "Welcome.SQ4", "--include", "..\\Events.Lib\\Kick Off.SQ4",
                  "--include", "..\\Events.Lib\\Crowd Wave.SQ4"}},
                {"Events",
                 "Goal",
                 48,
                 "50",
                 "goal home score",
                 "Home side only.",
                 Goal,
                 {"--thumbnail", "36"}},
                {"Events", "Kick Off", 40, "100", "countdown kick off",
                 "Start it three seconds before the whistle.", KickOff},
                {"Events", "Crowd Wave", 32, "50", "wave crowd", "Runs the way of the real one.",
                 CrowdWave},
                {"Safety", "Way Out", 20, "80", "exit safety",
                 "With the announcement of the stewards.", WayOut},
            }};
}

}  // namespace k4sample
