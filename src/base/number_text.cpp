#include "base/number_text.h"

#include "base/decimal_digits.h"

#include <QVarLengthArray>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace {

constexpr int kMostPlaces = 99;

bool IsDigit(char16_t c)
{
    return c >= u'0' && c <= u'9';
}

bool BelongsToNumber(char16_t c)
{
    return IsDigit(c) || c == u'.' || c == u'e' || c == u'E' || c == u'+' || c == u'-';
}

/// A number outside the range of a double: the largest one, or 0 for one too small.
double NearestDouble(QStringView number)
{
    constexpr double kLargest = std::numeric_limits<double>::max();
    return std::clamp(number.toDouble(), -kLargest, kLargest);
}

char16_t DigitText(int digit)
{
    return static_cast<char16_t>(u'0' + digit);
}

} // namespace

double Val(QStringView text)
{
    while (!text.isEmpty() && text.front().isSpace())
        text = text.sliced(1);
    if (text.startsWith(u'+') && !text.startsWith(u"+-"))
        text = text.sliced(1);

    QVarLengthArray<char, 64> number;
    for (const QChar c : text) {
        if (!BelongsToNumber(c.unicode()))
            break;
        number.append(static_cast<char>(c.unicode()));
    }
    double value = 0;
    const char* const end = number.constData() + number.size();
    const auto read = std::from_chars(number.constData(), end, value);
    if (read.ec == std::errc::result_out_of_range)
        return NearestDouble(text.first(read.ptr - number.constData()));
    return value + 0.0; // no negative zero
}

QString NumberText(double value)
{
    if (!std::isfinite(value) || value == 0)
        return QStringLiteral("0");
    // Between these an amount is read by people, who take 100000 for what it is but not 1e+05.
    const double size = std::abs(value);
    const auto format = size >= 1e-4 && size < 1e15 ? std::chars_format::fixed : std::chars_format::general;
    char text[40];
    const auto written = std::to_chars(text, text + sizeof text, value, format);
    return QString::fromLatin1(text, written.ptr - text);
}

QString FormatFixed(double value, int places, bool grouping)
{
    places = std::clamp(places, 0, kMostPlaces);
    DecimalDigits digits(value);
    digits.RoundTo(places);

    const int whole = std::max(digits.beforePoint(), 1);
    const int first = digits.beforePoint() - whole;
    const int groupSigns = grouping ? (whole - 1) / 3 : 0;
    const int size = (digits.isNegative() ? 1 : 0) + whole + groupSigns + (places > 0 ? places + 1 : 0);
    QString text(size, Qt::Uninitialized);
    QChar* out = text.data();
    if (digits.isNegative())
        *out++ = u'-';
    for (int i = 0; i < whole; ++i) {
        if (grouping && i > 0 && (whole - i) % 3 == 0)
            *out++ = u',';
        *out++ = DigitText(digits.at(first + i));
    }
    if (places > 0)
        *out++ = u'.';
    for (int i = 0; i < places; ++i)
        *out++ = DigitText(digits.at(digits.beforePoint() + i));
    return text;
}

QString PlainNumberText(double value)
{
    const DecimalDigits digits(value);
    if (digits.count() == 0)
        return QStringLiteral(" 0");
    QString text(digits.isNegative() ? u'-' : u' ');
    for (int i = 0; i < digits.beforePoint(); ++i)
        text += DigitText(digits.at(i));
    if (digits.count() > digits.beforePoint())
        text += u'.';
    for (int i = digits.beforePoint(); i < digits.count(); ++i)
        text += DigitText(digits.at(i));
    return text;
}

double RoundToPlaces(double value, int places)
{
    DecimalDigits digits(value);
    digits.RoundTo(std::clamp(places, 0, kMostPlaces));
    char number[32];
    char* out = number;
    if (digits.isNegative())
        *out++ = '-';
    for (int i = 0; i < std::max(digits.count(), 1); ++i)
        *out++ = static_cast<char>('0' + digits.at(i));
    *out++ = 'e';
    out = std::to_chars(out, number + sizeof number, digits.beforePoint() - digits.count()).ptr;
    double rounded = value;
    std::from_chars(number, out, rounded);
    return rounded;
}

bool IsExact(double value, int places)
{
    constexpr int kDigits = std::numeric_limits<double>::digits10;
    constexpr int kMostCounted = 8; // more places than that are written, but nobody counts with them
    return std::isfinite(value) && std::abs(value) < std::pow(10.0, kDigits - std::clamp(places, 0, kMostCounted));
}

QString CleanNumberText(QString text)
{
    return text.remove(u',').remove(u'。').remove(u'￥');
}

double CellNumber(const QString& text)
{
    return Val(CleanNumberText(text));
}
