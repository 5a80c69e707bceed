#pragma once

// What the whole program shares: made once by Main, passed by reference.

#include "base/clock.h"
#include "base/prompt.h"
#include "base/spreadsheet.h"
#include "database/connection.h"
#include "handover/run_parameters.h"

#include <functional>
#include <vector>

/// Places codes of the account set: 0 or more that many places with grouping, -1 the default places with grouping,
/// -2 plain decimal text, -3 the default places without grouping.
struct DotType
{
    qint16 Price_DotLen = -3;
    qint16 Amount_DotLen = -3;
    qint16 Money_DotLen = -3;
};

/// A box that waits for the end of a unit.
struct HeldBox
{
    bool isError; // of the database
    QString text;
};

/// How the questions of what is under way have fared; UserAction and Undertaking keep it.
struct Underway
{
    int actions = 0;          // that are open
    bool unreachable = false; // a connect has failed within them
    int undertakings = 0;     // that are open
    bool failed = false;      // a statement has failed within them
};

struct Program
{
    Program(QString folder, RunParameters parameters, Prompt& prompt, Clock& clock, StoreOpener opener = OpenStore);

    QString folder; // of the executable
    RunParameters parameters;
    Connection gConnection;
    DotType gDot;
    Prompt& prompt;
    Clock& clock;
    /// Null until a workbook is first asked for.
    std::unique_ptr<SpreadsheetHost> spreadsheet;
    /// Called when a unit begins to be written and when it has ended, by the window whose bill it is; may be unset.
    std::function<void(bool writing)> writing;
    /// Whether the process may end: what is not stored has been asked about. Set by whoever owns the windows.
    std::function<bool()> mayLeave = [] { return true; };
    /// Ends the process at once, without its closing logic.
    std::function<void()> leave = [] {};
    Underway underway;
    /// A SaveUnit is open, whatever the store has made of its unit meanwhile.
    bool unitOpen = false;
    /// Boxes raised while a unit is open; they are shown in this order when it ends.
    std::vector<HeldBox> heldBoxes;
};

/// The connection string of the account set. Says so where the hand-over names none, and goes on regardless.
QString BuildConnectionString(Program& program);
