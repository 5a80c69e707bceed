#include "data/schema.h"
#include "data/schema_indexes.h"
#include "data/text_limits.h"

namespace {
/// The column with its affinity, and what keeps a value of another form out of it.
QString ColumnDefinition(const SchemaColumn& column)
{
    static const QString day = "[0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9]";
    static const QString time = " [0-9][0-9]:[0-9][0-9]:[0-9][0-9]";
    switch (column.type) {
    case ColumnType::Text: {
        // Codes and names compare without regard to ASCII case.
        const int limit = TextLimit(column.name);
        const QString check = limit > 0 ? QString(" check(length(%1)<=%2)").arg(column.name).arg(limit) : QString();
        return QString("%1 text collate nocase").arg(column.name) + check;
    }
    case ColumnType::Day:
        return QString("%1 text check(%1 glob '%2')").arg(column.name, day);
    case ColumnType::Moment:
        // Texts order as moments do only while each moment has one form: midnight and whole seconds are cut short.
        return QString("%1 text check(%1 glob '%2' or (%1 glob '%2%3' and %1 not glob '* 00:00:00') "
                       "or (%1 glob '%2%3.[0-9][0-9][0-9]' and %1 not glob '*.000'))")
            .arg(column.name, day, time);
    case ColumnType::Number:
    case ColumnType::Money:
    case ColumnType::Integer:
        // Two comparisons: a list would cost a temporary table for each column of each insert.
        return QString("%1 %2 check(typeof(%1)<>'text' and typeof(%1)<>'blob')")
            .arg(column.name, column.type == ColumnType::Integer ? "integer" : "real");
    case ColumnType::Blob:
        return QString("%1 blob").arg(column.name);
    }
    Q_UNREACHABLE();
}

QString CreateTable(const SchemaTable& table)
{
    QStringList parts;
    for (const SchemaColumn& column : table.columns)
        parts += ColumnDefinition(column);
    if (!table.key.isEmpty())
        parts += QString("primary key(%1)").arg(table.key);
    return QString("create table %1(%2)").arg(table.name, parts.join(", "));
}

/// A column behind the keys is covered as well as one among them.
QString CreateIndex(const SchemaIndex& index)
{
    return QString("create index %1_%2 on %1(%3)").arg(index.table, index.name, (index.keys + index.covered).join(','));
}
} // namespace

QStringList SqliteSchema()
{
    QStringList statements;
    for (const SchemaTable& table : Schema())
        statements += CreateTable(table);
    for (const SchemaIndex& index : SchemaIndexes())
        statements += CreateIndex(index);
    return statements;
}
