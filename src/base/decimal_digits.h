#pragma once

// A double as its 15 significant decimal digits: what every rounding and every formatting of a number works on.

#include <QtGlobal>

class DecimalDigits
{
public:
    /// What is no finite number has the digits of 0.
    explicit DecimalDigits(double value);

    /// Half away from zero. What rounds to nothing loses its sign.
    void RoundTo(int places);

    bool isNegative() const { return m_negative; }
    /// Digits from the first that is not 0 to the last that is not 0; none for zero.
    int count() const { return m_count; }
    /// How many of them stand before the point; negative for zeros between the point and the first one.
    int beforePoint() const { return m_beforePoint; }
    /// The nth digit; 0 beyond either end.
    int at(int index) const { return index < 0 || index >= m_count ? 0 : m_digits[index]; }

private:
    static constexpr int kSignificant = 15;

    void DropTrailingZeros();

    signed char m_digits[kSignificant] = {};
    int m_count = 0;
    int m_beforePoint = 0;
    bool m_negative = false;
};
