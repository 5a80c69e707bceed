#include "bills/life/recall.h"
#include "bills/paper/bill_print.h"
#include "screen.h"

#include "base/code_page.h"

#include <QFile>

namespace {

class BillPrintTest : public BillScreen
{
protected:
    /// A bill of one line, saved.
    void SaveBill(const char* operation)
    {
        OpenWithLine(operation);
        bill.TxtSaleMan = "张三";
        bill.TxtMemo = "备";
        bill.TxtExplain = "明";
        Type(1, bill.kind->lines == LineShape::Revalued ? "调价金额" : "数量", "3");
        ASSERT_EQ(Save(), QStringList("保存成功！"));
    }

    QStringList FileLines()
    {
        QFile file(test.folder.filePath("printfile.txt"));
        return file.open(QIODevice::ReadOnly) ? FromCodePage(file.readAll()).split("\r\n") : QStringList();
    }
    QStringList Print()
    {
        PlainBillPrint(test.program, bill, kWareManagePaper, "打印预览");
        return test.prompt.TakeTexts();
    }
};

TEST_F(BillPrintTest, EachKindGivesItsOwnTexts)
{
    // The head between code and remark, and the foot.
    const std::tuple<const char*, QStringList, QStringList> cases[] = {
        {"同价调拨", {"发货仓库：主仓", "业 务 员：张三", "收货仓库：分仓"}, {"数量合计：3.00"}},
        {"异价调拨", {"发货仓库：主仓", "业 务 员：张三", "收货仓库：分仓"}, {"数量合计：3.00", "金额合计：0.00"}},
        {"商品调价", {"调价仓库：分仓", "业 务 员：张三"}, {"数量合计：", "金额合计：3.00"}},
        {"盘点报损", {"盘点仓库：分仓", "业 务 员：张三"}, {"数量合计：3.00"}},
        {"盘点报溢", {"盘点仓库：分仓", "业 务 员：张三"}, {"数量合计：3.00"}},
    };
    for (const auto& [operation, head, foot] : cases) {
        SaveBill(operation);
        if (bill.kind->lines == LineShape::Revalued)
            bill.LabTotalAmount.clear();
        Print();
        const QStringList expected = QStringList({"录单日期：2023-02-08", "单据编号：" + bill.TxtBillCode}) + head +
                                     QStringList({"备    注：备", "制 单 人：系统管理员"}) + foot;
        QStringList texts = FileLines().filter("string=");
        texts.replaceInStrings("string=", "");
        EXPECT_EQ(texts.mid(0, expected.size()), expected) << operation;
        EXPECT_EQ(texts[expected.size()], "商品编号") << "without the column that marks rows";
        EXPECT_EQ(FileLines().filter("mshrows="), QStringList("mshrows=2")) << "without the blank row";
    }
}

TEST_F(BillPrintTest, AVoidBillSaysSoAndOnlyASavedOneIsPrinted)
{
    SaveBill("同价调拨");
    const QStringList notThere = {"打印管理程序不存在，请确定您程序安装是否完整！",
                                  "启动打印模块意外失败，请重新操作！"};
    EXPECT_EQ(Print(), notThere);
    EXPECT_EQ(FileLines().mid(1, 3), QStringList({"printtablename=同价调拨单", "打印类别:", "printtype=打印预览"}));
    EXPECT_EQ(ReadClearLines(test.program.folder)->filter("打印预览").size(), 1);
    test.Run(Sql("update TabSamePriceMove set State='作废'"));
    FillBill(test.program, bill, "TabSamePriceMove", bill.TxtBillCode);
    Print();
    EXPECT_EQ(FileLines()[1], "printtablename=同价调拨单（已作废）");

    ASSERT_TRUE(QFile::remove(test.folder.filePath("printfile.txt")));
    Open("同价调拨");
    EXPECT_EQ(Print(), QStringList("尚未保存数据，请先保存数据后重新执行！"));
    EXPECT_EQ(FileLines(), QStringList());
}

TEST_F(BillPrintTest, TheWordsOfTheTemplates)
{
    test.Insert("TabCompanyInf", {{"Name", "恒信"}});
    SaveBill("盘点报溢");
    bill.LabState = "作废";
    bill.TxtMoneyName = "人民币";
    bill.TxtAuditing = "李四";
    bill.DTPDate = QDate(2022, 11, 5);
    const BillSheet sheet = SheetOf(test.program, bill, kWareManagePaper);
    QStringList tokens;
    for (const BillToken& token : sheet.tokens) {
        if (token.word.startsWith('?')) // not the cell that goes as a whole
            tokens << token.word.mid(1) + "=" + token.value;
    }
    EXPECT_EQ(tokens.join(' '),
              "单据名称=?单据名称 本单位名称=恒信 单据编号=" + bill.TxtBillCode +
                  " 单据日期=2022年11月05日 电脑日期=2023年02月08日 备注=备 附加说明=明 发货仓库=主仓 "
                  "收货仓库=分仓 调价仓库=分仓 盘点仓库=分仓 报损仓库=分仓 报溢仓库=分仓 合计金额=" +
                  bill.LabTotalMoney +
                  " 合计数量=3.00 币种=人民币 汇率=1 业务员=张三 制单=系统管理员 审核人=李四 "
                  "审核标志=" +
                  bill.LabAuditing + " 单据状态=作废");
    ASSERT_EQ(sheet.lines.size(), 1U) << "without the blank row";
    EXPECT_EQ(sheet.lines.front().size(), bill.MSH.columns() - 1);
    EXPECT_EQ(sheet.lines.front().mid(0, 2), QStringList({"A001", "螺丝"}));
    EXPECT_TRUE(sheet.isFigure[5] && !sheet.isFigure[0]);
}

TEST_F(BillPrintTest, TemplatesOfTheKinds)
{
    const std::tuple<const char*, const char*, const char*, QString> cases[] = {
        {"同价调拨", "", "SP-TJDB.xls", "TabSamePriceMove"},
        {"异价调拨", "-TXM-S", "SP-TJDB-TXM-S.xls", "TabSamePriceMove"}, // and so is never found
        {"商品调价", "-TXM-T", "SP-SPTJ-TXM-T.xls", "TabChangePrice"},
        {"盘点报损", "", "SP-PDBS.xls", "TabCheckLose"},
        {"盘点报溢", "", "SP-PDBY.xls", "TabCheckOver"},
    };
    for (const auto& [operation, form, file, table] : cases) {
        Open(operation);
        EXPECT_EQ(FixedTemplate(*bill.kind, form), file);
        EXPECT_EQ(SheetOf(test.program, bill, kWareManagePaper).headTable, table);
        EXPECT_EQ(TemplateGroup(bill, kWareManagePaper), QString(operation) + "单");
        EXPECT_EQ(TemplateRights(bill, kWareManagePaper), operation);
    }
}

} // namespace
