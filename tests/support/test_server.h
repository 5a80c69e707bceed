#pragma once

// Account sets on the PostgreSQL server that tests/postgres_server.sh has started, for the tests that it runs.

#include "database/server_settings.h"
#include "database/store.h"

/// The folder of the server's socket; empty where the tests run on files.
QString TestServer();
ServerSettings TestServerSettings();
/// Where a database of the server is.
ServerAddress TestAddress(const QString& database);

/// An account set without rows in a database that nobody else uses meanwhile.
class TestDatabase
{
public:
    TestDatabase();
    ~TestDatabase();
    TestDatabase(const TestDatabase&) = delete;
    TestDatabase& operator=(const TestDatabase&) = delete;

    const QString& name() const { return m_name; }
    /// Opens it whatever the connection string.
    StoreOpener opener() const;

private:
    QString m_name;
};
