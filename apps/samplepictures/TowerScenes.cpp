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

// Tower Wall --------------------------------------------------------------------------------------

void DrawStars(Canvas& canvas, int count, double below) {
    for (int star = 0; star < count; ++star) {
        const double twinkle =
            0.4 + 0.6 * std::pow(std::sin((canvas.Time() + Chance(star)) * kTurn / 2), 2);
        canvas.painter.fillRect(static_cast<int>(Chance(star, 1) * canvas.columns),
                                static_cast<int>(Chance(star, 2) * below), 1, 1,
                                Dimmed(Qt::white, twinkle));
    }
}

void Aurora(Canvas& canvas) {
    QPainter& p = canvas.painter;
    DrawStars(canvas, 60, 40);
    for (int column = 0; column < canvas.columns; ++column) {
        const double x = column / 256.0;
        const double a = std::sin((x * 2 + canvas.Time()) * kTurn);
        const double b = std::sin((x * 3 - canvas.Time()) * kTurn + 1);
        const double top = 14 + 7 * a + 5 * b;
        const double light = 0.55 + 0.45 * std::sin((x * 5 + canvas.Time() * 2) * kTurn);
        QLinearGradient curtain(0, top - 6, 0, top + 34);
        const QColor color = Hue(0.36 + 0.18 * (0.5 + 0.5 * a), 0.9, 1);
        curtain.setColorAt(0, Qt::black);
        curtain.setColorAt(0.2, Dimmed(color, light));
        curtain.setColorAt(0.5, Dimmed(Hue(0.8, 0.8, 1), light * 0.45));
        curtain.setColorAt(1, Qt::black);
        p.setCompositionMode(QPainter::CompositionMode_Plus);
        p.fillRect(QRectF(column, top - 6, 1, 40), curtain);
    }
    p.setCompositionMode(QPainter::CompositionMode_SourceOver);
    QPolygonF hills{{0, 64}};
    for (int column = 0; column <= canvas.columns; column += 4)
        hills << QPointF(column, 55 - 5 * std::sin(column * 0.045) - 3 * std::sin(column * 0.11));
    hills << QPointF(canvas.columns, 64);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0, 0, 60));
    p.drawPolygon(hills);
}

void Fireworks(Canvas& canvas) {
    for (int rocket = 0; rocket < 9; ++rocket) {
        const double start = rocket / 9.0;
        double age = canvas.Time() - start;
        age -= std::floor(age);
        const QPointF at(24 + Chance(rocket, 5) * 208, 12 + Chance(rocket, 6) * 20);
        if (age < 0.18) {
            const double fly = age / 0.18;
            canvas.painter.setPen(QPen(QColor(255, 200, 120), 1.2));
            const QPointF now(at.x(), 64 - (64 - at.y()) * fly);
            canvas.painter.drawLine(now, now + QPointF(0, 6));
        }
        DrawBurst(canvas.painter, at, 30, (age - 0.18) / 0.4, rocket, Hue(Chance(rocket, 7)));
    }
}

void GoodNight(Canvas& canvas) {
    QPainter& p = canvas.painter;
    p.fillRect(canvas.All(), Downwards(0, 64, QColor(0, 0, 85), QColor(85, 0, 85)));
    DrawStars(canvas, 50, 34);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(255, 255, 170));
    p.drawEllipse(QPointF(226, 16), 11, 11);
    p.setBrush(QColor(0, 0, 85));
    p.drawEllipse(QPointF(221, 13), 10, 10);
    for (int house = 0; house < 22; ++house) {
        const int left = house * 12 - 2;
        const int height = 8 + static_cast<int>(Chance(house, 9) * 14);
        p.fillRect(left, 64 - height, 11, height, Qt::black);
        for (int floor = 0; floor * 4 + 6 < height; ++floor)
            for (int window = 0; window < 3; ++window) {
                const double until = Chance(house * 31 + floor, window);
                if (until > canvas.Time() * 0.9 + 0.1)
                    p.fillRect(left + 2 + window * 3, 66 - height + floor * 4, 2, 2,
                               QColor(255, 170, 0));
            }
    }
    StrokeLetters("GOOD NIGHT", 19)
        .DrawGlowing(p, {10, 6, 196, 32}, Qt::white, QColor(85, 85, 255));
}

