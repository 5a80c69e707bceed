#include "asking/stock_bills.h"

#include "data/bill_kinds.h"

namespace {

constexpr const char* kSiblingBills[] = {"采购入库单", "采购退货单", "其他入库单",
                                         "销售出库单", "销售退货单", "其他出库单"};

BillTables TablesOf(const QString& bill)
{
    const QString head = HeadTableOfBill(bill);
    return {bill, head, Name(head), Name(head + "Inf")};
}

std::vector<BillTables> AllTables()
{
    std::vector<BillTables> tables;
    for (const char* bill : kSiblingBills)
        tables.push_back(TablesOf(bill));
    for (const BillKind& kind : BillKinds())
        tables.push_back(TablesOf(kind.bill));
    return tables;
}

} // namespace

const std::vector<BillTables>& StockBills()
{
    static const std::vector<BillTables> tables = AllTables();
    return tables;
}

QString BillOfTable(const QString& table)
{
    for (const BillTables& tables : StockBills()) {
        if (table == tables.headTable || table == tables.headTable + "Inf")
            return tables.bill;
    }
    return {};
}
