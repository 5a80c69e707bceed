#include "checking/check.h"

#include "asking/stock_bills.h"
#include "data/schema.h"
#include "data/typed_code.h"
#include "handover/open_query.h"

#include <QHash>

namespace {

const BillTables& Vouchers()
{
    static const BillTables tables{"会计凭证", "TabWarrant", Name("TabWarrant"), Name("TabWarrantInf")};
    return tables;
}

void ReportOrphans(Program& program, const BillTables& bill, const Report& report)
{
    const Recordset rows =
        OpenQuery(program, Sql("select L.BillCode as BillCode,count(*) as Lines from ") + bill.line +
                               " L where not exists (select H.Code from " + bill.head +
                               " H where H.Code=L.BillCode) group by L.BillCode order by L.BillCode");
    for (int row = 0; row < rows.size(); ++row)
        report({"orphan", bill.bill, rows.Text("BillCode", row),
                QString("%1 line(s) without a head").arg(rows.Integer("Lines", row))});
}

void ReportHeadless(Program& program, const BillTables& bill, const Report& report)
{
    const Recordset rows = OpenQuery(program, Sql("select H.Code as Code from ") + bill.head +
                                                  " H where not exists (select L.BillCode from " + bill.line +
                                                  " L where L.BillCode=H.Code) order by H.Code");
    for (int row = 0; row < rows.size(); ++row)
        report({"headless", bill.bill, rows.Text("Code", row), "a head without lines"});
}

void ReportCodesTwice(Program& program, const BillTables& bill, const Report& report)
{
    const Recordset rows = OpenQuery(program, Sql("select Code,count(*) as Heads from ") + bill.head +
                                                  " group by Code having count(*)>1 order by Code");
    for (int row = 0; row < rows.size(); ++row)
        report({"twice", bill.bill, rows.Text("Code", row),
                QString("the code of %1 heads").arg(rows.Integer("Heads", row))});
}

/// A book numbers its vouchers anew each accounting month.
void ReportNumbersTwice(Program& program, int book, const Report& report)
{
    const Name number(QString("WarrantNum%1").arg(book));
    const Recordset rows =
        OpenQuery(program, Sql("select DateeY,DateeM,") + number +
                               " as Number,count(*) as Vouchers,min(Code) as FirstCode,max(Code) as LastCode"
                               " from TabWarrant where " +
                               Name(QString("AccountBook%1").arg(book)) + "=1 group by DateeY,DateeM," + number +
                               " having count(*)>1 order by DateeY,DateeM," + number);
    for (int row = 0; row < rows.size(); ++row)
        report({"twice", Vouchers().bill, rows.Text("FirstCode", row),
                QString("number %1 of book %2 in %3-%4 on %5 vouchers, also on %6")
                    .arg(rows.Integer("Number", row))
                    .arg(book)
                    .arg(rows.Text("DateeY", row), rows.Text("DateeM", row))
                    .arg(rows.Integer("Vouchers", row))
                    .arg(rows.Text("LastCode", row))});
}

/// A server compares codes without regard to case, width and blanks behind them, and would refuse the second of two.
void ReportAlike(Program& program, const SchemaTable& table, const Report& report)
{
    const Recordset rows = OpenQuery(program, Sql("select ") + Name(table.key) + " as Code from " + Name(table.name) +
                                                  " order by " + Name(table.key));
    QHash<QString, QString> seen;
    for (int row = 0; row < rows.size(); ++row) {
        const QString code = rows.Text("Code", row);
        const QString key = NarrowCode(code).toCaseFolded();
        const QString first = seen.value(key, code);
        seen.insert(key, first);
        if (first != code)
            report({"alike", BillOfTable(table.name), code,
                    QString("a server takes the codes \"%1\" and \"%2\" of %3 for one").arg(first, code, table.name)});
    }
}

} // namespace

void CheckRows(Program& program, const Report& report)
{
    for (const SchemaTable& table : Schema()) {
        if (!table.key.isEmpty())
            ReportAlike(program, table, report);
    }
    std::vector<BillTables> bills = StockBills();
    bills.push_back(Vouchers());
    for (const auto& check : {ReportOrphans, ReportHeadless, ReportCodesTwice}) {
        for (const BillTables& bill : bills)
            check(program, bill, report);
    }
    for (int book = 1; book <= 3; ++book)
        ReportNumbersTwice(program, book, report);
}
