#pragma once

// Rows of bills for the engine's tests, kept in memory beside the account set that they are written to.

#include "data/dimensions.h"
#include "data/schema.h"
#include "support/test_program.h"

#include <algorithm>
#include <gtest/gtest.h>

/// A bill's head or one of its lines, with every column that the engine reads or rewrites.
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
            {"Moneyy_Discount", row.Moneyy_Discount},
            {"Moneyy", row.Moneyy},
            {"SumMoney", row.SumMoney},
            {"MoneyBanlance", row.MoneyBanlance},
            {"Cost", row.Cost},
            {"AveragePrice", row.AveragePrice},
            {"lastAveragePrice", row.lastAveragePrice}};
}

/// Writes a row with the fields that its table has.
inline void InsertKnownFields(TestProgram& test, const QString& table, const std::vector<Field>& fields)
{
    const SchemaTable* const schema = FindTable(table);
    ASSERT_NE(schema, nullptr) << table.toStdString();
    std::vector<Value> values;
    for (const SchemaColumn& column : schema->columns) {
        const auto field = std::ranges::find_if(fields, [&](const Field& f) { return column.name == f.column; });
        if (field != fields.end())
            values.push_back(field->value);
        else if (column.type == ColumnType::Text || column.type == ColumnType::LongText)
            values.push_back(QString(""));
        else if (column.type == ColumnType::Day || column.type == ColumnType::Moment)
            values.push_back(kNoDate);
        else
            values.push_back(qint64(0));
    }
    test.Run(InsertInto(Name(table), values));
}

inline void InsertRow(TestProgram& test, const BillRow& row)
{
    InsertKnownFields(test, row.table, FieldsOf(row));
}

/// Goods of every costing method and two warehouses.
inline void InsertBaseData(TestProgram& test)
{
    const struct
    {
        const char* code;
        const char* costStyle;
        const char* tracked;
    } wares[] = {{"moving", "移动加权平均法", "是"},
                 {"period", "加权平均法", "是"},
                 {"fixed", "个别指定法", "是"},
                 {"other", "", "是"},
                 {"service", "移动加权平均法", "否"}};
    for (const auto& ware : wares)
        test.Insert("TabWare", {{"Code", ware.code},
                                {"CostStyle", ware.costStyle},
                                {"AmountQueryYN", ware.tracked},
                                {"AveragePrice", 7.125}});
    test.Insert("TabWarehouseType", {{"Code", "01"}});
    test.Insert("TabWarehouseType", {{"Code", "02"}});
    test.Insert("TabOutInType", {{"Name", "盘盈"}, {"CalCostYN", "是"}});
    test.Insert("TabOutInType", {{"Name", "借入"}, {"CalCostYN", "否"}});
}

inline QDate Day(int month, int day)
{
    return {2023, month, day};
}
