#pragma once

// The pictures of the functions: a white line drawing on a coloured badge, found by what the function's word is about.

#include <QIcon>

class QPainter;

/// Paints the badge of a function or category into a square.
void PaintFunctionIcon(QPainter& painter, const QString& word, const QRectF& square);
/// The same as a picture.
QPixmap FunctionBadge(const QString& word, int size);
/// The drawing alone, in one colour, for a button's face.
QIcon FunctionGlyph(const QString& word, const QColor& colour, int size);
