#pragma once

// The embedded store: one SQLite file, opened for many programs on one machine and durable at every commit.

#include "database/store.h"

/// Opens an existing account set. A missing, damaged or foreign file is refused by name; a legacy Jet file is called
/// one. Throws StoreError.
std::unique_ptr<Store> OpenSqliteFile(const QString& path);

/// Makes an empty database file; refuses an existing one. Throws StoreError.
std::unique_ptr<Store> CreateSqliteFile(const QString& path);

/// Whether it begins as a SQLite database does.
bool IsSqliteFile(const QString& path);

/// A copy of a database in use: every committed row in one file, no side files. Throws StoreError.
void CopySqliteFile(const QString& source, const QString& target);
