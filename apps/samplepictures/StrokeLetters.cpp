#include "apps/samplepictures/StrokeLetters.h"

#include <QPen>
#include <algorithm>
#include <array>
#include <sstream>
#include <string>

namespace k4sample {

namespace {

/// A letter on a field 6 high, y downwards. M moves, L draws a line, Q a curve with one handle.
struct Glyph {
    char letter;
    double width;
    const char* strokes;
};

// clang-format off
constexpr std::array kGlyphs{
    Glyph{'A', 4.2, "M 0 6 L 2.1 0 L 4.2 6 M 0.8 4 L 3.4 4"},
    Glyph{'B', 3.6, "M 0 0 L 0 6 L 2 6 Q 3.6 6 3.6 4.4 Q 3.6 2.9 2 2.9 L 0 2.9 M 2 2.9 Q 3.3 2.9 3.3 1.4 Q 3.3 0 2 0 L 0 0"},
    Glyph{'C', 3.8, "M 3.8 1.3 Q 3.3 0 2 0 Q 0 0 0 2 L 0 4 Q 0 6 2 6 Q 3.3 6 3.8 4.7"},
    Glyph{'D', 3.8, "M 0 0 L 0 6 L 1.8 6 Q 3.8 6 3.8 4 L 3.8 2 Q 3.8 0 1.8 0 L 0 0"},
    Glyph{'E', 3.1, "M 3.1 0 L 0 0 L 0 6 L 3.1 6 M 0 3 L 2.7 3"},
    Glyph{'F', 3.1, "M 3.1 0 L 0 0 L 0 6 M 0 3 L 2.6 3"},
    Glyph{'G', 4.0, "M 3.8 1.2 Q 3.3 0 2 0 Q 0 0 0 2 L 0 4 Q 0 6 2 6 Q 4 6 4 4.2 L 4 3.3 L 2.4 3.3"},
    Glyph{'H', 3.8, "M 0 0 L 0 6 M 3.8 0 L 3.8 6 M 0 3 L 3.8 3"},
    Glyph{'I', 0.0, "M 0 0 L 0 6"},
    Glyph{'J', 2.8, "M 2.8 0 L 2.8 4.4 Q 2.8 6 1.4 6 Q 0 6 0 4.6"},
    Glyph{'K', 3.7, "M 0 0 L 0 6 M 3.6 0 L 0 3.7 M 1.3 2.5 L 3.7 6"},
    Glyph{'L', 3.0, "M 0 0 L 0 6 L 3 6"},
    Glyph{'M', 4.8, "M 0 6 L 0 0 L 2.4 3.8 L 4.8 0 L 4.8 6"},
    Glyph{'N', 3.8, "M 0 6 L 0 0 L 3.8 6 L 3.8 0"},
    Glyph{'O', 4.0, "M 2 0 Q 4 0 4 2 L 4 4 Q 4 6 2 6 Q 0 6 0 4 L 0 2 Q 0 0 2 0"},
    Glyph{'P', 3.5, "M 0 6 L 0 0 L 1.9 0 Q 3.5 0 3.5 1.7 Q 3.5 3.4 1.9 3.4 L 0 3.4"},
    Glyph{'Q', 4.0, "M 2 0 Q 4 0 4 2 L 4 4 Q 4 6 2 6 Q 0 6 0 4 L 0 2 Q 0 0 2 0 M 2.6 4.4 L 4.1 6.2"},
    Glyph{'R', 3.6, "M 0 6 L 0 0 L 1.9 0 Q 3.5 0 3.5 1.6 Q 3.5 3.2 1.9 3.2 L 0 3.2 M 1.9 3.2 L 3.6 6"},
    Glyph{'S', 3.6, "M 3.4 1.2 Q 3 0 1.8 0 Q 0.1 0 0.1 1.5 Q 0.1 2.6 1.8 3 Q 3.6 3.4 3.6 4.5 Q 3.6 6 1.8 6 Q 0.5 6 0 4.8"},
    Glyph{'T', 3.8, "M 0 0 L 3.8 0 M 1.9 0 L 1.9 6"},
    Glyph{'U', 3.8, "M 0 0 L 0 4.1 Q 0 6 1.9 6 Q 3.8 6 3.8 4.1 L 3.8 0"},
    Glyph{'V', 4.2, "M 0 0 L 2.1 6 L 4.2 0"},
    Glyph{'W', 5.6, "M 0 0 L 1.4 6 L 2.8 1.4 L 4.2 6 L 5.6 0"},
    Glyph{'X', 3.8, "M 0 0 L 3.8 6 M 3.8 0 L 0 6"},
    Glyph{'Y', 3.8, "M 0 0 L 1.9 3 L 3.8 0 M 1.9 3 L 1.9 6"},
    Glyph{'Z', 3.6, "M 0 0 L 3.6 0 L 0 6 L 3.6 6"},
    Glyph{'0', 3.8, "M 1.9 0 Q 3.8 0 3.8 2 L 3.8 4 Q 3.8 6 1.9 6 Q 0 6 0 4 L 0 2 Q 0 0 1.9 0"},
    Glyph{'1', 3.8, "M 0.8 1.3 L 2.2 0 L 2.2 6"},
    Glyph{'2', 3.8, "M 0.1 1.6 Q 0.3 0 1.9 0 Q 3.6 0 3.6 1.7 Q 3.6 2.7 2.6 3.6 L 0 6 L 3.8 6"},
    Glyph{'3', 3.8, "M 0.2 1.1 Q 0.7 0 1.9 0 Q 3.5 0 3.5 1.5 Q 3.5 2.9 1.7 2.9 Q 3.8 2.9 3.8 4.4 Q 3.8 6 1.9 6 Q 0.5 6 0 4.8"},
    Glyph{'4', 3.8, "M 2.9 6 L 2.9 0 L 0 4.3 L 3.8 4.3"},
    Glyph{'5', 3.8, "M 3.4 0 L 0.5 0 L 0.3 2.8 Q 1 2.2 1.9 2.2 Q 3.8 2.2 3.8 4.1 Q 3.8 6 1.9 6 Q 0.5 6 0 4.9"},
    Glyph{'6', 3.8, "M 3.3 0.6 Q 2.7 0 1.9 0 Q 0 0 0 2.6 L 0 4.1 Q 0 6 1.9 6 Q 3.8 6 3.8 4.2 Q 3.8 2.5 1.9 2.5 Q 0.5 2.5 0 3.8"},
    Glyph{'7', 3.8, "M 0 0 L 3.8 0 L 1.3 6"},
    Glyph{'8', 3.8, "M 1.9 0 Q 3.5 0 3.5 1.4 Q 3.5 2.9 1.9 2.9 Q 0.3 2.9 0.3 1.4 Q 0.3 0 1.9 0 M 1.9 2.9 Q 3.8 2.9 3.8 4.4 Q 3.8 6 1.9 6 Q 0 6 0 4.4 Q 0 2.9 1.9 2.9"},
    Glyph{'9', 3.8, "M 3.8 2.2 Q 3.3 3.5 1.9 3.5 Q 0 3.5 0 1.8 Q 0 0 1.9 0 Q 3.8 0 3.8 1.9 L 3.8 3.4 Q 3.8 6 1.9 6 Q 1.1 6 0.5 5.4"},
    Glyph{':', 0.0, "M 0 1.8 L 0 1.9 M 0 4.5 L 0 4.6"},
    Glyph{'!', 0.0, "M 0 0 L 0 3.9 M 0 5.9 L 0 6"},
    Glyph{'.', 0.0, "M 0 5.9 L 0 6"},
    Glyph{'-', 2.0, "M 0 3 L 2 3"},
    Glyph{'+', 2.4, "M 0 3.2 L 2.4 3.2 M 1.2 2 L 1.2 4.4"},
    Glyph{'/', 2.2, "M 0 6.2 L 2.2 -0.2"},
};
// clang-format on

constexpr double kFieldHeight = 6;
constexpr double kBlankWidth = 1.6;

const Glyph* Find(char letter) {
    const auto* const found =
        std::find_if(kGlyphs.begin(), kGlyphs.end(),
                     [letter](const Glyph& each) { return each.letter == letter; });
    return found == kGlyphs.end() ? nullptr : found;
}

void AddStrokes(const Glyph& glyph, QPointF at, double scale, QPainterPath& path) {
    std::istringstream strokes{std::string(glyph.strokes)};
    const auto point = [&] {
        double x = 0;
        double y = 0;
        strokes >> x >> y;
        return at + QPointF(x, y) * scale;
    };
    for (char command = 0; strokes >> command;) {
        const QPointF first = point();
        if (command == 'M')
            path.moveTo(first);
        else if (command == 'L')
            path.lineTo(first);
        else
            path.quadTo(first, point());
    }
}

}  // namespace

StrokeLetters::StrokeLetters(std::string_view text, double height, double weight)
    : m_height(height), m_thickness(height * weight) {
    const double scale = (height - m_thickness) / kFieldHeight;
    const double gap = m_thickness + 0.75 * scale;
    double x = 0;
    for (const char letter : text) {
        const Glyph* glyph = Find(letter);
        if (glyph)
            AddStrokes(*glyph, {x, 0}, scale, m_path);
        x += (glyph ? glyph->width : kBlankWidth) * scale + gap;
    }
    m_width = text.empty() ? 0 : x - gap + m_thickness;
}

QPointF StrokeLetters::CornerIn(const QRectF& in) const {
    return in.center() - QPointF(m_width, m_height) / 2;
}

void StrokeLetters::Stroke(QPainter& painter, QPointF at, const QBrush& brush,
                           double thickness) const {
    painter.save();
    painter.translate(at + QPointF(m_thickness, m_thickness) / 2);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(brush, thickness, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(m_path);
    painter.restore();
}

void StrokeLetters::Draw(QPainter& painter, QPointF at, const QBrush& brush) const {
    Stroke(painter, at, brush, m_thickness);
}

void StrokeLetters::DrawCentred(QPainter& painter, const QRectF& in, const QBrush& brush) const {
    Draw(painter, CornerIn(in), brush);
}

void StrokeLetters::DrawGlowing(QPainter& painter, const QRectF& in, const QBrush& brush,
                                QColor glow) const {
    const QPointF at = CornerIn(in);
    glow.setAlphaF(glow.alphaF() * 0.22F);
    for (const double more : {1.1, 0.75, 0.4})
        Stroke(painter, at, glow, m_thickness * (1 + more));
    Draw(painter, at, brush);
}

}  // namespace k4sample
