#pragma once

// The clock as a seam: the program takes the time from here, tests set it.

#include "base/dates.h"

class Clock
{
public:
    virtual ~Clock() = default;
    /// Local wall-clock time, to the millisecond.
    virtual Moment Now() = 0;
};

class SystemClock : public Clock
{
public:
    Moment Now() override;
};
