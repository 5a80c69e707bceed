#pragma once

// The 唯一码 of a single piece: what leaves must have come in and must not have gone out, what is made must be new.

#include "handover/program.h"

struct OnlyCodeQuestion
{
    QString onlyCode;
    QString wareCode;
    QString billCode;     // the bill that asks
    const char* ownTable; // the bill's own rows in this table do not count
    bool onHead = false;  // asked for the product of an assembly: voided overflows do not count there
};

/// Stands on any bill of the system, or in the opening.
bool IsAnywhere(Program& program, const OnlyCodeQuestion& question);
/// Bought, returned by a customer, assembled, taken apart, found at a count, or there at the opening.
bool HasComeIn(Program& program, const OnlyCodeQuestion& question);
/// Sold, given out otherwise, assembled into or taken apart, lost at a count.
bool HasGoneOut(Program& program, const OnlyCodeQuestion& question);
