#include "database/sqlite_store.h"

#include "database/file_check.h"
#include "database/opened_files.h"
#include "database/sqlite_handle.h"
#include "database/sqlite_like.h"
#include "database/sqlite_nocase.h"
#include "database/sqlite_sum.h"
#include "database/statement_mapping.h"

#include <QCoreApplication>
#include <QFile>
#include <QTimer>
#include <algorithm>
#include <optional>
#include <unordered_map>
#include <utility>

namespace {
// One host, many programs: readers never wait for the writer, and a commit is on the disk when it returns.
constexpr const char* kPragmas = "pragma journal_mode=WAL;"
                                 "pragma synchronous=FULL;"
                                 "pragma cache_size=-32768;"
                                 "pragma temp_store=MEMORY;"
                                 "pragma trusted_schema=OFF;";

/// Statements kept prepared; beyond that the store starts over, which no window comes near.
constexpr size_t kMostPrepared = 256;
/// A file left open by a program that did not come to its end is looked through before anything is read, in a blink; a
/// larger one (bytes) beside the first window.
constexpr qint64 kCheckedAtOnce = 16 * 1024 * 1024;

/// A log that does not belong to its file must not get into it: then both can still be told apart.
void KeepLogAtClose(sqlite3* database, bool keep)
{
    sqlite3_db_config(database, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, keep ? 1 : 0, nullptr);
}

QString DamageText(const QString& path, const QString& damage)
{
    return "账套文件上次没有正常关闭，检查发现已经损坏，不再写入：\r\n" + path + "\r\n(" + damage +
           ")\r\n请退出所有程序，恢复最近的备份；恢复时请先移走同名的 -wal 和 -shm 文件。";
}

class SqliteStore : public Store
{
public:
    SqliteStore(QString path, SqliteHandle database);

    Recordset Run(const Sql& sql) override;
    void BeginUnit() override
    {
        RequireWritable();
        RunWords("begin immediate");
    }
    void CommitUnit() override
    {
        RunWords("commit");
        HasWritten();
    }
    void RollbackUnit() override
    {
        if (inUnit())
            RunWords("rollback");
    }
    bool inUnit() const override { return sqlite3_get_autocommit(m_database.get()) == 0; }
    bool isLost() const override { return m_isLost; }
    void WhenDamaged(const std::function<void(const QString& text)>& tell) override;

    /// From now on nothing is written once the files of the database are gone.
    void Watch() { m_files.emplace(m_database.get()); }
    /// Looks a file through that was left open.
    void Check();

private:
    struct Prepared
    {
        SqliteStatement statement;
        std::shared_ptr<const Recordset::Columns> columns;
    };

    void RunWords(const char* words);
    void RequireInPlace(const QString& otherwise);
    void RequireWritable();
    void HasWritten();
    void ShrinkLog();
    void FinishCheck();
    void TellDamage();
    Prepared& Prepare(const std::string& shape);
    Recordset RunPrepared(const Prepared& prepared, const std::vector<Value>& values) const;
    void Bind(sqlite3_stmt* statement, const std::vector<Value>& values) const;
    std::vector<Recordset::Row> Fetch(sqlite3_stmt* statement, int columns) const;

