// The hand-over file, written as a sibling would and read without taking it away.

#include "commands.h"

#include "handover/run_parameters.h"

#include <QFileInfo>

namespace {

constexpr const char* kDatabaseTypes[] = {"Access", "Access2", "SQL"};

QString DatabaseTypeOf(const CommandLine& line)
{
    const QString type = line.IsSet("type") ? line.Text("type") : kDatabaseTypes[0];
    for (const char* known : kDatabaseTypes) {
        if (type == known)
            return type;
    }
    throw WrongUse{QString("--type is Access, Access2 or SQL, not \"%1\"").arg(type)};
}

RunParameters ParametersOf(const CommandLine& line)
{
    RunParameters parameters;
    parameters.SoftType = "QV";
    parameters.DatabaseType = DatabaseTypeOf(line);
    parameters.IsAccess = parameters.DatabaseType == "Access";
    parameters.VisionNum = "V10.0版";
    parameters.LoginType = "服务器端";
    parameters.CalCostType = "移动加权平均法";
    parameters.IsJXC = !line.IsSet("accounting");
    parameters.IsLotMoney = line.IsSet("currencies");
    parameters.ConDataName = line.Needed("data");
    parameters.ConDataRemark = QFileInfo(parameters.ConDataName).completeBaseName();
    parameters.ConServerIP = line.Text("server");
    parameters.ConPortNum = line.Text("port");
    parameters.ConDataBaseUID = line.Text("login");
    parameters.ConDataBasePWD = qEnvironmentVariable("ACCTSET_PASSWORD");
    parameters.UserName = line.IsSet("operator") ? line.Text("operator") : "系统管理员";
    parameters.OperateDate = DayText(line.MomentAt("date", Moment{QDate::currentDate()}).day);
    return parameters;
}

} // namespace

int HandoverCommand(const QStringList& arguments)
{
    std::vector<CommandLine::Option> options = {
        {"data", "file name or database name of the account set", "NAME"},
        {"type", "Access, Access2 or SQL; Access without it", "TYPE"},
        {"operator", "the signed-in operator; 系统管理员 without it", "NAME"},
        {"date", "the working date; today without it", "DATE"},
        {"currencies", "bills carry a currency and a rate", ""},
        {"accounting", "the account set has an accounting side", ""},
        {"server", "address of a SQL server", "ADDRESS"},
        {"port", "its port", "NUMBER"},
        {"login", "login on it; its password is taken from the environment, ACCTSET_PASSWORD", "NAME"},
    };
    Directives directives;
    for (size_t i = 0; i < directives.size(); ++i)
        options.push_back({QString("directive%1").arg(i + 1), "what the started program is to do", "WORD"});
    const CommandLine line("handover", "Writes the hand-over file into FOLDER.", {"FOLDER"}, options, arguments);
    if (line.helpShown())
        return kDone;
    for (size_t i = 0; i < directives.size(); ++i)
        directives[i] = line.Text(options[options.size() - directives.size() + i].name);

    const RunParameters parameters = ParametersOf(line);
    if (!QFileInfo(line.Word(0)).isDir())
        throw Refusal{QString("there is no folder \"%1\"").arg(line.Word(0))};
    if (!WriteRunParameters(line.Word(0), parameters, directives))
        throw Refusal{QString("the hand-over file cannot be written into \"%1\"").arg(line.Word(0))};
    return kDone;
}

int ReadHandoverCommand(const QStringList& arguments)
{
    const CommandLine line("read-handover", "Prints the clear lines of the hand-over file in FOLDER; it stays there.",
                           {"FOLDER"}, {}, arguments);
    if (line.helpShown())
        return kDone;
    const std::optional<QStringList> clearLines = ReadClearLines(line.Word(0));
    if (!clearLines)
        throw Refusal{QString("there is no hand-over file in \"%1\"").arg(line.Word(0))};
    for (const QString& clearLine : *clearLines)
        PrintLine(clearLine);
    return kDone;
}
