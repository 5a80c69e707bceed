#include "checking/check.h"

#include "asking/stock_bills.h"
#include "handover/open_query.h"

namespace {

/// A mark that the head and all lines of a bill share.
struct SharedMark
{
    const char* kind;
    const char* column;
};

constexpr SharedMark kSharedMarks[] = {{"state", "State"}, {"audit", "Auditing"}};

void ReportMixed(Program& program, const BillTables& bill, const SharedMark& mark, const Report& report)
{
    const Name column(mark.column);
    const Recordset rows =
        OpenQuery(program, Sql("select H.Code as Code,H.") + column + " as HeadMark,min(L." + column +
                               ") as LineMark,count(*) as Lines from " + bill.head + " H," + bill.line +
                               " L where L.BillCode=H.Code and coalesce(L." + column + ",'')<>coalesce(H." + column +
                               ",'') group by H.Code,H." + column + " order by H.Code");
    for (int row = 0; row < rows.size(); ++row)
        report({mark.kind, bill.bill, rows.Text("Code", row),
                QString("the head says \"%1\", %2 line(s) say \"%3\"")
                    .arg(rows.Text("HeadMark", row))
                    .arg(rows.Integer("Lines", row))
                    .arg(rows.Text("LineMark", row))});
}

/// @param sides  columns BillCode, Debit and Credit
void ReportSides(const Recordset& sides, const char* of, const Report& report)
{
    for (int row = 0; row < sides.size(); ++row)
        report({"voucher", "会计凭证", sides.Text("BillCode", row),
                QString("debit %1 and credit %2 of its %3")
                    .arg(sides.Money("Debit", row).text(), sides.Money("Credit", row).text(), of)});
}

} // namespace

void CheckAgreement(Program& program, const Report& report)
{
    for (const SharedMark& mark : kSharedMarks) {
        for (const BillTables& bill : StockBills())
            ReportMixed(program, bill, mark, report);
    }
    // The head of an assembly's voucher holds the fee twice, on either side: its sides agree, but not with the rows.
    ReportSides(OpenQuery(program, Sql("select BillCode,sum(Debtor) as Debit,sum(Lender) as Credit from TabWarrantInf "
                                       "group by BillCode having abs(sum(Debtor)-sum(Lender))>0.00005 "
                                       "order by BillCode")),
                "rows", report);
    ReportSides(OpenQuery(program, Sql("select Code as BillCode,SumDebtor as Debit,SumLender as Credit from TabWarrant "
                                       "where abs(SumDebtor-SumLender)>0.00005 order by Code")),
                "head", report);
}
