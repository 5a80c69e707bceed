#pragma once

// The floors: what a program does that knows its question in advance, prepares one statement for it and asks SQLite
// itself. No figure can be quicker than reading or writing its rows this way.

#include "database/sqlite_handle.h"

#include <map>
#include <string>

/// The fifteen sources of a balance, each scanned on its covering index, whatever the warehouse: ?1 good, ?2 last
/// close, ?3 last day.
extern const std::string kScanSources;
/// The newest cost of each source: ?1 good, ?2 day.
extern const char* const kNewestCosts;
/// The largest code between ?1 and ?2.
extern const char* const kLargestCode;
/// Goods by their sales since the last close, the best sold first, and the warehouse that most of them leave from.
extern const char* const kGoodsByTrade;

/// A connection of its own to an account set, as durable as the program's.
class HandWritten
{
public:
    explicit HandWritten(const QString& path);

    /// Prepared at the first call, ready to be bound and stepped at every one.
    sqlite3_stmt* Statement(const std::string& words);
    void Run(const std::string& words);

private:
    QString m_path;
    SqliteHandle m_database;
    std::map<std::string, SqliteStatement> m_statements; // finalized before the database is closed
};

/// Binds a text that outlives the next step.
void BindText(sqlite3_stmt* statement, int position, const std::string& text);
