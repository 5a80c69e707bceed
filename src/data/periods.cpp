#include "data/periods.h"

#include "base/number_text.h"
#include "handover/open_query.h"

#include <algorithm>

namespace {
/// The month's row of TabAccountAreaSet, where it has one.
std::optional<QString> ClosingDayOf(Program& program, int month)
{
    const Recordset rs = OpenQuery(program, Sql("select * from TabAccountAreaSet where DateeM=") + month + " ");
    if (rs.isEmpty())
        return std::nullopt;
    return rs.Text("DateeD");
}

/// A whole number from text, 0 for anything below.
int WholeNumber(const QString& text)
{
    return qRound(std::clamp(Val(text), 0.0, 9999.0));
}

int YearOf(Program& program, const QString& year)
{
    return year.trimmed().isEmpty() ? program.clock.Now().day.year() : WholeNumber(year);
}

QString LastDayOf(int year, int month)
{
    const QDate first(year, month, 1);
    return first.isValid() ? QString::number(first.daysInMonth()) : QString();
}

/// The end of the period before. Only a January with a row of its own looks at December's.
QDate EndOfPeriodBefore(Program& program, int year, int month)
{
    if (month > 1)
        return GetPeriodEndDate(program, year, month - 1);
    if (ClosingDayOf(program, month))
        return GetPeriodEndDate(program, year - 1, 12);
    return QDate(year - 1, 12, 31);
}

enum class DayState
{
    Open,
    Closed,
    Unknown, // the question failed, which has been shown
};

DayState StateOf(Program& program, const QDate& day)
{
    for (const char* closings : {"TabTurn", "TabTurnDay"}) {
        const Recordset last = OpenQuery(program, Sql("select max(Datee) as Datee from ") + Name(closings) + " ");
        if (!last)
            return DayState::Unknown;
        const std::optional<QDate> closed = last.Day("Datee");
        if (closed && *closed >= day)
            return DayState::Closed;
    }
    return DayState::Open;
}
} // namespace

bool IsDayClosed(Program& program, const QDate& day, bool showMessage)
{
    const DayState state = StateOf(program, day);
    if (state == DayState::Closed && showMessage)
        Inform(program, "今天已结转，禁止当前操作！");
    return state != DayState::Open;
}

bool HasWarehouseClosing(Program& program)
{
    // Rows of 1900-01-01 are the mark of an empty closing.
    const Recordset closings = OpenQuery(program, Sql("select * from TabTurn where Datee<>") + kNoDate + " ");
    if (!closings.isEmpty())
        program.prompt.Inform("已经作过仓库期末结转，不允许再修改期初库存数！");
    return !closings || !closings.isEmpty();
}

QString GetPeriodEndDay(Program& program, const QString& month, const QString& year)
{
    const int number = std::clamp(WholeNumber(month), 1, 12);
    if (const std::optional<QString> day = ClosingDayOf(program, number))
        return *day;
    return LastDayOf(YearOf(program, year), number);
}

QString GetMonthEndDay(Program& program, const QString& month, const QString& year)
{
    return LastDayOf(YearOf(program, year), WholeNumber(month));
}

QDate GetPeriodStartDate(Program& program, int year, int month)
{
    const QDate before = EndOfPeriodBefore(program, year, month);
    return before.isValid() ? before.addDays(1) : QDate();
}

QDate GetPeriodEndDate(Program& program, int year, int month)
{
    return QDate(year, month, GetPeriodEndDay(program, QString::number(month), QString::number(year)).toInt());
}

std::optional<AccountingPeriod> AccountingPeriodOf(Program& program, const QDate& day)
{
    if (!day.isValid())
        return {};
    const QDate start = GetPeriodStartDate(program, day.year(), day.month());
    const QDate end = GetPeriodEndDate(program, day.year(), day.month());
    if (!start.isValid() || !end.isValid())
        return {};
    const QDate calendar(day.year(), day.month(), 1);
    const QDate month = calendar.addMonths(day > end ? 1 : day < start ? -1 : 0);
    return AccountingPeriod{start, end, month.year(), month.month()};
}

UnformedPeriod UnformedPeriodOf(Program& program, const QDate& day)
{
    const bool isOwn = !GetPeriodEndDate(program, day.year(), day.month()).isValid();
    const QDate month = QDate(day.year(), day.month(), 1).addMonths(isOwn ? 0 : -1);
    return {month.year(), month.month(), GetPeriodEndDay(program, QString::number(month.month()), {})};
}

QString GetPeriodMonth(Program& program, const QDate& day)
{
    const std::optional<AccountingPeriod> period = AccountingPeriodOf(program, day);
    return period ? QString::number(period->month) : QString();
}

QString GetPeriodYear(Program& program, const QDate& day)
{
    const std::optional<AccountingPeriod> period = AccountingPeriodOf(program, day);
    return period ? QString::number(period->year) : QString();
}
