#include "office/cell_text.h"

#include "base/dates.h"
#include "base/decimal_digits.h"

#include <QTime>
#include <cmath>

QString CellNumberText(double value)
{
    if (value == std::floor(value))
        return QString::number(value + 0.0, 'f', 0); // no negative zero
    const DecimalDigits digits(value);
    return QString::number(value, 'f', std::max(0, digits.count() - digits.beforePoint()));
}

QString CellDateText(double days, const QDate& firstDay)
{
    constexpr int kSecondsPerDay = 24 * 60 * 60;
    const qint64 seconds = std::llround(days * kSecondsPerDay);
    const qint64 day = qint64(std::floor(double(seconds) / kSecondsPerDay));
    const int ofDay = int(seconds - day * kSecondsPerDay) * 1000;
    if (day == 0)
        return QTime::fromMSecsSinceStartOfDay(ofDay).toString("HH:mm:ss");
    return MomentText({firstDay.addDays(day), ofDay});
}
