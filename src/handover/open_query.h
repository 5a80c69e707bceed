#pragma once

// The one runner of every statement, reading and writing, and the unit that a save is.

#include "database/recordset.h"
#include "database/sql.h"
#include "handover/program.h"

/// Runs a statement on the account set, opening the connection first where it is closed. A failure is shown as
/// "Error:", its number and its description, and comes back as an unset recordset.
Recordset OpenQuery(Program& program, const Sql& sql);

/// Says something to the user; inside a unit, as soon as it has ended.
void Inform(Program& program, const QString& text);

/// What is written while it is open is stored whole at Commit or not at all. A failing statement inside it is left out
/// and the next one runs, as everywhere. No box is open meanwhile: errors and what Inform says are shown when the unit
/// ends.
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

private:
    void EndUnit();

    Program& m_program;
    bool m_open = false;
};
