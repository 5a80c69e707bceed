#pragma once

// How the engine composes its statements: rows of a table of sources become the branches of one union.

#include "database/sql.h"

/// Adds words and values in turn.
template <typename... Pieces>
void Append(Sql& sql, const Pieces&... pieces)
{
    ((sql += pieces), ...);
}

/// Adds one branch for each source; `append` writes it.
template <typename Sources, typename AppendSource>
void AppendUnion(Sql& sql, const Sources& sources, AppendSource append)
{
    const char* joint = "";
    for (const auto& source : sources) {
        sql += joint;
        joint = " union all  ";
        append(source);
    }
}
