#include "handover/undertaking.h"

#include <utility>

UserAction::UserAction(Program& program) : m_program(program)
{
    if (program.underway.actions++ == 0)
        program.underway.unreachable = false;
}

UserAction::~UserAction()
{
    --m_program.underway.actions;
}

UserInput::UserInput(Program& program) : m_program(program), m_outer(std::exchange(program.underway, {.actions = 1})) {}

UserInput::~UserInput()
{
    m_program.underway = m_outer;
}

Undertaking::Undertaking(Program& program) : m_action(program), m_program(program)
{
    if (program.underway.undertakings++ == 0)
        program.underway.failed = false;
}

Undertaking::~Undertaking()
{
    --m_program.underway.undertakings;
}

bool IsOver(const Program& program)
{
    const Underway& underway = program.underway;
    return (underway.actions > 0 && underway.unreachable) || (underway.undertakings > 0 && underway.failed);
}
