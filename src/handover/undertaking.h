#pragma once

// What could not be asked is not known. These scopes say what ends with a question that the database did not answer.

#include "handover/program.h"

/// One thing that the user has the program do. A connect that fails within it is shown once and not tried again: its
/// further questions stay unset at once. Actions nest and end with the outermost.
class UserAction
{
public:
    explicit UserAction(Program& program);
    ~UserAction();
    UserAction(const UserAction&) = delete;
    UserAction& operator=(const UserAction&) = delete;

private:
    Program& m_program;
};

/// An action that begins with a key or a click. A box or a dialog of another action may be open: what the user does
/// there is an action of its own, and the other goes on as it was.
class UserInput
{
public:
    explicit UserInput(Program& program);
    ~UserInput();
    UserInput(const UserInput&) = delete;
    UserInput& operator=(const UserInput&) = delete;

private:
    Program& m_program;
    const Underway m_outer;
};

/// What is done whole or not at all: the checks of a save, its rows, the cost of a line. It is over with the first
/// statement that fails within it. That one's box is shown; what is still asked of the database stays unset, no unit
/// begins or is stored, and the user is neither told nor asked anything that would rest on it. Undertakings nest: the
/// failure of an inner one is the outer one's too.
class Undertaking
{
public:
    explicit Undertaking(Program& program);
    ~Undertaking();
    Undertaking(const Undertaking&) = delete;
    Undertaking& operator=(const Undertaking&) = delete;

    bool failed() const { return m_program.underway.failed; }

private:
    const UserAction m_action;
    Program& m_program;
};

/// Whether the action or the undertaking under way has come to its early end.
bool IsOver(const Program& program);
