#include "reliability/accounts.h"

#include "data/bill_kinds.h"

#include <set>

namespace {

bool IsPieces(const BillKind& kind)
{
    return kind.lines == LineShape::Pieces;
}

/// A bill as its rows tell it.
struct Lines
{
    QString mark;
    QString state;
    QString auditing;
    qint64 count = 0;
};

/// Every head has exactly the lines that its mark speaks of, numbered from 1, all of its own save and state.
void LookAtKind(Store& store, const BillKind& kind, Bills& bills)
{
    const QString table = kind.headTable;
    const char* const mark = IsPieces(kind) ? "Custom1" : "Remark";
    std::map<QString, Lines> heads;
    const Recordset head = store.Run(Sql("select Code,") + Name(mark) + " as Mark,State,Auditing from " + Name(table));
    for (int row = 0; row < head.size(); ++row)
        heads[head.Text("Code", row)] = {head.Text("Mark", row), head.Text("State", row), head.Text("Auditing", row)};

    const Recordset lines = store.Run(Sql("select BillCode,Num,Remark,State,Auditing from ") + Name(kind.lineTable) +
                                      " order by BillCode,Num");
    for (int row = 0; row < lines.size(); ++row) {
        const QString code = lines.Text("BillCode", row);
        const auto found = heads.find(code);
        if (found == heads.end()) {
            bills.faults << table + " " + code + ": a line without a head";
            continue;
        }
        Lines& bill = found->second;
        if (lines.Integer("Num", row) != ++bill.count || lines.Text("Remark", row) != bill.mark ||
            lines.Text("State", row) != bill.state || lines.Text("Auditing", row) != bill.auditing)
            bills.faults << table + " " + code + ": line " + lines.Text("Num", row) + " is of another save";
    }
    for (const auto& [code, bill] : heads) {
        if (bill.mark.section('.', 2).toLongLong() != bill.count)
            bills.faults << table + " " + code + ": " + QString::number(bill.count) + " lines of " + bill.mark;
        bills.marks[table + " " + code] = bill.mark;
    }
}

/// One voucher for each assembly in force, balanced, under a code and a number of its own.
void LookAtVouchers(Store& store, Bills& bills)
{
    std::multiset<QString> wanted;
    for (const BillKind& kind : BillKinds()) {
        if (!IsPieces(kind))
            continue;
        const Recordset heads = store.Run(Sql("select Code from ") + Name(kind.headTable) + " where State='正常'");
        for (int row = 0; row < heads.size(); ++row)
            wanted.insert(heads.Text("Code", row));
    }
    const Recordset vouchers =
        store.Run(Sql("select V.Code,V.WarrantNum1,V.JXCBillCode,(select sum(I.Debtor-I.Lender) from TabWarrantInf I "
                      "where I.BillCode=V.Code) as Difference from TabWarrant V"));
    std::set<QString> codes;
    std::set<qint64> numbers;
    for (int row = 0; row < vouchers.size(); ++row) {
        const QString code = vouchers.Text("Code", row);
        const auto bill = wanted.find(vouchers.Text("JXCBillCode", row));
        if (bill == wanted.end())
            bills.faults << code + ": a second voucher, or one of no bill in force, of " +
                                vouchers.Text("JXCBillCode", row);
        else
            wanted.erase(bill);
        if (!codes.insert(code).second || !numbers.insert(vouchers.Integer("WarrantNum1", row)).second)
            bills.faults << code + ": its code or its number is there twice";
        if (vouchers.IsNull("Difference", row) || qAbs(vouchers.Number("Difference", row)) > 1e-6)
            bills.faults << code + ": its rows do not balance";
    }
    for (const QString& bill : wanted)
        bills.faults << bill + ": no voucher";
}

/// Columns: good, warehouse, amount.
QString LinesOf(const char* head, const char* warehouse)
{
    return QString("select L.WareCode,H.%2,L.UnionAmount from %1 H,%1Inf L where H.Code=L.BillCode and L.State='正常'")
        .arg(head, warehouse);
}

QString HeadsOf(const char* head, const char* warehouse)
{
    return QString("select WareCode,%2,UnionAmount from %1 where State='正常'").arg(head, warehouse);
}

} // namespace

Bills LookAtBills(Store& store)
{
    Bills bills;
    for (const BillKind& kind : BillKinds())
        LookAtKind(store, kind, bills);
    LookAtVouchers(store, bills);
    return bills;
}

std::map<std::pair<QString, QString>, double> AmountsOf(Store& store)
{
    const std::pair<QString, int> sources[] = {
        {"select WareCode,WarehouseCode,Amount from TabWarehouseTurn", 1},
        {LinesOf("TabOutBill", "WarehouseCode"), -1},
        {LinesOf("TabSamePriceMove", "WarehouseCodeF"), -1},
        {LinesOf("TabSamePriceMove", "WarehouseCodeS"), 1},
        {LinesOf("TabCheckLose", "WarehouseCode"), -1},
        {LinesOf("TabCheckOver", "WarehouseCode"), 1},
        {LinesOf("TabWareGroup", "WarehouseCodeF"), -1},
        {HeadsOf("TabWareGroup", "WarehouseCodeS"), 1},
        {LinesOf("TabWarePiece", "WarehouseCodeS"), 1},
        {HeadsOf("TabWarePiece", "WarehouseCodeF"), -1},
    };
    std::map<std::pair<QString, QString>, double> amounts;
    for (const auto& [statement, sign] : sources) {
        const Recordset rows = store.Run(Sql(statement.toUtf8().constData()));
        for (int row = 0; row < rows.size(); ++row)
            amounts[{TextOf(rows.at(row, 0)), TextOf(rows.at(row, 1))}] += sign * NumberOf(rows.at(row, 2));
    }
    return amounts;
}
