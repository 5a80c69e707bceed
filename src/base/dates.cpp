#include "base/dates.h"

#include <array>

namespace {

constexpr int kMillisecondsPerSecond = 1000;
constexpr int kMillisecondsPerMinute = 60 * kMillisecondsPerSecond;
constexpr int kMillisecondsPerHour = 60 * kMillisecondsPerMinute;

/// What stands between year, month and day, and behind the day where something does.
struct DaySigns
{
    char16_t afterYear;
    char16_t afterMonth;
    char16_t afterDay;
};
constexpr std::array<DaySigns, 4> kDaySigns = {
    {{u'-', u'-', 0}, {u'/', u'/', 0}, {u'.', u'.', 0}, {u'年', u'月', u'日'}}};

/// Reads forward through a text; what was not taken is still there.
struct Scanner
{
    QStringView rest;

    bool Take(char16_t sign)
    {
        if (sign == 0 || !rest.startsWith(QChar(sign)))
            return false;
        rest = rest.sliced(1);
        return true;
    }

    /// A run of `least` to `most` digits.
    std::optional<int> TakeNumber(int least, int most)
    {
        int value = 0;
        int taken = 0;
        for (; taken < rest.size() && taken < most; ++taken) {
            const char16_t c = rest[taken].unicode();
            if (c < u'0' || c > u'9')
                break;
            value = value * 10 + (c - u'0');
        }
        if (taken < least)
            return std::nullopt;
        rest = rest.sliced(taken);
        return value;
    }
};

std::optional<QDate> TakeDay(Scanner& scanner)
{
    const auto year = scanner.TakeNumber(4, 4);
    if (!year)
        return std::nullopt;
    for (const DaySigns& signs : kDaySigns) {
        if (!scanner.Take(signs.afterYear))
            continue;
        const auto month = scanner.TakeNumber(1, 2);
        if (!month || !scanner.Take(signs.afterMonth))
            return std::nullopt;
        const QDate day(*year, *month, scanner.TakeNumber(1, 2).value_or(0));
        scanner.Take(signs.afterDay);
        return day.isValid() ? std::optional(day) : std::nullopt;
    }
    return std::nullopt;
}

/// Digits behind the third are below a millisecond.
std::optional<int> TakeMilliseconds(Scanner& scanner)
{
    const QStringView digits = scanner.rest;
    const auto fraction = scanner.TakeNumber(1, 9);
    if (!fraction)
        return std::nullopt;
    int value = 0;
    const auto taken = digits.size() - scanner.rest.size();
    for (int i = 0; i < 3; ++i)
        value = value * 10 + (i < taken ? digits[i].unicode() - u'0' : 0);
    return value;
}

std::optional<int> TakeTimeOfDay(Scanner& scanner)
{
    const auto hour = scanner.TakeNumber(1, 2);
    if (!hour || !scanner.Take(u':'))
        return std::nullopt;
    const auto minute = scanner.TakeNumber(1, 2);
    const auto second = scanner.Take(u':') ? scanner.TakeNumber(1, 2) : 0;
    const auto millisecond = scanner.Take(u'.') ? TakeMilliseconds(scanner) : 0;
    if (!minute || !second || !millisecond || *hour > 23 || *minute > 59 || *second > 59)
        return std::nullopt;
    return *hour * kMillisecondsPerHour + *minute * kMillisecondsPerMinute + *second * kMillisecondsPerSecond +
           *millisecond;
}

/// @param firstUnit  what the first digit counts: 1000 makes four digits
void AppendPadded(QString& text, int value, int firstUnit)
{
    for (int unit = firstUnit; unit > 0; unit /= 10)
        text += QChar(u'0' + value / unit % 10);
}

} // namespace

QString DayText(const QDate& day)
{
    if (!day.isValid() || day.year() < 0 || day.year() > 9999)
        return QString();
    QString text;
    text.reserve(23); // a moment's time may follow
    AppendPadded(text, day.year(), 1000);
    text += u'-';
    AppendPadded(text, day.month(), 10);
    text += u'-';
    AppendPadded(text, day.day(), 10);
    return text;
}

QString MomentText(const Moment& moment)
{
    QString text = DayText(moment.day);
    if (text.isEmpty() || moment.millisecondOfDay == 0)
        return text;
    text += u' ';
    AppendPadded(text, moment.millisecondOfDay / kMillisecondsPerHour, 10);
    text += u':';
    AppendPadded(text, moment.millisecondOfDay / kMillisecondsPerMinute % 60, 10);
    text += u':';
    AppendPadded(text, moment.millisecondOfDay / kMillisecondsPerSecond % 60, 10);
    if (moment.millisecondOfDay % kMillisecondsPerSecond != 0) {
        text += u'.';
        AppendPadded(text, moment.millisecondOfDay % kMillisecondsPerSecond, 100);
    }
    return text;
}

std::optional<QDate> ParseDay(QStringView text)
{
    const auto moment = ParseMoment(text);
    return moment ? std::optional(moment->day) : std::nullopt;
}

std::optional<Moment> ParseMoment(QStringView text)
{
    Scanner scanner{text.trimmed()};
    const auto day = TakeDay(scanner);
    if (!day)
        return std::nullopt;
    if (scanner.rest.isEmpty())
        return Moment{*day, 0};
    if (!scanner.rest.front().isSpace() && !scanner.rest.startsWith(u'T'))
        return std::nullopt;
    scanner.rest = scanner.rest.sliced(1).trimmed();
    const auto time = TakeTimeOfDay(scanner);
    if (!time || !scanner.rest.isEmpty())
        return std::nullopt;
    return Moment{*day, *time};
}