void Plasma(Canvas& canvas) {
    const double turn = canvas.Time() * kTurn;
    for (int row = 0; row < canvas.rows; ++row)
        for (int column = 0; column < canvas.columns; ++column) {
            const double x = column / 40.0;
            const double y = row / 22.0;
            const double field = std::sin(x + turn) + std::sin(y * 1.3 - turn) +
                                 std::sin((x + y) * 0.8 + 2 * std::cos(turn)) +
                                 std::sin(std::hypot(x - 3.2, y - 1.4) * 1.6 - turn);
            canvas.painter.fillRect(column, row, 1, 1, Hue(field / 8 + 0.5, 0.85, 0.9));
        }
}

// Clock Face: cells of two by two lamps -----------------------------------------------------------

/// A hand of single cells.
void DrawHand(QPainter& painter, double part, double length, QColor color) {
    const double angle = part * kTurn;
    for (double at = 0; at <= length; at += 0.4)
        painter.fillRect(static_cast<int>(std::floor(8 + std::sin(angle) * at)),
                         static_cast<int>(std::floor(8 - std::cos(angle) * at)), 1, 1, color);
}

void Clock(Canvas& canvas) {
    QPainter& p = canvas.painter;
    UseCells(canvas.painter);
    for (int mark = 0; mark < 12; ++mark) {
        const double angle = mark * kTurn / 12;
        p.fillRect(static_cast<int>(std::floor(7.9 + std::sin(angle) * 7.5)),
                   static_cast<int>(std::floor(7.9 - std::cos(angle) * 7.5)), 1, 1,
                   mark % 3 == 0 ? Qt::white : Qt::blue);
    }
    const int minute = 10 + canvas.frame / 6;
    DrawHand(p, (10 + minute / 60.0) / 12, 3.4, Qt::yellow);
    DrawHand(p, minute / 60.0, 5.6, Qt::green);
    DrawHand(p, canvas.frame / 60.0, 6, Qt::red);
    DrawDots(p, {20, 1}, "10", Qt::white);
    DrawDots(p, {20, 9}, std::to_string(minute), Qt::green);
}

void Noon(Canvas& canvas) {
    QPainter& p = canvas.painter;
    UseCells(canvas.painter);
    constexpr std::array kSwing = {0, 1, 2, 1, 0, -1, -2, -1};
    const int swing = kSwing[static_cast<std::size_t>(canvas.frame) % kSwing.size()];
    for (int row = 0; row < 10; ++row) {
        const int half = row < 2 ? 1 : row < 7 ? 3 : row < 9 ? 4 : 5;
        const int shift = swing * row / 6;
        p.fillRect(8 - half + shift, 2 + row, 2 * half, 1, Qt::yellow);
    }
    p.fillRect(7 - swing, 12, 2, 2, Qt::red);
    DrawDots(p, {18, 5}, canvas.frame % 8 < 4 ? "12" : "**", Qt::white);
}

// Weather and Front Door: no shades ---------------------------------------------------------------

void Sunny(Canvas& canvas) {
    QPainter& p = canvas.painter;
    p.setRenderHint(QPainter::Antialiasing, false);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(Qt::white));
    p.drawEllipse(4, 4, 8, 8);
    for (int ray = 0; ray < 8; ++ray) {
        const double angle = (ray + (canvas.frame % 2) * 0.5) * kTurn / 8;
        for (const double at : {5.6, 6.6})
            p.fillRect(static_cast<int>(std::floor(8 + std::cos(angle) * at)),
                       static_cast<int>(std::floor(8 + std::sin(angle) * at)), 1, 1, Qt::white);
    }
    DrawDots(p, {19, 1}, "21^", Qt::white, 2);
}

