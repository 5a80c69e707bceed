#include "assembly/life/piece_print.h"
#include "piece_screen.h"

#include "base/code_page.h"

#include <QFile>

namespace {

class PiecePrintTest : public PieceScreen
{
protected:
    QStringList Texts()
    {
        QFile file(test.folder.filePath("printfile.txt"));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        QStringList texts = FromCodePage(file.readAll()).split("\r\n").filter("string=");
        return texts.replaceInStrings("string=", "");
    }
    void SaveAssembly()
    {
        Open(true, "2");
        bill.TxtSaleMan = "张三";
        TypeAndLeave("TxtFee", "10");
        AddLine("A001", {{"数量", "10"}});
        Save();
    }
};

TEST_F(PiecePrintTest, TheTextsOfThePrintFile)
{
    SaveAssembly();
    PlainBillPrint(test.program, bill, kPiecePaper, "直接打印");
    EXPECT_EQ(Texts().mid(0, 14), QStringList({"录单日期：2023-02-08", "单据编号：ZZD202302080001", "发出仓库：主仓",
                                               "组装商品名：套装", "业 务 员：张三", "单位成本：55.00", "组装数量：2",
                                               "收存仓库：分仓", "计量单位：套", "组装费用：10.00", "合计金额：110.00",
                                               "制 单 人：系统管理员", "组装商品金额合计：100.00", "商品编号"}));
}

TEST_F(PiecePrintTest, TheWordsOfTheTemplates)
{
    Open(false, "2");
    QString GroupPieceText::*const numbered[] = {
        &GroupPieceText::TxtWareAttribute, &GroupPieceText::TxtWareSpec,  &GroupPieceText::TxtManufacturer,
        &GroupPieceText::TxtBrand,         &GroupPieceText::TxtPCode,     &GroupPieceText::TxtSCDate,
        &GroupPieceText::TxtYXDate,        &GroupPieceText::TxtOnlyCode,  &GroupPieceText::TxtCustom1,
        &GroupPieceText::TxtCustom2,       &GroupPieceText::TxtCustom3,   &GroupPieceText::TxtCost,
        &GroupPieceText::TxtFee,           &GroupPieceText::TxtTotalMoney};
    int number = 0;
    for (QString GroupPieceText::*const text : numbered)
        bill.*text = QString::number(++number);
    bill.LabTotalMoney = "15";
    const BillSheet sheet = SheetOf(test.program, bill, kPiecePaper);
    EXPECT_EQ(sheet.headTable, "TabWarePiece");
    const std::pair<const char*, const char*> cases[] = {
        {"?发出仓库>?收存仓库", "主仓>分仓"},
        {"?单件成本|?计量单位|?组装数量|?拆卸数量", "12|套|2|2"},
        {"?组装费用?拆卸费用|?合计金额|?组装商品金额合计|?拆卸商品金额合计", "1313|14|15|15"},
        {"?组装的商品的属性|?组装的商品的规格", "1|2"},
        {"?拆卸的商品的属性|?拆卸的商品的规格", "主仓|分仓"}, // which templates rely on
        {"?组装的商品的生产厂商?拆卸的商品的品牌?组装的商品的批号?拆卸的商品的生产日期", "3456"},
        {"?组装的商品的有效日期?拆卸的商品的唯一码?组装的商品的自定义1?拆卸的商品的自定义2?拆卸的商品的自定义3",
         "7891011"},
        {"?组装商品|?拆卸商品", "套装|套装"},
        {"?单据名称?单据状态", "?单据名称"},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(ReplaceBillTokens(sheet.tokens, text), expected) << text;
    EXPECT_EQ(TemplateGroup(bill, kPiecePaper) + TemplateRights(bill, kPiecePaper), "组装拆卸单组装拆卸单");
    EXPECT_EQ(FixedTemplate(*bill.kind, "-TXM-S"), "SP-CXSP-TXM-S.xls");
}

TEST_F(PiecePrintTest, TheListIsPrintedByTheRightToPrintAssemblies)
{
    SaveAssembly();
    const AssemblyList list = OpenAssemblyList(test.program, bill, "P001");
    PrintAssemblyList(test.program, list, "直接打印");
    EXPECT_EQ(test.prompt.TakeTexts(),
              QStringList({"打印管理程序不存在，请确定您程序安装是否完整！", "启动打印模块意外失败，请重新操作！"}));
    EXPECT_EQ(Texts().size(), 2 * 9) << "captions and the one bill";
    EXPECT_EQ(Texts()[9], "ZZD202302080001");
    test.program.parameters.UserName = "张三";
    PrintAssemblyList(test.program, list, "直接打印");
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList("没有操作权限！"));
    test.Insert("TabOperateRight", {{"UserName", "张三"}, {"FunctionName", "组装拆卸"}, {"AllowPrint", 1}});
    PrintAssemblyList(test.program, list, "打印设置");
    EXPECT_EQ(test.prompt.TakeTexts().size(), 2);
}

} // namespace
