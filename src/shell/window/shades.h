#pragma once

// Colours for whatever palette the desktop has given: what windows draw themselves stays readable on a dark or a
// high-contrast one.

#include <QColor>

/// `share` of a colour laid over the ground.
QColor Mixed(const QColor& ground, const QColor& colour, double share);
/// From 1 for none to 21 for black on white.
double Contrast(const QColor& one, const QColor& other);
/// The colour, or what is nearest to it and still stands out from the ground.
QColor SeenOn(const QColor& ground, const QColor& colour);
