// Bills through the print templates of a new account set, filled by LibreOffice itself and looked at on paper.

#include "assembly/life/piece_print.h"
#include "assembly/piece_screen.h"
#include "bills/screen.h"
#include "output/pdf_pages.h"
#include "output/spreadsheet_plugin.h"

#include <QFile>
#include <QProcess>

namespace {

/// Prints a bill of a screen and reads what came out.
template <typename Screen>
class PrintedBy : public Screen
{
protected:
    using Screen::bill;
    using Screen::test;

    PrintedBy()
    {
        test.program.spreadsheet = LoadSpreadsheet(OFFICE_FOLDER);
        test.Insert("TabCompanyInf", {{"Name", "浙江恒信商贸有限公司"}});
        test.Run(Sql("update TabWare set TiaoXingCode='6901234567892' where Code='A001'"));
    }

    /// The text of the print, blanks left out.
    QString Print(const QString& form, const BillPaper& paper)
    {
        const QString name = FixedTemplate(*bill.kind, form);
        QFile stored(TEMPLATE_FOLDER "/fixed/" + name);
        EXPECT_TRUE(stored.open(QIODevice::ReadOnly)) << name.toStdString();
        test.Run(Sql("delete from TabExcelTable"));
        test.Insert("TabExcelTable", {{"TabName", name.toUtf8().constData()}, {"TabInf", stored.readAll()}});
        PrintBill_Excel(test.program, SheetOf(test.program, bill, paper), name, SheetGoal::Print,
                        [this](const QString& made) {
                            QFile::remove(pdf);
                            EXPECT_TRUE(QFile::copy(made, pdf));
                        });
        EXPECT_EQ(test.prompt.TakeTexts(), QStringList());
        QProcess text;
        text.start("pdftotext", {"-layout", pdf, "-"});
        EXPECT_TRUE(text.waitForFinished());
        return QString::fromUtf8(text.readAllStandardOutput()).remove(' ');
    }

    /// What a scanner reads off the first page.
    QString Barcodes()
    {
        QProcess scan;
        scan.start("sh", {"-c", "pdftoppm -r 200 -f 1 -l 1 -png \"$0\" | zbarimg -q -", pdf});
        EXPECT_TRUE(scan.waitForFinished());
        return scan.readAllStandardOutput();
    }

    const QString pdf = test.folder.filePath("paper.pdf");
};

using PrintedBill = PrintedBy<BillScreen>;
using PrintedPiece = PrintedBy<PieceScreen>;

TEST_F(PrintedBill, ATransferOfTwoHundredLines)
{
    Open("同价调拨");
    for (int line = 0; line < 100; ++line) {
        AddLine("A001", {{"数量", "1"}});
        AddLine("B001", {{"数量", "2"}});
    }
    ASSERT_EQ(Save(), QStringList("保存成功！"));
    const QString text = Print("", kWareManagePaper);
    const std::vector<QSizeF> pages = PageSizes(pdf).value();
    EXPECT_GE(pages.size(), 4U);
    EXPECT_LE(pages.size(), 14U);
    EXPECT_NEAR(std::min(pages[0].width(), pages[0].height()), 595, 2) << "A4";
    EXPECT_EQ(text.count("A001"), 100);
    EXPECT_EQ(text.count("O'Neil"), 100);
    EXPECT_TRUE(text.contains("浙江恒信商贸有限公司")) << text.left(500).toStdString();
    EXPECT_TRUE(text.contains("TDD202302080001"));
    EXPECT_TRUE(text.contains("2023年02月08日"));
    EXPECT_TRUE(text.contains("300.00")) << "added up";
    EXPECT_GE(text.count("2.00"), 100) << "quantities as the bill shows them";
    EXPECT_FALSE(text.contains("汇率")) << "there are no currencies";
    EXPECT_FALSE(text.contains('?')) << text.mid(text.indexOf('?') - 40, 80).toStdString();

    const int name = ColumnIndex(*bill.kind, QString("商品名称"));
    for (int row = 1; row <= 200; row += 2)
        bill.MSH.SetCell(row, name, QString("加厚不锈钢内六角圆柱头螺丝").repeated(6));
    Print("", kWareManagePaper);
    EXPECT_GE(PageSizes(pdf)->size(), pages.size() + pages.size() / 2) << "rows grow with what wraps in them";
}

TEST_F(PrintedBill, ARevaluationAndAStocktakeWithBarcodes)
{
    Open("商品调价");
    AddLine("A001", {{"调价金额", "-12.5"}});
    ASSERT_EQ(Save(), QStringList("保存成功！"));
    const QString revaluation = Print("", kWareManagePaper);
    EXPECT_TRUE(revaluation.contains("-12.5")) << revaluation.toStdString();
    EXPECT_FALSE(revaluation.contains('?')) << revaluation.toStdString();

    Open("盘点报溢");
    AddLine("A001", {{"数量", "4"}});
    ASSERT_EQ(Save(), QStringList("保存成功！"));
    const QString overflow = Print("-TXM-S", kWareManagePaper);
    EXPECT_TRUE(overflow.contains("6901234567892")) << overflow.toStdString();
    EXPECT_FALSE(overflow.contains('?')) << overflow.toStdString();
}

TEST_F(PrintedPiece, AnAssembly)
{
    Open(true, "2");
    TypeAndLeave("TxtFee", "10");
    AddLine("A001", {{"数量", "10"}});
    ASSERT_TRUE(FSave(test.program, bill).stored) << test.prompt.TakeTexts().join('|').toStdString();
    test.prompt.TakeTexts();
    const QString text = Print("-TXM-T", kPiecePaper);
    for (const char* part : {"ZZD202302080001", "套装", "110.00", "主仓", "螺丝"})
        EXPECT_TRUE(text.contains(part)) << part << "\n" << text.toStdString();
    EXPECT_FALSE(text.contains('?')) << text.toStdString();
    EXPECT_EQ(Barcodes(), "CODE-128:6901234567892\n");
}

} // namespace
