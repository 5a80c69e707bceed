#pragma once

// What this machine remembers of windows for its user: where they stood, how large they were, and how wide the user
// has drawn the columns of their grids. It belongs to no account set.

#include "handover/run_parameters.h"

#include <QByteArray>
#include <QRect>
#include <map>

/// A place as near to a wished one as lies wholly on a screen: what is larger is cut to its room, what reaches beyond
/// an edge moves in.
QRect FittedPlace(const QRect& place, const QRect& room);

/// Place and size as the window itself writes them; empty for a window that was never closed here.
QByteArray RememberedPlace(const RunParameters& parameters, const QString& window);
void RememberPlace(const RunParameters& parameters, const QString& window, const QByteArray& place);

/// Twips by column.
using ColumnWidths = std::map<int, int>;
/// The widths drawn in a grid, by its layout key.
ColumnWidths RememberedWidths(const RunParameters& parameters, const QString& layoutKey);
void RememberWidths(const RunParameters& parameters, const QString& layoutKey, const ColumnWidths& widths);
