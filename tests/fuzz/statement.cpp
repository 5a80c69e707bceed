#include "database/sql_tokens.h"
#include "database/statement_mapping.h"
#include "fuzz/targets.h"

#include <cstdlib>

void FuzzStatement(const uint8_t* bytes, size_t size)
{
    const std::string words(reinterpret_cast<const char*>(bytes), size);
    if (JoinSql(CutSql(words)) != words)
        std::abort();
    MapForSqlite(words);
    MapForPostgres(words);
    MapForSqlServer(words);
}