    QString m_path;
    SqliteHandle m_database;
    std::unordered_map<std::string, Prepared> m_prepared;
    std::optional<OpenedFiles> m_files; // unset for a file in the making
    bool m_isLost = false;
    bool m_shrinks = false; // as soon as there is time
    QObject m_home;         // what is called later ends with it
    QString m_damage;       // for the user
    std::function<void(const QString& text)> m_tell;
    std::unique_ptr<FileCheck> m_check; // while it is not finished
};

SqliteStore::SqliteStore(QString path, SqliteHandle database) : m_path(std::move(path)), m_database(std::move(database))
{
    RegisterExactSum(m_database.get());
    RegisterNoCase(m_database.get());
    RegisterAnyLike(m_database.get());
    sqlite3_busy_timeout(m_database.get(), kPatience);
    RunWords(kPragmas);
}

void SqliteStore::RequireInPlace(const QString& otherwise)
{
    const QString missing = m_files ? m_files->Missing() : QString();
    if (missing.isEmpty())
        return;
    m_isLost = true;
    throw StoreError{SQLITE_READONLY_DBMOVED, "账套文件在使用中被删除、移动或替换，" + otherwise + "\r\n" + missing};
}

void SqliteStore::RequireWritable()
{
    RequireInPlace("没有写入！请确认账套文件后重新操作。");
    FinishCheck();
    if (m_damage.isEmpty())
        return;
    m_tell = nullptr; // it is said here
    throw StoreError{SQLITE_CORRUPT, m_damage};
}

void SqliteStore::HasWritten()
{
    RequireInPlace("刚才写入的内容不在现在的账套中！请确认账套文件后重新操作。");
    if (m_shrinks || !QCoreApplication::instance())
        return;
    m_shrinks = true;
    QTimer::singleShot(0, &m_home, [this] { ShrinkLog(); });
}

/// Brings what stands in the log home, so that little of it is left where the program is killed. Never waits: as long
/// as another program reads an older state the log stays, until the next unit.
void SqliteStore::ShrinkLog()
{
    m_shrinks = false;
    sqlite3_busy_timeout(m_database.get(), 0);
    sqlite3_wal_checkpoint_v2(m_database.get(), "main", SQLITE_CHECKPOINT_TRUNCATE, nullptr, nullptr);
    sqlite3_busy_timeout(m_database.get(), kPatience);
}

void SqliteStore::Check()
{
    const bool isLarge = SizeOnDisk(m_database.get()) > kCheckedAtOnce;
    m_check = std::make_unique<FileCheck>(m_path, isLarge, [this] {
        QMetaObject::invokeMethod(
            &m_home,
            [this] {
                FinishCheck();
                TellDamage();
            },
            Qt::QueuedConnection);
    });
    if (!isLarge)
        FinishCheck();
}

void SqliteStore::FinishCheck()
{
    if (!m_check)
        return;
    const QString damage = m_check->Damage();
    m_check.reset();
    if (damage.isEmpty())
        KeepLogAtClose(m_database.get(), false);
    else
        m_damage = DamageText(m_path, damage);
}

void SqliteStore::TellDamage()
{
    if (m_tell && !m_damage.isEmpty())
        std::exchange(m_tell, nullptr)(m_damage);
}

void SqliteStore::WhenDamaged(const std::function<void(const QString& text)>& tell)
{
    m_tell = tell;
    TellDamage();
}

void SqliteStore::RunWords(const char* words)
{
    if (sqlite3_exec(m_database.get(), words, nullptr, nullptr, nullptr) != SQLITE_OK)
        throw ErrorOf(m_database.get(), m_path);
}

SqliteStore::Prepared& SqliteStore::Prepare(const std::string& shape)
{
    const auto found = m_prepared.find(shape);
    if (found != m_prepared.end())
        return found->second;
    if (m_prepared.size() >= kMostPrepared)
        m_prepared.clear();

    const std::string words = MapForSqlite(shape);
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v3(m_database.get(), words.data(), static_cast<int>(words.size()), SQLITE_PREPARE_PERSISTENT,
                           &statement, nullptr) != SQLITE_OK)
        throw ErrorOf(m_database.get(), m_path);
    Prepared prepared{SqliteStatement(statement), nullptr};
    auto columns = std::make_shared<Recordset::Columns>();
    for (int i = 0; i < sqlite3_column_count(statement); ++i)
        columns->push_back(QString::fromUtf8(sqlite3_column_name(statement, i)));
    prepared.columns = std::move(columns);
    return m_prepared.emplace(shape, std::move(prepared)).first->second;
}

struct BindValue
{
    sqlite3_stmt* statement;
    int position;

    int Text(const QString& text) const
    {
        const QByteArray utf8 = text.toUtf8();
        return sqlite3_bind_text(statement, position, utf8.constData(), static_cast<int>(utf8.size()),
                                 SQLITE_TRANSIENT);
    }
    int operator()(std::monostate) const { return sqlite3_bind_null(statement, position); }
    int operator()(qint64 number) const { return sqlite3_bind_int64(statement, position, number); }
    int operator()(double number) const { return sqlite3_bind_double(statement, position, number); }
    int operator()(Currency money) const { return sqlite3_bind_double(statement, position, money.toDouble()); }
    int operator()(const QString& text) const { return Text(text); }
    int operator()(const QDate& day) const
    {
        return day.isValid() ? Text(DayText(day)) : sqlite3_bind_null(statement, position);
    }
    int operator()(const Moment& moment) const
    {
        return moment.day.isValid() ? Text(MomentText(moment)) : sqlite3_bind_null(statement, position);
    }
    int operator()(const QByteArray& bytes) const
    {
        return sqlite3_bind_blob64(statement, position, bytes.constData(), static_cast<sqlite3_uint64>(bytes.size()),
                                   SQLITE_TRANSIENT);
    }
};

void SqliteStore::Bind(sqlite3_stmt* statement, const std::vector<Value>& values) const
{
    int position = 0;
    for (const Value& value : values)
        if (std::visit(BindValue{statement, ++position}, value) != SQLITE_OK)
            throw ErrorOf(m_database.get(), m_path);
}

