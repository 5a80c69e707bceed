#include "output/template_print.h"

#include "support/memory_workbook.h"
#include "support/test_program.h"

#include <QLockFile>
#include <sys/wait.h>
#include <unistd.h>

namespace {

const char* const kUnforeseen = "操作发生不可预测性错误！请退出软件重启电脑后再操作！";

/// A bill of two lines, and a template of one token a row, placeholders and a foot.
class TemplatePrintTest : public testing::Test
{
protected:
    TemplatePrintTest()
    {
        test.Insert("TabSamePriceMove", {{"Code", "TDD1"}});
        Store("T.xls", Page());
        bill.valBillCode = "TDD1";
        bill.headTable = "TabSamePriceMove";
        bill.tokens = {{"?单据名称", "?单据名称"}, {"?合计金额", "1,234.50"}, {"?组装商品金额合计", "9"},
                       {"?组装商品", "套装"},      {"?备注", "?币种!"},       {"?币种", "人民币"}};
        bill.isFigure = {false, false, true};
        bill.lines = {{"001", "螺丝", "1,200.50"}, {"002", "螺帽", "abc"}};
    }

    static std::vector<QStringList> Page()
    {
        std::vector<QStringList> page(45, QStringList(""));
        page[15] = {"编号", "名称", "数量"};
        page[16] = {"上", "上"};
        page[17] = {"下", "下"};
        page[18] = {"合计", "?合计金额"};
        return page;
    }

    void Store(const char* name, const std::vector<QStringList>& page, const QString& style = {})
    {
        office.books[name] = {SheetOfTexts("Sheet1", page)};
        if (!style.isEmpty())
            office.books[name].push_back(SheetOfTexts("样式分类设置", {{"", style}}));
        test.Insert("TabExcelTable", {{"TabName", name}, {"TabInf", QByteArray(name)}});
    }

    /// Fills a template and gives the boxes.
    QString Fill(const QString& name, SheetGoal goal = SheetGoal::Preview)
    {
        PrintBill_Excel(test.program, bill, name, goal, [this](const QString& pdf) {
            EXPECT_TRUE(QFile::exists(pdf));
            shown << pdf;
        });
        return test.Boxes();
    }

    /// What the last preview or print showed.
    const MemorySheet& Sheet() { return office.pdfs.back().sheet; }
    QString Row(int row)
    {
        QStringList texts;
        for (int column = 1; column <= 4; ++column)
            texts << Sheet().Text(row, column);
        return texts.join('|');
    }
    QString FilesIn(const char* folder)
    {
        return QDir(test.folder.filePath(folder)).entryList(QDir::Files, QDir::Name).join(' ');
    }

