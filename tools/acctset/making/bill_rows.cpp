#include "making/trade.h"

#include <unordered_map>

struct BillRows::Source
{
    const Bill& bill;
    const TradeLine& line;
    int num;
    const std::vector<Warehouse>& warehouses;
};

BillRows::Filler BillRows::FillerOf(const SchemaColumn& column)
{
    using S = const Source&;
    static const std::unordered_map<QString, Filler> fillers = {
        {"Num", [](S s) -> Value { return qint64(s.num); }},
        {"Datee", [](S s) -> Value { return s.line.moment.day; }},
        {"DateTimee", [](S s) -> Value { return s.line.moment; }},
        {"Code", [](S s) -> Value { return s.bill.code; }},
        {"BillCode", [](S s) -> Value { return s.bill.code; }},
        {"WarehouseCode", [](S s) -> Value { return s.warehouses[s.bill.from].code; }},
        {"WarehouseName", [](S s) -> Value { return s.warehouses[s.bill.from].name; }},
        {"WarehouseCodeF", [](S s) -> Value { return s.warehouses[s.bill.from].code; }},
        {"WarehouseNameF", [](S s) -> Value { return s.warehouses[s.bill.from].name; }},
        {"WarehouseCodeS", [](S s) -> Value { return s.warehouses[s.bill.to].code; }},
        {"WarehouseNameS", [](S s) -> Value { return s.warehouses[s.bill.to].name; }},
        {"ClientCode", [](S s) -> Value { return s.bill.partnerCode; }},
        {"ClientName", [](S s) -> Value { return s.bill.partnerName; }},
        {"InType", [](S s) -> Value { return s.bill.kindWord; }},
        {"OutType", [](S s) -> Value { return s.bill.kindWord; }},
        {"BillType", [](S s) -> Value { return QString(s.bill.form->billType); }},
        {"State", [](S s) -> Value { return s.bill.state; }},
        {"Operator", [](S s) -> Value { return s.bill.operatorName; }},
        {"SaleMan", [](S s) -> Value { return s.bill.saleMan; }},
        {"Auditing", [](S s) -> Value { return s.bill.auditor; }},
        {"Explain", [](S s) -> Value { return s.bill.explain; }},
        {"Remark", [](S s) -> Value { return s.line.remark; }},
        {"SumMoney", [](S s) -> Value { return s.bill.sumMoney; }},
        {"Fee", [](S s) -> Value { return s.bill.fee; }},
        {"MoneyName", [](S s) -> Value { return s.bill.moneyName; }},
        {"MoneyRate", [](S s) -> Value { return s.bill.moneyRate; }},
        {"WareCode", [](S s) -> Value { return s.line.good->code; }},
        {"WareName", [](S s) -> Value { return s.line.good->name; }},
        {"WareSpec", [](S s) -> Value { return s.line.good->spec; }},
        {"Manufacturer", [](S s) -> Value { return s.line.good->manufacturer; }},
        {"Brand", [](S s) -> Value { return s.line.good->brand; }},
        {"Unite", [](S s) -> Value { return s.line.unit; }},
        {"Amount", [](S s) -> Value { return s.line.amount; }},
        {"UnionAmount", [](S s) -> Value { return s.line.unionAmount; }},
        {"StockInAmount", [](S s) -> Value { return s.line.stockIn; }},
        {"Price", [](S s) -> Value { return s.line.price; }},
        {"Moneyy", [](S s) -> Value { return s.line.money; }},
        {"Moneyy_Discount", [](S s) -> Value { return s.line.discounted; }},
        {"Cost", [](S s) -> Value { return s.line.cost; }},
        {"AveragePrice", [](S s) -> Value { return s.line.averagePrice; }},
        {"lastAveragePrice", [](S s) -> Value { return s.line.costAfter; }},
        {"MoneyBanlance", [](S s) -> Value { return s.line.difference; }},
        {"AttributeCode", [](S s) -> Value { return s.line.lot->attributeCode; }},
        {"AttributeName", [](S s) -> Value { return s.line.lot->attributeName; }},
        {"PCode", [](S s) -> Value { return s.line.lot->batch; }},
        {"SCDate", [](S s) -> Value { return s.line.lot->madeOn; }},
        {"YXDate", [](S s) -> Value { return s.line.lot->bestBefore; }},
    };
    const auto found = fillers.find(column.name);
    return found != fillers.end() ? found->second : [](S) -> Value { return QString(""); };
}

std::vector<Value> BillRows::Row(const char* table, const Bill& bill, const TradeLine& line, int num,
                                 const std::vector<Warehouse>& warehouses)
{
    std::vector<Filler>& fillers = m_fillers[table];
    if (fillers.empty()) {
        for (const SchemaColumn& column : FindTable(table)->columns)
            fillers.push_back(FillerOf(column));
    }
    const Source source{bill, line, num, warehouses};
    std::vector<Value> row;
    row.reserve(fillers.size());
    for (const Filler filler : fillers)
        row.push_back(filler(source));
    return row;
}
