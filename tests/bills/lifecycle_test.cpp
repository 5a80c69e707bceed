#include "bills/life/audit.h"
#include "bills/life/bill_content.h"
#include "bills/life/recall.h"
#include "screen.h"

namespace {

struct LifecycleTest : BillScreen
{
    /// The keys that are enabled.
    QString Keys() const
    {
        const std::pair<Command, const char*> names[] = {
            {Command::Save, "保存"},      {Command::Audit, "审核"},     {Command::UnAudit, "反审核"},
            {Command::Delete, "删除"},    {Command::Void, "作废"},      {Command::Print, "打印"},
            {Command::InsertRow, "插入"}, {Command::DeleteRow, "删行"},
        };
        QStringList keys;
        for (const auto& [command, name] : names)
            if (bill.isEnabled(command))
                keys << name;
        return keys.join(' ');
    }
    void SaveAndRecall()
    {
        Save();
        FillBill(test.program, bill, bill.kind->headTable, posting.code);
        test.prompt.TakeTexts();
    }
    QStringList Void()
    {
        VoidBill(test.program, bill);
        return test.prompt.TakeTexts();
    }
};

TEST_F(LifecycleTest, AStateLocksWhatItForbids)
{
    OpenWithLine("同价调拨");
    EXPECT_EQ(Keys(), "保存 审核 反审核 删除 作废 插入 删行");
    AuditBill(test.program, bill);
    UnAuditBill(test.program, bill);
    VoidBill(test.program, bill);
    FDelete(test.program, bill);
    EXPECT_EQ(test.Boxes(), "请先保存单据后再审核！|未审核单据，禁止反审核！|本单据开单日期不详，系统禁止作废！|"
                            "单据编号不存在，禁止当前操作！");
    SaveAndRecall();
    const QString allKeys = "保存 审核 反审核 删除 作废 打印 插入 删行";
    EXPECT_EQ(Keys(), allKeys);

    AuditBill(test.program, bill);
    EXPECT_EQ(Keys(), "反审核 打印");
    EXPECT_FALSE(bill.entryEnabled);
    UnAuditBill(test.program, bill);
    EXPECT_EQ(Keys(), allKeys);
    EXPECT_EQ(Rows("select Auditing from TabSamePriceMoveInf"), QStringList(""));

    test.prompt.answers = {true};
    AuditBill(test.program, bill);
    EXPECT_EQ(Void(), QStringList({"确定作废该单据吗？", "作废成功！"}));
    EXPECT_EQ(Keys(), "删除 打印");
    EXPECT_EQ(bill.LabState, "作废");
    EXPECT_EQ(Rows("select TabSamePriceMove.State,TabSamePriceMoveInf.State from TabSamePriceMove,TabSamePriceMoveInf"),
              QStringList("作废|作废"));

    test.Insert("TabTurn", {{"Datee", QDate(2023, 2, 8)}});
    FillBill(test.program, bill, "TabSamePriceMove", posting.code);
    EXPECT_EQ(Keys(), "打印");
    FDelete(test.program, bill);
    EXPECT_EQ(test.Boxes(), "今天已结转，禁止当前操作！");
}

TEST_F(LifecycleTest, VoidingRespectsClosingsAndVouchers)
{
    OpenWithLine("盘点报损");
    SaveAndRecall();
    test.Insert("TabTurn", {{"Datee", QDate(2023, 2, 8)}});
    EXPECT_EQ(Void(), QStringList("最后一次结转日期为2023-02-08，本单据开单位于最后一结转日期之前，系统禁止作废！"));
    test.Run(Sql("delete from TabTurn"));

    test.Insert("TabWarrant", {{"Code", "PZD1"}, {"JXCBillCode", posting.code}, {"State", "已登账"}});
    test.Insert("TabWarrantInf", {{"BillCode", "PZD1"}});
    EXPECT_EQ(Void(), QStringList("该张单据已经登账，禁止作废！"));
    test.Run(Sql("update TabWarrant set State='未审核'"));
    EXPECT_EQ(Void(), QStringList("确定作废该单据吗？"));
    EXPECT_EQ(Rows("select Code from TabWarrant").size(), 1) << "the question was answered with no";
    // Another user has deleted the bill: its voucher goes all the same, and that of no bill stays.
    test.Insert("TabWarrant", {{"Code", "PZD2"}, {"State", "未审核"}});
    test.Run(Sql("delete from TabCheckLose"));
    test.prompt.answers = {true};
    EXPECT_EQ(Void(), QStringList({"确定作废该单据吗？", "单编号不存在，作废失败！"}));
    bill.TxtBillCode.clear();
    EXPECT_EQ(Void(), QStringList("本单据开单日期不详，系统禁止作废！"));
    EXPECT_EQ(Rows("select Code from TabWarrant union select BillCode from TabWarrantInf"), QStringList("PZD2"));
}

TEST_F(LifecycleTest, DeletingRemovesEverythingButTheLinesOfASetPriceTransfer)
{
    for (const char* operation : {"盘点报溢", "异价调拨"}) {
        SCOPED_TRACE(operation);
        OpenWithLine(operation);
        SaveAndRecall();
        const QString code = posting.code;
        test.Insert("TabWarrant", {{"Code", "PZD1"}, {"JXCBillCode", code}, {"State", "已登账"}});
        test.Insert("TabWarehouseAmountChange", {{"BillCode", code}});
        test.Insert("TabImg", {{"BillCode", code}, {"Type", bill.kind->bill + "图片"}});
        FDelete(test.program, bill);
        test.prompt.answers = {true};
        FDelete(test.program, bill);
        const bool isPriced = bill.kind->lines == LineShape::Priced;
        const QStringList boxes = test.prompt.TakeTexts();
        EXPECT_EQ(boxes.size(), isPriced ? 4 : 3);
        EXPECT_EQ(boxes[0], "删除当前单据吗？");
        EXPECT_EQ(boxes[2].startsWith("Error:"), isPriced);
        EXPECT_EQ(boxes.last(), "单据已删除！");
        for (const char* table : {bill.kind->headTable, "TabWarrant", "TabWarehouseAmountChange", "TabImg"})
            EXPECT_TRUE(test.Run(Sql("select * from ") + Name(table)).isEmpty()) << table;
        EXPECT_EQ(test.Run(Sql("select * from ") + Name(bill.kind->lineTable)).size(), isPriced ? 1 : 0);

        EXPECT_TRUE(bill.BillSavedFlag);
        bill.TxtWarehouseNameF = "主仓";
        bill.TxtWarehouseNameS = "分仓";
        EXPECT_EQ(Save(), QStringList("单据编号不能为空！"));
    }
}

TEST_F(LifecycleTest, NavigationWrapsAroundTheMonth)
{
    Open("盘点报溢");
    EXPECT_EQ(bill.LabWarehouseNameS, "报溢仓库");
    PreviousBill(test.program, bill);
    EXPECT_FALSE(bill.BillSavedFlag) << "a month without bills";
    for (const int day : {8, 3, 28}) {
        NewBill(test.program, bill);
        bill.DTPDate = QDate(2023, 2, day);
        bill.TxtWarehouseNameS = "分仓";
        bill.TxtMemo = QString::number(day);
        AddLine("A001");
        Save();
    }
    const auto after = [this](void (*move)(Program&, BillText&)) {
        move(test.program, bill);
        return bill.TxtMemo;
    };
    for (const char* day : {"8", "3", "28"}) // from the bill just saved
        EXPECT_EQ(after(PreviousBill), day);
    Open("盘点报溢");
    EXPECT_EQ(after(PreviousBill), "28") << "from a blank bill";
    Open("盘点报溢");
    EXPECT_EQ(after(NextBill), "3");
    NewBill(test.program, bill);
    EXPECT_EQ(bill.LabWarehouseNameS, "盘点仓库");
    EXPECT_EQ(bill.DTPDate, QDate(2023, 2, 3));

    bill.DTPDate = QDate(2023, 3, 1);
    bill.TxtWarehouseNameS = "分仓";
    AddLine("A001");
    Save();
    EXPECT_EQ(bill.navigation.size(), 1);
}

TEST_F(LifecycleTest, ARecalledBillSavedAgainKeepsEverything)
{
    const std::pair<const char*, const char*> cells[] = {
        {"规格", "M8"},        {"单位", "个"},       {"属性", "0102>颜色>红"}, {"生产厂商", "厂"},
        {"品牌", "牌"},        {"批号", "P"},        {"生产日期", "2023/1/5"}, {"有效日期", "2024-01-05"},
        {"自定义字段1", "1"},  {"自定义字段2", "2"}, {"自定义字段3", "3"},     {"备注", "注"},
        {"调价金额", "12.34"}, {"数量", "1,234.56"}, {"单价", "7.89"},
    };
    for (const char* operation : {"同价调拨", "异价调拨", "商品调价", "盘点报损", "盘点报溢"}) {
        SCOPED_TRACE(operation);
        Open(operation);
        bill.TxtMemo = "O'Neil \"1\"";
        bill.TxtExplain = "%_?";
        bill.TxtSaleMan = "老王";
        bill.TxtMoneyRate = "6.5";
        AddLine("A001");
        for (const auto& [caption, text] : cells)
            if (ColumnIndex(*bill.kind, QString(caption)) > 0)
                Type(1, caption, text);
        AddLine("B001");
        SaveAndRecall();
        // The total may follow the cost of the line's dimensions, which the grid shows only now.
        const QByteArray table = bill.kind->headTable;
        const QByteArray head = "select Code,Datee,Operator,Remark,Explain,BillType,State,Report,DateTimee,SaleMan,"
                                "MoneyName,MoneyRate,Auditing from ";
        const auto stored = [&] { return Rows(head + table) + Rows("select * from " + table + "Inf"); };
        const QStringList rows = stored();
        const BillText recalled = bill;
        EXPECT_EQ(recalled.TxtMemo, "O'Neil \"1\"");
        EXPECT_EQ(Cell(1, "属性") + Cell(1, "单位"), "0102>颜色>红个");

        test.prompt.answers = {true};
        Save();
        EXPECT_TRUE(posting.stored);
        EXPECT_EQ(stored(), rows);
        EXPECT_EQ(bill.LabTotalMoney, recalled.LabTotalMoney);
    }
}

TEST_F(LifecycleTest, WhatCannotBeRecalledLeavesTheBill)
{
    OpenWithLine("盘点报损");
    const BillText before = bill;
    test.Insert("TabWareGroup", {{"Code", "ZZD1"}});
    for (const auto& [table, box] : {std::pair("TabSamePriceMove", "没有原单！"),
                                     {"TabWareGroup", "本窗口不能打开 TabWareGroup 中的单据！"},
                                     {"TabNoSuch", "本窗口不能打开 TabNoSuch 中的单据！"}}) {
        EXPECT_FALSE(FillBill(test.program, bill, table, "ZZD1"));
        EXPECT_EQ(test.Boxes(), box);
        EXPECT_EQ(bill.LabBillName + Cell(1, "商品编号"), "盘点报损单A001");
        EXPECT_EQ(bill.BillSavedFlag, before.BillSavedFlag);
        EXPECT_TRUE(IsChanged(bill));
    }
    // Its month's bill is deleted by another user: going there leaves what stands.
    Save();
    test.Run(Sql("delete from TabCheckLose"));
    test.prompt.TakeTexts();
    PreviousBill(test.program, bill);
    EXPECT_EQ(test.Boxes(), "没有原单！");
    EXPECT_EQ(bill.TxtBillCode + Cell(1, "商品编号"), posting.code + "A001");
}

TEST_F(LifecycleTest, AHeadWithGapsIsShownWithThem)
{
    test.Insert("TabCheckLose", {{"Code", "BSD1"}, {"Datee", Value()}, {"Auditing", ""}, {"State", "正常"}});
    OpenWithLine("盘点报损");
    bill.DTPDate = QDate(2023, 1, 5);
    FillBill(test.program, bill, "TabCheckLose", "BSD1");
    EXPECT_EQ(bill.TxtDate, "");
    EXPECT_EQ(bill.DTPDate, QDate(2023, 2, 8));
    EXPECT_EQ(bill.LabTotalAmount + Cell(1, "商品编号"), "") << "no lines, no totals";
    EXPECT_EQ(Keys(), "保存 审核 反审核 删除 作废 打印 插入 删行");

    test.InsertBill("TabCheckLose", {{"Code", "BSD2"}, {"Datee", QDate(2023, 2, 1)}},
                    {{{"WareCode", "A001"}, {"Amount", Value()}}});
    FillBill(test.program, bill, "TabCheckLose", "BSD2");
    EXPECT_EQ(Cell(1, "数量") + Cell(1, "金额"), "");
}

TEST_F(LifecycleTest, OnlyWhatWouldBeLostIsAChange)
{
    Open("异价调拨");
    NewBill(test.program, bill);
    EXPECT_FALSE(IsChanged(bill)) << "defaults";
    ChooseWarehouses();
    AddLine("A001", {{"数量", "1200"}, {"单价", "2"}});
    EXPECT_TRUE(IsChanged(bill));
    SaveAndRecall();
    EXPECT_FALSE(IsChanged(bill));

    Type(1, "数量", "1");
    EXPECT_TRUE(IsChanged(bill));
    Type(1, "数量", "1200");
    EXPECT_FALSE(IsChanged(bill)) << "typed and typed back";
    bill.MSH.SetCell(1, ColumnIndex(*bill.kind, u"金额"), "2400");
    bill.TxtMoneyRate = "1.00";
    bill.MSH.currentColumn = 3;
    bill.MSH.AddRow();
    EXPECT_FALSE(IsChanged(bill)) << "what follows, a figure's form, the cursor, blank rows";
    for (QString* text : {&bill.TxtMemo, &bill.TxtSaleMan, &bill.TxtWarehouseNameF}) {
        const QString before = std::exchange(*text, "x");
        EXPECT_TRUE(IsChanged(bill));
        *text = before;
    }
    bill.DTPDate = bill.DTPDate.addDays(1);
    EXPECT_TRUE(IsChanged(bill));
}

TEST_F(LifecycleTest, AnUnknownOperationWordLeavesTheTables)
{
    Open("盘点报损");
    test.program.parameters.OperateType = "别的";
    frm_Initialize(test.program, bill, true);
    EXPECT_EQ(bill.LabBillName, "别的单");
    EXPECT_EQ(bill.NavTableName, "TabCheckLose");
    test.program.parameters.OperateDate = "no day";
    BillText loaded;
    LoadWindow(test.program, loaded);
    EXPECT_EQ(loaded.DTPDate, test.clock.now.day);
    EXPECT_EQ(loaded.TxtMoneyName, "");
}

} // namespace
