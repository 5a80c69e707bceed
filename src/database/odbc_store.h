#pragma once

// The store on a database server, through ODBC: SQL Server, which the statements are written for, or PostgreSQL.

#include "database/server_settings.h"
#include "database/store.h"

/// Connects; gives up after the seconds of the settings. Throws StoreError.
std::unique_ptr<Store> OpenServer(const ServerSettings& settings, const ServerAddress& address);
