#include "bills/life/recall.h"
#include "bills/saving/validation.h"
#include "screen.h"

#include <functional>

namespace {

struct ValidationTest : BillScreen
{
    /// The boxes of the chain; none when it passes.
    QStringList Check()
    {
        const bool passed = CheckBill(test.program, bill);
        QStringList boxes = test.prompt.TakeTexts();
        EXPECT_EQ(passed, boxes.isEmpty());
        return boxes;
    }
};

TEST_F(ValidationTest, TheChainRefusesOneThingAfterAnother)
{
    test.program.parameters.UserName = "小李";
    test.program.parameters.IsLotMoney = true;
    test.Insert("TabTurnDay", {{"Datee", QDate(2023, 2, 8)}});
    test.Insert("TabSysSet", {{"IsZero", 0}});
    Open("同价调拨");
    bill.TxtWarehouseNameF.clear();
    bill.TxtWarehouseNameS.clear();
    bill.TxtMoneyRate = "0";
    AddLine("A001", {{"数量", "0"}, {"生产日期", "昨天"}, {"有效日期", "2023-02-30"}, {"唯一码", "U1"}});
    Type(1, "商品名称", "手写");
    bill.MSH.SetCell(1, 1, "nothing");

    const QString badWarehouse = "仓库名称不正确（原因：名称不存在或不是处于最末级），请重新选择！";
    const QString badDate = " 输入格式不正确！\r\n请输入完整的日期格式（YYYY-MM-DD）后再保存！";
    const auto cell = [&](const char* text) {
        return [this, text] { bill.MSH.SetCell(1, bill.MSH.currentColumn, text); };
    };
    const std::pair<QString, std::function<void()>> steps[] = {
        {"没有操作权限！",
         [&] {
             test.Insert("TabOperateRight", {{"UserName", "小李"}, {"FunctionName", "同价调拨"}, {"AllowEdit", 1}});
         }},
        {"今天已结转，禁止当前操作！", [&] { bill.DTPDate = QDate(2023, 2, 9); }},
        {"发货仓库不能为空！",
         [&] {
             bill.TxtWarehouseNameF = "总库";
             bill.TxtWarehouseCodeF.clear();
         }},
        {"发货" + badWarehouse, [&] { bill.TxtWarehouseNameF = "主仓"; }},
        {"收货仓库不能为空！",
         [&] {
             bill.TxtWarehouseNameS = "不管叫什么";
             bill.TxtWarehouseCodeS = "1";
         }},
        {"收货" + badWarehouse, [&] { bill.TxtWarehouseCodeS = "102"; }},
        {"请选择币种！", [&] { bill.TxtMoneyName = "人民币"; }},
        {"汇率不能为0，如果是本位币，则汇率填写1", [&] { bill.TxtMoneyRate = "1"; }},
        {"第 1 行 商品编号为  nothing   的商品对应数量为0，请录入数量或删除掉该行之后再保存！",
         [&] { bill.MSH.SetCell(1, 6, "200"); }},
        {"第 1 行商品编号为 nothing  的商品信息在商品信息表在不存，请先从商品信息录入界面录入好商品信息后再开单！或者"
         "双击商品编号列所在行选择商品信息。",
         [&] { bill.MSH.SetCell(1, 1, " a001 "); }},
        {"第 1 行 生产日期" + badDate, cell("2023/2/3")},
        {"第 1 行 有效日期" + badDate, cell("2023-02-28")},
        {"第 1 行输入的  唯一码  在系统中不存在，不能输入系统中不存在的唯一码！\r\n请修改保证其在系统中存在后再保存！",
         cell("")},
    };
    for (const auto& [box, cure] : steps) {
        EXPECT_EQ(Check(), QStringList(box));
        cure();
    }
    EXPECT_EQ(Check(), QStringList({"库存数量不足！截至 2023-02-09 时，主仓 "
                                    "中库存量为100，因此最多只能开出 100，请调整！",
                                    "请检查列表中第  1 行！"}));
    EXPECT_EQ(bill.TxtBillCode, "");
    bill.MSH.SetCell(1, 6, "100");
    EXPECT_EQ(Check(), QStringList());
    // What the chain leaves on the screen.
    EXPECT_EQ(bill.TxtWarehouseCodeF + bill.TxtWarehouseNameS + Cell(1, "商品名称"), "101分仓螺丝");
    EXPECT_EQ(bill.TxtDate + " " + bill.TxtBillCode, "2023-02-09 TDD202302080001");

    bill.BillSavedFlag = true;
    bill.TxtBillCode = " ";
    EXPECT_EQ(Check(), QStringList("单据编号不能为空！"));
}

TEST_F(ValidationTest, AFigureWithoutAGoodIsNamed)
{
    const std::tuple<const char*, const char*, int> cases[] = {
        {"盘点报损", "数量", 2}, {"异价调拨", "数量", 1}, {"商品调价", "调价金额", 2}};
    for (const auto& [operation, caption, row] : cases) {
        OpenWithLine(operation, {{caption, "3"}});
        bill.MSH.AddRow();
        Type(row, caption, "4");
        if (row == 1) // the good was taken out of a line
            for (const char* column : {"商品编号", "商品名称"})
                bill.MSH.SetCell(row, ColumnIndex(*bill.kind, QString(column)), {});
        EXPECT_EQ(Check(), QStringList("第 " + QString::number(row) + " 行 录入了" + caption +
                                       "但没有商品，请选择商品或清空该行之后再保存！"));
    }
}

TEST_F(ValidationTest, TheCurrencyBoxesHaveASecondKey)
{
    test.program.parameters.IsLotMoney = true;
    for (const char* currency : {"", "人民币"}) {
        bill.TxtMoneyName = currency;
        bill.TxtMoneyRate = "0";
        EXPECT_FALSE(CheckCurrency(test.program, bill));
        EXPECT_EQ(test.prompt.boxes.back().kind, "cancel");
    }
}

TEST_F(ValidationTest, TheOnlyWarehouseIsNamedByTheKind)
{
    for (const QString operation : {"商品调价", "盘点报损", "盘点报溢"}) {
        const QString word = operation.right(2) + "仓库";
        Open(operation.toUtf8());
        bill.TxtWarehouseNameF.clear(); // hidden, not asked for
        bill.TxtWarehouseNameS = " ";
        EXPECT_EQ(Check(), QStringList(word + "不能为空！"));
        bill.TxtWarehouseNameS = bill.TxtWarehouseCodeS = "x";
        EXPECT_EQ(Check(), QStringList(word + "名称不正确（原因：名称不存在或不是处于最末级），请重新选择！"));
        bill.TxtWarehouseCodeS = "102";
        EXPECT_EQ(Check(), QStringList()) << "a bill without lines passes";
    }
}

TEST_F(ValidationTest, ARewrittenTransferCountsItsOwnSavedLinesAgainstItself)
{
    test.Insert("TabSysSet", {{"IsZero", 0}});
    OpenWithLine("同价调拨", {{"数量", "40"}});
    EXPECT_EQ(Save(), QStringList("保存成功！"));
    const auto refused = [](const char* stock) {
        return "库存数量不足！截至 2023-02-08 时，主仓 中库存量为" + QString(stock) + "，因此最多只能开出 " +
               (QString(stock).startsWith('-') ? "0" : stock) + "，请调整！";
    };
    // 100 less the saved 40 that left, less the same 40 once more.
    bill.MSH.SetCell(1, 6, "20.0000001");
    EXPECT_EQ(Check().value(0), refused("20"));
    bill.MSH.SetCell(1, 6, "20.00000001");
    EXPECT_EQ(Check(), QStringList());

    test.Insert("TabWarehouseTurn", {{"Num", 1}, {"WareCode", "A001"}, {"WarehouseCode", "101"}, {"Amount", -50.0}});
    bill.MSH.SetCell(1, 6, "1");
    EXPECT_EQ(Check().value(0), refused("-30"));
    test.Run(Sql("update TabSysSet set IsZero=1"));
    EXPECT_EQ(Check(), QStringList());
}

TEST_F(ValidationTest, APieceMustHaveComeInAndNotGoneOut)
{
    const std::tuple<const char*, const char*, Field, bool> pieces[] = {
        {"TabInBillInf", "A001", {"State", "正常"}, true},
        {"TabInBillInf", "A001", {"State", "作废"}, false},
        {"TabElseInBillInf", "A001", {"State", "正常"}, true},
        {"TabOutCancleBillInf", "A001", {"State", "正常"}, true},
        {"TabWareGroup", "A001", {"State", "正常"}, true},
        {"TabWarePieceInf", "A001", {"State", "正常"}, true},
        {"TabCheckOverInf", "A001", {"BillCode", "BYD1"}, true},
        {"TabWarehouseTurn", "A001", {"Num", 2}, true},
        {"TabInBillInf", "B001", {"State", "正常"}, false},
    };
    for (const auto& [table, ware, mark, known] : pieces) {
        SCOPED_TRACE(table);
        test.Insert(table, {{"OnlyCode", "U'1"}, {"WareCode", ware}, mark});
        for (const char* operation : {"盘点报损", "盘点报溢"}) {
            OpenWithLine(operation, {{"唯一码", "U'1"}});
            const QString box = Check().value(0);
            EXPECT_TRUE(known ? box.isEmpty() : box.contains("在系统中不存在")) << box.toStdString();
        }
        test.Run(Sql("delete from ") + Name(table));
    }

    test.Insert("TabInBillInf", {{"WareCode", "A001"}, {"OnlyCode", "U1"}, {"State", "正常"}});
    OpenWithLine("盘点报损", {{"唯一码", "U1"}});
    Save();
    EXPECT_EQ(Check(), QStringList()) << "its own row";
    NewBill(test.program, bill);
    bill.TxtWarehouseNameS = "分仓";
    AddLine("A001", {{"唯一码", "U1"}});
    EXPECT_TRUE(Check().value(0).contains("曾经已出库"));
    EXPECT_EQ(bill.MSH.currentColumn, ColumnIndex(*bill.kind, u"唯一码"));
}

TEST_F(ValidationTest, FiguresBeyondMoneyAreRefused)
{
    const auto beyond = [](const char* what) { return QString(what) + " 超出系统所能保存的范围，请修改后再保存！"; };
    const auto put = [this](int row, const char* caption, const char* text) {
        bill.MSH.SetCell(row, ColumnIndex(*bill.kind, QString(caption)), text);
    };
    OpenWithLine("异价调拨");
    AddLine("A001");
    // A cell, the money of a row at its price and at its cost, and the sums.
    const std::tuple<const char*, const char*, const char*, QString> cases[] = {
        {"1e20", "1", "1", beyond("第 2 行 数量")},
        {"1e13", "0", "0", beyond("第 2 行 数量")},
        {"9e12", "0", "0", beyond("合计数量")},
        {"1e6", "1e6", "1", beyond("第 2 行 金额")},
        {"1e6", "1", "1e6", beyond("第 2 行 金额")},
        {"60000000000", "1", "0", "合计金额超出系统所能保存的范围，请修改后再保存！"},
    };
    for (const auto& [amount, price, cost, box] : cases) {
        put(1, "数量", *amount == '1' ? "1" : amount);
        put(1, "单价", price);
        put(1, "成本价", "0");
        put(2, "数量", amount);
        put(2, "单价", price);
        put(2, "成本价", cost);
        for (const int row : {1, 2})
            RecalcRowAmount(test.program, bill, row);
        EXPECT_EQ(Check().join('|'), box);
    }

    // The grid does not show the cost that is stored: the save finds out, and takes everything back.
    bill.MSH.RemoveRow(2);
    put(1, "单价", "0");
    test.Run(Sql("update TabWarehouseTurn set AveragePrice=10000"));
    EXPECT_EQ(Save().size(), 1);
    EXPECT_FALSE(posting.stored);
    EXPECT_EQ(Rows("select Code from TabDiffPriceMove"), QStringList());

    OpenWithLine("商品调价");
    put(1, "调价金额", "-1e15");
    EXPECT_EQ(Check().join('|'), beyond("第 1 行 调价金额"));
}

} // namespace
