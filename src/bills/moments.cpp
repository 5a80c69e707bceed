#include "bills/moments.h"

#include <algorithm>
#include <cstdlib>

namespace {

/// Steps that the coarsest server still tells apart.
constexpr int kStep = 4;
/// 23:59:59.997: of what lies behind it a server that keeps steps of 1/300 s makes the next midnight.
constexpr int kLast = kMillisecondsPerDay - 3;

} // namespace

Moment RisingMoments::Next()
{
    m_left = std::max(m_left - 1, 0);
    // Room for those still to come: close to midnight the first of them start earlier.
    const int latest = kLast - m_left * kStep;
    const int time = std::max(m_next, std::min(m_clock.Now().millisecondOfDay, latest));
    m_next = time + kStep;
    return {m_day, time};
}

bool IsSameMoment(const Moment& a, const Moment& b)
{
    return a.day == b.day && std::abs(a.millisecondOfDay - b.millisecondOfDay) < kStep;
}
