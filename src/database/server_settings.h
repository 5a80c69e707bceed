#pragma once

// Which database server stands behind the account sets of kind "SQL", and how its driver is told where to connect.

#include <QString>

enum class ServerKind
{
    SqlServer,
    PostgreSql,
};

struct ServerSettings
{
    ServerKind kind = ServerKind::SqlServer;
    QString driver;  // as the driver manager knows it; empty for the usual one of the kind
    QString options; // more of the connection string, for the driver: "Encrypt=no;"
    int connectSeconds = 10;
    int statementSeconds = 60; // a statement that has no answer by then is given up
};

/// Where the account set is. The password is a secret: it stands in no message.
struct ServerAddress
{
    QString server;
    QString port;
    QString database;
    QString user;
    QString password;
};

/// The file of settings, which may be missing: lines "kind=postgresql", "driver=..", "options=..", "connect=seconds",
/// "statement=seconds"; a line that begins with "#" says nothing.
inline constexpr const char* kServerSettingsFile = "WHMO.server";

/// SQL Server where the folder has no such file. Throws StoreError for a file that cannot be read or says nonsense.
ServerSettings ReadServerSettings(const QString& folder);

/// "Driver={SQL Server};Server=address,port;DataBase=..;UID=..;PWD=..; " taken apart.
ServerAddress AddressOf(const QString& connectionString);
/// Where a server listens that was told no other port.
const char* UsualPort(ServerKind kind);
/// The name of a database as its server's statements take it, whatever signs it has.
QString QuotedName(ServerKind kind, QString name);
/// What lets who reads a database of SQL Server see its last committed rows, where he would wait for who writes. It
/// waits until nobody else is connected.
QString RowVersionsOn(const QString& database);
/// What the driver of the settings is given. A value with a sign of the string's own grammar is quoted.
QString DriverConnection(const ServerSettings& settings, const ServerAddress& address);
