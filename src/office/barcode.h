#pragma once

// Barcodes as bars, drawn where no font has them.

#include <QString>
#include <vector>

/// A bar or the space behind it, in modules: the narrowest bar is one wide.
using BarWidths = std::vector<int>;

/// A text in Code 128: bars and spaces in turn, a bar first and last. Empty for a text that has no bars: none at all,
/// letters other than ASCII, or too many.
BarWidths Code128(const QString& text);
