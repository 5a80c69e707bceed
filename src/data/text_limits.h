#pragma once

// How long the texts of an account set may be. The schema of every store is made from here, and whoever takes a text in
// asks here first, so that no statement fails on one.

#include <QString>

/// The longest text of a column by its name, in UTF-16 units as the narrowest store counts them; 0 for one without
/// limit.
int TextLimit(const QString& column);
