#include "data/server_schema.h"

#include "data/schema.h"
#include "data/schema_indexes.h"
#include "data/text_limits.h"

namespace {
/// The type of a column on a server; %1 is its name, %2 the length of its longest text.
struct ServerType
{
    ColumnType type;
    const char* postgres;
    const char* sqlServer;
};

// Codes and names compare without regard to ASCII case, and sort by their bytes: citext does that in a database of the
// C locale. A collation of ICU that ignores case would sort signs elsewhere, knows no `like` and compares slower.
// A day has the type of a moment: compared with a date, a moment would lose its time of day.
constexpr ServerType kServerTypes[] = {
    {ColumnType::Text, "citext collate \"C\" check(length(%1)<=%2)", "nvarchar(%2)"},
    {ColumnType::Day, "timestamp(3) check(%1=date_trunc('day',%1))", "datetime"},
    {ColumnType::Moment, "timestamp(3)", "datetime"},
    {ColumnType::Number, "double precision", "float"},
    {ColumnType::Money, "numeric(19,4)", "numeric(19,4)"},
    {ColumnType::Integer, "integer", "int"},
    {ColumnType::Blob, "bytea", "varbinary(max)"},
};

constexpr ServerType kTextWithoutLimit = {ColumnType::Text, "citext collate \"C\"", "nvarchar(max)"};

// By pinyin, without regard to case and width, as Chinese_PRC_CI_AS does it, which gives no weight to the characters
// added since: two texts that differ in those alone would be one to it.
constexpr const char* kSqlServerCollation = "Chinese_Simplified_Pinyin_100_CI_AS_SC";

QString TypeOf(const SchemaColumn& column, ServerKind server)
{
    const int limit = column.type == ColumnType::Text ? TextLimit(column.name) : 0;
    if (column.type == ColumnType::Text && limit == 0)
        return server == ServerKind::PostgreSql ? kTextWithoutLimit.postgres : kTextWithoutLimit.sqlServer;
    for (const ServerType& type : kServerTypes)
        if (type.type == column.type)
            return QString(server == ServerKind::PostgreSql ? type.postgres : type.sqlServer)
                .replace("%1", column.name)
                .replace("%2", QString::number(limit));
    Q_UNREACHABLE();
}

QString CreateTable(const SchemaTable& table, ServerKind server)
{
    QStringList columns;
    for (const SchemaColumn& column : table.columns)
        columns += column.name + ' ' + TypeOf(column, server) + (column.name == table.key ? " not null" : "");
    return QString("create table %1(%2)").arg(table.name, columns.join(", "));
}

/// In PostgreSQL null lies above all values; in an index that is to give rows in the order of the statements it must
/// lie below them.
QString KeysOf(const QStringList& columns, ServerKind server)
{
    return server == ServerKind::PostgreSql ? columns.join(" nulls first,") + " nulls first" : columns.join(',');
}

QString CreateKey(const SchemaTable& table, ServerKind server)
{
    const char* const form = server == ServerKind::PostgreSql ? "create unique index %1_key on %1(%2)"
                                                              : "alter table %1 add primary key(%2)";
    return QString(form).arg(table.name, KeysOf({table.key}, server));
}

/// Only SQL Server covers: an entry of a PostgreSQL index has little room for texts, and a row whose entry is too long
/// would be refused.
QString CreateIndex(const SchemaIndex& index, ServerKind server)
{
    const bool covers = server == ServerKind::SqlServer && !index.covered.isEmpty();
    return QString("create index %1_%2 on %1(%3)%4")
        .arg(index.table, index.name, KeysOf(index.keys, server),
             covers ? " include(" + index.covered.join(',') + ")" : QString());
}
} // namespace

QStringList ServerSchema(ServerKind server)
{
    QStringList statements;
    if (server == ServerKind::PostgreSql)
        statements += "create extension if not exists citext";
    for (const SchemaTable& table : Schema()) {
        statements += CreateTable(table, server);
        if (!table.key.isEmpty())
            statements += CreateKey(table, server);
    }
    for (const SchemaIndex& index : SchemaIndexes())
        if (server == ServerKind::SqlServer || index.keys != QStringList(FindTable(index.table)->key))
            statements += CreateIndex(index, server);
    return statements;
}

QStringList CreateDatabase(ServerKind server, const QString& database)
{
    const QString create = "create database " + QuotedName(server, database);
    if (server == ServerKind::SqlServer)
        return {create + " collate " + kSqlServerCollation, RowVersionsOn(database)};
    return {create + " template template0 encoding 'UTF8' lc_collate 'C' lc_ctype 'C'"};
}

QString DropDatabase(ServerKind server, const QString& database)
{
    return "drop database " + QuotedName(server, database);
}
