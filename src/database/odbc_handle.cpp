#include "database/odbc_handle.h"

#include "database/patient_store.h"

#include <algorithm>

namespace {
struct KnownFailure
{
    const char* state; // the first characters of it; empty where the number alone tells
    int native;        // 0 where the state alone tells
    const char* text;
};

constexpr const char* kWrongLogin = "登录数据库服务器失败：用户名或密码不正确！";
constexpr const char* kUnknownDatabase = "数据库服务器上没有此账套！";
constexpr const char* kNoServer = "不能连接数据库服务器，请检查服务器地址、端口和网络！";
constexpr const char* kLost = "与数据库服务器的连接已断开，请稍后重试！";
constexpr const char* kBusy = "数据库正被其他程序占用，请稍后重试！";
constexpr const char* kNoDriver = "没有安装数据库服务器的驱动程序，或者它不能载入！";
constexpr const char* kTooLong = "有内容超过了数据库中该栏的长度，没有写入！";
constexpr const char* kFull = "数据库服务器的磁盘空间不足，数据没有写入！";

// SQL Server's numbers of a machine that has no room.
constexpr int kDiskIsFull = 1105;
constexpr int kLogIsFull = 9002;

// The first that fits counts. SQL Server tells its failures by number, PostgreSQL by state.
constexpr KnownFailure kKnownFailures[] = {
    {"", 20009, kNoServer},    {"", 20002, kNoServer},    {"", 20003, kSlowServer},
    {"", 20004, kLost},        {"", 20006, kLost},        {"", 20017, kLost},
    {"", 20047, kLost},        {"", 2628, kTooLong},      {"", 8152, kTooLong},
    {"22001", 0, kTooLong},    {"", 18456, kWrongLogin},  {"", 4060, kUnknownDatabase},
    {"", 1222, kBusy},         {"", 1205, kBusy},         {"", kDiskIsFull, kFull},
    {"", kLogIsFull, kFull},   {"28", 0, kWrongLogin},    {"3D000", 0, kUnknownDatabase},
    {"55P03", 0, kBusy},       {"40P01", 0, kBusy},       {"57014", 0, kSlowServer},
    {"HYT00", 0, kSlowServer}, {"HYT01", 0, kSlowServer}, {"53100", 0, kFull},
    {"08001", 0, kNoServer},   {"08004", 0, kNoServer},   {"08", 0, kLost},
    {"57P", 0, kLost},         {"IM002", 0, kNoDriver},
};

/// PostgreSQL's driver gives one state to every failed login, the driver manager one to much, and SQL Server one number
/// to what is raised in words; what it was stands in those alone.
struct KnownWords
{
    const char* state; // the first characters of it
    const char* words;
    const char* text;
};

constexpr KnownWords kKnownWords[] = {
    {"08", "password authentication failed", kWrongLogin},
    {"08", "no password supplied", kWrongLogin},
    {"08", "\" does not exist", kUnknownDatabase},
    {"08", "timeout expired", kSlowServer},
    {"08", "server closed the connection", kLost},
    {"01000", "Can't open lib", kNoDriver},
    {"", kUnitIsTaken, kBusy},
};

const char* KnownText(const OdbcDiagnostics& diagnostics)
{
    for (const KnownWords& known : kKnownWords)
        if (diagnostics.state.startsWith(QLatin1String(known.state)) &&
            diagnostics.text.contains(QLatin1String(known.words)))
            return known.text;
    const auto fits = [&](const KnownFailure& known) {
        return diagnostics.state.startsWith(QLatin1String(known.state)) &&
               (known.native == 0 || known.native == diagnostics.native);
    };
    const auto found = std::ranges::find_if(kKnownFailures, fits);
    return found == std::end(kKnownFailures) ? nullptr : found->text;
}

void SetTimeout(const OdbcHandle& connection, SQLINTEGER attribute, int seconds)
{
    // A driver without it is asked in its own words, or waits as long as its network does.
    // NOLINTNEXTLINE(performance-no-int-to-ptr): a number is passed where the interface has a pointer
    SQLSetConnectAttrW(connection.get(), attribute, reinterpret_cast<SQLPOINTER>(static_cast<quintptr>(seconds)),
                       SQL_IS_UINTEGER);
}

OdbcHandle MakeEnvironment()
{
    OdbcHandle environment(SQL_HANDLE_ENV, nullptr);
    SQLSetEnvAttr(environment.get(), SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
    return environment;
}
} // namespace

OdbcHandle::OdbcHandle(SQLSMALLINT kind, SQLHANDLE parent) : m_kind(kind)
{
    if (!SQL_SUCCEEDED(SQLAllocHandle(kind, parent, &m_handle)))
        throw StoreError{kind, "不能建立与数据库驱动程序的联系！"};
}

OdbcHandle::~OdbcHandle()
{
    if (m_handle)
        SQLFreeHandle(m_kind, m_handle);
}

bool OdbcDiagnostics::isConnectionLost() const
{
    // FreeTDS: reading failed, writing failed, an end in the middle, a dead connection.
    constexpr int kEnded[] = {20004, 20006, 20017, 20047};
    return state.startsWith("08") || state.startsWith("57P") || std::ranges::find(kEnded, native) != std::end(kEnded);
}

bool OdbcDiagnostics::isOfMachine() const
{
    return state.startsWith("53") || native == kLogIsFull || native == kDiskIsFull;
}

OdbcDiagnostics DiagnosticsOf(const OdbcHandle& handle)
{
    constexpr SQLSMALLINT kMost = 1024;
    SQLWCHAR state[6] = {};
    SQLWCHAR text[kMost] = {};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    OdbcDiagnostics diagnostics;
    for (SQLSMALLINT record = 1;
         SQL_SUCCEEDED(SQLGetDiagRecW(handle.kind(), handle.get(), record, state, &native, text, kMost, &length));
         ++record) {
        const auto more = QString::fromUtf16(reinterpret_cast<char16_t*>(text)).simplified();
        if (record == 1)
            diagnostics = {QString::fromUtf16(reinterpret_cast<char16_t*>(state)), native, more};
        else if (!diagnostics.text.contains(more))
            diagnostics.text += "\r\n" + more;
    }
    return diagnostics;
}

StoreError ErrorOf(const OdbcDiagnostics& diagnostics, const QString& secret, bool isLost)
{
    QString detail = diagnostics.text;
    // A shorter one could be any part of a word.
    if (constexpr int kTelling = 4; secret.size() >= kTelling)
        detail.replace(secret, "******");
    const char* const text = KnownText(diagnostics);
    const char* const known = text || !isLost ? text : kLost;
    return {diagnostics.native, known ? QString(known) + "\r\n(" + detail + ")" : detail};
}

OdbcConnection::OdbcConnection(const ServerSettings& settings, const ServerAddress& address)
    : m_environment(MakeEnvironment()), m_handle(SQL_HANDLE_DBC, m_environment.get())
{
    SetTimeout(m_handle, SQL_ATTR_LOGIN_TIMEOUT, settings.connectSeconds);
    SetTimeout(m_handle, SQL_ATTR_CONNECTION_TIMEOUT, settings.statementSeconds);
    if (settings.kind == ServerKind::SqlServer)
        m_querySeconds = settings.statementSeconds;
    const QString words = DriverConnection(settings, address);
    const SQLRETURN code =
        SQLDriverConnectW(m_handle.get(), nullptr, Wide(words), static_cast<SQLSMALLINT>(words.size()), nullptr, 0,
                          nullptr, SQL_DRIVER_NOPROMPT);
    if (!SQL_SUCCEEDED(code))
        throw ErrorOf(DiagnosticsOf(m_handle), address.password);
}

OdbcConnection::~OdbcConnection()
{
    SQLDisconnect(m_handle.get());
}

bool OdbcConnection::isDead() const
{
    SQLUINTEGER dead = SQL_CD_FALSE;
    return SQL_SUCCEEDED(SQLGetConnectAttrW(m_handle.get(), SQL_ATTR_CONNECTION_DEAD, &dead, sizeof dead, nullptr)) &&
           dead == SQL_CD_TRUE;
}

OdbcHandle OdbcConnection::NewStatement() const
{
    OdbcHandle statement(SQL_HANDLE_STMT, m_handle.get());
    if (m_querySeconds > 0)
        // NOLINTNEXTLINE(performance-no-int-to-ptr): a number is passed where the interface has a pointer
        SQLSetStmtAttrW(statement.get(), SQL_ATTR_QUERY_TIMEOUT, reinterpret_cast<SQLPOINTER>(quintptr(m_querySeconds)),
                        SQL_IS_UINTEGER);
    return statement;
}

bool OdbcConnection::Run(const char* words, OdbcHandle& statement) const
{
    statement = NewStatement();
    const QString text = QString::fromUtf8(words);
    const SQLRETURN code = SQLExecDirectW(statement.get(), Wide(text), static_cast<SQLINTEGER>(text.size()));
    return SQL_SUCCEEDED(code) || code == SQL_NO_DATA;
}
