#include "data/rights.h"

#include "handover/open_query.h"

#include <QSysInfo>

namespace {
const char* AllowStatement(Action action)
{
    switch (action) {
    case Action::Read:
        return "select AllowRead as Allow from TabOperateRight ";
    case Action::Edit:
        return "select AllowEdit as Allow from TabOperateRight ";
    case Action::Delete:
        return "select AllowDelete as Allow from TabOperateRight ";
    case Action::Print:
        return "select AllowPrint as Allow from TabOperateRight ";
    case Action::Audit:
        return "select AllowAuditing as Allow from TabOperateRight ";
    }
    Q_UNREACHABLE();
}

bool IsBlank(const QString& text)
{
    return QStringView(text).trimmed().isEmpty();
}

bool IsAllowed(Program& program, const QString& userName, const QString& functionName, Action action)
{
    const QString user = userName.trimmed();
    const QString function = functionName.trimmed();
    if (user.isEmpty() || function.isEmpty())
        return false;
    const Recordset rs =
        OpenQuery(program, Sql(AllowStatement(action)) + " where UserName=" + user + " and FunctionName=" + function);
    return rs.Number("Allow") == 1;
}

bool Refuse(Program& program, const char* text)
{
    Inform(program, text);
    return false;
}
} // namespace

bool CheckOperateRight(Program& program, const QString& userName, const QString& functionName, Action action)
{
    const RunParameters& parameters = program.parameters;
    if (!IsBlank(parameters.CloudAccount) && !IsBlank(parameters.CloudAccount2) && !CheckCloudLogin(program))
        return false;
    if (userName == "系统管理员" || IsAllowed(program, userName, functionName, action))
        return true;
    return Refuse(program, "没有操作权限！");
}

bool CheckCloudLogin(Program& program)
{
    const QString& account = program.parameters.CloudAccount;
    const QString& account2 = program.parameters.CloudAccount2;
    if (IsBlank(account))
        return Refuse(program, "不能确定云账号，请退出软件重新登陆！");
    if (IsBlank(account2))
        return Refuse(program, "不能确定子账号，请退出软件重新登陆！");

    const QString device = QString::fromLatin1(QSysInfo::machineUniqueId()).trimmed();
    const Recordset rs = OpenQuery(program, Sql("select UserCode from TabCloudAccountLoginInf ") +
                                                " where Account=" + account + " and Account2=" + account2 + " ");
    if (!rs)
        return false;
    const QString lastDevice = rs.Text("UserCode").trimmed();
    if (!lastDevice.isEmpty() && lastDevice != device)
        return Refuse(program, "本云账号已在别的终端设备上登陆，本终端自动终止操作！");
    return true;
}
