#include "database/odbc_statement.h"

#include <algorithm>

namespace {
/// Up to here a text is a plain one to SQL Server, beyond it a long one.
constexpr SQLULEN kLongestText = 4000;
constexpr SQLULEN kLongestBytes = 8000;
constexpr SQLULEN kMoneyDigits = 19;
constexpr SQLSMALLINT kMoneyPlaces = 4;

bool IsInteger(SQLSMALLINT type)
{
    return type == SQL_BIGINT || type == SQL_INTEGER || type == SQL_SMALLINT || type == SQL_TINYINT || type == SQL_BIT;
}

bool IsDouble(SQLSMALLINT type)
{
    return type == SQL_DOUBLE || type == SQL_FLOAT || type == SQL_REAL;
}

bool IsExact(SQLSMALLINT type)
{
    return type == SQL_NUMERIC || type == SQL_DECIMAL;
}

bool IsMoment(SQLSMALLINT type)
{
    return type == SQL_TYPE_TIMESTAMP || type == SQL_TYPE_DATE || type == SQL_TIMESTAMP;
}

bool IsBytes(SQLSMALLINT type)
{
    return type == SQL_BINARY || type == SQL_VARBINARY || type == SQL_LONGVARBINARY;
}

/// An exact number as money; as a double where it has more places or digits than money does.
Value ExactNumber(const QString& text)
{
    const qsizetype point = text.indexOf('.');
    const QString whole = point < 0 ? text : text.left(point);
    QString places = point < 0 ? QString() : text.mid(point + 1);
    while (places.size() > kMoneyPlaces && places.endsWith('0'))
        places.chop(1);
    bool fits = places.size() <= kMoneyPlaces;
    const qint64 units = fits ? (whole + places.leftJustified(kMoneyPlaces, '0')).toLongLong(&fits) : 0;
    return fits ? Value(Currency::FromUnits(units)) : Value(text.toDouble());
}
} // namespace

/// Fills a parameter with a value.
struct OdbcStatement::SetParameter
{
    Parameter& parameter;
    ServerKind server;

    void Set(SQLSMALLINT cType, SQLSMALLINT sqlType, SQLULEN size, SQLPOINTER data, qsizetype length) const
    {
        parameter.cType = cType;
        parameter.sqlType = sqlType;
        parameter.size = size;
        parameter.digits = 0;
        parameter.data = data;
        parameter.length = length;
    }
    void SetText(const QString& text, SQLSMALLINT sqlType, SQLULEN size) const
    {
        parameter.text = text;
        Set(SQL_C_WCHAR, sqlType, size, Wide(parameter.text), parameter.text.size() * qsizetype(sizeof(SQLWCHAR)));
    }

    void operator()(std::monostate) const
    {
        // Of all types only an integer may become each of the others in SQL Server.
        const bool isTyped = server == ServerKind::SqlServer;
        Set(isTyped ? SQL_C_SLONG : SQL_C_WCHAR, isTyped ? SQL_INTEGER : SQL_WVARCHAR, 1, nullptr, SQL_NULL_DATA);
    }
    void operator()(qint64 number) const
    {
        parameter.integer = number;
        Set(SQL_C_SBIGINT, SQL_BIGINT, 0, &parameter.integer, 0);
    }
    void operator()(double number) const
    {
        parameter.number = number;
        Set(SQL_C_DOUBLE, SQL_DOUBLE, 0, &parameter.number, 0);
    }
    void operator()(Currency money) const
    {
        SetText(money.text(), SQL_NUMERIC, kMoneyDigits);
        parameter.digits = kMoneyPlaces;
    }
    void operator()(const QString& text) const
    {
        // One size for all: a size of its own for each text would be a statement of its own to SQL Server.
        const bool isLong = SQLULEN(text.size()) > kLongestText;
        SetText(text, isLong ? SQL_WLONGVARCHAR : SQL_WVARCHAR, isLong ? SQLULEN(text.size()) : kLongestText);
    }
    // A moment goes as its canonical text and takes the type of what it meets: SQL Server rounds a column's moments to
    // steps of 3 ms, and only a text is rounded likewise; in a text column it stays canonical.
    void operator()(const QDate& day) const { SetDate(DayText(day)); }
    void operator()(const Moment& moment) const { SetDate(::MomentText(moment)); }
    void SetDate(const QString& text) const
    {
        if (text.isEmpty())
            (*this)(std::monostate());
        else
            (*this)(text);
    }
    void operator()(const QByteArray& bytes) const
    {
        parameter.bytes = bytes;
        const bool isLong = SQLULEN(bytes.size()) > kLongestBytes;
        Set(SQL_C_BINARY, isLong ? SQL_LONGVARBINARY : SQL_VARBINARY, isLong ? SQLULEN(bytes.size()) : kLongestBytes,
            parameter.bytes.data(), bytes.size());
    }
};

OdbcStatement::OdbcStatement(const OdbcConnection& connection, const std::string& words, ServerKind server)
    : m_handle(connection.NewStatement()), m_server(server), m_buffer(4096, 0)
{
    const QString text = QString::fromStdString(words);
    Check(SQLPrepareW(m_handle.get(), Wide(text), static_cast<SQLINTEGER>(text.size())));
}

void OdbcStatement::Check(SQLRETURN code) const
{
    if (!SQL_SUCCEEDED(code) && code != SQL_NO_DATA)
        throw DiagnosticsOf(m_handle);
}

Recordset OdbcStatement::Run(const std::vector<Value>& values)
{
    struct CloseAtEnd
    {
        SQLHANDLE statement;
        ~CloseAtEnd() { SQLFreeStmt(statement, SQL_CLOSE); }
    };
    Bind(values);
    const CloseAtEnd close{m_handle.get()};
    Check(SQLExecute(m_handle.get()));
    if (!m_columns)
        Describe();
    return {m_columns, hasWritten() ? std::vector<Recordset::Row>() : Fetch()};
}

