#pragma once

// A statement prepared on a server: typed values go in, all rows come out at once, since a driver may refuse the next
// statement while rows of this one are pending.

#include "database/odbc_handle.h"

#include <vector>

class OdbcStatement
{
public:
    /// Does not run it. Throws OdbcDiagnostics, as Run does.
    OdbcStatement(const OdbcConnection& connection, const std::string& words, ServerKind server);

    Recordset Run(const std::vector<Value>& values);
    /// The last run changed rows, or may have.
    bool hasWritten() const { return m_columns->empty(); }

private:
    /// What a driver reads while the statement runs.
    struct Parameter
    {
        SQLSMALLINT cType = SQL_C_WCHAR;
        SQLSMALLINT sqlType = SQL_WVARCHAR;
        SQLULEN size = 0;
        SQLSMALLINT digits = 0;
        SQLPOINTER data = nullptr;
        SQLLEN length = SQL_NULL_DATA;
        QString text;
        QByteArray bytes;
        qint64 integer = 0;
        double number = 0;
    };
    struct SetParameter;

    void Check(SQLRETURN code) const;
    void Bind(const std::vector<Value>& values);
    void Describe();
    std::vector<Recordset::Row> Fetch();
    Value ColumnValue(SQLUSMALLINT column, SQLSMALLINT type);
    Value Integer(SQLUSMALLINT column) const;
    Value Double(SQLUSMALLINT column) const;
    Value Money(SQLUSMALLINT column);
    Value MomentText(SQLUSMALLINT column) const;
    bool ReadLong(SQLUSMALLINT column, SQLSMALLINT cType, QByteArray& bytes);
    std::optional<QString> Text(SQLUSMALLINT column);

    OdbcHandle m_handle;
    ServerKind m_server;
    std::vector<Parameter> m_parameters;
    std::shared_ptr<const Recordset::Columns> m_columns;
    std::vector<SQLSMALLINT> m_types; // of the columns
    QByteArray m_buffer;
};
