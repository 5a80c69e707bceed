#include "base/decimal_digits.h"

#include <charconv>
#include <cmath>

DecimalDigits::DecimalDigits(double value)
{
    if (!std::isfinite(value) || value == 0)
        return;
    char text[32]; // "d.dddddddddddddde-xxx"
    const auto written =
        std::to_chars(text, text + sizeof text, std::abs(value), std::chars_format::scientific, kSignificant - 1);
    m_digits[0] = static_cast<signed char>(text[0] - '0');
    for (int i = 1; i < kSignificant; ++i)
        m_digits[i] = static_cast<signed char>(text[i + 1] - '0');
    const char* const exponentSign = text + kSignificant + 2;
    int exponent = 0;
    std::from_chars(exponentSign + 1, written.ptr, exponent);
    m_count = kSignificant;
    m_beforePoint = (*exponentSign == '-' ? -exponent : exponent) + 1;
    m_negative = value < 0;
    DropTrailingZeros();
}

void DecimalDigits::RoundTo(int places)
{
    const int kept = m_beforePoint + places;
    if (kept >= m_count)
        return;
    const bool away = kept >= 0 && at(kept) >= 5;
    m_count = qMax(kept, 0);
    if (!away) {
        DropTrailingZeros();
        return;
    }
    while (m_count > 0 && m_digits[m_count - 1] == 9)
        --m_count;
    if (m_count > 0) {
        ++m_digits[m_count - 1];
        return;
    }
    m_digits[0] = 1;
    m_count = 1;
    ++m_beforePoint;
}

void DecimalDigits::DropTrailingZeros()
{
    while (m_count > 0 && m_digits[m_count - 1] == 0)
        --m_count;
    if (m_count == 0) {
        m_negative = false;
        m_beforePoint = 0;
    }
}
