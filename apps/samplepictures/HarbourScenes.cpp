#include <QPen>
#include <QPolygonF>
#include <array>
#include <string>

#include "apps/samplepictures/Brushwork.h"
#include "apps/samplepictures/DotLetters.h"
#include "apps/samplepictures/Scene.h"
#include "apps/samplepictures/StrokeLetters.h"

namespace k4sample {

namespace {

// Lane Board: 64 by 256 lamps are 32 by 128 cells -------------------------------------------------

constexpr int kLanes = 3;

QRectF LaneField(int lane) {
    return {3 + lane * 43.0, 0, 36, 32};
}

void DrawLaneMarks(QPainter& painter) {
    for (int lane = 1; lane < kLanes; ++lane)
        for (int y = 1; y < 32; y += 8)
            painter.fillRect(lane * 43 - 1, y, 2, 5, Qt::white);
}

void DrawSpeed(QPainter& painter, const QRectF& field, const std::string& speed) {
    painter.setPen(QPen(Qt::red, 4));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(field.center(), 13, 13);
    DrawDots(painter,
             {static_cast<int>(field.center().x()) - 5, static_cast<int>(field.center().y()) - 3},
             speed, Qt::white);
}

void LanesOpen(Canvas& canvas) {
    UseCells(canvas.painter);
    QPainter& p = canvas.painter;
    DrawLaneMarks(p);
    for (int lane = 0; lane < kLanes; ++lane)
        DrawArrow(p, LaneField(lane).adjusted(3, 1, -3, -1), 0, QColor(Qt::green));
}

void LaneClosed(Canvas& canvas) {
    UseCells(canvas.painter);
    QPainter& p = canvas.painter;
    DrawLaneMarks(p);
    DrawSpeed(p, LaneField(0), "60");
    if (canvas.frame < 3)
        DrawArrow(p, LaneField(1).adjusted(3, 1, -3, -1), 0.125, QColor(Qt::yellow));
    DrawCross(p, LaneField(2), QColor(Qt::red));
}

void BridgeLifts(Canvas& canvas) {
    UseCells(canvas.painter);
    QPainter& p = canvas.painter;
    const double open = 0.5 - 0.5 * std::cos(canvas.Time() * kTurn);
    for (int column = 0; column < 60; ++column) {
        const int wave =
            static_cast<int>(std::lround(1.2 * std::sin(column * 0.5 - canvas.Time() * kTurn * 2)));
        p.fillRect(column, 27 + wave, 1, 5 - wave, Qt::blue);
    }
    p.fillRect(2, 20, 5, 9, Qt::white);
    p.fillRect(53, 20, 5, 9, Qt::white);
    p.setPen(QPen(Qt::yellow, 2));
    const double angle = open * 1.0;
    const QPointF arm(std::cos(angle) * 22, -std::sin(angle) * 22);
    p.drawLine(QPointF(7, 20), QPointF(7, 20) + arm);
    p.drawLine(QPointF(52, 20), QPointF(52, 20) + QPointF(-arm.x(), arm.y()));
    DrawDots(p, {68, 4}, "BRIDGE", Qt::white);
    DrawDots(p, {68, 13}, "OPEN", canvas.frame % 6 < 4 ? Qt::red : Qt::black);
    DrawDots(p, {68, 22}, "STOP HERE", Qt::yellow);
}

void BridgeGreeting(Canvas& canvas) {
    UseCells(canvas.painter);
    QPainter& p = canvas.painter;
    constexpr std::array<QRgb, 6> kColors = {0xFFFF0000, 0xFFFFFF00, 0xFF00FF00,
                                             0xFF00FFFF, 0xFF0000FF, 0xFFFF00FF};
    for (int flag = 0; flag < 16; ++flag) {
        const double sag = 3 - 3 * std::pow((flag - 7.5) / 7.5, 2);
        const int top = static_cast<int>(sag + std::sin(canvas.Time() * kTurn + flag) * 1.2 + 1);
        const QColor color(kColors[static_cast<std::size_t>(flag) % kColors.size()]);
        for (int row = 0; row < 6; ++row)
            p.fillRect(flag * 8 + 1 + row / 2, top + row, 7 - row / 2 * 2, 1, color);
    }
    DrawDotsCentred(p, 128, 15, "REGATTA", Qt::white, 2);
}

// Ferry and Berth ---------------------------------------------------------------------------------

void DrawFerry(QPainter& p, double x, double y) {
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(Qt::white));
    p.drawPolygon(QPolygonF{{x, y}, {x + 30, y}, {x + 26, y + 6}, {x + 4, y + 6}});
    p.setBrush(QColor(170, 170, 170));
    p.drawRect(QRectF(x + 6, y - 5, 17, 5));
    p.setBrush(QColor(120, 120, 120));
    p.drawRect(QRectF(x + 12, y - 10, 4, 5));
    for (int window = 0; window < 4; ++window)
        p.fillRect(QRectF(x + 8 + window * 4, y - 4, 2, 2), Qt::black);
}

void FerryComes(Canvas& canvas) {
    QPainter& p = canvas.painter;
    const double x = canvas.columns - canvas.Time() * (canvas.columns + 36);
    const double rock = std::sin(canvas.Time() * kTurn * 3);
    for (int puff = 0; puff < 4; ++puff) {
        const double age = std::fmod(canvas.Time() * 6 + puff * 0.25, 1.0);
        p.setPen(Qt::NoPen);
        p.setBrush(Dimmed(Qt::white, 0.5 * (1 - age)));
        p.drawEllipse(QPointF(x + 14 + age * 20, 3.5 - age * 2), 1 + age * 2.5, 1 + age * 2);
    }
    DrawFerry(p, x, 14 + rock * 0.6);
    for (int column = 0; column < canvas.columns; ++column) {
        const double top = 19 + 1.3 * std::sin(column * 0.3 + canvas.Time() * kTurn * 4);
        p.fillRect(QRectF(column, top, 1, 24 - top),
                   Downwards(18, 24, QColor(150, 150, 150), QColor(30, 30, 30)));
    }
}

void FerryTimes(Canvas& canvas) {
    QPainter& p = canvas.painter;
    constexpr std::array kRows = {"ISLAND", "NORTH PT"};
    constexpr std::array kTimes = {"14:20", "14:45"};
    for (std::size_t row = 0; row < kRows.size(); ++row) {
        const int top = 3 + static_cast<int>(row) * 11;
        DrawDots(p, {2, top}, kRows[row], Dimmed(Qt::white, 0.75));
        const char* time = row == 0 && canvas.frame % 2 == 1 ? "BOARD" : kTimes[row];
        DrawDots(p, {canvas.columns - 2 - DotsWidth(time), top}, time, Qt::white);
    }
    p.fillRect(2, 12, canvas.columns - 4, 1, Dimmed(Qt::white, 0.2));
}

void BerthFree(Canvas& canvas) {
    QPainter& p = canvas.painter;
    p.setRenderHint(QPainter::Antialiasing, false);
    DrawDots(p, {1, 1}, "BERTH 1", Qt::yellow);
    DrawDots(p, {1, 9}, "FREE", Qt::green);
    for (int chevron = 0; chevron < 3; ++chevron) {
        const bool lit = canvas.frame % 3 == chevron;
        for (int row = 0; row < 7; ++row)
            p.fillRect(34 + chevron * 9 + (row < 4 ? row : 6 - row), 9 + row, 2, 1,
                       lit ? Qt::green : Qt::black);
    }
    p.fillRect(52, 1, 11, 7, Qt::green);
    p.fillRect(53, 2, 9, 5, Qt::black);
    p.fillRect(55, 4, 5, 1, Qt::green);
}

void BerthTaken(Canvas& canvas) {
    QPainter& p = canvas.painter;
    p.setRenderHint(QPainter::Antialiasing, false);
    DrawDots(p, {1, 1}, "BERTH 1", Qt::yellow);
    DrawDots(p, {1, 9}, "TAKEN", Qt::red);
    if (canvas.frame % 2 == 0)
        DrawCross(p, {46, 0, 17, 16}, QColor(Qt::red));
}

// Tide --------------------------------------------------------------------------------------------

void DrawTide(Canvas& canvas, double level, const char* height, bool rises) {
    QPainter& p = canvas.painter;
    p.setRenderHint(QPainter::Antialiasing, false);
    for (int column = 0; column < 16; ++column) {
        const double wave = std::sin((column / 8.0 + canvas.Time()) * kTurn);
        const int top = static_cast<int>(std::lround(16 - level + wave));
        for (int row = top; row < 16; ++row)
            if (row <= top + 1 || (row + column) % 2 == 0)
                p.fillRect(column, row, 1, 1, Qt::white);
    }
    DrawDots(p, {19, 1}, height, Qt::white);
    for (int row = 0; row < 3; ++row) {
        const int step = rises ? row : 2 - row;
        p.fillRect(42 - step, 2 + row * 2, 1 + 2 * step, 2, Qt::white);
    }
    DrawDots(p, {19, 9}, "TIDE", Qt::white);
}

void HighTide(Canvas& canvas) {
    DrawTide(canvas, 12, "3.4", true);
}

void LowTide(Canvas& canvas) {
    DrawTide(canvas, 5, "0.8", false);
}

}  // namespace

