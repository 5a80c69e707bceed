#pragma once

// A store that strikes at a statement of the test's choice: the process dies there, or the statement fails.

#include "database/open_store.h"

/// Nothing but the test catches this: the process is gone.
struct ProcessDied
{};

enum class FaultKind
{
    None,     // statements are only counted
    Death,    // before the statement, with everything that was not committed
    Failure,  // of the statement alone
    FullDisk, // the statement fails and the database gives its unit up
    Lost,     // the statement fails and the server is gone with the unit; it can be opened again
    Unheard,  // the statement is done and the server is gone before it says so
};

/// Shared by all stores that one opener opens.
struct Fault
{
    FaultKind kind = FaultKind::None;
    int at = 0;         // the statement that it strikes, from 1; beginning and committing a unit count
    int statements = 0; // so far
    QString struck;     // the statement's words
};

/// Opens what `open` opens, faulty. The fault must outlive the stores.
StoreOpener FaultyOpener(Fault& fault, StoreOpener open = OpenStore);
