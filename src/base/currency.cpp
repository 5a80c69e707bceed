#include "base/currency.h"

#include "base/decimal_digits.h"
#include "base/number_text.h"

#include <cmath>
#include <limits>
#include <optional>

namespace {

constexpr int kPlaces = 4;
constexpr int kMostWholeDigits = 15;

/// Unset outside the range of money.
std::optional<qint64> TenThousandths(double value)
{
    if (!std::isfinite(value))
        return std::nullopt;
    DecimalDigits digits(value);
    digits.RoundTo(kPlaces);
    if (digits.beforePoint() > kMostWholeDigits)
        return std::nullopt;
    quint64 units = 0;
    for (int i = 0; i < digits.beforePoint() + kPlaces; ++i)
        units = units * 10 + static_cast<quint64>(digits.at(i));
    if (units > quint64(std::numeric_limits<qint64>::max()))
        return std::nullopt;
    return digits.isNegative() ? -static_cast<qint64>(units) : static_cast<qint64>(units);
}

} // namespace

Currency Currency::FromDouble(double value)
{
    if (const auto units = TenThousandths(value))
        return Currency(*units);
    if (std::isnan(value))
        return Currency();
    return Currency(value < 0 ? -kLimit : kLimit);
}

bool Currency::IsMoney(double value)
{
    return IsExact(value, kPlaces);
}

QString Currency::text() const
{
    const qint64 size = m_units < 0 ? -m_units : m_units;
    QString text = QString::number(size / 10000);
    if (m_units < 0)
        text.prepend(u'-');
    if (size % 10000 == 0)
        return text;
    text += u'.' + QString::number(10000 + size % 10000).sliced(1);
    while (text.endsWith(u'0'))
        text.chop(1);
    return text;
}
