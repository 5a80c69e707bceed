#include "assembly/assembly_recall.h"
#include "piece_screen.h"

namespace {

struct AssemblyRecallTest : PieceScreen
{
    void AddBill(const char* code, const QDate& day, const char* good = "P001")
    {
        test.InsertBill("TabWareGroup",
                        {{"Code", code},
                         {"Datee", day},
                         {"WareCode", good},
                         {"WareName", QString("名") + good},
                         {"Unite", "套"},
                         {"WarehouseCodeF", "101"},
                         {"WarehouseNameF", "主仓"},
                         {"WarehouseCodeS", "102"},
                         {"WarehouseNameS", "分仓"},
                         {"Operator", "小王"},
                         {"Amount", 5.0},
                         {"Cost", 20.0},
                         {"SumMoney", 100.0},
                         {"Fee", 20.0},
                         {"SaleMan", "老王"},
                         {"OnlyCode", "U1"},
                         {"Auditing", "x"},
                         {"BillType", "商品组装"}},
                        {{{"WareCode", "A001"},
                          {"WareName", "螺丝"},
                          {"Unite", "箱"},
                          {"Amount", 8.0},
                          {"Price", 10.0},
                          {"Moneyy", 80.0},
                          {"Remark", "急"},
                          {"PCode", "B1"}}});
    }

    QStringList Column(const AssemblyList& list, int column)
    {
        QStringList cells;
        for (int row = 1; row < list.MSH.lastRow(); ++row)
            cells << list.MSH.Cell(row, column);
        return cells;
    }
};

TEST_F(AssemblyRecallTest, APatternCopiesWhatDoesNotIdentifyABill)
{
    AddBill("ZZD1", QDate(2023, 1, 5));
    Open(true);
    bill.TxtWarehouseNameF.clear();
    AddLine("B001", {});
    EXPECT_TRUE(RecallByCode(test.program, bill, " ZZD1 "));
    EXPECT_EQ(
        QStringList({bill.TxtBillCode, bill.TxtDate, bill.TxtOnlyCode, bill.TxtAuditing, bill.TxtSaleMan}).join(""),
        "");
    EXPECT_FALSE(bill.BillSavedFlag);
    EXPECT_EQ(bill.DTPDate, QDate(2023, 2, 8));
    EXPECT_EQ(QStringList({bill.TxtWarehouseNameF, bill.TxtWareCode, bill.TxtAmount, bill.TxtCost, bill.TxtFee,
                           bill.TxtTotalMoney, bill.LabTotalMoney, bill.TxtOperator}),
              QStringList({"主仓", "P001", "5", "20.00", "20.00", "100.00", "80.00", "小王"}));
    EXPECT_EQ(bill.MSH.rows(), 3);
    EXPECT_EQ(QStringList({Cell(1, "商品编号"), Cell(1, "数量"), Cell(1, "成本价"), Cell(1, "金额"), Cell(1, "备注"),
                           Cell(1, "批号")}),
              QStringList({"A001", "8.00", "10.00", "80.00", "急", ""}));
    EXPECT_EQ(Save(), QStringList("保存成功！"));
    EXPECT_EQ(posting.code, "ZZD202302080001");

    EXPECT_EQ(PatternTitle(bill), "输入商品组装单编号");
    EXPECT_FALSE(RecallByCode(test.program, bill, " "));
    RecallByCode(test.program, bill, "none");
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList({"请输入组装或拆卸单编号！", "没有原单，套用调入失败！"}));
    EXPECT_EQ(bill.TxtBillCode, "ZZD202302080001");
}

TEST_F(AssemblyRecallTest, TheLatestDayOfAProductDecides)
{
    AddBill("ZZD1", QDate(2023, 1, 5));
    AddBill("ZZD2", QDate(2023, 1, 9));
    AddBill("ZZD3", QDate(2023, 1, 12), "A001");
    Open(true);
    for (const auto& [code, name] : {std::pair("P001", ""), std::pair("", "名P001")}) {
        NewBill(test.program, bill);
        EXPECT_TRUE(RecallLatest(test.program, bill, code, name));
        EXPECT_EQ(bill.TxtWareCode, "P001");
    }
    EXPECT_FALSE(RecallLatest(test.program, bill, "", " "));
    EXPECT_FALSE(RecallLatest(test.program, bill, "B001", ""));
    EXPECT_EQ(test.prompt.TakeTexts(),
              QStringList({"请输入组装或拆卸产品名称或编号！", "输入的组装拆卸产品不存在组装拆卸历史记录！"}));
}

TEST_F(AssemblyRecallTest, TheListShowsAHundredAndTheFilterAll)
{
    for (int i = 0; i < 103; ++i)
        AddBill(QString("ZZD%1").arg(i, 3, 10, QLatin1Char('0')).toLatin1(), QDate(2022, 9, 1).addDays(i));
    AddBill("OTHER", QDate(2023, 1, 1), "A001");
    Open(true);
    AssemblyList list = OpenAssemblyList(test.program, bill, "P001");
    EXPECT_EQ(list.MSH.lastRow() - 1, 100);
    EXPECT_EQ(list.MSH.Cell(0, 4), "收货仓库");
    EXPECT_EQ(Column(list, 1).first(), "ZZD102");
    EXPECT_EQ(list.MSH.Cell(1, 2), "2022-12-12");
    EXPECT_EQ(list.MSH.Cell(1, 8), "5");

    const struct
    {
        AssemblyFilter filter;
        QStringList codes;
    } cases[] = {
        {{"", "", "2022-9-2"}, {"ZZD001", "ZZD000"}},
        {{"", "2022-12-12", ""}, {"ZZD102"}},
        {{"ZZD050", "2022-09-01", "2022-12-31"}, {"ZZD050"}},
        {{"OTHER", "", ""}, {}},
    };
    for (const auto& c : cases) {
        EXPECT_TRUE(FilterAssemblyList(test.program, list, c.filter));
        EXPECT_EQ(Column(list, 1), c.codes);
    }
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList("没有满足条件的数据！"));
    EXPECT_TRUE(FilterAssemblyList(test.program, list, {}));
    EXPECT_EQ(list.MSH.lastRow() - 1, 103);
    EXPECT_FALSE(FilterAssemblyList(test.program, list, {"", "9", ""}));
    EXPECT_FALSE(FilterAssemblyList(test.program, list, {"", "", "9"}));
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList({"单据日期从不是日期型格式(YYYY-MMM-DD),请修改！",
                                                    "单据日期至不是日期型格式(YYYY-MMM-DD),请修改！"}));
    EXPECT_EQ(list.MSH.lastRow() - 1, 103);

    // The original opens in another copy of this program; a blank row opens nothing.
    OpenOriginal(test.program, list, list.MSH.lastRow());
    EXPECT_FALSE(ReadClearLines(test.program.folder));
    OpenOriginal(test.program, list, 1);
    EXPECT_EQ(ReadClearLines(test.program.folder)->filter("ZZD102").size(), 1);
    EXPECT_EQ(ReadClearLines(test.program.folder)->filter("商品组装原单查看").size(), 1);
}

} // namespace
