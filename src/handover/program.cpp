#include "handover/program.h"

#include "database/server_settings.h"

#include <utility>

namespace {

/// The one password that all account-set files are protected by.
constexpr const char* kFilePassword = "wkvtmq#482.zzz";

QString ServerConnection(const QString& folder, const RunParameters& parameters)
{
    const QString given = parameters.ConPortNum.trimmed();
    const QString port = given.isEmpty() ? UsualPort(ReadServerSettings(folder).kind) : given;
    return "Driver={SQL Server};Server=" + parameters.ConServerIP + "," + port + ";DataBase=" + parameters.ConDataName +
           ";UID=" + parameters.ConDataBaseUID + ";PWD=" + parameters.ConDataBasePWD + "; ";
}

QString FileConnection(const QString& dataFolder, const QString& fileName, const QString& beforePassword)
{
    return "Provider = Microsoft.Jet.OLEDB.4.0;Data Source = " + dataFolder + fileName + beforePassword +
           "Jet OLEDB:Database Password='" + kFilePassword + "'";
}

} // namespace

Program::Program(QString programFolder, RunParameters handedOver, Prompt& boxes, Clock& time, StoreOpener opener)
    : folder(std::move(programFolder)),
      parameters(std::move(handedOver)),
      gConnection(std::move(opener)),
      prompt(boxes),
      clock(time)
{}

QString BuildConnectionString(Program& program)
{
    const RunParameters& parameters = program.parameters;
    const bool onServer = parameters.DatabaseType == u"SQL";
    const QString unknownAccountSet = "不能确定当前操作账套，请重新登陆系统！";
    if (parameters.ConDataName.isEmpty())
        program.prompt.Warn(unknownAccountSet);
    if (onServer && (parameters.ConDataBaseUID.isEmpty() || parameters.ConServerIP.isEmpty()))
        program.prompt.Warn(unknownAccountSet);

    if (onServer)
        return ServerConnection(program.folder, parameters);
    if (parameters.DatabaseType == u"Access")
        return FileConnection(program.folder + "\\Data\\", parameters.ConDataName, ";");
    if (parameters.DatabaseType == u"Access2") {
        const QString dataFolder = program.folder + (program.folder.endsWith(u'\\') ? "Data\\" : "\\Data\\");
        return FileConnection(dataFolder, parameters.ConDataName, ";  ");
    }
    return QString();
}