Value ColumnValue(sqlite3_stmt* statement, int column)
{
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER:
        return static_cast<qint64>(sqlite3_column_int64(statement, column));
    case SQLITE_FLOAT:
        return sqlite3_column_double(statement, column);
    case SQLITE_TEXT:
        return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)),
                                 sqlite3_column_bytes(statement, column));
    case SQLITE_BLOB:
        return QByteArray(static_cast<const char*>(sqlite3_column_blob(statement, column)),
                          sqlite3_column_bytes(statement, column));
    default:
        return {};
    }
}

std::vector<Recordset::Row> SqliteStore::Fetch(sqlite3_stmt* statement, int columns) const
{
    std::vector<Recordset::Row> rows;
    int code = SQLITE_ROW;
    while ((code = sqlite3_step(statement)) == SQLITE_ROW) {
        Recordset::Row& row = rows.emplace_back();
        row.reserve(static_cast<size_t>(columns));
        for (int column = 0; column < columns; ++column)
            row.push_back(ColumnValue(statement, column));
    }
    if (code != SQLITE_DONE)
        throw ErrorOf(m_database.get(), m_path);
    return rows;
}

/// Leaves a prepared statement ready for its next use, whatever became of this one.
struct ResetAtEnd
{
    sqlite3_stmt* statement;
    ~ResetAtEnd()
    {
        sqlite3_reset(statement);
        sqlite3_clear_bindings(statement);
    }
};

/// Failures of the machine, not of the statement: what was to be written has no place, so its unit cannot go on.
bool EndsUnit(const StoreError& error)
{
    constexpr int kFailures[] = {SQLITE_FULL, SQLITE_IOERR, SQLITE_NOMEM, SQLITE_CORRUPT};
    return std::ranges::find(kFailures, error.number) != std::end(kFailures);
}

Recordset SqliteStore::Run(const Sql& sql)
{
    try {
        const Prepared& prepared = Prepare(sql.shape());
        const bool isUnitOfItsOwn = !inUnit() && !sqlite3_stmt_readonly(prepared.statement.get());
        if (isUnitOfItsOwn)
            RequireWritable();
        Recordset rows = RunPrepared(prepared, sql.values());
        if (isUnitOfItsOwn)
            HasWritten();
        return rows;
    } catch (const StoreError& error) {
        if (EndsUnit(error) && inUnit())
            sqlite3_exec(m_database.get(), "rollback", nullptr, nullptr, nullptr);
        throw;
    }
}

Recordset SqliteStore::RunPrepared(const Prepared& prepared, const std::vector<Value>& values) const
{
    sqlite3_stmt* statement = prepared.statement.get();
    const ResetAtEnd reset{statement};
    Bind(statement, values);
    return {prepared.columns, Fetch(statement, static_cast<int>(prepared.columns->size()))};
}
} // namespace

std::unique_ptr<Store> OpenSqliteFile(const QString& path)
{
    SqliteHandle database = OpenDatabase(path, SQLITE_OPEN_READWRITE);
    const bool wasLeftOpen = WasLeftOpen(database.get());
    KeepLogAtClose(database.get(), wasLeftOpen);
    try {
        auto store = std::make_unique<SqliteStore>(path, std::move(database));
        if (store->Run(Sql("select name from sqlite_master where type='table' and name='TabDotSet'")).isEmpty())
            throw StoreError{SQLITE_NOTADB, "文件不是本系统的账套：" + path};
        store->Watch();
        if (wasLeftOpen)
            store->Check();
        return store;
    } catch (const StoreError& error) {
        if (!wasLeftOpen || error.number != SQLITE_CORRUPT)
            throw;
        throw StoreError{error.number, DamageText(path, error.description)};
    }
}

std::unique_ptr<Store> CreateSqliteFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        throw StoreError{SQLITE_CANTOPEN, "账套文件不能建立：" + path + "\r\n(" + file.errorString() + ")"};
    file.close();
    return std::make_unique<SqliteStore>(path, OpenHandle(path, SQLITE_OPEN_READWRITE));
}

bool IsSqliteFile(const QString& path)
{
    try {
        OpenDatabase(path, SQLITE_OPEN_READONLY);
        return true;
    } catch (const StoreError&) {
        return false;
    }
}

void CopySqliteFile(const QString& source, const QString& target)
{
    const SqliteHandle from = OpenDatabase(source, SQLITE_OPEN_READONLY);
    sqlite3_busy_timeout(from.get(), kPatience);
    const SqliteHandle to = OpenHandle(target, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    sqlite3_backup* backup = sqlite3_backup_init(to.get(), "main", from.get(), "main");
    if (!backup)
        throw ErrorOf(to.get(), target);
    sqlite3_backup_step(backup, -1);
    if (sqlite3_backup_finish(backup) != SQLITE_OK)
        throw ErrorOf(to.get(), target);
}
