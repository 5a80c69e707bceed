#include "data/schema.h"

#include "data/schema_text.h"

namespace {
struct TypeWord
{
    const char* word;
    ColumnType type;
};

constexpr TypeWord kTypeWords[] = {
    {"", ColumnType::Text},         {"day", ColumnType::Day},     {"moment", ColumnType::Moment},
    {"number", ColumnType::Number}, {"money", ColumnType::Money}, {"int", ColumnType::Integer},
    {"blob", ColumnType::Blob},
};

ColumnType TypeOfWord(const QString& word)
{
    for (const TypeWord& known : kTypeWords)
        if (word == QLatin1String(known.word))
            return known.type;
    Q_UNREACHABLE();
}

const char* ColumnsOfGroup(const QString& name)
{
    for (const SchemaGroup& group : kSchemaGroups)
        if (name == QLatin1String(group.name))
            return group.columns;
    Q_UNREACHABLE();
}

void AddColumns(std::vector<SchemaColumn>& columns, const char* text)
{
    const QStringList words = QString::fromLatin1(text).split(' ', Qt::SkipEmptyParts);
    for (const QString& word : words) {
        if (word.startsWith('@'))
            AddColumns(columns, ColumnsOfGroup(word));
        else
            columns.push_back({word.section(':', 0, 0), TypeOfWord(word.section(':', 1))});
    }
}

std::vector<SchemaTable> ReadTables()
{
    std::vector<SchemaTable> tables;
    for (const SchemaTableText& text : kSchemaTables) {
        SchemaTable table{text.name, text.key, {}};
        AddColumns(table.columns, text.columns);
        tables.push_back(std::move(table));
    }
    return tables;
}
} // namespace

const std::vector<SchemaTable>& Schema()
{
    static const std::vector<SchemaTable> tables = ReadTables();
    return tables;
}

const SchemaTable* FindTable(const QString& name)
{
    for (const SchemaTable& table : Schema())
        if (table.name.compare(name, Qt::CaseInsensitive) == 0)
            return &table;
    return nullptr;
}
