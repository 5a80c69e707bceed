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

constexpr int kLastYear = 9999;
constexpr int kYearsInCentury = 100;
constexpr int kFurthestStep = 9999; // days that a user may type with a sign

/// +1, -15.
std::optional<QDate> TakeSteps(Scanner scanner, const QDate& shown)
{
    const bool isBack = scanner.Take(u'-');
    if (!isBack && !scanner.Take(u'+'))
        return std::nullopt;
    const auto steps = scanner.TakeNumber(1, 5);
    if (!steps || *steps > kFurthestStep || !scanner.rest.isEmpty())
        return std::nullopt;
    return shown.addDays(isBack ? -*steps : *steps);
}

/// Digits alone: what is missing in front is that of the shown day.
std::optional<QDate> TakeDigits(Scanner scanner, const QDate& shown)
{
    struct Shape
    {
        qsizetype length;
        int year; // digits of it
        int month;
    };
    constexpr Shape kShapes[] = {{8, 4, 2}, {6, 2, 2}, {4, 0, 2}, {2, 0, 0}, {1, 0, 0}};
    for (const Shape& shape : kShapes) {
        if (scanner.rest.size() != shape.length)
            continue;
        auto year = shape.year > 0 ? scanner.TakeNumber(shape.year, shape.year) : shown.year();
        if (shape.year == 2 && year)
            *year += shown.year() / kYearsInCentury * kYearsInCentury;
        const auto month = shape.month > 0 ? scanner.TakeNumber(shape.month, shape.month) : shown.month();
        const auto day = scanner.TakeNumber(1, 2);
        if (year && month && day && scanner.rest.isEmpty())
            return QDate(*year, *month, *day);
    }
    return std::nullopt;
}

/// 11-15: month and day of the shown year.
std::optional<QDate> TakeMonthAndDay(Scanner scanner, const QDate& shown)
{
    const auto month = scanner.TakeNumber(1, 2);
    for (const DaySigns& signs : kDaySigns) {
        if (!month || !scanner.Take(signs.afterMonth))
            continue;
        const auto day = scanner.TakeNumber(1, 2);
        scanner.Take(signs.afterDay);
        if (day && scanner.rest.isEmpty())
            return QDate(shown.year(), *month, *day);
        break;
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

std::optional<QDate> ReadTypedDay(const QString& text, const QDate& shown)
{
    const QString typed = text.normalized(QString::NormalizationForm_KC).trimmed();
    auto day = ParseDay(typed);
    for (const auto take : {TakeSteps, TakeDigits, TakeMonthAndDay}) {
        if (!day)
            day = take(Scanner{typed}, shown);
    }
    return day && day->isValid() && *day >= kNoDate && day->year() <= kLastYear ? day : std::nullopt;
}

QDate StepDay(const QDate& day, DayPart part, int step)
{
    switch (part) {
    case DayPart::Year:
        return day.addYears(step);
    case DayPart::Month:
        return day.addMonths(step);
    case DayPart::Day:
        break;
    }
    return day.addDays(step);
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
