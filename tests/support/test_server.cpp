#include "support/test_server.h"

#include "data/schema.h"
#include "data/server_schema.h"
#include "database/odbc_store.h"

#include <QCoreApplication>

namespace {
constexpr const char* kEmpty = "empty_account_set";

std::unique_ptr<Store> Open(const QString& database)
{
    return OpenServer(TestServerSettings(), TestAddress(database));
}

void RunWords(Store& store, const QString& words)
{
    store.Run(Sql(words.toUtf8().constData()));
}

/// Made once: a copy of it is quicker than a hundred statements.
void MakeEmptyAccountSet()
{
    RunWords(*Open("postgres"), CreateDatabase(ServerKind::PostgreSql, kEmpty).join(';'));
    const std::unique_ptr<Store> store = Open(kEmpty);
    for (const QString& statement : ServerSchema(ServerKind::PostgreSql))
        RunWords(*store, statement);
}

/// Emptied and used again: that is quicker than even a copy.
struct Databases
{
    std::vector<QString> free;
    int made = 0;

    void Add()
    {
        if (made++ == 0)
            MakeEmptyAccountSet();
        free.push_back(QString("test_%1").arg(made));
        RunWords(*Open("postgres"),
                 QString("create database %1 template %2 strategy file_copy").arg(free.back(), kEmpty));
    }
};

Databases& TheDatabases()
{
    static Databases databases;
    return databases;
}

constexpr const char* kDeleteRows = "do $$ declare t record; begin "
                                    "for t in select tablename from pg_tables where schemaname='public' loop "
                                    "execute format('delete from %I',t.tablename); end loop; end $$";
} // namespace

QString TestServer()
{
    return qEnvironmentVariable("WAREHOUSE_TEST_SERVER");
}

ServerSettings TestServerSettings()
{
    ServerSettings settings;
    settings.kind = ServerKind::PostgreSql;
    return settings;
}

ServerAddress TestAddress(const QString& database)
{
    return {TestServer(), "5432", database, "tester", "unused"};
}

TestDatabase::TestDatabase()
{
    Databases& databases = TheDatabases();
    if (databases.free.empty())
        databases.Add();
    m_name = databases.free.back();
    databases.free.pop_back();
}

TestDatabase::~TestDatabase()
{
    const std::unique_ptr<Store> store = Open(m_name);
    RunWords(*store, kDeleteRows);
    const Recordset tables = store->Run(Sql("select count(*) as n from pg_tables where schemaname='public'"));
    // A test may have dropped one.
    if (tables.Integer("n") == qint64(Schema().size()))
        TheDatabases().free.push_back(m_name);
}

StoreOpener TestDatabase::opener() const
{
    return [database = m_name](const QString&) { return Open(database); };
}
