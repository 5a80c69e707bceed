#pragma once

// Money as an exact count of ten-thousandths. Sums and differences are exact; a product goes through a double and is
// rounded once, when it becomes money again.

#include <QString>
#include <QtGlobal>
#include <compare>

class Currency
{
public:
    constexpr Currency() = default;
    /// @param units  ten-thousandths of the currency unit
    static constexpr Currency FromUnits(qint64 units) { return Currency(units); }
    /// The nearest ten-thousandth, half away from zero. A value beyond the range of money becomes its limit;
    /// IsMoney tells beforehand whether it is one.
    static Currency FromDouble(double value);
    /// Whether money holds `value` to its last ten-thousandth. The count itself reaches 922 million million, but what
    /// comes from a cell or a row was a double before, which keeps four decimals below a hundred thousand million.
    static bool IsMoney(double value);

    constexpr qint64 units() const { return m_units; }
    double toDouble() const { return static_cast<double>(m_units) / 10000.0; }
    /// Plain decimal text without needless zeros: "12.5", "-0.0001", "0".
    QString text() const;

    constexpr Currency operator-() const { return Currency(-m_units); }
    constexpr Currency& operator+=(Currency other) { return *this = *this + other; }
    constexpr Currency& operator-=(Currency other) { return *this = *this - other; }
    /// Sums stop at the limits of money instead of wrapping around.
    friend constexpr Currency operator+(Currency a, Currency b) { return Currency(Saturated(a.m_units, b.m_units)); }
    friend constexpr Currency operator-(Currency a, Currency b) { return a + (-b); }
    friend constexpr auto operator<=>(Currency, Currency) = default;

private:
    explicit constexpr Currency(qint64 units) : m_units(units < -kLimit ? -kLimit : units) {}
    static constexpr qint64 Saturated(qint64 a, qint64 b)
    {
        qint64 sum = 0;
        if (!__builtin_add_overflow(a, b, &sum))
            return sum;
        return a > 0 ? kLimit : -kLimit;
    }
    static constexpr qint64 kLimit = 0x7fffffffffffffffLL;

    qint64 m_units = 0;
};
