#pragma once

// A store runs statements on one database. It knows nothing of messages and windows: a failure is a StoreError.

#include "database/recordset.h"
#include "database/sql.h"

#include <QString>
#include <functional>
#include <memory>

/// The number that office databases give where they have none.
inline constexpr int kUnspecifiedError = -2147467259;

/// What the error box says of a failed statement.
struct StoreError
{
    int number = 0;
    QString description;
};

class Store
{
public:
    virtual ~Store() = default;
    /// Runs one statement and fetches all of its rows. Throws StoreError.
    virtual Recordset Run(const Sql& sql) = 0;

    /// A unit of work: what is written until CommitUnit is stored whole or not at all. A failing statement inside it
    /// takes only itself back. Units do not nest. All three throw StoreError.
    virtual void BeginUnit() = 0;
    virtual void CommitUnit() = 0;
    virtual void RollbackUnit() = 0;
    /// False again as soon as the unit has ended, also when the database itself gave it up (a full disk).
    virtual bool inUnit() const = 0;
    /// What is to be said when a file turns out to be damaged, which may be found while windows are open already; then
    /// nothing is written into it. Called at most once, on the thread that opened it.
    virtual void WhenDamaged(const std::function<void(const QString& text)>& /*tell*/) {}
    /// The database is gone: this store answers nothing more, and its unit has been taken back.
    virtual bool isLost() const { return false; }
    /// What whoever keeps the database should be told of it; empty for nothing.
    virtual QString advice() const { return {}; }
};

/// Opens the store that a connection string names. Throws StoreError.
using StoreOpener = std::function<std::unique_ptr<Store>(const QString& connectionString)>;
