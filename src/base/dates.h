#pragma once

// Days and moments. A day is a QDate. A moment is a day with its time of day; no time zone takes part, since a bill's
// moment is the day on the bill with the clock's time. Canonical texts are fixed here and nowhere else.

#include <QDate>
#include <QString>
#include <QStringView>
#include <compare>
#include <optional>

struct Moment
{
    QDate day;
    int millisecondOfDay = 0;

    friend bool operator==(const Moment&, const Moment&) = default;
    friend bool operator<(const Moment& a, const Moment& b)
    {
        return a.day != b.day ? a.day < b.day : a.millisecondOfDay < b.millisecondOfDay;
    }
};

/// The date that stands for no date.
inline const QDate kNoDate(1900, 1, 1);

constexpr int kMillisecondsPerDay = 24 * 60 * 60 * 1000;

/// "2023-02-08"; empty for an invalid day.
QString DayText(const QDate& day);
/// "2023-02-08 09:05:12.004"; whole seconds without the fraction, midnight as the day alone, empty for an invalid day.
QString MomentText(const Moment& moment);
/// The day in a text: year, month and day in this order with "-", "/", "." or 年月日 between them, leading zeros or
/// not, a time of day behind it allowed and ignored. Unset for anything else.
std::optional<QDate> ParseDay(QStringView text);
/// The day that a user types into a date box: as ParseDay reads it, or with less: 20231115, 231115, 1115 and 11-15 (of
/// the year that stands there), 15 (of the month that stands there), +1 and -1 (days from there). Full-width digits
/// are digits. Unset for anything else and before kNoDate.
/// @param shown  the day that stands in the box
std::optional<QDate> ReadTypedDay(const QString& text, const QDate& shown);
/// The day with one part raised by `step`, the day of the month held to the month's last.
enum class DayPart
{
    Year,
    Month,
    Day,
};
QDate StepDay(const QDate& day, DayPart part, int step);
/// The same with its time of day ("9:05", "09:05:12", "09:05:12.004"; none is midnight).
std::optional<Moment> ParseMoment(QStringView text);
