#include "screen.h"

namespace {

using LineEntryTest = BillScreen;

TEST_F(LineEntryTest, AChosenGoodFillsItsRow)
{
    const std::tuple<const char*, QString, int> cases[] = {
        {"同价调拨", "A001|螺丝|M8|箱|1.00|10.00|10.00", 1},
        {"异价调拨", "A001|螺丝|M8|箱|1.00|10.00|0.00", 1},
        {"商品调价", "A001|螺丝|M8|箱|||", 6},
        {"盘点报损", "A001|螺丝|M8|箱|1.00|10.00|10.00", 1},
    };
    for (const auto& [operation, cells, cursor] : cases) {
        OpenWithLine(operation);
        QStringList row;
        for (const char* caption : {"商品编号", "商品名称", "规格", "单位", "数量", "成本价", "金额"})
            row << Cell(1, caption);
        EXPECT_EQ(row.join('|'), cells);
        EXPECT_EQ(bill.MSH.currentColumn, cursor);
        EXPECT_EQ(bill.MSH.rows(), 3);
    }
}

TEST_F(LineEntryTest, TypingFormatsFiguresAndSumsTheBill)
{
    OpenWithLine("异价调拨", {{"数量", "1,234.555"}, {"单价", "1。5"}, {"备注", " 原样 "}});
    AddLine("B001", {{"数量", "abc"}, {"单价", "2"}});
    EXPECT_EQ(Cell(1, "数量") + "|" + Cell(1, "单价") + "|" + Cell(1, "备注"), "1,234.56|1.50| 原样 ");
    EXPECT_EQ(Cell(2, "数量"), "0.00");
    EXPECT_EQ(bill.LabTotalAmount + " " + bill.LabTotalMoney, "1,234.56 1,851.84");
    GoTo(1, "数量");
    EXPECT_EQ(EditorText(bill), "1234.56");

    OpenWithLine("商品调价", {{"调价金额", "-1,000.5"}});
    EXPECT_EQ(Cell(1, "调价金额"), "-1,000.5");
    EXPECT_EQ(bill.LabTotalMoney, "-1,000.50");
}

TEST_F(LineEntryTest, WhatACellCannotHoldIsNotTyped)
{
    OpenWithLine("异价调拨", {{"数量", "12"}, {"单价", "2"}});
    const auto refuse = [this](const char* caption, const QString& text) {
        GoTo(1, caption);
        const QString before = Cell(1, caption);
        EXPECT_FALSE(TypeInCell(test.program, bill, text)) << caption;
        EXPECT_EQ(Cell(1, caption), before);
        return test.Boxes();
    };
    EXPECT_EQ(refuse("数量", "1e20"), "第 1 行 数量 超出系统所能保存的范围，请修改后再保存！");
    EXPECT_EQ(refuse("单价", "10000000000"), "第 1 行 金额 超出系统所能保存的范围，请修改后再保存！");
    EXPECT_EQ(refuse("批号", QString(51, u'字')), "第 1 行 批号 超过 50 个字，请修改后再保存！");
    EXPECT_EQ(refuse("规格", QString(256, u'字')), "第 1 行 规格 超过 255 个字，请修改后再保存！");
    Type(1, "备注", QString(5000, u'字'));
    EXPECT_EQ(Cell(1, "备注").size(), 5000);
    EXPECT_EQ(bill.LabTotalMoney, "24.00");
}

TEST_F(LineEntryTest, ASavedLayoutChangesCaptionsAndWidthsOnly)
{
    for (int column = 0; column < 30; ++column)
        test.Insert("TabPrintMSHSet", {{"TabName", "同价调拨单界面"},
                                       {"ColOrder", column},
                                       {"ColWidth", column == 8 ? 700 : 100},
                                       {"ColElseName", "列" + QString::number(column)},
                                       {"ContentAlign", 7}});
    test.Insert("TabPrintMSHSet", {{"TabName", "盘点报损单界面"}, {"ColOrder", 0}, {"ColElseName", "x"}});
    Open("同价调拨");
    EXPECT_EQ(bill.MSH.columns(), 19);
    EXPECT_EQ(bill.MSH.Cell(0, 6), "列6");
    EXPECT_EQ(bill.MSH.column(6).alignment, 7);
    EXPECT_TRUE(bill.totalMoneyShown);
    // Under its new caption a quantity stays as typed, and a code chooses nothing.
    Type(1, "数量", "2.5");
    EXPECT_EQ(Cell(1, "数量"), "2.5");
    AddLine("A001");
    EXPECT_EQ(Cell(1, "商品编号"), "");

    Open("盘点报损");
    EXPECT_EQ(bill.MSH.columns(), 19);
    EXPECT_EQ(bill.MSH.Cell(0, 0) + bill.MSH.Cell(0, 1), "x商品编号");
    EXPECT_FALSE(bill.totalMoneyShown);
}

TEST_F(LineEntryTest, EnterNeedsTheWarehousesAndThenTheGood)
{
    Open("同价调拨");
    bill.MSH.currentColumn = 1;
    bill.TxtWarehouseCodeS = "101";
    bill.TxtWarehouseNameF = bill.TxtWarehouseNameS = "";
    EXPECT_TRUE(EnterCell(test.program, bill, "A001").stopped);
    bill.TxtWarehouseNameF = "主仓";
    EXPECT_TRUE(EnterCell(test.program, bill, "A001").stopped);
    bill.TxtWarehouseNameS = "主仓";
    EXPECT_FALSE(GoodsPicker(test.program, bill, "A").has_value());
    EXPECT_EQ(test.Boxes(), "请先选择发货仓库名称！|请先选择收货仓库名称！|禁止收货仓库名称与发货仓库名称相同！");
    bill.TxtWarehouseCodeS = "102";

    const EnterOutcome outcome = EnterCell(test.program, bill, "A0");
    EXPECT_FALSE(outcome.stopped);
    ASSERT_TRUE(outcome.picker.has_value());
    EXPECT_EQ(outcome.picker->title, "选择商品");
    EXPECT_EQ(test.Run(outcome.picker->query).Text("Code"), "A001");
    EXPECT_EQ(Cell(1, "商品编号"), "");
    EXPECT_FALSE(EnterCell(test.program, bill, "Ａ００１ ").picker.has_value()) << "the width of signs does not count";
    EXPECT_EQ(Cell(1, "商品编号"), "A001");

    bill.MSH.currentColumn = 2;
    for (const char* text : {"螺丝", "LS"}) {
        EXPECT_FALSE(EnterCell(test.program, bill, text).picker.has_value());
        EXPECT_EQ(Cell(1, "商品编号"), "A001");
    }
    EXPECT_FALSE(EnterCell(test.program, bill, "O'Neil").picker.has_value());
    EXPECT_EQ(Cell(1, "商品编号"), "B001");
}

TEST_F(LineEntryTest, TheDropListSearchesCodeByBeginningAndTheRestAnywhere)
{
    for (const auto& [text, found] :
         {std::pair("A0", 1), {"001", 0}, {"丝", 1}, {"8", 1}, {"S", 1}, {"'N", 1}, {"", 2}})
        EXPECT_EQ(test.Run(DropListQuery(text)).size(), found) << text;
    Open("盘点报溢");
    Type(1, "商品编号", "A");
    Type(1, "商品编号", "A0");
    EXPECT_EQ(bill.MSH.rows(), 3) << "one blank row behind the typed one";
}

TEST_F(LineEntryTest, AttributesComeFromTheGroupOfTheGood)
{
    OpenWithLine("盘点报溢");
    GoTo(1, "属性");
    const std::optional<PickerNeeded> picker = AttributeStep(test.program, bill);
    ASSERT_TRUE(picker.has_value());
    EXPECT_EQ(test.Run(Sql("select * from TabAttribute ") + picker->query).size(), 2);

    AddLine("B001");
    GoTo(2, "属性");
    EXPECT_FALSE(AttributeStep(test.program, bill).has_value());
    EXPECT_TRUE(test.prompt.boxes.empty());
    bill.MSH.SetCell(2, 4, "0102>红");
    test.prompt.answers = {false, true};
    AttributeStep(test.program, bill);
    EXPECT_EQ(Cell(2, "属性"), "0102>红");
    AttributeStep(test.program, bill);
    EXPECT_EQ(Cell(2, "属性"), "");
}

TEST_F(LineEntryTest, RowsAreInsertedAndDeleted)
{
    OpenWithLine("盘点报溢", {{"数量", "2"}});
    AddLine("B001");
    bill.MSH.currentRow = 3;
    InsertGridRow(test.program, bill);
    DeleteGridRow(test.program, bill);
    EXPECT_EQ(test.Boxes(), "请选择正确的位置！|请选择正确的位置！");
    bill.MSH.currentRow = 1;
    InsertGridRow(test.program, bill);
    EXPECT_EQ(Cell(1, "商品编号") + Cell(2, "商品编号") + Cell(3, "商品编号"), "A001B001");
    bill.MSH.currentRow = 2;
    DeleteGridRow(test.program, bill);
    EXPECT_EQ(bill.LabTotalAmount, "3.00");
    test.prompt.answers = {true};
    DeleteGridRow(test.program, bill);
    EXPECT_EQ(test.prompt.TakeTexts().last(), "确定删除第2行吗？（删除掉将不可恢复）");
    EXPECT_EQ(bill.LabTotalAmount, "1.00");
    EXPECT_EQ(bill.MSH.rows(), 4);
}

TEST_F(LineEntryTest, ScanningAddsLines)
{
    Open("盘点报溢");
    EXPECT_EQ(PosInPrice(test.program, bill, "A001"), 10);
    EXPECT_TRUE(PosInBill(test.program, bill, "A001", 3, 7.5));
    EXPECT_TRUE(PosInBill(test.program, bill, "unknown", 3, 0));
    EXPECT_FALSE(PosInBill(test.program, bill, "A001", 1e14, 0));
    EXPECT_EQ(test.Boxes(), "第 2 行 数量 超出系统所能保存的范围，请修改后再保存！");
    EXPECT_EQ(bill.MSH.rows(), 3);
    EXPECT_EQ(Cell(1, "数量") + "|" + Cell(1, "成本价") + "|" + Cell(1, "金额"), "3.00|10.00|30.00");
    bill.TxtWarehouseCodeF.clear();
    bill.TxtWarehouseCodeS.clear();
    EXPECT_FALSE(PosInPrice(test.program, bill, "A001").has_value());

    Open("商品调价");
    EXPECT_FALSE(PosInPrice(test.program, bill, "A001").has_value());
    PosInBill(test.program, bill, "A001", 3, 0);
    EXPECT_EQ(bill.MSH.Cell(1, 0), "3.00");

    Open("异价调拨");
    PosInBill(test.program, bill, "A001", 3, 7.5);
    EXPECT_EQ(Cell(1, "单价") + "|" + Cell(1, "成本价") + "|" + Cell(1, "金额"), "7.50|10.00|22.50");
    EXPECT_EQ(Save(), QStringList("保存成功！"));
    EXPECT_EQ(Rows("select Price,Moneyy,MoneyBanlance from TabDiffPriceMoveInf"), QStringList("7.5|22.5|-7.5"));
}

TEST_F(LineEntryTest, HeadBoxesLookUpByTheBeginning)
{
    test.Insert("TabStuff", {{"Code", "01"}, {"Name", "老王"}});
    Open("同价调拨");
    bill.TxtWarehouseNameF = "分";
    EXPECT_FALSE(LookUpWarehouse(test.program, bill, WarehouseField::F).has_value());
    EXPECT_EQ(bill.TxtWarehouseCodeF + bill.TxtWarehouseNameF, "102分仓");
    bill.TxtWarehouseNameS = "1";
    const std::optional<PickerNeeded> picker = LookUpWarehouse(test.program, bill, WarehouseField::S);
    ASSERT_TRUE(picker.has_value());
    EXPECT_EQ(picker->title, "收货仓库");
    EXPECT_EQ(bill.TxtWarehouseCodeS + bill.TxtWarehouseNameS, "");
    EXPECT_FALSE(LookUpWarehouse(test.program, bill, WarehouseField::S).has_value());
    bill.TxtSaleMan = "01";
    EXPECT_FALSE(LookUpStaff(test.program, bill).has_value());
    EXPECT_EQ(bill.TxtSaleMan, "老王");
    bill.TxtSaleMan = "x";
    EXPECT_TRUE(LookUpStaff(test.program, bill).has_value());
}

} // namespace
