#pragma once

// The one road to the sibling programs: which program serves a function word, how it is told what to do, and its
// start beside this process.

#include "handover/program.h"

/// What became of a launch.
struct LaunchResult
{
    bool started = false;
    bool leave = false; // this process is to end at once, without its closing logic

    explicit operator bool() const { return started; }
};

/// Hands a function to the program that serves it. A failure has been said to the user, but for a hand-over file that
/// cannot be written; this process then goes on as it was.
LaunchResult LaunchFunction(Program& program, const QString& functionWord, const Directives& directives = {});
/// The common case: the receiver is to run the function word itself.
LaunchResult LaunchByWord(Program& program, const QString& functionWord);

/// Starts the calculator of the system.
bool StartCalculator(Program& program);
