#pragma once

#include <QColor>
#include <QPainter>
#include <string_view>

namespace k4sample {

/// The rows of the dotted letters.
inline constexpr int kDotRows = 7;

/// Letters of single lamps, seven high: for small signs and for those without shades. Capitals,
/// digits and some marks ('^' is a degree sign); anything else is a blank.
/// @param at    the upper left lamp.
/// @param color of the lamps.
/// @param size  lamps of a dot's edge.
/// @return the columns that the text takes.
int DrawDots(QPainter& painter, QPoint at, std::string_view text, QColor color, int size = 1);

/// The columns that a text takes.
int DotsWidth(std::string_view text, int size = 1);

/// Draws in the middle of so many columns.
void DrawDotsCentred(QPainter& painter, int columns, int top, std::string_view text, QColor color,
                     int size = 1);

}  // namespace k4sample
