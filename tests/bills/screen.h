#pragma once

// A bill's screen on a small account set: two goods, two warehouses under a main one, opening stock, two places.

#include "bills/head_fields.h"
#include "bills/life/lifecycle.h"
#include "bills/life/neighbours.h"
#include "bills/lines/line_columns.h"
#include "bills/lines/line_entry.h"
#include "bills/lines/line_totals.h"
#include "bills/saving/save.h"
#include "data/decimals.h"
#include "support/test_program.h"

#include <gtest/gtest.h>

template <typename Bill>
class ScreenOf : public testing::Test
{
protected:
    explicit ScreenOf(const QString& databaseType = "Access") : test(databaseType)
    {
        for (const auto& [code, name, main] :
             {std::tuple("1", "总库", "0"), {"101", "主仓", "1"}, {"102", "分仓", "1"}})
            test.Insert("TabWarehouseType", {{"Code", code}, {"Name", name}, {"ParentCode", main}});
        test.Insert("TabWare", {{"Code", "A001"},
                                {"Name", "螺丝"},
                                {"Spec", "M8"},
                                {"Unite", "箱"},
                                {"SecondUnite", "个"},
                                {"UniteRelation", 8.0},
                                {"ZJF", "LS"},
                                {"AttributeCode", "01"},
                                {"CostStyle", "移动加权平均法"},
                                {"AmountQueryYN", "是"}});
        test.Insert("TabWare", {{"Code", "B001"}, {"Name", "O'Neil"}, {"Unite", "件"}, {"AmountQueryYN", "是"}});
        test.Insert("TabWarehouseTurn", {{"Num", 1},
                                         {"WareCode", "A001"},
                                         {"WarehouseCode", "101"},
                                         {"Amount", 100.0},
                                         {"Cost", 1000.0},
                                         {"AveragePrice", 10.0},
                                         {"WareSpec", "M8"}});
        test.Insert("TabAttribute", {{"Code", "01"}, {"Name", "颜色"}, {"ParentCode", "0"}});
        test.Insert("TabAttribute", {{"Code", "0102"}, {"Name", "红"}, {"ParentCode", "01"}});
        for (const char* kind : {"单价型", "数值型", "金额型"})
            test.Insert("TabDotSet", {{"Name", kind}, {"Num", 2}});
        LoadDecimalPlaces(test.program);
    }

    void ChooseWarehouses()
    {
        bill.TxtWarehouseCodeF = "101";
        bill.TxtWarehouseNameF = "主仓";
        bill.TxtWarehouseCodeS = "102";
        bill.TxtWarehouseNameS = "分仓";
    }

    void GoTo(int row, const QString& caption)
    {
        bill.MSH.currentRow = row;
        bill.MSH.currentColumn = ColumnIndex(*bill.kind, caption);
    }
    void Type(int row, const QString& caption, const QString& text)
    {
        GoTo(row, caption);
        TypeInCell(test.program, bill, text);
    }

    using Cells = std::initializer_list<std::pair<const char*, const char*>>;
    /// Chooses a good in the blank row and types its cells.
    void AddLine(const QString& code, Cells cells = {})
    {
        const int row = bill.MSH.lastRow();
        GoTo(row, "商品编号");
        ChooseGood(test.program, bill, code);
        for (const auto& [caption, text] : cells)
            Type(row, caption, text);
    }

    QString Cell(int row, const QString& caption) { return bill.MSH.Cell(row, ColumnIndex(*bill.kind, caption)); }

    /// Saves and gives the boxes.
    QStringList Save()
    {
        posting = FSave(test.program, bill);
        return test.prompt.TakeTexts();
    }

    QStringList Rows(const QByteArray& statement) { return test.Rows(Sql(statement.constData())); }

    TestProgram test;
    Bill bill;
    Posting posting;
};

class BillScreen : public ScreenOf<BillText>
{
protected:
    using ScreenOf::ScreenOf;

    /// A blank bill of a kind with its warehouses chosen.
    void Open(const char* operation)
    {
        test.program.parameters.OperateType = operation;
        bill = {};
        LoadWindow(test.program, bill);
        frm_Initialize(test.program, bill, false);
        ChooseWarehouses();
    }
    /// The same with a line.
    void OpenWithLine(const char* operation, Cells cells = {})
    {
        Open(operation);
        AddLine("A001", cells);
    }
};
