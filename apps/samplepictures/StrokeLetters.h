#pragma once

#include <QBrush>
#include <QPainter>
#include <QPainterPath>
#include <string_view>

namespace k4sample {

/// Letters drawn as strokes with round ends, of any size: for signs with shades, from some ten rows
/// on. Capitals, digits and some marks; anything else is a blank.
class StrokeLetters {
 public:
    /// @param height of capitals in lamps, the strokes' thickness counted.
    /// @param weight thickness of the strokes, as a part of the height.
    StrokeLetters(std::string_view text, double height, double weight = 0.17);

    double Width() const { return m_width; }

    /// Draws with the upper left corner at a place.
    void Draw(QPainter& painter, QPointF at, const QBrush& brush) const;
    /// Draws in the middle of a rectangle.
    void DrawCentred(QPainter& painter, const QRectF& in, const QBrush& brush) const;
    /// Draws with light around them, in the middle of a rectangle.
    void DrawGlowing(QPainter& painter, const QRectF& in, const QBrush& brush, QColor glow) const;

 private:
    QPointF CornerIn(const QRectF& in) const;
    void Stroke(QPainter& painter, QPointF at, const QBrush& brush, double thickness) const;

    double m_height;
    double m_thickness;
    double m_width = 0;
    QPainterPath m_path;
};

}  // namespace k4sample
