#pragma once

// The 唯一码 of a single piece: it must have come in and must not have gone out.

#include "handover/program.h"

struct OnlyCodeQuestion
{
    QString onlyCode;
    QString wareCode;
    QString billCode;      // the bill that asks: its own rows do not count where a count bill tests its own direction
    const char* headTable; // of the bill that asks
};

/// Bought, returned by a customer, assembled, taken apart, found at a count, or there at the opening.
bool HasComeIn(Program& program, const OnlyCodeQuestion& question);
/// Sold, given out otherwise, assembled into or taken apart, lost at a count.
bool HasGoneOut(Program& program, const OnlyCodeQuestion& question);
