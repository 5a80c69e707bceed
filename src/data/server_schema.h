#pragma once

// The tables of a new account set on a database server.

#include "database/server_settings.h"

#include <QStringList>

/// Statements that make all tables and indexes in an empty database.
QStringList ServerSchema(ServerKind server);
/// What makes an empty database for them, and what takes one away; both run in another database, outside of a unit.
QStringList CreateDatabase(ServerKind server, const QString& database);
QString DropDatabase(ServerKind server, const QString& database);
