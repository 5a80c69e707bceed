#include "checking/check.h"

#include "asking/stock_bills.h"
#include "handover/open_query.h"
#include "stock/statement.h"

namespace {

/// One table of heads or lines.
struct MomentRows
{
    Name table;
    const char* code;
    const char* num;
};

QString PlaceOf(const Recordset& rows, int row)
{
    const qint64 num = rows.Integer("Num", row);
    return num == 0 ? QString("head") : QString("line %1").arg(num);
}

void ReportOffDay(Program& program, const QString& bill, const MomentRows& moments, const QDate& day,
                  const Report& report)
{
    const Recordset rows =
        OpenQuery(program, Sql("select ") + moments.code + " as Code," + moments.num + " as Num,DateTimee from " +
                               moments.table + " where Datee=" + day + " and (DateTimee<" + day +
                               " or DateTimee>=" + day.addDays(1) + " or DateTimee is null) order by Code,Num");
    for (int row = 0; row < rows.size(); ++row) {
        const QString moment = rows.Text("DateTimee", row);
        report({"moment", bill, rows.Text("Code", row),
                QString("%1 of %2 is at %3")
                    .arg(PlaceOf(rows, row), DayText(day), moment.isEmpty() ? "no moment" : moment)});
    }
}

/// Days are few: only one whose moments leave it is looked at row by row.
void ReportOffDays(Program& program, const QString& bill, const MomentRows& moments, const Report& report)
{
    const Recordset days =
        OpenQuery(program, Sql("select Datee,min(DateTimee) as FirstMoment,max(DateTimee) as LastMoment,"
                               "count(*)-count(DateTimee) as Missing from ") +
                               moments.table + " group by Datee order by Datee");
    for (int row = 0; row < days.size(); ++row) {
        const std::optional<QDate> day = days.Day("Datee", row);
        if (day && (days.Day("FirstMoment", row) != day || days.Day("LastMoment", row) != day ||
                    days.Integer("Missing", row) > 0))
            ReportOffDay(program, bill, moments, *day, report);
    }
}

void ReportOtherDays(Program& program, const BillTables& bill, const Report& report)
{
    const Recordset rows = OpenQuery(
        program, Sql("select L.BillCode as Code,L.Num as Num,L.Datee as LineDay,H.Datee as HeadDay from ") + bill.head +
                     " H," + bill.line + " L where L.BillCode=H.Code and L.Datee<>H.Datee order by L.BillCode,L.Num");
    for (int row = 0; row < rows.size(); ++row)
        report({"moment", bill.bill, rows.Text("Code", row),
                QString("%1 is of %2, the head of %3")
                    .arg(PlaceOf(rows, row), rows.Text("LineDay", row), rows.Text("HeadDay", row))});
}

void ReportNotAfterHead(Program& program, const BillTables& bill, const Report& report)
{
    const Recordset rows = OpenQuery(
        program, Sql("select H.Code as Code,H.DateTimee as HeadMoment,min(L.DateTimee) as FirstMoment from ") +
                     bill.head + " H," + bill.line +
                     " L where L.BillCode=H.Code group by H.Code,H.DateTimee having min(L.DateTimee)<=H.DateTimee "
                     "order by H.Code");
    for (int row = 0; row < rows.size(); ++row)
        report({"moment", bill.bill, rows.Text("Code", row),
                QString("the lines begin at %1, not after the head at %2")
                    .arg(rows.Text("FirstMoment", row), rows.Text("HeadMoment", row))});
}

void ReportNotRising(Program& program, const BillTables& bill, const Report& report)
{
    const Recordset rows = OpenQuery(
        program, Sql("select * from (select BillCode as Code,Num,DateTimee,lag(DateTimee) over (partition by BillCode "
                     "order by Num) as Earlier from ") +
                     bill.line + ") tmpTab where Earlier>=DateTimee order by Code,Num");
    for (int row = 0; row < rows.size(); ++row)
        report({"moment", bill.bill, rows.Text("Code", row),
                QString("%1 at %2 is not after the one before at %3")
                    .arg(PlaceOf(rows, row), rows.Text("DateTimee", row), rows.Text("Earlier", row))});
}

void AppendGoods(Sql& sql, const MomentRows& moments)
{
    Append(sql, "select WareCode,DateTimee,", moments.code, " as BillCode from ", moments.table,
           " where WareCode<>'' and State<>'作废'");
}

/// The newest line of a good is told by its moment alone.
void ReportSameMoments(Program& program, const Report& report)
{
    // Of these two the head is a line as well.
    std::vector<MomentRows> sources = {{Name("TabWareGroup"), "Code", "0"}, {Name("TabWarePiece"), "Code", "0"}};
    for (const BillTables& bill : StockBills())
        sources.push_back({bill.line, "BillCode", "Num"});
    Sql sql("select WareCode,DateTimee,count(*) as Lines,min(BillCode) as FirstCode,max(BillCode) as LastCode from (");
    AppendUnion(sql, sources, [&](const MomentRows& moments) { AppendGoods(sql, moments); });
    sql += ") tmpTab group by WareCode,DateTimee having count(*)>1 order by WareCode,DateTimee";
    const Recordset rows = OpenQuery(program, sql);
    for (int row = 0; row < rows.size(); ++row)
        report({"same", "商品", rows.Text("WareCode", row),
                QString("%1 lines at %2, on %3 and %4")
                    .arg(rows.Integer("Lines", row))
                    .arg(rows.Text("DateTimee", row), rows.Text("FirstCode", row), rows.Text("LastCode", row))});
}

} // namespace

void CheckMoments(Program& program, const Report& report)
{
    for (const BillTables& bill : StockBills()) {
        ReportOffDays(program, bill.bill, {bill.head, "Code", "0"}, report);
        ReportOffDays(program, bill.bill, {bill.line, "BillCode", "Num"}, report);
        ReportOtherDays(program, bill, report);
        ReportNotAfterHead(program, bill, report);
        ReportNotRising(program, bill, report);
    }
    ReportSameMoments(program, report);
}
