#pragma once

// The handles of ODBC behind owners that free them, a connection that is closed with its owner, and its diagnostics as
// StoreErrors. Texts go through the wide functions alone: the narrow ones find no Chinese row.

#include "database/server_settings.h"
#include "database/store.h"

#include <sql.h>
#include <sqlext.h>
#include <utility>

class OdbcHandle
{
public:
    OdbcHandle() = default;
    /// Throws StoreError.
    OdbcHandle(SQLSMALLINT kind, SQLHANDLE parent);
    ~OdbcHandle();
    OdbcHandle(OdbcHandle&& other) noexcept : m_kind(other.m_kind), m_handle(std::exchange(other.m_handle, nullptr)) {}
    OdbcHandle& operator=(OdbcHandle&& other) noexcept
    {
        std::swap(m_kind, other.m_kind);
        std::swap(m_handle, other.m_handle);
        return *this;
    }

    SQLHANDLE get() const { return m_handle; }
    SQLSMALLINT kind() const { return m_kind; }

private:
    SQLSMALLINT m_kind = 0;
    SQLHANDLE m_handle = nullptr;
};

/// What a driver says of its last failure.
struct OdbcDiagnostics
{
    QString state; // SQLSTATE, five characters
    int native = 0;
    QString text;

    /// The server is gone, not the statement wrong.
    bool isConnectionLost() const;
    /// Of the machine, not of the statement: what was to be written has no place.
    bool isOfMachine() const;
};

OdbcDiagnostics DiagnosticsOf(const OdbcHandle& handle);
/// What the user is told of it: in the user's words where the failure is a known one.
/// @param secret  cut out wherever a driver repeats it
/// @param isLost  the connection has ended with it, whatever the driver says
StoreError ErrorOf(const OdbcDiagnostics& diagnostics, const QString& secret, bool isLost = false);
/// What a unit raises in SQL Server that did not get the lock of the units.
inline constexpr const char* kUnitIsTaken = "the lock of the unit is taken";

class OdbcConnection
{
public:
    /// Throws StoreError.
    OdbcConnection(const ServerSettings& settings, const ServerAddress& address);
    ~OdbcConnection();
    OdbcConnection(const OdbcConnection&) = delete;
    OdbcConnection& operator=(const OdbcConnection&) = delete;

    /// Throws StoreError.
    OdbcHandle NewStatement() const;
    bool isDead() const;
    /// Runs plain words without values. False leaves the reason with `statement`.
    bool Run(const char* words, OdbcHandle& statement) const;

private:
    OdbcHandle m_environment;
    OdbcHandle m_handle;
    int m_querySeconds = 0; // asked of the driver for each statement; 0 where the server limits them itself
};

/// A text as the wide functions take it.
inline SQLWCHAR* Wide(const QString& text)
{
    return reinterpret_cast<SQLWCHAR*>(const_cast<ushort*>(text.utf16()));
}
