// acctset ddl: the schema of an account set on a server, for who keeps its databases.

#include "commands.h"

#include "data/server_schema.h"
#include "place.h"

int DdlCommand(const QStringList& arguments)
{
    const CommandLine line("ddl", "Prints the statements that make the tables and indexes of an account set.", {},
                           {{"server", "sqlserver or postgresql", "KIND"},
                            {"database", "the statements that make this database come first", "NAME"}},
                           arguments);
    if (line.helpShown())
        return kDone;
    const ServerKind server = ReadServerKind(line.Needed("server"));
    QStringList statements = ServerSchema(server);
    if (line.IsSet("database"))
        statements = CreateDatabase(server, line.Needed("database")) + statements;
    for (const QString& statement : statements)
        PrintLine(statement + ";");
    return kDone;
}