void OdbcStatement::Bind(const std::vector<Value>& values)
{
    // A driver keeps the addresses: they stay while the number of values does, which is the statement's.
    m_parameters.resize(values.size());
    for (size_t i = 0; i < values.size(); ++i) {
        Parameter& parameter = m_parameters[i];
        std::visit(SetParameter{parameter, m_server}, values[i]);
        Check(SQLBindParameter(m_handle.get(), static_cast<SQLUSMALLINT>(i + 1), SQL_PARAM_INPUT, parameter.cType,
                               parameter.sqlType, parameter.size, parameter.digits, parameter.data,
                               std::max<SQLLEN>(parameter.length, 0), &parameter.length));
    }
}

void OdbcStatement::Describe()
{
    SQLSMALLINT count = 0;
    Check(SQLNumResultCols(m_handle.get(), &count));
    auto columns = std::make_shared<Recordset::Columns>();
    std::vector<SQLSMALLINT> types;
    for (SQLUSMALLINT column = 1; column <= count; ++column) {
        constexpr SQLSMALLINT kMost = 256;
        SQLWCHAR name[kMost] = {};
        SQLSMALLINT length = 0;
        SQLSMALLINT type = 0;
        Check(SQLDescribeColW(m_handle.get(), column, name, kMost, &length, &type, nullptr, nullptr, nullptr));
        columns->push_back(QString::fromUtf16(reinterpret_cast<char16_t*>(name)));
        types.push_back(type);
    }
    m_types = std::move(types);
    m_columns = std::move(columns);
}

std::vector<Recordset::Row> OdbcStatement::Fetch()
{
    std::vector<Recordset::Row> rows;
    for (SQLRETURN code = SQLFetch(m_handle.get()); code != SQL_NO_DATA; code = SQLFetch(m_handle.get())) {
        Check(code);
        Recordset::Row& row = rows.emplace_back();
        row.reserve(m_types.size());
        for (size_t i = 0; i < m_types.size(); ++i)
            row.push_back(ColumnValue(static_cast<SQLUSMALLINT>(i + 1), m_types[i]));
    }
    return rows;
}

Value OdbcStatement::ColumnValue(SQLUSMALLINT column, SQLSMALLINT type)
{
    if (IsInteger(type))
        return Integer(column);
    if (IsDouble(type))
        return Double(column);
    if (IsExact(type))
        return Money(column);
    if (IsMoment(type))
        return MomentText(column);
    if (IsBytes(type)) {
        QByteArray bytes;
        return ReadLong(column, SQL_C_BINARY, bytes) ? Value(bytes) : Value();
    }
    const std::optional<QString> text = Text(column);
    return text ? Value(*text) : Value();
}

Value OdbcStatement::Integer(SQLUSMALLINT column) const
{
    SQLBIGINT number = 0;
    SQLLEN length = 0;
    Check(SQLGetData(m_handle.get(), column, SQL_C_SBIGINT, &number, sizeof number, &length));
    return length == SQL_NULL_DATA ? Value() : Value(qint64(number));
}

Value OdbcStatement::Double(SQLUSMALLINT column) const
{
    double number = 0;
    SQLLEN length = 0;
    Check(SQLGetData(m_handle.get(), column, SQL_C_DOUBLE, &number, sizeof number, &length));
    return length == SQL_NULL_DATA ? Value() : Value(number);
}

Value OdbcStatement::Money(SQLUSMALLINT column)
{
    // As text it is exact whatever its places.
    const std::optional<QString> text = Text(column);
    return text ? ExactNumber(*text) : Value();
}

/// The canonical text, as every store gives it.
Value OdbcStatement::MomentText(SQLUSMALLINT column) const
{
    SQL_TIMESTAMP_STRUCT at = {};
    SQLLEN length = 0;
    Check(SQLGetData(m_handle.get(), column, SQL_C_TYPE_TIMESTAMP, &at, sizeof at, &length));
    if (length == SQL_NULL_DATA)
        return {};
    constexpr SQLUINTEGER kNanosecondsPerMillisecond = 1000000;
    const auto milliseconds = (at.fraction + kNanosecondsPerMillisecond / 2) / kNanosecondsPerMillisecond;
    const int seconds = (at.hour * 60 + at.minute) * 60 + at.second;
    return ::MomentText({QDate(at.year, at.month, at.day), seconds * 1000 + int(milliseconds)});
}

/// Bytes of any length, piece by piece. False for null.
bool OdbcStatement::ReadLong(SQLUSMALLINT column, SQLSMALLINT cType, QByteArray& bytes)
{
    const qsizetype terminator = cType == SQL_C_WCHAR ? qsizetype(sizeof(SQLWCHAR)) : 0;
    for (;;) {
        SQLLEN length = 0;
        const SQLRETURN code = SQLGetData(m_handle.get(), column, cType, m_buffer.data(), m_buffer.size(), &length);
        if (code == SQL_NO_DATA)
            return true;
        Check(code);
        if (length == SQL_NULL_DATA)
            return false;
        const bool isWhole = code == SQL_SUCCESS || (length != SQL_NO_TOTAL && length + terminator <= m_buffer.size());
        bytes.append(m_buffer.constData(), isWhole ? length : m_buffer.size() - terminator);
        if (isWhole)
            return true;
    }
}

std::optional<QString> OdbcStatement::Text(SQLUSMALLINT column)
{
    QByteArray bytes;
    if (!ReadLong(column, SQL_C_WCHAR, bytes))
        return std::nullopt;
    return QString(reinterpret_cast<const QChar*>(bytes.constData()), bytes.size() / qsizetype(sizeof(QChar)));
}
