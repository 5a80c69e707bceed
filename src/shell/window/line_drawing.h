#pragma once

// Line drawings as words: steps on a field of 24 by 24, so that an icon is a row of a table and sharp at any size.

#include <QPainterPath>

class QPainter;

/// Steps: M and L with a point, C with three points, Z closes, R is a rectangle (x y w h radius), O a circle
/// (x y radius), E an ellipse (x y rx ry).
QPainterPath Outline(const char* steps);

/// Strokes a drawing into a rectangle.
void StrokeOutline(QPainter& painter, const QPainterPath& outline, const QRectF& rect, const QColor& colour,
                   double penWidth);
