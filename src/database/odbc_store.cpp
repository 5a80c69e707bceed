#include "database/odbc_store.h"

#include "database/odbc_statement.h"
#include "database/patient_store.h"
#include "database/statement_mapping.h"

#include <unordered_map>

namespace {
/// Statements kept prepared; beyond that the store starts over, which no window comes near.
constexpr size_t kMostPrepared = 256;

/// Rows written between two savepoints.
constexpr size_t kMostUnsaved = 32;

/// What differs between the servers, in their words.
struct ServerWords
{
    std::string (*map)(std::string_view words);
    const char* session; // %1 is the seconds of a statement
    // One writer at a time, as in a file: the lock is the unit's first step and goes with its end, so that what a save
    // reads inside its unit (is the code taken, how much is on stock) holds until it is stored. Rows read under it are
    // those of all units before: each statement sees what is committed by then. Who only reads waits for nobody.
    const char* begin;
    const char* commit;
    const char* rollback;
    bool failureEndsUnit; // a failing statement takes the whole transaction along, back to its last savepoint
};

constexpr ServerWords kPostgresWords = {
    MapForPostgres,
    // A plan is made once for all values: they change nothing about it, and planning a balance takes longer than it.
    "set lock_timeout='5s'; set statement_timeout='%1s'; set plan_cache_mode=force_generic_plan; set jit=off;"
    "set client_min_messages=warning; set default_transaction_isolation='read committed';"
    // The unit of a program that is gone holds up the others no longer than its statements might.
    "set idle_in_transaction_session_timeout='%1s'",
    "begin; select pg_advisory_xact_lock(1464356175); savepoint unsaved",
    "commit",
    "rollback",
    true,
};

constexpr ServerWords kSqlServerWords = {
    MapForSqlServer,
    "set dateformat ymd; set lock_timeout 5000; set xact_abort off",
    "begin transaction; declare @taken int; exec @taken=sp_getapplock @Resource='warehouse.unit',"
    "@LockMode='Exclusive',@LockOwner='Transaction',@LockTimeout=5000;"
    "if @taken<0 raiserror('the lock of the unit is taken',16,1)",
    "commit transaction",
    "if @@trancount>0 rollback transaction",
    false,
};

static_assert(std::string_view(kSqlServerWords.begin).find(kUnitIsTaken) != std::string_view::npos);

constexpr const char* kBackToSavepoint = "rollback to savepoint unsaved";
constexpr const char* kNextSavepoint = "release savepoint unsaved; savepoint unsaved";

class OdbcStore : public Store
{
public:
    OdbcStore(const ServerSettings& settings, const ServerAddress& address);

    Recordset Run(const Sql& sql) override;
    void BeginUnit() override;
    void CommitUnit() override;
    void RollbackUnit() override;
    bool inUnit() const override { return m_inUnit && !m_lost; }
    bool isLost() const override { return m_lost; }
    QString advice() const override { return m_advice; }

private:
    void RunWords(const char* words);
    OdbcStatement& Prepare(const std::string& shape);
    Recordset RunPrepared(const Sql& sql);
    void LookForRowVersions(const QString& database);
    void KeepUnsaved(const Sql& sql);
    StoreError Failed(const OdbcDiagnostics& diagnostics);
    void RestoreUnit();
    bool isUnitIntact();
    void GiveUnitUp();

