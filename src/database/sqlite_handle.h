#pragma once

// SQLite's C interface behind owners that close and finalize, and its errors as StoreErrors.

#include "database/store.h"

#include <memory>
#include <sqlite3.h>

struct CloseSqlite
{
    void operator()(sqlite3* database) const { sqlite3_close(database); }
};
using SqliteHandle = std::unique_ptr<sqlite3, CloseSqlite>;

struct FinalizeStatement
{
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using SqliteStatement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

/// Milliseconds that a lock of another program is waited for.
inline constexpr int kPatience = 5000;

/// @param flags  SQLITE_OPEN_*
SqliteHandle OpenHandle(const QString& path, int flags);
/// What the user is told of the last failure on a database.
StoreError ErrorOf(sqlite3* database, const QString& path);
/// Opens an existing file and refuses one that is no SQLite database, saying what it is instead where that can be seen.
SqliteHandle OpenDatabase(const QString& path, int flags);
