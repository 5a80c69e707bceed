// acctset makes, asks, checks, posts into and hands over account sets from a command line.

#include "commands.h"

#include "database/store.h"

#include <QCoreApplication>

namespace {

struct CommandEntry
{
    const char* name;
    const char* help;
    int (*run)(const QStringList& arguments);
};

constexpr CommandEntry kCommands[] = {
    {"create", "makes a new account set", CreateCommand},
    {"generate", "makes a large account set for benchmarks", GenerateCommand},
    {"ddl", "prints the tables and indexes of an account set on a server", DdlCommand},
    {"handover", "writes the hand-over file that starts a program", HandoverCommand},
    {"read-handover", "prints the hand-over file and leaves it there", ReadHandoverCommand},
    {"stock", "stock of a good", StockCommand},
    {"cost", "unit cost of a good", CostCommand},
    {"explain", "how stock and unit cost of a good came about", ExplainCommand},
    {"check", "looks an account set through for faults", CheckCommand},
    {"rewrite", "rewrites the stored costs of a good", RewriteCommand},
    {"post", "checks and saves a bill", PostCommand},
    {"show", "prints a saved bill", ShowCommand},
};

void PrintOverview(void (*print)(const QString& line))
{
    print("usage: acctset COMMAND ...");
    for (const CommandEntry& command : kCommands)
        print(QString("  %1 %2").arg(command.name, -14).arg(command.help));
    print("Each command tells its options with --help.");
}

int RunCommand(const QStringList& arguments)
{
    if (arguments.isEmpty()) {
        PrintOverview(PrintErrorLine);
        return kWrongUse;
    }
    const QString& word = arguments.first();
    if (word == "--help" || word == "-h") {
        PrintOverview(PrintLine);
        return kDone;
    }
    for (const CommandEntry& command : kCommands) {
        if (word == command.name)
            return command.run(arguments.mid(1));
    }
    throw WrongUse{QString("there is no command \"%1\"; acctset --help lists them").arg(word)};
}

int Fail(const QString& text, int exitCode)
{
    PrintErrorLine("acctset: " + text);
    return exitCode;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    try {
        return RunCommand(QCoreApplication::arguments().mid(1));
    } catch (const WrongUse& wrong) {
        return Fail(wrong.text, kWrongUse);
    } catch (const Refusal& refusal) {
        return Fail(refusal.text, kRefused);
    } catch (const StoreError& error) {
        return Fail(error.description, kRefused);
    }
}
