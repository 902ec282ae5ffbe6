#pragma once

#include <QBrush>
#include <QColor>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace k4sample {

inline constexpr double kTurn = 2 * std::numbers::pi;

/// Makes a cell of two by two lamps the unit of what is drawn: for quad signs, which show no less.
void UseCells(QPainter& painter);

/// A number from 0 to less than 1 that looks like chance, the same one for the same arguments.
double Chance(int one, int other = 0);

/// Goes from 0 to 1 between two times, slowly at both ends; 0 before, 1 behind.
double Rise(double time, double from, double to);

/// A color of the circle, hue from 0 to 1 (and on).
QColor Hue(double hue, double saturation = 1, double value = 1);
/// A color with so much of its light.
QColor Dimmed(QColor color, double part);

/// A brush that goes from one color on top to another one below.
QBrush Downwards(double top, double bottom, QColor first, QColor last);

/// Rays from a place, turned by a part of a turn.
void DrawRays(QPainter& painter, QPointF centre, double radius, int count, double turn,
              QColor color);
/// A ball of white and dark patches, turned by a part of a turn.
void DrawBall(QPainter& painter, QPointF centre, double radius, double turn);
/// Sparks that fly from a place; `age` from 0 to 1.
void DrawBurst(QPainter& painter, QPointF centre, double radius, double age, int seed,
               QColor color);
/// An arrow in a square field, pointing down; turned by a part of a turn.
void DrawArrow(QPainter& painter, const QRectF& field, double turn, const QBrush& brush);
/// A cross in a square field.
void DrawCross(QPainter& painter, const QRectF& field, const QBrush& brush);

}  // namespace k4sample
