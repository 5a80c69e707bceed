#pragma once

// The entry of the program: takes the hand-over, prepares the account set and decides which window comes up first.

#include "handover/program.h"

#include <memory>

/// What the directives of the hand-over ask for.
enum class FirstWindow
{
    MainWindow,
    RecalledBill,
    RecalledAssembly,
    NewBill, // from here on only in a module that is sold alone
    NewAssembly,
    None, // the directives name nothing that this module knows
};

FirstWindow FirstWindowOf(const RunParameters& parameters, QStringView moduleRunMode);

/// Reads and deletes the hand-over in `folder` and shows the first window, which lives on the returned program.
/// @return null when the start was refused; the user has been told and no window is open
std::unique_ptr<Program> Main(const QString& folder, Prompt& prompt, Clock& clock, QStringView moduleRunMode);
