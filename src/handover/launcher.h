#pragma once

// The one road to the sibling programs: which program serves a function word, how it is told what to do, and its
// start beside this process.

#include "handover/program.h"

/// Hands a function to the program that serves it. Before a function that this process must make way for, the user is
/// asked about what is not stored, and behind its start this process ends.
/// @return whether the program was started. A failure has been said to the user, but for a hand-over file that cannot
///         be written; this process then goes on as it was
bool LaunchFunction(Program& program, const QString& functionWord, const Directives& directives = {});
/// The common case: the receiver is to run the function word itself.
bool LaunchByWord(Program& program, const QString& functionWord);

/// Starts the calculator of the system.
bool StartCalculator(Program& program);
