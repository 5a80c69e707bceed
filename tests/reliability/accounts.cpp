#include "reliability/accounts.h"

#include "acctset/books.h"
#include "checking/check.h"
#include "data/bill_kinds.h"
#include "handover/open_query.h"

namespace {

struct Lines
{
    QString mark;
    qint64 count = 0;
};

/// Every head has exactly the lines that its mark speaks of, numbered from 1, all of its own save.
void LookAtKind(Program& program, const BillKind& kind, Bills& bills)
{
    const QString table = kind.headTable;
    const char* const mark = kind.lines == LineShape::Pieces ? "Custom1" : "Remark";
    std::map<QString, Lines> heads;
    const Recordset head = OpenQuery(program, Sql("select Code,") + Name(mark) + " as Mark from " + Name(table));
    for (int row = 0; row < head.size(); ++row)
        heads[head.Text("Code", row)].mark = head.Text("Mark", row);

    const Recordset lines =
        OpenQuery(program, Sql("select BillCode,Num,Remark from ") + Name(kind.lineTable) + " order by BillCode,Num");
    for (int row = 0; row < lines.size(); ++row) {
        const QString code = lines.Text("BillCode", row);
        Lines& bill = heads[code];
        if (lines.Integer("Num", row) != ++bill.count || lines.Text("Remark", row) != bill.mark)
            bills.faults << table + " " + code + ": line " + lines.Text("Num", row) + " is of another save";
    }
    for (const auto& [code, bill] : heads) {
        if (bill.mark.section('.', 2).toLongLong() != bill.count)
            bills.faults << table + " " + code + ": " + QString::number(bill.count) + " lines of " + bill.mark;
        bills.marks[table + " " + code] = bill.mark;
    }
}

/// One voucher for each assembly in force, and none beside.
void LookAtVouchers(Program& program, Bills& bills)
{
    const char* const sides[] = {
        "select B.Code as Code from (select Code from TabWareGroup where State='正常' union all "
        "select Code from TabWarePiece where State='正常') B "
        "where (select count(*) from TabWarrant where JXCBillCode=B.Code)<>1",
        "select V.Code as Code from TabWarrant V "
        "where not exists (select Code from TabWareGroup where Code=V.JXCBillCode and State='正常') "
        "and not exists (select Code from TabWarePiece where Code=V.JXCBillCode and State='正常')"};
    for (const char* side : sides) {
        const Recordset rows = OpenQuery(program, Sql(side));
        for (int row = 0; row < rows.size(); ++row)
            bills.faults << rows.Text("Code", row) + ": not one voucher of one bill";
    }
}

} // namespace

Bills LookAtBills(Program& program)
{
    Bills bills;
    for (const BillKind& kind : BillKinds())
        LookAtKind(program, kind, bills);
    LookAtVouchers(program, bills);
    const Report report = [&](const Finding& finding) {
        bills.faults << QStringList{finding.kind, finding.bill, finding.code, finding.what}.join(' ');
    };
    CheckRows(program, report);
    CheckAgreement(program, report);
    return bills;
}

std::map<std::pair<QString, QString>, double> AmountsOf(Store& store)
{
    std::map<std::pair<QString, QString>, double> amounts;
    const auto add = [&](const Place& place, const Heap& heap) {
        amounts[{std::get<0>(place), std::get<1>(place)}] += heap.amount;
    };
    for (const auto& [place, heap] : OpeningOf(store))
        add(place, heap);
    for (const Movement& movement : MovementsOf(store))
        add(movement.place, movement.change);
    return amounts;
}
