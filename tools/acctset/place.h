#pragma once

// Where an account set is: a file, or a database on a server. Every command takes either for its FILE.

#include "database/server_settings.h"
#include "database/store.h"

#include <optional>

struct ServerPlace
{
    ServerSettings settings;
    ServerAddress address;
};

struct AccountSetPlace
{
    QString path;                      // of a file
    std::optional<ServerPlace> server; // instead of it
};

/// "postgresql://login@address:port/database", "sqlserver://..", or the path of a file. A sign of the grammar inside a
/// part is written as % and its code. The password stands in the environment, ACCTSET_PASSWORD, or in the file that
/// ACCTSET_PASSWORD_FILE names; never in the word itself, which other users of the machine can see. Throws WrongUse.
AccountSetPlace ReadPlace(const QString& word);
/// "sqlserver" or "postgresql". Throws WrongUse.
ServerKind ReadServerKind(const QString& word);
/// Opens an existing account set whatever the connection string.
StoreOpener OpenerOf(const AccountSetPlace& place);
