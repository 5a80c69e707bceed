#include "assembly/saving/assembly_posting.h"
#include "bills/life/bill_content.h"
#include "bills/life/recall.h"
#include "piece_screen.h"

namespace {

const QString kModify = "如果确定修改则按是，否则按否退出重新执行保存！";
const QString kSaved = "保存成功！";

struct AssemblyPostingTest : PieceScreen
{
    /// An assembly with every box of its head filled.
    void OpenFilled(std::initializer_list<std::pair<const char*, const char*>> cells)
    {
        Open(true, "4");
        TypeHead("TxtFee", "20");
        AddLine("A001", cells);
        bill.TxtSaleMan = " 老王 ";
        bill.TxtManufacturer = "厂";
        bill.TxtBrand = "牌";
        bill.TxtPCode = "P1";
        bill.TxtSCDate = "2023-02-01";
        bill.TxtYXDate = "2024-02-01";
        bill.TxtOnlyCode = "U1";
        bill.TxtCustom1 = "c1";
        bill.TxtCustom3 = "c3";
        bill.TxtWareAttribute = "0102>颜色>红";
        bill.TxtUnite = "盒";
    }

    /// A disassembly whose money adds up.
    void OpenPiece(const char* lineAmount = "2")
    {
        Open(false, "4");
        TypeAndLeave("TxtCost", "25");
        TypeAndLeave("TxtFee", "20");
        AddLine("A001", {{"数量", lineAmount}, {"备注", "件"}});
        Type(1, "成本价", NumberText(120 / Val(QString(lineAmount))));
    }
};

TEST_F(AssemblyPostingTest, AnAssemblyBringsItsProductIn)
{
    OpenFilled({{"数量", "8"}, {"属性", "0102>颜色>红"}, {"批号", "B1"}, {"自定义字段2", "l2"}, {"备注", "急"}});
    bill.MSH.SetCell(1, 5, "个");
    EXPECT_EQ(Save(), QStringList(kSaved));
    EXPECT_TRUE(posting.stored);
    // A pack holds a quarter of a set: unit cost by units, 100 by 1.
    EXPECT_EQ(
        Rows("select * from TabWareGroup"),
        QStringList("ZZD202302080001|2023-02-08|101|主仓|P001|套装|系统管理员|25|4|102|分仓|盒|100|商品组装|正常|"
                    "|20|100|2023-02-08 09:30:00|4|老王||1|0102|红|1|厂|牌|P1|2023-02-01|2024-02-01|U1||S|c1||c3"));
    EXPECT_EQ(Rows("select * from TabWareGroupInf"),
              QStringList("1|2023-02-08|ZZD202302080001|A001|螺丝|M8|个|8|10|80|急|正常|0|2023-02-08 09:30:00.004|0||1|"
                          "0102|红|1|||B1||||||l2|"));
    EXPECT_EQ(bill.LabState, "正常");
    EXPECT_EQ(bill.LabAuditing, "未审核");
    EXPECT_TRUE(bill.BillSavedFlag);
    EXPECT_FALSE(bill.isEnabled(Command::SwitchMode));
    EXPECT_TRUE(bill.isEnabled(Command::Print));
    EXPECT_EQ(bill.navigation, QStringList("ZZD202302080001"));
}

TEST_F(AssemblyPostingTest, ADisassemblyBringsItsGoodsIn)
{
    OpenPiece();
    EXPECT_EQ(Save(), QStringList(kSaved));
    EXPECT_EQ(Rows("select Code,WareCode,Cost,Amount,SumMoney,BillType,Fee,AveragePrice,StockInAmount,UnionAmount from "
                   "TabWarePiece"),
              QStringList("CXD202302080001|P001|25|4|100|商品拆卸|20|0|0|4"));
    // 100 pieces at 1000 and two at 120 make an average of 10.98.
    EXPECT_EQ(Rows("select Num,WareCode,Amount,Price,Moneyy,AveragePrice,StockInAmount from TabWarePieceInf"),
              QStringList("1|A001|2|60|120|10.98|2"));
}

TEST_F(AssemblyPostingTest, AGroupedTotalCountsUpToItsSeparatorForTheCostOfTheProduct)
{
    Open(true, "2");
    AddLine("A001", {{"数量", "200"}});
    EXPECT_EQ(bill.TxtTotalMoney, "2,000.00");
    Save();
    EXPECT_EQ(Rows("select SumMoney,Cost,AveragePrice from TabWareGroup"), QStringList("2000|1000|1"));
}

TEST_F(AssemblyPostingTest, CostsOfLaterBillsAreRewrittenOnAccessOnly)
{
    for (const char* type : {"Access", "Access2"}) {
        SCOPED_TRACE(type);
        test.program.parameters.DatabaseType = type;
        for (const char* table : {"TabOutBill", "TabOutBillInf", "TabWareGroup", "TabWarePieceInf"})
            test.Run(Sql("delete from ") + table);
        for (const char* good : {"P001", "A001"})
            test.InsertBill("TabOutBill", {{"Code", QString(good) + type}, {"Datee", QDate(2023, 2, 1)}},
                            {{{"WareCode", good}, {"UnionAmount", 1.0}, {"Cost", 7.0}, {"WareSpec", "S"}}});
        Open(true, "4");
        AddLine("B001", {{"成本价", "100"}});
        Save();
        OpenPiece();
        Save();
        const bool rewritten = QString(type) == "Access";
        EXPECT_EQ(Rows("select WareCode,Cost from TabOutBillInf order by WareCode"),
                  rewritten ? QStringList({"A001|10", "P001|0"}) : QStringList({"A001|7", "P001|7"}));
    }
}

TEST_F(AssemblyPostingTest, ARewriteAsksAndItsRefusalIsSavedAllTheSame)
{
    OpenWith(true);
    bill.MSH.AddRow();
    AddLine("B001", {});
    Save();
    EXPECT_EQ(Rows("select Num,WareCode,Amount from TabWareGroupInf order by Num"),
              QStringList({"1|A001|1", "2||0", "3|B001|1"}));
    for (const char* warehouse : {"101", "103"})
        test.Insert("TabWarehouseAmountChange", {{"BillCode", posting.code}, {"WarehouseCode", warehouse}});
    TypeHead("TxtFee", "5");
    EXPECT_EQ(Save(), QStringList({kModify, "修改单据失败！", kSaved}));
    EXPECT_FALSE(posting.stored);
    EXPECT_EQ(Rows("select Fee from TabWareGroup"), QStringList("0"));

    test.prompt.answers = {true};
    EXPECT_EQ(Save(), QStringList({kModify, kSaved}));
    EXPECT_EQ(Rows("select Code,Fee from TabWareGroup"), QStringList("ZZD202302080001|5"));
    EXPECT_EQ(Rows("select BillCode from TabWarehouseAmountChange"), QStringList());
}

TEST_F(AssemblyPostingTest, ATakenCodeIsSaidInTheWordsOfTheMode)
{
    for (const bool assembles : {true, false}) {
        OpenWith(assembles);
        // Another user has drawn the same number meanwhile.
        bill.TxtBillCode = "X1";
        test.Insert(bill.kind->headTable, {{"Code", "X1"}});
        const PieceSave save = PostGroupPiece(test.program, bill, false);
        EXPECT_EQ(test.prompt.TakeTexts(),
                  QStringList(assembles ? "单编号重复，请重新执行保存！" : "单编号重复，请重新执保存！"));
        EXPECT_TRUE(save.isDone && !save.posting.stored);
    }
}

TEST_F(AssemblyPostingTest, AUnitThatCannotBeStoredLeavesTheBillAsItWasAndSaysNoSuccess)
{
    if (!TestServer().isEmpty())
        GTEST_SKIP() << "a fault of a file";
    OpenWith(true);
    bill.ChAutoAuditing = true;
    bill.TxtOperator = "前人";
    test.Run(Sql("create trigger give_up before insert on TabWareGroupInf begin select raise(rollback,'full'); end"));
    const QStringList boxes = Save();
    EXPECT_TRUE(boxes.value(0).startsWith("Error:"));
    EXPECT_FALSE(boxes.contains(kSaved));
    EXPECT_FALSE(posting.stored);
    EXPECT_FALSE(bill.BillSavedFlag);
    EXPECT_EQ(bill.TxtOperator, "前人");
    EXPECT_EQ(bill.TxtAuditing, "");
    EXPECT_TRUE(bill.isEnabled(Command::Save));
    EXPECT_EQ(Rows("select Code from TabWareGroup"), QStringList());
}

TEST_F(AssemblyPostingTest, AutoAuditComesWithTheSaveUnderTheRightOfBothBills)
{
    OpenWith(true);
    bill.ChAutoAuditing = true;
    EXPECT_EQ(Save(), QStringList(kSaved));
    EXPECT_EQ(Rows("select TabWareGroup.Auditing,TabWareGroupInf.Auditing from TabWareGroup,TabWareGroupInf"),
              QStringList("系统管理员|系统管理员"));
    EXPECT_EQ(bill.LabAuditing, "已审核");
    EXPECT_FALSE(bill.isEnabled(Command::Save));
    EXPECT_TRUE(bill.isEnabled(Command::UnAudit));

    test.program.parameters.UserName = "小李";
    test.Insert("TabOperateRight", {{"UserName", "小李"}, {"FunctionName", "组装拆卸"}, {"AllowEdit", 1}});
    OpenWith(true);
    bill.ChAutoAuditing = bill.ChAutoAdd = true;
    EXPECT_EQ(Save(), QStringList({"没有操作权限！", kSaved}));
    EXPECT_EQ(posting.code, "ZZD202302080002");
    EXPECT_EQ(bill.TxtBillCode + bill.TxtWareName, "");
    EXPECT_FALSE(bill.BillSavedFlag);
    EXPECT_EQ(bill.navigation, QStringList({"ZZD202302080001", "ZZD202302080002"}));
}

TEST_F(AssemblyPostingTest, ASavedBillComesBackAsItWas)
{
    OpenFilled({{"数量", "8"}, {"成本价", "12.5"}, {"属性", "0102>颜色>红"}, {"唯一码", ""}, {"备注", "急"}});
    Save();
    EXPECT_FALSE(bill.isEnabled(Command::Pattern));
    EXPECT_FALSE(IsChanged(bill));
    const QStringList before = Rows("select * from TabWareGroup") + Rows("select * from TabWareGroupInf");
    const QString code = posting.code;
    Open(false);
    bill.ChSpecJE = true;
    FillBill(test.program, bill, "TabWareGroup", code);
    EXPECT_EQ(bill.LabBillName, "商品组装单");
    EXPECT_FALSE(bill.ChSpecJE);
    EXPECT_FALSE(bill.isEnabled(Command::Pattern));
    EXPECT_FALSE(bill.isEnabled(Command::SwitchMode));
    EXPECT_EQ(bill.LabTotalMoney, "100.00");
    EXPECT_EQ(Cell(1, "属性"), "0102>颜色>红");
    for (const char* control : {"TxtAmount", "TxtCost", "TxtFee"}) {
        HeadFocusGained(bill, control);
        HeadFocusLost(test.program, bill, control);
    }
    EXPECT_FALSE(IsChanged(bill)) << "only looked at";
    test.prompt.answers = {true};
    EXPECT_EQ(Save(), QStringList({kModify, kSaved}));
    EXPECT_EQ(Rows("select * from TabWareGroup") + Rows("select * from TabWareGroupInf"), before);
    bill.TxtBrand = "x";
    EXPECT_TRUE(IsChanged(bill));

    for (const auto& [table, box] : {std::pair("TabWareGroup", "没有原单！"),
                                     {"TabSamePriceMove", "本窗口不能打开 TabSamePriceMove 中的单据！"}}) {
        EXPECT_FALSE(FillBill(test.program, bill, table, "none"));
        EXPECT_EQ(test.Boxes(), box);
        EXPECT_EQ(bill.TxtWareName + bill.TxtBillCode, "套装" + code);
    }
}

} // namespace
