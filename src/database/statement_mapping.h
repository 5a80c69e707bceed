#pragma once

// What a store makes of the system's statements. They are written for two office databases; three of their forms are
// said differently elsewhere: `top n`, an `update` over two tables, and the integer cast. Each mapping keeps the
// order of the values.

#include <string>
#include <string_view>

/// The statement in SQLite's words. Anything that is none of the three forms stays as it is.
std::string MapForSqlite(std::string_view words);
