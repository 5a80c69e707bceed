#include "bare_odbc.h"

#include <benchmark/benchmark.h>

namespace {

ServerSettings Postgres()
{
    ServerSettings settings;
    settings.kind = ServerKind::PostgreSql;
    return settings;
}

void ReadRows(SQLHANDLE statement)
{
    SQLSMALLINT columns = 0;
    SQLNumResultCols(statement, &columns);
    while (columns > 0 && SQL_SUCCEEDED(SQLFetch(statement))) {
        for (SQLUSMALLINT column = 1; column <= columns; ++column) {
            SQLWCHAR text[256];
            SQLLEN length = 0;
            SQLGetData(statement, column, SQL_C_WCHAR, text, sizeof text, &length);
            benchmark::DoNotOptimize(text);
        }
    }
}

} // namespace

BareOdbc::BareOdbc(const ServerAddress& address) : m_connection(Postgres(), address)
{
    // As in the program: one plan for all values.
    Run("set plan_cache_mode=force_generic_plan", {});
    Run("set jit=off", {});
}

bool BareOdbc::Bind(SQLHANDLE statement, const std::vector<Value>& values)
{
    m_texts.resize(values.size());
    for (size_t i = 0; i < values.size(); ++i) {
        Text& text = m_texts[i];
        const bool isNumber = std::holds_alternative<double>(values[i]) || std::holds_alternative<qint64>(values[i]);
        text.text = TextOf(values[i]).toStdU16String();
        text.length = IsNull(values[i]) ? SQL_NULL_DATA : SQLLEN(text.text.size() * sizeof(char16_t));
        if (!SQL_SUCCEEDED(SQLBindParameter(statement, SQLUSMALLINT(i + 1), SQL_PARAM_INPUT, SQL_C_WCHAR,
                                            isNumber ? SQL_DOUBLE : SQL_WVARCHAR, 4000, 0, text.text.data(), 0,
                                            &text.length)))
            return false;
    }
    return true;
}

bool BareOdbc::Run(const std::string& words, const std::vector<Value>& values)
{
    OdbcHandle& statement = m_statements[words];
    if (!statement.get()) {
        statement = m_connection.NewStatement();
        const QString text = QString::fromStdString(words);
        if (!SQL_SUCCEEDED(SQLPrepareW(statement.get(), Wide(text), SQLINTEGER(text.size()))))
            return false;
    }
    if (!Bind(statement.get(), values))
        return false;
    const SQLRETURN code = SQLExecute(statement.get());
    ReadRows(statement.get());
    SQLFreeStmt(statement.get(), SQL_CLOSE);
    return SQL_SUCCEEDED(code) || code == SQL_NO_DATA;
}
