// acctset ddl: the schema of an account set on a server, for who keeps its databases.

#include "commands.h"

#include "data/server_schema.h"
#include "place.h"

int DdlCommand(const QStringList& arguments)
{
    const CommandLine line("ddl", "Prints the statements that make the tables and indexes of an account set.", {},
                           {{"server", "sqlserver or postgresql", "KIND"}}, arguments);
    if (line.helpShown())
        return kDone;
    for (const QString& statement : ServerSchema(ReadServerKind(line.Needed("server"))))
        PrintLine(statement + ";");
    return kDone;
}
