#pragma once

// Closed days and accounting periods. A month's period ends on its day in TabAccountAreaSet, or on its last day.

#include "handover/program.h"

#include <optional>

/// Whether a warehouse or day closing lies on or after this day. With `showMessage` a closed day is said to the user.
/// A question that the database does not answer protects: its error has been shown and the day counts as closed.
bool IsDayClosed(Program& program, const QDate& day, bool showMessage);
/// Whether a real closing exists, which the user is told: opening stock may not be changed any more. An unanswered
/// question protects here too.
bool HasWarehouseClosing(Program& program);

/// Last day of an accounting month; a month below 1 counts as 1, above 12 as 12, a blank year as the current one.
QString GetPeriodEndDay(Program& program, const QString& month, const QString& year);
/// Last day of a calendar month; empty for a month of 0 or less, a blank year counts as the current one.
QString GetMonthEndDay(Program& program, const QString& month, const QString& year);
/// First and last day of an accounting period. Invalid where TabAccountAreaSet names a day that the month lacks.
QDate GetPeriodStartDate(Program& program, int year, int month);
QDate GetPeriodEndDate(Program& program, int year, int month);

/// First and last day of the period of a day's calendar month, and the accounting year and month of the day itself.
struct AccountingPeriod
{
    QDate start;
    QDate end;
    int year;
    int month;
};
/// Unset for an invalid day and where TabAccountAreaSet names a day that the month, or the one before it, lacks.
std::optional<AccountingPeriod> AccountingPeriodOf(Program& program, const QDate& day);
/// The month that keeps a day's period from being formed, and its closing day in TabAccountAreaSet.
struct UnformedPeriod
{
    int year;
    int month;
    QString closingDay;
};
UnformedPeriod UnformedPeriodOf(Program& program, const QDate& day);
/// Accounting month and year that a day falls into, as text; empty where there is no such period.
QString GetPeriodMonth(Program& program, const QDate& day);
QString GetPeriodYear(Program& program, const QDate& day);
