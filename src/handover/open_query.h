#pragma once

// The one runner of every statement, reading and writing, and the unit that a save is.

#include "database/recordset.h"
#include "database/sql.h"
#include "handover/undertaking.h"

#include <functional>
#include <optional>

/// Runs a statement on the account set, opening the connection first where it is closed. A failure is shown as
/// "Error:", its number and its description, and comes back as an unset recordset; it ends the undertaking that it
/// belongs to.
Recordset OpenQuery(Program& program, const Sql& sql);
/// For a statement that is known to fail: its box is shown, and whatever it belongs to goes on without it.
Recordset OpenQueryAndGoOn(Program& program, const Sql& sql);

/// Says something to the user; inside a unit, as soon as it has ended. Not once an undertaking is over.
void Inform(Program& program, const QString& text);
/// Asks the user; no, unasked, once an undertaking is over.
bool Ask(Program& program, const QString& text);

/// Looks whether what a unit wrote is there. Unset where that cannot be told.
using IsStoredQuestion = std::function<std::optional<bool>()>;

/// An undertaking whose statements are stored whole at Commit or not at all. No box is open meanwhile: errors and what
/// Inform says are shown when the unit ends; where a statement failed, its error alone.
class SaveUnit
{
public:
    explicit SaveUnit(Program& program);
    /// Takes everything back unless committed.
    ~SaveUnit();
    SaveUnit(const SaveUnit&) = delete;
    SaveUnit& operator=(const SaveUnit&) = delete;

    /// False when the unit could not be begun; the reason has been shown and nothing may be written.
    bool isOpen() const { return m_open; }
    /// False when nothing was stored; the reason has been shown.
    bool Commit();
    /// The same for a unit that must not be written a second time: where the server is lost before it has answered, it
    /// is connected to again and asked.
    /// @return unset where it is not known whether the unit was stored; the caller says so
    std::optional<bool> Commit(const IsStoredQuestion& isStored);

private:
    std::optional<bool> LookAfterLoss(const IsStoredQuestion& isStored, const StoreError& error);
    void EndUnit();

    Program& m_program;
    const Undertaking m_undertaking;
    bool m_open = false;
};
