#include "making/new_account_set.h"

#include "base/number_text.h"
#include "making/growing_set.h"

namespace {

Value ValueOfText(ColumnType type, const QString& text)
{
    switch (type) {
    case ColumnType::Number:
        return Val(text);
    case ColumnType::Money:
        return Currency::FromDouble(Val(text));
    case ColumnType::Integer:
        return qint64(Val(text));
    case ColumnType::Day:
        return ParseDay(text).value_or(kNoDate);
    default:
        return text;
    }
}

bool IsIndex(const QString& statement)
{
    return statement.contains(" index ", Qt::CaseInsensitive) || statement.startsWith("alter ");
}

void RunAll(GrowingSet& set, bool indexes)
{
    for (const QString& statement : set.schema()) {
        if (IsIndex(statement) == indexes)
            set.store().Run(Sql(statement.toUtf8().constData()));
    }
}

} // namespace

Value EmptyValue(ColumnType type)
{
    switch (type) {
    case ColumnType::Text:
        return QString("");
    case ColumnType::Day:
        return kNoDate;
    case ColumnType::Moment:
        return Moment{kNoDate};
    case ColumnType::Blob:
        return {};
    default:
        return qint64(0);
    }
}

NewAccountSet::NewAccountSet(const QString& place) : m_growing(MakeGrowingSet(ReadPlace(place)))
{
    m_growing->store().BeginUnit();
    RunAll(*m_growing, false);
}

void NewAccountSet::Insert(const char* table, const QString& columns, const QString& texts)
{
    const QStringList named = columns.split('|');
    const QStringList given = texts.split('|');
    std::vector<Value> values;
    for (const SchemaColumn& column : FindTable(table)->columns) {
        const qsizetype position = named.indexOf(column.name);
        values.push_back(position < 0 ? EmptyValue(column.type) : ValueOfText(column.type, given.value(position)));
    }
    Insert(table, values);
}

void NewAccountSet::Insert(const char* table, const std::vector<Value>& values)
{
    m_growing->store().Run(InsertInto(Name(table), values));
}

void NewAccountSet::Finish()
{
    RunAll(*m_growing, true);
    m_growing->store().CommitUnit();
    m_growing->Finish();
}
