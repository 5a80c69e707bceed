#include "data/schema.h"

namespace {
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

constexpr const char* kOtherIndexes[] = {
    // Of these two the head is a line as well.
    "create index TabWareGroup_ware on "
    "TabWareGroup(WareCode,Datee,UnionAmount,SumMoney,State,WarehouseCodeS,DateTimee,AveragePrice,MoneyRate)",
    "create index TabWarePiece_ware on "
    "TabWarePiece(WareCode,Datee,UnionAmount,SumMoney,State,WarehouseCodeF,MoneyRate)",
    "create index TabWarehouseTurn_w on "
    "TabWarehouseTurn(WareCode,Datee,Num,WarehouseCode,Amount,Cost,MoneyRate,AveragePrice)",
    "create index TabTurn_d on TabTurn(Datee)",
    "create index TabTurnDay_d on TabTurnDay(Datee)",
    "create index TabWarehouseAmountChange_b on TabWarehouseAmountChange(BillCode)",
    "create index TabWarrantInf_b on TabWarrantInf(BillCode)",
    "create index TabWarrant_j on TabWarrant(JXCBillCode)",
    "create index TabWarrant_d on TabWarrant(Datee)",
    // Covers the list that drops down while a good is typed.
    "create index TabWare_type on TabWare(TypeCode,Code,Name,Spec,ZJF,Unite)",
    // Covers the list of the goods picker.
    "create index TabWare_list on TabWare(Code,Name,Spec,Unite,ZJF,TypeCode)",
    "create index TabWare_tx on TabWare(TiaoXingCode)",
    "create index TabPrint_t on TabPrintMSHSet(TabName,ColOrder)",
    "create index TabImg_b on TabImg(BillCode)",
};

/// The column with its affinity, and what keeps a value of another form out of it.
QString ColumnDefinition(const SchemaColumn& column)
{
    static const QString day = "[0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9]";
    static const QString time = " [0-9][0-9]:[0-9][0-9]:[0-9][0-9]";
    switch (column.type) {
    case ColumnType::Text:
    case ColumnType::LongText:
        // Codes and names compare without regard to ASCII case.
        return QString("%1 text collate nocase").arg(column.name);
    case ColumnType::Day:
        return QString("%1 text check(%1 glob '%2')").arg(column.name, day);
    case ColumnType::Moment:
        // Texts order as moments do only while each moment has one form: midnight and whole seconds are cut short.
        return QString("%1 text check(%1 glob '%2' or (%1 glob '%2%3' and %1 not glob '* 00:00:00') "
                       "or (%1 glob '%2%3.[0-9][0-9][0-9]' and %1 not glob '*.000'))")
            .arg(column.name, day, time);
    case ColumnType::Number:
    case ColumnType::Money:
    case ColumnType::Integer:
        // Two comparisons: a list would cost a temporary table for each column of each insert.
        return QString("%1 %2 check(typeof(%1)<>'text' and typeof(%1)<>'blob')")
            .arg(column.name, column.type == ColumnType::Integer ? "integer" : "real");
    case ColumnType::Blob:
        return QString("%1 blob").arg(column.name);
    }
    Q_UNREACHABLE();
}

QString CreateTable(const SchemaTable& table)
{
    QStringList parts;
    for (const SchemaColumn& column : table.columns)
        parts += ColumnDefinition(column);
    if (!table.key.isEmpty())
        parts += QString("primary key(%1)").arg(table.key);
    return QString("create table %1(%2)").arg(table.name, parts.join(", "));
}

/// The newest cost of a good is the first row here, whatever its number of lines and whatever dimension limits them: a
/// condition on a column that is not here would make it sort all of them.
QString IndexOfCosts(const CostIndex& index)
{
    return QString("create index %1_cost on %1(WareCode,DateTimee,Datee,State,%2,"
                   "WareSpec,AttributeCode,PCode,Manufacturer,Brand,Auditing,MoneyName)")
        .arg(index.table, index.columns);
}

QStringList IndexesOfBill(const BillIndex& bill)
{
    const QString table = bill.table;
    QStringList statements = {
        QString("create index %1Inf_ware on %1Inf(WareCode,Datee,BillCode,UnionAmount,%2,State,DateTimee%3,MoneyRate)")
            .arg(table, bill.value, bill.cost),
        QString("create index %1Inf_bill on %1Inf(BillCode,Num)").arg(table),
        QString("create index %1_day on %1(Datee,Code)").arg(table),
    };
    // The balance of one warehouse looks the head of every line up: the heads of a warehouse lie close together.
    for (const QString& warehouse : QString(bill.warehouses).split(','))
        statements += QString("create index %1_%2 on %1(%2,Code,State)").arg(table, warehouse);
    return statements;
}
} // namespace

QStringList SqliteSchema()
{
    QStringList statements;
    for (const SchemaTable& table : Schema())
        statements += CreateTable(table);
    for (const BillIndex& bill : kBillIndexes)
        statements += IndexesOfBill(bill);
    for (const CostIndex& index : kCostIndexes)
        statements += IndexOfCosts(index);
    for (const char* index : kOtherIndexes)
        statements += index;
    return statements;
}
