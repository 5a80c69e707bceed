#pragma once

// Codes as they are typed and as they are compared. On a server blanks behind a code and the width of its signs do not
// count; in a file they do.

#include "database/sql.h"

/// Full-width letters, digits and signs as the half-width ones, without the blanks behind them.
QString NarrowCode(const QString& code);
/// The condition that a column holds a typed code: as it stands or, where it differs, as NarrowCode has it.
Sql CodeIs(const char* column, const QString& typed);
