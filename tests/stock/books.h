#pragma once

// Rows of bills for the engine's tests, kept in memory beside the account set that they are written to.

#include "data/dimensions.h"
#include "data/schema.h"
#include "support/test_program.h"

#include <algorithm>
#include <gtest/gtest.h>

/// A bill's head or one of its lines, or a row of a close, with every column that the engine reads or rewrites.
struct BillRow
{
    QString table{};
    int head = -1;  // position of its head; a head has none
    QString code{}; // of the bill
    int num = 0;
    QDate day{};
    Moment moment{};
    QString state = "正常";
    QString auditing{};
    QString ware{};
    Dimensions dimensions{};
    QString moneyName{};
    double rate = 1;
    QString warehouse{};        // the only one, or the giving one
    QString warehouseArrival{}; // the receiving one
    QString inType{};
    double UnionAmount = 0;
    double Moneyy_Discount = 0;
    double Moneyy = 0;
    double SumMoney = 0;
    double MoneyBanlance = 0;
    double Cost = 0;
    double AveragePrice = 0;
    double lastAveragePrice = 0;
};

inline std::vector<Field> FieldsOf(const BillRow& row)
{
    return {{"Code", row.code},
            {"BillCode", row.code},
            {"Num", row.num},
            {"Datee", row.day},
            {"DateTimee", row.moment},
            {"State", row.state},
            {"Auditing", row.auditing},
            {"WareCode", row.ware},
            {"AttributeCode", row.dimensions.AttributeCode},
            {"WareSpec", row.dimensions.WareSpec},
            {"Manufacturer", row.dimensions.Manufacturer},
            {"Brand", row.dimensions.Brand},
            {"PCode", row.dimensions.PCode},
            {"MoneyName", row.moneyName},
            {"MoneyRate", row.rate},
            {"WarehouseCode", row.warehouse},
            {"WarehouseCodeF", row.warehouse},
            {"WarehouseCodeS", row.warehouseArrival},
            {"InType", row.inType},
            {"UnionAmount", row.UnionAmount},
            {"Amount", row.UnionAmount},
            {"Moneyy_Discount", row.Moneyy_Discount},
            {"Moneyy", row.Moneyy},
            {"SumMoney", row.SumMoney},
            {"MoneyBanlance", row.MoneyBanlance},
            {"Cost", row.Cost},
            {"AveragePrice", row.AveragePrice},
            {"lastAveragePrice", row.lastAveragePrice}};
}

inline bool HasColumn(const QString& table, const char* column)
{
    return std::ranges::any_of(FindTable(table)->columns, [=](const SchemaColumn& c) { return c.name == column; });
}

/// Writes a row with the columns that its table has.
inline void InsertRow(TestProgram& test, const BillRow& row)
{
    Sql columns;
    Sql values;
    for (const Field& field : FieldsOf(row)) {
        if (!HasColumn(row.table, field.column))
            continue;
        const char* const separator = columns.isEmpty() ? "" : ",";
        columns = columns + separator + Name(field.column);
        values = values + separator + field.value;
    }
    test.Run(Sql("insert into ") + Name(row.table) + "(" + columns + ") values(" + values + ")");
}

/// A bill of one line: the line, and its head without a good.
inline void InsertBill(TestProgram& test, const QString& headTable, BillRow line)
{
    line.table = headTable + "Inf";
    InsertRow(test, line);
    line.table = headTable;
    line.ware.clear();
    InsertRow(test, line);
}

/// Goods of every costing method and two warehouses.
inline void InsertBaseData(TestProgram& test)
{
    const std::tuple<const char*, const char*, const char*> wares[] = {{"moving", "移动加权平均法", "是"},
                                                                       {"period", "加权平均法", "是"},
                                                                       {"fixed", "个别指定法", "是"},
                                                                       {"other", "", "是"},
                                                                       {"service", "移动加权平均法", "否"}};
    for (const auto& [code, style, tracked] : wares)
        test.Insert("TabWare",
                    {{"Code", code}, {"CostStyle", style}, {"AmountQueryYN", tracked}, {"AveragePrice", 7.125}});
    for (const char* code : {"01", "02"})
        test.Insert("TabWarehouseType", {{"Code", code}});
    test.Insert("TabOutInType", {{"Name", "盘盈"}, {"CalCostYN", "是"}});
    test.Insert("TabOutInType", {{"Name", "借入"}, {"CalCostYN", "否"}});
}

inline QDate Day(int month, int day)
{
    return {2023, month, day};
}
