#pragma once

// The moments of a save. The newest line of a good is told by its moment alone, so they rise within a save, and none
// may borrow time from another day.

#include "base/clock.h"

/// Time of day by the clock on the bill's day, for the head first and then line by line.
class RisingMoments
{
public:
    /// @param count  how many are going to be asked for
    RisingMoments(Clock& clock, const QDate& day, int count) : m_clock(clock), m_day(day), m_left(count) {}

    Moment Next();

private:
    Clock& m_clock;
    QDate m_day;
    int m_left;
    int m_next = 0; // the earliest millisecond of the day for the next one
};

/// Whether two moments are one as the coarsest server keeps it: it rounds by less than two rows of a save lie apart.
bool IsSameMoment(const Moment& a, const Moment& b);
