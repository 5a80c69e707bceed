#include "assembly/life/assembly_recall.h"
#include "piece_screen.h"

namespace {

struct AssemblyRecallTest : PieceScreen
{
    static QStringList Codes(const AssemblyList& list)
    {
        QStringList codes;
        for (int row = 1; row < list.MSH.lastRow(); ++row)
            codes << CodeInList(list, row);
        return codes;
    }
};

TEST_F(AssemblyRecallTest, APatternCopiesWhatDoesNotIdentifyABill)
{
    AddAssembly("ZZD1", QDate(2023, 1, 5));
    test.Run(Sql("update TabWareGroup set Auditing='x'"));
    Open(true);
    bill.TxtWarehouseNameF.clear();
    AddLine("B001", {});
    EXPECT_TRUE(RecallByCode(test.program, bill, " ZZD1 "));
    EXPECT_EQ(bill.TxtBillCode + bill.TxtDate + bill.TxtOnlyCode + bill.TxtAuditing + bill.TxtSaleMan, "");
    EXPECT_FALSE(bill.BillSavedFlag);
    EXPECT_EQ(bill.DTPDate, QDate(2023, 2, 8));
    EXPECT_EQ(QStringList({bill.TxtWarehouseNameF, bill.TxtWareCode, bill.TxtAmount, bill.TxtCost, bill.TxtFee,
                           bill.TxtTotalMoney, bill.LabTotalMoney, bill.TxtOperator}),
              QStringList({"主仓", "P001", "2", "55.00", "10.00", "110.00", "100.00", "小王"}));
    EXPECT_EQ(bill.unitChoices, QStringList({"套", "盒"}));
    EXPECT_EQ(bill.MSH.rows(), 3);
    EXPECT_EQ(QStringList({Cell(1, "商品编号"), Cell(1, "数量"), Cell(1, "成本价"), Cell(1, "金额"), Cell(1, "备注"),
                           Cell(1, "批号")}),
              QStringList({"A001", "10.00", "10.00", "100.00", "急", ""}));
    EXPECT_EQ(Save(), QStringList("保存成功！"));
    EXPECT_EQ(posting.code, "ZZD202302080001");

    EXPECT_FALSE(RecallByCode(test.program, bill, " "));
    RecallByCode(test.program, bill, "none");
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList({"请输入组装或拆卸单编号！", "没有原单，套用调入失败！"}));
    EXPECT_EQ(bill.TxtBillCode, "ZZD202302080001");
}

TEST_F(AssemblyRecallTest, TheLatestDayOfAProductDecides)
{
    AddAssembly("ZZD1", QDate(2023, 1, 5));
    AddAssembly("ZZD2", QDate(2023, 1, 9));
    AddAssembly("ZZD3", QDate(2023, 1, 12), "A001");
    test.Run(Sql("update TabWareGroup set Fee=7 where Code='ZZD2'"));
    Open(true);
    for (const auto& [code, name] : {std::pair("P001", ""), std::pair("", "名P001")}) {
        NewBill(test.program, bill);
        EXPECT_TRUE(RecallLatest(test.program, bill, code, name));
        EXPECT_EQ(bill.TxtWareCode + " " + bill.TxtFee, "P001 7.00");
    }
    EXPECT_FALSE(RecallLatest(test.program, bill, "", " "));
    EXPECT_FALSE(RecallLatest(test.program, bill, "B001", ""));
    EXPECT_EQ(test.prompt.TakeTexts(),
              QStringList({"请输入组装或拆卸产品名称或编号！", "输入的组装拆卸产品不存在组装拆卸历史记录！"}));
}

TEST_F(AssemblyRecallTest, TheListShowsAHundredAndTheFilterAll)
{
    for (int i = 0; i < 103; ++i)
        AddAssembly(QString("ZZD%1").arg(i, 3, 10, QLatin1Char('0')), QDate(2022, 9, 1).addDays(i));
    AddAssembly("OTHER", QDate(2023, 1, 1), "A001");
    Open(true);
    AssemblyList list = OpenAssemblyList(test.program, bill, "P001");
    EXPECT_EQ(Codes(list).size(), 100);
    EXPECT_EQ(Codes(list).first(), "ZZD102");
    EXPECT_EQ(list.MSH.Cell(0, 4) + list.MSH.Cell(1, 2) + " " + list.MSH.Cell(1, 8), "收货仓库2022-12-12 2");

    const std::pair<AssemblyFilter, QStringList> cases[] = {
        {{"", "", "2022-9-2"}, {"ZZD001", "ZZD000"}},
        {{"", "2022-12-12", ""}, {"ZZD102"}},
        {{"ZZD050", "2022-09-01", "2022-12-31"}, {"ZZD050"}},
        {{"OTHER", "", ""}, {}},
    };
    for (const auto& [filter, codes] : cases) {
        EXPECT_TRUE(FilterAssemblyList(test.program, list, filter));
        EXPECT_EQ(Codes(list), codes);
    }
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList("没有满足条件的数据！"));
    EXPECT_TRUE(FilterAssemblyList(test.program, list, {}));
    EXPECT_FALSE(FilterAssemblyList(test.program, list, {"", "9", ""}));
    EXPECT_FALSE(FilterAssemblyList(test.program, list, {"", "", "9"}));
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList({"单据日期从不是日期型格式(YYYY-MMM-DD),请修改！",
                                                    "单据日期至不是日期型格式(YYYY-MMM-DD),请修改！"}));
    EXPECT_EQ(Codes(list).size(), 103);

    // The original opens in another copy of this program; a blank row opens nothing.
    OpenOriginal(test.program, list, list.MSH.lastRow());
    EXPECT_FALSE(ReadClearLines(test.program.folder));
    OpenOriginal(test.program, list, 1);
    EXPECT_EQ(ReadClearLines(test.program.folder)->filter("ZZD102").size(), 1);
    EXPECT_EQ(ReadClearLines(test.program.folder)->filter("商品组装原单查看").size(), 1);
}

} // namespace