    ServerKind m_server;
    const ServerWords& m_words;
    QString m_secret;
    OdbcConnection m_connection;
    std::unordered_map<std::string, OdbcStatement> m_prepared;
    std::vector<Sql> m_unsaved; // what the unit has written since its last savepoint
    bool m_inUnit = false;
    bool m_lost = false;
    QString m_advice;
};

OdbcStore::OdbcStore(const ServerSettings& settings, const ServerAddress& address)
    : m_server(settings.kind),
      m_words(settings.kind == ServerKind::PostgreSql ? kPostgresWords : kSqlServerWords),
      m_secret(address.password),
      m_connection(settings, address)
{
    const QString session = QString(m_words.session).replace("%1", QString::number(settings.statementSeconds));
    try {
        RunWords(session.toUtf8());
        if (m_server == ServerKind::SqlServer)
            LookForRowVersions(address.database);
    } catch (const OdbcDiagnostics& diagnostics) {
        throw ErrorOf(diagnostics, m_secret);
    }
}

/// Without them who reads waits for who writes, and is refused after five seconds.
void OdbcStore::LookForRowVersions(const QString& database)
{
    try {
        const Recordset setting =
            RunPrepared(Sql("select is_read_committed_snapshot_on as IsOn from sys.databases where name=") + database);
        if (!setting.isEmpty() && setting.Integer("IsOn") == 0)
            m_advice = QString("数据库没有打开行版本，查询要等待其他程序的写入，可能被拒绝！\r\n"
                               "请管理员在无人使用时执行：\r\n%1")
                           .arg(RowVersionsOn(database));
    } catch (const OdbcDiagnostics& diagnostics) {
        // A server that does not tell is no server that has none.
        if (diagnostics.isConnectionLost() || m_connection.isDead())
            throw;
    }
}

void OdbcStore::RunWords(const char* words)
{
    OdbcHandle statement;
    if (!m_connection.Run(words, statement))
        throw DiagnosticsOf(statement);
    // A failure behind the first of several statements shows when its result is asked for.
    SQLRETURN code = SQL_SUCCESS;
    while (SQL_SUCCEEDED(code = SQLMoreResults(statement.get())))
        continue;
    if (code != SQL_NO_DATA)
        throw DiagnosticsOf(statement);
}

OdbcStatement& OdbcStore::Prepare(const std::string& shape)
{
    const auto found = m_prepared.find(shape);
    if (found != m_prepared.end())
        return found->second;
    if (m_prepared.size() >= kMostPrepared)
        m_prepared.clear();
    return m_prepared.emplace(shape, OdbcStatement(m_connection, m_words.map(shape), m_server)).first->second;
}

Recordset OdbcStore::RunPrepared(const Sql& sql)
{
    OdbcStatement& statement = Prepare(sql.shape());
    Recordset rows = statement.Run(sql.values());
    if (m_inUnit && m_words.failureEndsUnit && statement.hasWritten())
        KeepUnsaved(sql);
    return rows;
}

Recordset OdbcStore::Run(const Sql& sql)
{
    try {
        return RunPrepared(sql);
    } catch (const OdbcDiagnostics& diagnostics) {
        throw Failed(diagnostics);
    }
}

/// A savepoint for each statement would cost as much as the statement. There is one for each score of them instead;
/// after a failure, which is rare, what was written behind it is written again.
void OdbcStore::KeepUnsaved(const Sql& sql)
{
    m_unsaved.push_back(sql);
    if (m_unsaved.size() < kMostUnsaved)
        return;
    RunWords(kNextSavepoint);
    m_unsaved.clear();
}

/// What the failure means for the connection and the unit, and what is said of it.
StoreError OdbcStore::Failed(const OdbcDiagnostics& diagnostics)
{
    m_lost = m_lost || diagnostics.isConnectionLost() || m_connection.isDead();
    if (inUnit())
        diagnostics.isOfMachine() ? GiveUnitUp() : RestoreUnit();
    return ErrorOf(diagnostics, m_secret, m_lost);
}

/// Takes the failed statement alone back. A unit that cannot be restored is over.
void OdbcStore::RestoreUnit()
{
    try {
        if (!m_words.failureEndsUnit) {
            if (!isUnitIntact())
                GiveUnitUp();
            return;
        }
        RunWords(kBackToSavepoint);
        for (const Sql& sql : m_unsaved)
            Prepare(sql.shape()).Run(sql.values());
    } catch (const OdbcDiagnostics&) {
        GiveUnitUp();
    }
}

/// Some failures doom a transaction of SQL Server, or end it.
bool OdbcStore::isUnitIntact()
{
    return RunPrepared(Sql("select xact_state() as Intact")).Integer("Intact") == 1;
}

void OdbcStore::GiveUnitUp()
{
    m_inUnit = false;
    m_unsaved.clear();
    try {
        RunWords(m_words.rollback);
    } catch (const OdbcDiagnostics&) {
        m_lost = true; // its end ends the unit too
    }
}

void OdbcStore::BeginUnit()
{
    try {
        RunWords(m_words.begin);
        m_inUnit = true;
        m_unsaved.clear();
    } catch (const OdbcDiagnostics& diagnostics) {
        m_lost = diagnostics.isConnectionLost() || m_connection.isDead();
        if (!m_lost)
            GiveUnitUp();
        throw ErrorOf(diagnostics, m_secret, m_lost);
    }
}

void OdbcStore::CommitUnit()
{
    m_inUnit = false;
    try {
        RunWords(m_words.commit);
    } catch (const OdbcDiagnostics& diagnostics) {
        m_lost = diagnostics.isConnectionLost() || m_connection.isDead();
        if (!m_lost)
            GiveUnitUp();
        throw ErrorOf(diagnostics, m_secret, m_lost);
    }
}

void OdbcStore::RollbackUnit()
{
    if (!inUnit())
        return;
    m_inUnit = false;
    try {
        RunWords(m_words.rollback);
    } catch (const OdbcDiagnostics& diagnostics) {
        m_lost = true;
        throw ErrorOf(diagnostics, m_secret, m_lost);
    }
}
} // namespace

std::unique_ptr<Store> OpenServer(const ServerSettings& settings, const ServerAddress& address)
{
    // A server, or its driver, that keeps to the settings answers before that.
    constexpr std::chrono::seconds kGrace(3);
    const Patience patience{std::chrono::seconds(settings.connectSeconds) + kGrace,
                            std::chrono::seconds(settings.statementSeconds) + kGrace};
    return OpenPatiently([settings, address] { return std::make_unique<OdbcStore>(settings, address); }, patience);
}
