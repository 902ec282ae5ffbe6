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

// Scoreboard: pictures are made for its cells of two by two lamps ---------------------------------

void Score(Canvas& canvas) {
    QPainter& p = canvas.painter;
    UseCells(p);
    const int seconds = 44 * 60 + 30 + canvas.frame;
    const std::string minutes = std::to_string(seconds / 60);
    const std::string rest = std::to_string(seconds % 60);
    p.fillRect(0, 0, 80, 9, Qt::blue);
    DrawDots(p, {2, 1}, "HOME", Qt::white);
    DrawDots(p, {80 - DotsWidth("GUEST") - 2, 1}, "GUEST", Qt::white);
    DrawDots(p, {8, 11}, "2", Qt::yellow, 2);
    DrawDots(p, {62, 11}, "1", Qt::yellow, 2);
    DrawDotsCentred(p, 80, 14, minutes + ":" + (rest.size() < 2 ? "0" : "") + rest, Qt::green);
}

void ScoreGoal(Canvas& canvas) {
    QPainter& p = canvas.painter;
    UseCells(p);
    const bool even = canvas.frame % 4 < 2;
    constexpr std::array<QRgb, 4> kColors = {0xFFFF0000, 0xFFFFFF00, 0xFF00FF00, 0xFF00FFFF};
    for (int ring = 0; ring < 4; ++ring) {
        const auto color = kColors[static_cast<std::size_t>(ring + canvas.frame) % kColors.size()];
        p.setPen(QColor(color));
        p.setBrush(Qt::NoBrush);
        p.drawRect(ring, ring, 79 - 2 * ring, 23 - 2 * ring);
    }
    p.fillRect(4, 4, 72, 16, Qt::black);
    DrawDotsCentred(p, 80, 5, "GOAL!", even ? Qt::white : Qt::yellow, 2);
}

void Fixtures(Canvas& canvas) {
    QPainter& p = canvas.painter;
    UseCells(p);
    constexpr std::array kMatches = {"SAT 15:00", "WED 19:30", "SUN 14:15"};
    constexpr std::array kTeams = {"ROVERS", "UNITED", "HARBOUR"};
    const auto match = static_cast<std::size_t>(canvas.frame);
    p.fillRect(0, 0, 80, 8, Qt::red);
    DrawDotsCentred(p, 80, 0, "NEXT GAME", Qt::white);
    DrawDotsCentred(p, 80, 9, kTeams[match], Qt::cyan);
    DrawDotsCentred(p, 80, 17, kMatches[match], Qt::yellow);
}

// Ticker and car park -----------------------------------------------------------------------------

void News(Canvas& canvas) {
    const StrokeLetters letters("TONIGHT: SUMMER CONCERT 8 PM - GATES OPEN 6 PM", 12, 0.18);
    const double way = letters.Width() + canvas.columns;
    letters.Draw(canvas.painter, {canvas.columns - way * canvas.Time(), 2}, Qt::white);
    // Letters come and go softly.
    for (int column = 0; column < 8; ++column) {
        const QColor shade(0, 0, 0, 255 - column * 32);
        canvas.painter.fillRect(column, 0, 1, 16, shade);
        canvas.painter.fillRect(canvas.columns - 1 - column, 0, 1, 16, shade);
    }
}

void TwoForOne(Canvas& canvas) {
    const double beat = 0.5 - 0.5 * std::cos(canvas.Time() * kTurn);
    const QColor light = Dimmed(Qt::white, 0.35 + 0.65 * beat);
    StrokeLetters("2 FOR 1", 12, 0.18).DrawCentred(canvas.painter, canvas.All(), light);
    for (const int side : {0, 1}) {
        const double x = side == 0 ? 2 + 5 * beat : 93 - 5 * beat;
        const double tip = side == 0 ? 5 : -5;
        canvas.painter.setPen(Qt::NoPen);
        canvas.painter.setBrush(QColor(Qt::white));
        canvas.painter.drawPolygon(QPolygonF{{x, 3}, {x + tip, 8}, {x, 13}});
    }
}

void Equals(Canvas& canvas) {
    for (int bar = 0; bar < 24; ++bar) {
        const double height = 8 + 7 * std::sin(canvas.Time() * kTurn + bar * 0.55) *
                                      std::cos(canvas.Time() * kTurn * 2 + bar * 0.21);
        canvas.painter.fillRect(QRectF(bar * 4, 16 - height, 3, height),
                                Downwards(0, 16, Qt::white, QColor(40, 40, 40)));
    }
}

void Spaces(Canvas& canvas) {
    QPainter& p = canvas.painter;
    p.setRenderHint(QPainter::Antialiasing, false);
    p.fillRect(0, 0, 14, 16, Qt::green);
    DrawDots(p, {3, 1}, "P", Qt::black, 2);
    DrawDots(p, {17, 5}, "124", Qt::yellow);
    const int y = canvas.frame % 6;
    p.fillRect(40, y, 3, 6, Qt::green);
    for (int row = 0; row < 4; ++row)
        p.fillRect(38 + row, y + 6 + row, 7 - 2 * row, 1, Qt::green);
}

void Full(Canvas& canvas) {
    canvas.painter.setRenderHint(QPainter::Antialiasing, false);
    if (canvas.frame == 0)
        DrawDotsCentred(canvas.painter, canvas.columns, 1, "FULL", Qt::red, 2);
    else
        DrawDotsCentred(canvas.painter, canvas.columns, 4, "GATE B", Qt::yellow);
}

void Slow(Canvas& canvas) {
    QPainter& p = canvas.painter;
    p.setRenderHint(QPainter::Antialiasing, false);
    p.setPen(QPen(Qt::red, 2));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(1, 1, 13, 13);
    DrawDots(p, {3, 5}, "1", Qt::yellow);
    DrawDots(p, {8, 5}, "0", Qt::yellow);
    if (canvas.frame % 2 == 0)
        DrawDots(p, {20, 5}, "SLOW", Qt::yellow);
    else
        DrawDots(p, {20, 5}, "KIDS", Qt::red);
}

}  // namespace

std::vector<SceneSet> StadiumScenes() {
    return {
        MainBoardScenes(),
        {48,
         160,
         "Quad16",
         "Incand",
         {
             {"Default",
              "Score",
              30,
              "1000",
              "score clock",
              "The last half minute of the first half.",
              Score,
              {"--type", "data"}},
             {"Default", "Fixtures", 3, "4000", "fixtures next game",
              "Three games, four seconds each.", Fixtures},
             {"Events", "Goal", 24, "90", "goal flash", "Bright: not before dark.", ScoreGoal},
         }},
        {16,
         96,
         "Mono16",
         "LED",
         {
             {"Default",
              "News",
              60,
              "70",
              "news concert text",
              "Change weekly.",
              News,
              {"--type", "text", "--thumbnail", "12"}},
             {"Events", "Two For One", 24, "60", "sale drinks", "Half time, bars on the balcony.",
              TwoForOne},
             {"Events", "Bars", 40, "60", "music bars", "While the band plays.", Equals},
         }},
        {16,
         48,
         "Tri3",
         "LED",
         {
             {"Default",
              "Spaces",
              6,
              "180",
              "parking spaces",
              "Level 1.",
              Spaces,
              {"--type", "data"}},
             {"Default", "Full", 2, "1500", "parking full", "Sends cars to gate B.", Full},
             {"Safety", "Slow", 2, "1200", "speed children", "On family days.", Slow},
         }},
    };
}

}  // namespace k4sample
