#include "bills/life/audit.h"
#include "bills/life/recall.h"
#include "bills/moments.h"
#include "screen.h"

namespace {

using PostingTest = BillScreen;

/// What the database does to a statement where it is a file of the test's own.
struct PostingFaults : BillScreen
{
    void SetUp() override
    {
        if (!TestServer().isEmpty())
            GTEST_SKIP() << "a fault of a file";
    }
};

TEST_F(PostingTest, EachKindWritesItsRows)
{
    const struct
    {
        const char* operation;
        Cells cells;
        QString head, line;
    } kinds[] = {
        {"同价调拨",
         {{"数量", "4"}, {"单位", "个"}, {"属性", "0102>颜色>红"}, {"批号", "P1"}, {"唯一码", ""}, {"备注", "急"}},
         "TDD202302080001|2023-02-08|101|主仓|系统管理员|102|分仓|备忘|说明|同价调拨|正常|40||@|老王||1|",
         "1|2023-02-08|TDD202302080001|A001|螺丝|M8|个|4|急|0|正常|@.004|0||1|0102|红|0.5|||P1|||||||"},
        {"异价调拨",
         {{"数量", "4"}, {"单价", "12.5"}, {"生产厂商", "厂"}, {"品牌", "牌"}, {"规格", "M8"}},
         "YDD202302080001|2023-02-08|101|主仓|系统管理员|102|分仓|备忘|说明|异价调拨|正常|50|-10||@|老王||1|",
         "1|2023-02-08|YDD202302080001|A001|螺丝|M8|箱|4|12.5|50||12.5|0|正常|@.004|0||1|||4|厂|牌||||||||"},
        {"商品调价",
         {{"调价金额", "250"}, {"自定义字段1", "c1"}, {"自定义字段3", "c3"}},
         "TJD202302080001|2023-02-08|系统管理员|102|分仓|备忘|说明|商品调价|正常|250|0||@|老王||1|",
         "1|2023-02-08|TJD202302080001|A001|螺丝|M8|箱|0|0|250||10|250|正常|12.5|@.004|0||1|||0||||||||c1||c3"},
        {"盘点报损",
         {{"数量", "3"}, {"生产日期", "2023-01-05"}, {"有效日期", "2024/1/5"}},
         "BSD202302080001|2023-02-08|系统管理员|102|分仓|备忘|说明|盘点报损|正常|0||@|老王||1|",
         "1|2023-02-08|BSD202302080001|A001|螺丝|M8|箱|3||10|正常|@.004|0||1|||3||||2023-01-05|2024/1/5|||||"},
        {"盘点报溢",
         {{"数量", "1,250.5"}},
         "BYD202302080001|2023-02-08|系统管理员|102|分仓|备忘|说明|盘点报溢|正常|0||@|老王||1|",
         "1|2023-02-08|BYD202302080001|A001|螺丝|M8|箱|1250.5||10|正常|@.004|0||1|||1250.5||||||||||"},
    };
    const QString moment = "2023-02-08 09:30:00"; // at the sign @
    for (const auto& kind : kinds) {
        SCOPED_TRACE(kind.operation);
        OpenWithLine(kind.operation, kind.cells);
        bill.TxtMemo = " 备忘 ";
        bill.TxtExplain = "说明";
        bill.TxtSaleMan = "老王";
        EXPECT_EQ(Save(), QStringList("保存成功！"));
        EXPECT_TRUE(bill.BillSavedFlag && posting.stored);
        const QByteArray table = bill.kind->headTable;
        EXPECT_EQ(Rows("select * from " + table), QStringList(QString(kind.head).replace("@", moment)));
        EXPECT_EQ(Rows("select * from " + table + "Inf"), QStringList(QString(kind.line).replace("@", moment)));
        test.Run(Sql("delete from TabChangePriceInf"));
    }
}

TEST_F(PostingTest, PriceDifferenceUsesTheFreshCostOnTheLineAndTheGridsOnTheHead)
{
    Open("异价调拨");
    AddLine("B001", {{"数量", "4"}, {"单价", "3"}});
    AddLine("A001", {{"规格", ""}, {"数量", "2"}, {"单价", "12.5"}});
    AddLine("A001", {{"规格", "M9"}, {"数量", "2"}, {"单价", "12.5"}});
    Save();
    // A good without a cost moves at its price; a dimension without a cost as well.
    EXPECT_EQ(Rows("select AveragePrice,MoneyBanlance from TabDiffPriceMoveInf order by Num"),
              QStringList({"3|0", "10|5", "12.5|0"}));
    EXPECT_EQ(Rows("select MoneyBanlance from TabDiffPriceMove"), QStringList("-22"));
}

TEST_F(PostingTest, ABlankRowInTheMiddleIsStoredWithoutAGood)
{
    OpenWithLine("盘点报溢");
    bill.MSH.AddRow();
    AddLine("B001");
    Save();
    EXPECT_EQ(Rows("select Num,WareCode,Amount from TabCheckOverInf order by Num"),
              QStringList({"1|A001|1", "2||0", "3|B001|1"}));
}

TEST_F(PostingTest, ARewriteAsksAndReplacesTheRows)
{
    OpenWithLine("同价调拨");
    AddLine("B001");
    Save();
    for (const char* warehouse : {"101", "102", "103"})
        test.Insert("TabWarehouseAmountChange", {{"BillCode", posting.code}, {"WarehouseCode", warehouse}});

    bill.TxtMemo = "改";
    EXPECT_EQ(Save(), QStringList({"如果确定修改则按是，否则按否退出重新执行保存！", "修改单据失败！"}));
    EXPECT_TRUE(!posting.stored && posting.declined);
    EXPECT_EQ(Rows("select Remark from TabSamePriceMove"), QStringList(""));

    test.prompt.answers = {true, true};
    bill.MSH.currentRow = 2;
    DeleteGridRow(test.program, bill);
    test.clock.now.millisecondOfDay += 60000;
    EXPECT_EQ(Save().last(), "保存成功！");
    EXPECT_EQ(Rows("select Code,Remark,DateTimee from TabSamePriceMove"),
              QStringList("TDD202302080001|改|2023-02-08 09:31:00"));
    EXPECT_EQ(Rows("select WareCode from TabSamePriceMoveInf"), QStringList("A001"));
    EXPECT_EQ(Rows("select WarehouseCode from TabWarehouseAmountChange"), QStringList("103"));
}

TEST_F(PostingTest, ATakenCodeIsSaidAndTheNextSaveDrawsANewOne)
{
    Open("同价调拨");
    bill.ChAutoAdd = true;
    AddLine("A001");
    // The number is taken between numbering and saving: a bill that believes itself new under a stored code.
    bill.TxtBillCode = "TDD202302080001";
    test.Insert("TabSamePriceMove", {{"Code", "TDD202302080001"}, {"Datee", QDate(2023, 2, 8)}});
    EXPECT_FALSE(SaveTransferBill(test.program, bill).stored);
    EXPECT_EQ(test.Boxes(), "单编号重复，请重新执行保存！");
    EXPECT_EQ(Rows("select Num from TabSamePriceMoveInf"), QStringList());
    EXPECT_FALSE(bill.BillSavedFlag);

    EXPECT_EQ(Save(), QStringList("保存成功！"));
    EXPECT_EQ(posting.code, "TDD202302080002");
    // A blank bill follows, and the month's list holds both.
    EXPECT_FALSE(bill.BillSavedFlag);
    EXPECT_EQ(bill.TxtBillCode, "");
    EXPECT_EQ(bill.MSH.rows(), 2);
    EXPECT_EQ(bill.navigation, QStringList({"TDD202302080001", "TDD202302080002"}));
}

TEST_F(PostingTest, ABlankBillFollowsWhatWasStoredAndNothingElse)
{
    OpenWithLine("盘点报损");
    bill.ChAutoAdd = true;
    bill.TxtWarehouseNameS = "无此仓";
    bill.TxtWarehouseCodeS.clear();
    Save();
    EXPECT_EQ(Cell(1, "商品编号"), "A001") << "refused by a check";
    test.Insert("TabCheckLose", {{"Code", "BSD202302090001"}, {"Datee", QDate(2023, 2, 9)}, {"State", "正常"}});
    bill.TxtWarehouseCodeS = "102";
    Save();
    ASSERT_TRUE(posting.stored);
    EXPECT_EQ(bill.TxtBillCode, "");
    const BillText blank = bill;
    PreviousBill(test.program, bill);
    EXPECT_EQ(bill.TxtBillCode, posting.code) << "the bill just saved, not the one before it";
    bill = blank;
    NextBill(test.program, bill);
    EXPECT_EQ(bill.TxtBillCode, "BSD202302090001");
}

TEST_F(PostingTest, AnAutoAuditedBillSaysThatItIsAudited)
{
    Open("盘点报损");
    bill.ChAutoAuditing = true;
    AddLine("A001");
    EXPECT_EQ(Save(), QStringList({"已审核单据，禁止重复审核！", "保存成功！"}));
    EXPECT_EQ(Rows("select TabCheckLose.Auditing,TabCheckLoseInf.Auditing from TabCheckLose,TabCheckLoseInf"),
              QStringList("系统管理员|系统管理员"));
    EXPECT_EQ(bill.LabAuditing, "已审核");
    EXPECT_TRUE(bill.isEnabled(Command::UnAudit) && !bill.isEnabled(Command::Save));

    test.program.parameters.UserName = "小李";
    test.Insert("TabOperateRight", {{"UserName", "小李"}, {"FunctionName", "盘点报损"}, {"AllowEdit", 1}});
    NewBill(test.program, bill);
    bill.TxtWarehouseNameS = "分仓";
    AddLine("A001");
    EXPECT_EQ(Save(), QStringList({"没有操作权限！", "没有操作权限！", "保存成功！"}));
    EXPECT_EQ(bill.LabAuditing, "未审核");
}

TEST_F(PostingFaults, AFailingStatementTakesTheBillBack)
{
    OpenWithLine("同价调拨");
    test.Run(Sql("create trigger refuse before insert on TabSamePriceMoveInf begin select raise(abort,'no'); end"));
    const QStringList boxes = Save();
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_TRUE(boxes[0].startsWith("Error:"));
    EXPECT_EQ(Rows("select Code from TabSamePriceMove"), QStringList());
    // Its number is gone from the screen, and so is the day that a void would go by.
    EXPECT_EQ(bill.TxtBillCode + bill.TxtDate, "");
    VoidBill(test.program, bill);
    AuditBill(test.program, bill);
    EXPECT_EQ(test.Boxes(), "本单据开单日期不详，系统禁止作废！|请先保存单据后再审核！");
}

TEST_F(PostingFaults, AnUnknownCostIsNoLineAndNoSave)
{
    OpenWithLine("同价调拨");
    test.Run(Sql("alter table TabWarehouseTurn rename to Held"));
    const BillText before = bill;
    for (const char* code : {"A001", "B001"}) {
        AddLine(code);
        EXPECT_TRUE(test.Boxes().startsWith("Error:"));
        EXPECT_EQ(bill.MSH.Row(2), before.MSH.Row(2));
    }
    bill.MSH = before.MSH;
    const QStringList boxes = Save();
    EXPECT_EQ(boxes.size(), 1) << boxes.join('|').toStdString();
    EXPECT_EQ(Rows("select Code from TabSamePriceMove"), QStringList());
    EXPECT_EQ(bill.TxtBillCode, "");
}

TEST_F(PostingFaults, AUnitThatCannotBeStoredLeavesTheBillAsItWas)
{
    OpenWithLine("盘点报溢");
    bill.TxtMemo = QString(20000, u'长'); // the head needs new pages, the line does not
    test.Run(Sql("pragma max_page_count=1"));
    QStringList boxes = Save();
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_TRUE(boxes[0].contains("磁盘空间不足")) << boxes[0].toStdString();
    EXPECT_FALSE(bill.BillSavedFlag);
    EXPECT_EQ(Rows("select WareCode from TabCheckOverInf"), QStringList());
    test.Run(Sql("pragma max_page_count=1000000"));
    EXPECT_EQ(Save(), QStringList("保存成功！"));

    test.prompt.answers = {true};
    bill.TxtMemo = "改";
    bill.TxtOperator = "前人";
    // The database gives the unit up at the new head.
    test.Run(Sql("create trigger give_up before insert on TabCheckOver begin select raise(rollback,'full'); end"));
    boxes = Save();
    ASSERT_EQ(boxes.size(), 2);
    EXPECT_TRUE(boxes[1].startsWith("Error:"));
    EXPECT_FALSE(posting.stored);
    EXPECT_EQ(bill.TxtOperator, "前人");
    EXPECT_EQ(test.Run(Sql("select Remark from TabCheckOver")).Text("Remark").size(), 20000);
    EXPECT_EQ(Rows("select WareCode from TabCheckOverInf"), QStringList("A001"));
}

TEST_F(PostingTest, ARevaluationRewritesLaterCostsOnAccessOnly)
{
    for (const char* type : {"Access", "Access2"}) {
        SCOPED_TRACE(type);
        test.program.parameters.DatabaseType = type;
        test.Run(Sql("delete from TabOutBillInf"));
        test.InsertBill("TabOutBill", {{"Code", QString("X") + type}, {"Datee", QDate(2023, 2, 1)}},
                        {{{"WareCode", "A001"}, {"UnionAmount", 1.0}, {"Cost", 7.0}}});
        OpenWithLine("商品调价", {{"调价金额", "100"}});
        Save();
        // The newest cost up to the first inflow day, which the revaluation's own day is.
        EXPECT_EQ(Rows("select Cost from TabOutBillInf"), QStringList(QString(type) == "Access" ? "10" : "7"));
    }
}

TEST_F(PostingTest, CurrencyLimitsTheCostOnlyWhereThereAreSeveral)
{
    for (const auto& [name, isOwn] : {std::pair("人民币", "是"), {"美元", "否"}})
        test.Insert("TabMoneyType", {{"Name", name}, {"IsBWB", isOwn}});
    test.program.parameters.IsLotMoney = true;
    Open("盘点报溢");
    EXPECT_EQ(bill.TxtMoneyName, "人民币");
    AddLine("A001");
    EXPECT_EQ(Cell(1, "成本价"), "0.00");
    test.program.parameters.IsLotMoney = false;
    AddLine("A001");
    EXPECT_EQ(Cell(2, "成本价"), "10.00");
}

TEST(RisingMomentsTest, RiseByFourMillisecondsWithinTheDay)
{
    const QDate day(2023, 2, 8);
    const std::tuple<int, int, std::vector<int>> cases[] = {
        {1000, 0, {1000, 1004, 1008}},
        {1000, 1, {1000, 1004, 1008}},
        {1000, 50, {1000, 1050, 1100}},
        {kMillisecondsPerDay - 1, 0, {kMillisecondsPerDay - 11, kMillisecondsPerDay - 7, kMillisecondsPerDay - 3}},
        // The clock passes midnight meanwhile.
        {kMillisecondsPerDay - 40, 30, {kMillisecondsPerDay - 40, kMillisecondsPerDay - 10, kMillisecondsPerDay - 6}},
    };
    for (const auto& [start, step, expected] : cases) {
        FixedClock clock;
        clock.now.millisecondOfDay = start;
        clock.step = step;
        RisingMoments moments(clock, day, static_cast<int>(expected.size()));
        for (const int moment : expected)
            EXPECT_EQ(moments.Next(), (Moment{day, moment}));
    }
}

} // namespace