std::vector<SceneSet> HarbourScenes() {
    return {
        {64,
         256,
         "Quad16",
         "Incand",
         {
             {"Default", "Lanes Open", 1, "1000", "lanes open", "All three.", LanesOpen},
             {"Default", "Regatta", 24, "100", "flags regatta", "First weekend of July.",
              BridgeGreeting},
             {"Safety", "Lane 3 Closed", 4, "400", "lane closed works",
              "With the speed limit of lane 1.", LaneClosed},
             {"Safety",
              "Bridge Lifts",
              36,
              "120",
              "bridge stop",
              "Started by the bridge master.",
              BridgeLifts,
              {"--thumbnail", "14"}},
         }},
        {24,
         96,
         "Mono16",
         "LED",
         {
             {"Default",
              "Times",
              2,
              "1500",
              "ferry times",
              "Summer timetable.",
              FerryTimes,
              {"--type", "data"}},
             {"Events",
              "Ferry Comes",
              60,
              "80",
              "ferry boat",
              "When the ferry has passed the buoy.",
              FerryComes,
              {"--thumbnail", "30"}},
         }},
        {16,
         64,
         "Tri3",
         "LED",
         {
             {"Default", "Berth Free", 3, "300", "berth free", "", BerthFree},
             {"Default", "Berth Taken", 2, "800", "berth taken", "", BerthTaken},
         }},
        {16,
         48,
         "Mono1",
         "Reflect",
         {
             {"Default",
              "High Tide",
              12,
              "250",
              "tide high",
              "Metres above chart datum.",
              HighTide,
              {"--type", "data"}},
             {"Default",
              "Low Tide",
              12,
              "250",
              "tide low",
              "Metres above chart datum.",
              LowTide,
              {"--type", "data"}},
         }},
    };
}

}  // namespace k4sample
