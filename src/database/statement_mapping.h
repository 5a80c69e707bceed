#pragma once

// What a store makes of the system's statements. They are written for two office databases; a few of their forms are
// said differently elsewhere: `top n`, an `update` over two tables, the integer cast, `like`, the place of null in an
// order. Each mapping keeps the order of the values, and leaves whatever is none of these forms as it is.

#include <string>
#include <string_view>

/// The statement in SQLite's words.
std::string MapForSqlite(std::string_view words);

/// In PostgreSQL's words.
std::string MapForPostgres(std::string_view words);

/// In SQL Server's words: of the two dialects that the statements are written in, one is its own, and there only a
/// `top` inside a union, a `[` in a `like` and texts in Chinese need help.
std::string MapForSqlServer(std::string_view words);