    TestProgram test;
    MemorySpreadsheet& office = UseMemorySpreadsheet(test.program);
    BillSheet bill;
    QStringList shown;
};

TEST_F(TemplatePrintTest, WhatAKilledProgramLeftGoesAndWhatTheUserHasStays)
{
    const QString folder = test.folder.filePath("TempFile/");
    ASSERT_TRUE(QDir().mkpath(folder));
    for (const char* name : {"left.xls", "left.xls.pdf", "theirs.xls", "ours.xls"})
        ASSERT_TRUE(QFile(folder + name).open(QIODevice::WriteOnly));
    const pid_t killed = fork();
    if (killed == 0)
        _exit((new QLockFile(folder + "left.xls.lock"))->tryLock() ? 0 : 1); // it ends without unlocking
    int status = 1;
    ASSERT_EQ(waitpid(killed, &status, 0), killed);
    ASSERT_EQ(status, 0);
    QLockFile atWork(folder + "ours.xls.lock");
    ASSERT_TRUE(atWork.tryLock());
    EXPECT_EQ(Fill("T.xls"), "");
    EXPECT_EQ(FilesIn("TempFile"), "ours.xls ours.xls.lock theirs.xls");
}

TEST_F(TemplatePrintTest, LinesStandBetweenTheFormerPlaceholders)
{
    EXPECT_EQ(Fill(" T.xls "), "");
    EXPECT_EQ(Row(16), "编号|名称|数量|");
    EXPECT_EQ(Row(17), "001|螺丝|1200.5|");
    EXPECT_EQ(Row(18), "002|螺帽|abc|");
    EXPECT_EQ(Row(19), "合计|1,234.50||");
    EXPECT_TRUE(std::holds_alternative<double>(Sheet().rows[16][2])) << "a figure can be added up";
    EXPECT_TRUE(std::holds_alternative<QString>(Sheet().rows[16][0])) << "a code keeps its zeros";
    EXPECT_EQ(office.calls["InsertRows"], 1);
    EXPECT_EQ(office.calls["Write"], 2) << "the cell of a token and the block of lines";
    EXPECT_EQ(shown, QStringList(test.folder.filePath("TempFile/20230208093000T.xls.pdf")));
    EXPECT_EQ(FilesIn("TempFile"), "");
    EXPECT_EQ(FilesIn("PrintTemp"), "T.xls");

    bill.lines.clear();
    EXPECT_EQ(Fill("T.xls"), "");
    EXPECT_EQ(Row(16) + Row(17), "编号|名称|数量|合计|1,234.50||") << "both placeholders are gone, nothing else";
}

TEST_F(TemplatePrintTest, TokensAreReplacedInTheirOrderWithinFortyRowsAndColumns)
{
    std::vector<QStringList> page = Page();
    const std::pair<const char*, const char*> cases[] = {
        {"?单据名称", "?单据名称"},    {"共?合计金额和?合计金额", "共1,234.50和1,234.50"},
        {"?组装商品金额合计", "9"},    {"?组装商品", "套装"},
        {"?组装商品金额", "套装金额"}, {"?备注", "人民币!"}, // a value is looked at by the words that follow
        {"?无此项", "?无此项"},
    };
    int row = 0;
    for (const auto& [text, expected] : cases)
        page[row++] = {text};
    page[8] = QStringList(41, "?币种");
    page[40] = {"?币种"};
    Store("tokens.xls", page);
    EXPECT_EQ(Fill("tokens.xls"), "");
    row = 0;
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(Sheet().Text(++row, 1), expected) << text;
    EXPECT_EQ(Sheet().Text(9, 40) + Sheet().Text(9, 41), "人民币?币种");
    EXPECT_EQ(Sheet().Text(41, 1), "?币种") << "moved down by two lines less two placeholders";
}

TEST_F(TemplatePrintTest, AStyleWordPutsBarcodesInFront)
{
    test.Insert("TabWare", {{"Code", "001"}, {"TiaoXingCode", "0690123"}});
    for (int good = 3; good < 250; ++good) // more than one statement
        bill.lines.push_back({QString("g%1").arg(good), "", "1"});
    test.Insert("TabWare", {{"Code", "G249"}, {"TiaoXingCode", "249"}});
    int prints = 0;
    for (const auto& [style, expected] : {std::pair("首列打印条形码", "0690123"),
                                          {"首列打印图形条形码", "0690123"},
                                          {" 首列打印数字条形码 ", "0690123"},
                                          {"首列", "001"}}) {
        const QByteArray name = QByteArray(style).trimmed() + ".xls";
        Store(name, Page(), style);
        EXPECT_EQ(Fill(name), "");
        EXPECT_EQ(Sheet().Text(17, 1), expected) << style;
        const bool hasBarcode = QString(expected) != "001";
        EXPECT_EQ(Row(18), hasBarcode ? "|002|螺帽|abc" : "002|螺帽|abc|");
        EXPECT_EQ(Sheet().Text(17 + 248, 1), hasBarcode ? "249" : "g249");
        const bool areDrawn = QByteArray(style).contains("图形");
        EXPECT_EQ(Sheet().barcodes.value(16), areDrawn ? "0690123" : "");
        EXPECT_EQ(office.calls["FitRows"] + office.calls["DrawBarcodes"], ++prints) << "either fits the rows";
    }
    office.books["首列打印图形条形码.xls"].front().hasOwnFonts = true;
    EXPECT_EQ(Fill("首列打印图形条形码.xls"), "");
    EXPECT_EQ(Sheet().barcodes, QStringList()) << "the font makes the bars";
}

TEST_F(TemplatePrintTest, RefusesWithItsReason)
{
    test.Insert("TabExcelTable", {{"TabName", "empty.xls"}, {"TabInf", QByteArray("")}});
    test.Insert("TabExcelTable", {{"TabName", "../T.xls"}, {"TabInf", QByteArray("T.xls")}});
    const QString missing = test.folder.filePath("PrintTemp/none.xls") + "  不存在！.";
    const std::tuple<const char*, const char*, QString> cases[] = {
        {"TDD2", "  ", "未传递打印模版名，打印终止！"},
        {"TDD1", " 暂无 ", "未传递打印模版名，打印终止！"},
        {"TDD2", "none.xls", "尚未保存数据，请先保存数据后重新执行打印！"},
        {"TDD1", "none.xls", missing + "|打开报表模版失败，请重新操作！"},
        {"TDD1", "empty.xls", "打印模版文件不存在，打印终止！"},
        {"TDD1", "../T.xls", "报表模版名“../T.xls”不是文件名，操作终止！"},
        {"TDD1", "..", "报表模版名“..”不是文件名，操作终止！"},
        {"", "T.xls", ""}, // without a number it is not looked for
    };
    for (const auto& [code, name, boxes] : cases) {
        bill.valBillCode = code;
        EXPECT_EQ(Fill(name), boxes) << name;
    }
    EXPECT_EQ(office.calls["Run"], 1);
    EXPECT_FALSE(QFile::exists(test.folder.filePath("T.xls")));
}

TEST_F(TemplatePrintTest, TheFilledWorkbookIsLeftToTheUser)
{
    EXPECT_EQ(Fill("T.xls", SheetGoal::IntoExcel), "");
    ASSERT_EQ(office.handedOver.size(), 1U);
    const MemorySpreadsheet::HandedOver& handed = office.handedOver.front();
    EXPECT_EQ(handed.path, test.folder.filePath("TempFile/20230208093000T.xls"));
    EXPECT_EQ(handed.caption, "输出....");
    EXPECT_FALSE(handed.isNew);
    EXPECT_EQ(handed.book.front().Text(17, 2), "螺丝");
    EXPECT_EQ(FilesIn("TempFile"), "20230208093000T.xls");
    EXPECT_TRUE(office.pdfs.empty());
    EXPECT_EQ(Fill("T.xls"), "");
    EXPECT_EQ(FilesIn("TempFile"), "") << "the second print of a second takes the first one's file along";
}

TEST_F(TemplatePrintTest, WhatGoesWrongInTheOfficeIsSaidAndLeavesNoFiles)
{
    using Kind = SpreadsheetError::Kind;
    const std::tuple<const char*, Kind, const char*, SheetGoal> cases[] = {
        {"Run", Kind::NotInstalled, "description", SheetGoal::Preview},
        {"Run", Kind::Busy, "description", SheetGoal::Preview},
        {"Open", Kind::CannotOpen, "description", SheetGoal::Preview},
        {"Read", Kind::Stopped, kUnforeseen, SheetGoal::Preview},
        {"Write", Kind::Stopped, kUnforeseen, SheetGoal::Preview},
        {"ExportPdf", Kind::CannotSave, "description", SheetGoal::Preview},
        {"SaveAs", Kind::CannotSave, "description", SheetGoal::IntoExcel},
        {"HandOver", Kind::NoDisplay, "description", SheetGoal::IntoExcel},
    };
    for (const auto& [operation, kind, box, goal] : cases) {
        office.failures = {{operation, {kind, "description"}}};
        EXPECT_EQ(Fill("T.xls", goal), box) << operation;
        EXPECT_EQ(FilesIn("TempFile"), "") << operation;
    }
    office.failures.clear();
    office.books = {{"T.xls", {SheetOfTexts("工作表1", Page())}}};
    EXPECT_EQ(Fill("T.xls"), kUnforeseen) << "without its page";
    EXPECT_EQ(shown, QStringList());
}

TEST_F(TemplatePrintTest, FoldersThatCannotBeMadeAreSaid)
{
    for (const char* folder : {"TempFile", "PrintTemp"}) {
        QDir(test.folder.filePath(folder)).removeRecursively();
        QFile file(test.folder.filePath(folder));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(Fill("T.xls"), "不能建立文件夹" + file.fileName() + "，请确定程序文件夹的写权限后重新操作！");
    }
}

TEST_F(TemplatePrintTest, ATemplateIsOpenedForTheUser)
{
    SetPrintTemplate(test.program, "T.xls");
    ASSERT_EQ(office.handedOver.size(), 1U);
    EXPECT_EQ(office.handedOver.front().path, test.folder.filePath("PrintTemp/T.xls"));
    EXPECT_FALSE(office.handedOver.front().isNew);
    EXPECT_TRUE(test.prompt.boxes.empty());

    test.Insert("TabExcelTable", {{"TabName", "empty.xls"}, {"TabInf", QByteArray("")}});
    office.failures = {{"HandOver", {SpreadsheetError::Kind::Stopped, "description"}}};
    for (const char* name : {"", "empty.xls", "T.xls"})
        SetPrintTemplate(test.program, name);
    EXPECT_EQ(test.Boxes(), QString("未传递打印模版名，设置终止！|打印模版文件不存在，设置终止！|") + kUnforeseen);
}

TEST(CompanyToken, IsTheFirstNameOfTheCompany)
{
    TestProgram test;
    EXPECT_EQ(GetCompanyToken(test.program, "?本单位名称"), "");
    EXPECT_EQ(GetCompanyToken(test.program, "?备注"), "?备注");
    test.Insert("TabCompanyInf", {{"Name", "恒信"}});
    EXPECT_EQ(GetCompanyToken(test.program, "?本单位名称"), "恒信");
}

} // namespace
