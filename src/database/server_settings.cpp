#include "database/server_settings.h"

#include "base/program_folder.h"
#include "database/store.h"

#include <QFile>
#include <algorithm>

namespace {
[[noreturn]] void Refuse(const QString& path, const QString& line)
{
    throw StoreError{kUnspecifiedError, "数据库服务器设置文件有误：" + path + "\r\n(" + line + ")"};
}

/// A whole number of seconds from 1 on.
bool ReadSeconds(const QString& text, int& seconds)
{
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    if (!isNumber || number < 1)
        return false;
    seconds = number;
    return true;
}

bool ReadKind(const QString& text, ServerKind& kind)
{
    if (text.compare("sqlserver", Qt::CaseInsensitive) == 0)
        kind = ServerKind::SqlServer;
    else if (text.compare("postgresql", Qt::CaseInsensitive) == 0)
        kind = ServerKind::PostgreSql;
    else
        return false;
    return true;
}

/// False for a line that says nonsense.
bool ReadSetting(const QString& line, ServerSettings& settings)
{
    if (line.isEmpty() || line.startsWith('#'))
        return true;
    const QString key = line.section('=', 0, 0).trimmed();
    const QString value = line.section('=', 1).trimmed();
    if (key == u"kind")
        return ReadKind(value, settings.kind);
    if (key == u"connect")
        return ReadSeconds(value, settings.connectSeconds);
    if (key == u"statement")
        return ReadSeconds(value, settings.statementSeconds);
    if (key == u"driver")
        settings.driver = value;
    else if (key == u"options")
        settings.options = value;
    else
        return false;
    return true;
}

QString UsualDriver(ServerKind kind)
{
    return kind == ServerKind::SqlServer ? "SQL Server" : "PostgreSQL Unicode";
}

/// The part behind `opening`, up to `closing`; `rest` goes on behind it.
QString Take(QString& rest, const QString& opening, const QString& closing)
{
    const qsizetype start = rest.indexOf(opening, 0, Qt::CaseInsensitive);
    if (start < 0)
        return {};
    const qsizetype from = start + opening.size();
    const qsizetype found = rest.indexOf(closing, from, Qt::CaseInsensitive);
    const qsizetype to = found < 0 ? rest.size() : found;
    const QString taken = rest.mid(from, to - from);
    rest = rest.mid(to);
    return taken;
}

QString Attribute(const char* name, QString value)
{
    const bool plain = std::ranges::none_of(value, [](QChar c) { return QStringView(u";{}[]()=*?!@ ").contains(c); });
    if (!plain)
        value = '{' + value.replace('}', "}}") + '}';
    return QString(name) + '=' + value + ';';
}

/// FreeTDS takes a value up to the next ";", or one in brackets up to the next "};", and a bracket in it for itself.
QString AttributeForFreeTds(const char* name, const QString& value)
{
    if (!value.contains(';') && !value.startsWith('{'))
        return QString(name) + '=' + value + ';';
    if (value.contains("};"))
        throw StoreError{kUnspecifiedError, "数据库服务器的驱动程序不能传递含有“};”的用户名、密码或账套名，请更改！"};
    return QString(name) + "={" + value + "};";
}

/// Without its version FreeTDS waits for a log-in as long as the network lets it.
constexpr const char* kSqlServerOptions = "TDS_Version=7.4;";

/// A failing statement is left to the store, all rows come at once, and a dead network is noticed.
constexpr const char* kPostgresOptions = "Protocol=7.4-0;UseServerSidePrepare=1;UseDeclareFetch=0;LFConversion=0;"
                                         "ByteaAsLongVarBinary=1;BoolsAsChar=0;"
                                         "pqopt={keepalives_idle=10 keepalives_interval=5 keepalives_count=3 "
                                         "tcp_user_timeout=25000};";
} // namespace

ServerSettings ReadServerSettings(const QString& folder)
{
    ServerSettings settings;
    const QString path = PathInFolder(folder, kServerSettingsFile);
    QFile file(path);
    if (!file.exists())
        return settings;
    if (!file.open(QIODevice::ReadOnly))
        Refuse(path, file.errorString());
    for (const QString& line : QString::fromUtf8(file.readAll()).split('\n'))
        if (!ReadSetting(line.trimmed(), settings))
            Refuse(path, line.trimmed());
    return settings;
}

ServerAddress AddressOf(const QString& connectionString)
{
    // The parts stand in one order, and only the last may hold a sign that also parts them.
    QString rest = connectionString;
    ServerAddress address;
    const QString place = Take(rest, "Server=", ";DataBase=");
    address.server = place.section(',', 0, -2);
    address.port = place.section(',', -1);
    address.database = Take(rest, ";DataBase=", ";UID=");
    address.user = Take(rest, ";UID=", ";PWD=");
    address.password = rest.mid(QString(";PWD=").size());
    if (address.password.endsWith("; "))
        address.password.chop(2);
    return address;
}

const char* UsualPort(ServerKind kind)
{
    return kind == ServerKind::SqlServer ? "1433" : "5432";
}

QString QuotedName(ServerKind kind, QString name)
{
    if (kind == ServerKind::SqlServer)
        return '[' + name.replace(']', "]]") + ']';
    return '"' + name.replace('"', "\"\"") + '"';
}

QString RowVersionsOn(const QString& database)
{
    return "alter database " + QuotedName(ServerKind::SqlServer, database) + " set read_committed_snapshot on";
}

QString DriverConnection(const ServerSettings& settings, const ServerAddress& address)
{
    const QString driver = settings.driver.isEmpty() ? UsualDriver(settings.kind) : settings.driver;
    const QString opening = "Driver={" + driver + "};";
    if (settings.kind == ServerKind::SqlServer)
        return opening + "Server=" + address.server + "," + address.port + ";" +
               AttributeForFreeTds("DataBase", address.database) + AttributeForFreeTds("UID", address.user) +
               AttributeForFreeTds("PWD", address.password) + kSqlServerOptions + settings.options + " ";
    return opening + Attribute("Server", address.server) + Attribute("Port", address.port) +
           Attribute("Database", address.database) + Attribute("UID", address.user) +
           Attribute("PWD", address.password) + kPostgresOptions + settings.options;
}