void Rain(Canvas& canvas) {
    QPainter& p = canvas.painter;
    p.setRenderHint(QPainter::Antialiasing, false);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(Qt::white));
    p.drawEllipse(1, 3, 7, 5);
    p.drawEllipse(4, 0, 8, 8);
    p.drawEllipse(9, 2, 6, 6);
    for (int drop = 0; drop < 5; ++drop) {
        const int y = 9 + (canvas.frame + drop * 3) % 7;
        p.fillRect(2 + drop * 3 - (y - 9) / 4, y, 1, 2, Qt::white);
    }
    DrawDots(p, {19, 1}, "12^", Qt::white, 2);
}

void Wind(Canvas& canvas) {
    QPainter& p = canvas.painter;
    p.setRenderHint(QPainter::Antialiasing, false);
    p.fillRect(2, 1, 1, 15, Qt::white);
    for (int column = 0; column < 13; ++column) {
        const int y = static_cast<int>(
            std::lround(1.5 * std::sin(column * 0.6 - canvas.Time() * kTurn) * column / 12.0));
        p.fillRect(3 + column, 2 + y + column / 6, 1, 6 - column / 3, Qt::white);
    }
    DrawDots(p, {20, 5}, "WIND", Qt::white);
    if (canvas.frame % 2 == 0)
        p.fillRect(20, 14, 23, 1, Qt::white);
}

void OpenHours(Canvas& canvas) {
    canvas.painter.setRenderHint(QPainter::Antialiasing, false);
    DrawDotsCentred(canvas.painter, canvas.columns, 0, canvas.frame == 0 ? "OPEN" : "9:00 - 18:00",
                    Qt::white);
}

void DoorWelcome(Canvas& canvas) {
    canvas.painter.setRenderHint(QPainter::Antialiasing, false);
    constexpr const char* kText = "WELCOME TO THE NORTH TOWER * LIFTS ON THE LEFT";
    const int way = DotsWidth(kText) + canvas.columns;
    DrawDots(canvas.painter, {canvas.columns - way * canvas.frame / canvas.frames, 0}, kText,
             Qt::white);
}

}  // namespace

std::vector<SceneSet> TowerScenes() {
    return {
        {64,
         256,
         "RGB64",
         "LED",
         {
             {"Default", "Aurora", 40, "90", "night sky aurora", "From dusk on.", Aurora},
             {"Default", "Good Night", 40, "150", "night windows",
              "Last of the day: the windows go dark one by one.", GoodNight},
             {"Events",
              "Fireworks",
              60,
              "60",
              "new year fireworks",
              "New Year and national day.",
              Fireworks,
              {"--thumbnail", "20"}},
             {"Events",
              "Plasma Draft",
              30,
              "80",
              "plasma draft",
              "Not approved yet. Look at it in the preview only.",
              Plasma,
              {"--preview-only"}},
         }},
        {32,
         64,
         "Quad16",
         "Incand",
         {
             {"Default",
              "Clock",
              60,
              "1000",
              "clock time",
              "Ten past ten, for the photographs.",
              Clock,
              {"--type", "data"}},
             {"Events", "Noon", 16, "120", "bell noon", "With the bell.", Noon},
         }},
        {16,
         48,
         "Mono1",
         "Reflect",
         {
             {"Default", "Sunny", 2, "1500", "weather sun", "", Sunny},
             {"Default", "Rain", 14, "150", "weather rain", "", Rain},
             {"Safety", "Wind", 12, "200", "weather wind warning",
              "Above 60 km/h. Close the roof terrace.", Wind},
         }},
        {7,
         80,
         "Mono1",
         "LED",
         {
             {"Default", "Open", 2, "2500", "hours open", "", OpenHours, {"--type", "text"}},
             {"Default",
              "Welcome",
              60,
              "100",
              "welcome lifts",
              "",
              DoorWelcome,
              {"--type", "text"}},
         }},
    };
}

}  // namespace k4sample
