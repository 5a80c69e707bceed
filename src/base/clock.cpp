#include "base/clock.h"

#include <QDateTime>

Moment SystemClock::Now()
{
    const QDateTime now = QDateTime::currentDateTime();
    return {now.date(), now.time().msecsSinceStartOfDay()};
}
