#pragma once

// What the tests ask of SQL Server: each shape of a statement that they run, in its words, one a line, for a parser.

#include "database/store.h"

/// Opens what `open` opens, and appends the shapes that run there to a file.
StoreOpener ShapeLog(const QString& path, StoreOpener open);
