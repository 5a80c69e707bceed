#include "data/schema_indexes.h"

namespace {
QStringList Columns(const QString& text)
{
    return text.split(',', Qt::SkipEmptyParts);
}

/// What the stock and cost questions read of a bill's tables.
struct BillIndex
{
    const char* table;
    const char* warehouses; // columns of the head
    const char* value;      // columns of a line that value it, between the amount and the state
    const char* cost;       // its unit cost behind the moment, where `value` does not hold it
};

constexpr BillIndex kBillIndexes[] = {
    {"TabInBill", "WarehouseCode", "Moneyy_Discount", ",AveragePrice"},
    {"TabInCancleBill", "WarehouseCode", "Moneyy_Discount", ",AveragePrice"},
    {"TabElseInBill", "WarehouseCode", "Moneyy_Discount", ",AveragePrice"},
    {"TabOutBill", "WarehouseCode", "Cost", ",AveragePrice"},
    {"TabOutCancleBill", "WarehouseCode", "Cost", ",AveragePrice"},
    {"TabElseOutBill", "WarehouseCode", "Cost", ",AveragePrice"},
    {"TabSamePriceMove", "WarehouseCodeF,WarehouseCodeS", "AveragePrice", ""},
    {"TabDiffPriceMove", "WarehouseCodeF,WarehouseCodeS", "AveragePrice", ""},
    {"TabChangePrice", "WarehouseCode", "MoneyBanlance", ",lastAveragePrice"},
    {"TabCheckLose", "WarehouseCode", "AveragePrice", ""},
    {"TabCheckOver", "WarehouseCode", "AveragePrice", ""},
    {"TabWareGroup", "WarehouseCodeF,WarehouseCodeS", "Moneyy", ",AveragePrice"},
    {"TabWarePiece", "WarehouseCodeF,WarehouseCodeS", "Moneyy", ",AveragePrice"},
};

/// Rows that store a cost of a good.
struct CostIndex
{
    const char* table;
    const char* columns; // the cost, and what else its questions read
};

constexpr CostIndex kCostIndexes[] = {
    {"TabInBillInf", "AveragePrice"},
    {"TabInCancleBillInf", "AveragePrice"},
    {"TabElseInBillInf", "AveragePrice,BillCode"},
    {"TabChangePriceInf", "lastAveragePrice,BillCode,Moneyy"},
    {"TabWareGroup", "AveragePrice"},
    {"TabWarePieceInf", "AveragePrice"},
};

struct OtherIndex
{
    const char* name; // behind the table's
    const char* table;
    const char* keys;
    const char* covered;
};

constexpr OtherIndex kOtherIndexes[] = {
    // Of these two the head is a line as well.
    {"ware", "TabWareGroup", "WareCode,Datee",
     "UnionAmount,SumMoney,State,WarehouseCodeS,DateTimee,AveragePrice,MoneyRate"},
    {"ware", "TabWarePiece", "WareCode,Datee", "UnionAmount,SumMoney,State,WarehouseCodeF,MoneyRate"},
    // In the order in which the newest cost tells the rows of a close apart.
    {"w", "TabWarehouseTurn", "WareCode,Datee",
     "Num,WarehouseCode,Amount,Cost,MoneyRate,AveragePrice,AttributeCode,WareSpec,Manufacturer,Brand,PCode,MoneyName"},
    {"d", "TabTurn", "Datee", ""},
    {"d", "TabTurnDay", "Datee", ""},
    {"b", "TabWarehouseAmountChange", "BillCode", ""},
    {"b", "TabWarrantInf", "BillCode", ""},
    {"j", "TabWarrant", "JXCBillCode", ""},
    {"d", "TabWarrant", "Datee", ""},
    // Covers the list that drops down while a good is typed.
    {"type", "TabWare", "TypeCode,Code", "Name,Spec,ZJF,Unite"},
    // Covers the list of the goods picker.
    {"list", "TabWare", "Code", "Name,Spec,Unite,ZJF,TypeCode"},
    {"tx", "TabWare", "TiaoXingCode", ""},
    {"t", "TabPrintMSHSet", "TabName,ColOrder", ""},
    {"b", "TabImg", "BillCode", ""},
};

/// The newest cost of a good is the first row here, whatever its number of lines and whatever dimension limits them: a
/// condition on a column that is not here would make it sort all of them.
SchemaIndex IndexOfCosts(const CostIndex& index)
{
    return {
        "cost", index.table, Columns("WareCode,DateTimee,Datee"),
        Columns(
            QString("State,%1,WareSpec,AttributeCode,PCode,Manufacturer,Brand,Auditing,MoneyName").arg(index.columns))};
}

std::vector<SchemaIndex> IndexesOfBill(const BillIndex& bill)
{
    const QString head = bill.table;
    const QString lines = head + "Inf";
    std::vector<SchemaIndex> indexes = {
        {"ware", lines, Columns("WareCode,Datee"),
         Columns(QString("BillCode,UnionAmount,%1,State,DateTimee%2,MoneyRate").arg(bill.value, bill.cost))},
        {"bill", lines, Columns("BillCode,Num"), {}},
        {"day", head, Columns("Datee,Code"), {}},
    };
    // The balance of one warehouse looks the head of every line up: the heads of a warehouse lie close together.
    for (const QString& warehouse : Columns(bill.warehouses))
        indexes.push_back({warehouse, head, {warehouse, "Code"}, {"State"}});
    return indexes;
}

std::vector<SchemaIndex> ReadIndexes()
{
    std::vector<SchemaIndex> indexes;
    for (const BillIndex& bill : kBillIndexes)
        for (SchemaIndex& index : IndexesOfBill(bill))
            indexes.push_back(std::move(index));
    for (const CostIndex& index : kCostIndexes)
        indexes.push_back(IndexOfCosts(index));
    for (const OtherIndex& index : kOtherIndexes)
        indexes.push_back({index.name, index.table, Columns(index.keys), Columns(index.covered)});
    return indexes;
}
} // namespace

const std::vector<SchemaIndex>& SchemaIndexes()
{
    static const std::vector<SchemaIndex> indexes = ReadIndexes();
    return indexes;
}
