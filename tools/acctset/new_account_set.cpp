#include "new_account_set.h"

#include "base/number_text.h"
#include "commands.h"
#include "database/sqlite_store.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

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

constexpr const char* kGrowing = ".new";

bool IsIndex(const QString& statement)
{
    return statement.contains(" index ", Qt::CaseInsensitive);
}

void RunAll(Store& store, bool indexes)
{
    for (const QString& statement : SqliteSchema()) {
        if (IsIndex(statement) == indexes)
            store.Run(Sql(statement.toUtf8().constData()));
    }
}

QString CheckedPath(const QString& path)
{
    const QFileInfo file(path);
    if (file.exists())
        throw Refusal{QString("\"%1\" exists already").arg(path)};
    if (QFileInfo::exists(path + kGrowing))
        throw Refusal{QString("\"%1%2\" is left from an earlier try; remove it").arg(path, kGrowing)};
    if (!file.absoluteDir().exists())
        throw Refusal{QString("there is no folder \"%1\"").arg(file.absolutePath())};
    return path;
}

} // namespace

Value EmptyValue(ColumnType type)
{
    switch (type) {
    case ColumnType::Text:
    case ColumnType::LongText:
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

NewAccountSet::NewAccountSet(const QString& path)
    : m_path(CheckedPath(path)), m_growing(path + kGrowing), m_store(CreateSqliteFile(m_growing.path))
{
    // Nobody reads the file before it is whole, so nothing needs to be safe while it grows.
    m_store->Run(Sql("pragma journal_mode=off"));
    m_store->Run(Sql("pragma synchronous=off"));
    m_store->BeginUnit();
    RunAll(*m_store, false);
}

NewAccountSet::GrowingFile::~GrowingFile()
{
    QFile::remove(path);
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
    m_store->Run(InsertInto(Name(table), values));
}

void NewAccountSet::Finish()
{
    RunAll(*m_store, true);
    m_store->CommitUnit();
    m_store.reset();
    if (!QFile::rename(m_growing.path, m_path))
        throw Refusal{QString("\"%1\" exists already").arg(m_path)};
}
