#include "output/print_file.h"

#include "base/code_page.h"
#include "support/test_program.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

GridTable Grid(std::vector<int> widths, std::vector<int> heights)
{
    GridTable grid{std::move(widths), std::move(heights), {}};
    for (size_t row = 0; row < grid.heights.size(); ++row) {
        grid.rows.emplace_back();
        for (size_t column = 0; column < grid.widths.size(); ++column)
            grid.rows.back() << QString("%1%2").arg(row).arg(column);
    }
    return grid;
}

QStringList LinesOf(const PrintFile& file)
{
    return FromCodePage(PrintFileBytes(file, "表", "直接打印", "")).split("\r\n");
}

/// The cells of a file: row, column, height, width and text of each.
QStringList CellsOf(const PrintFile& file)
{
    QString cells = LinesOf(file).join(' ').section("mshcontent: ", 1).section("批量", 0, 0);
    return cells.remove(QRegularExpression("[a-z]+=")).split("cell: ", Qt::SkipEmptyParts);
}

TEST(PrintFile, IsWrittenByteForByte)
{
    TestProgram test;
    PrintFile file;
    file.SetPrintHead("单据编号：TDD1", 1);
    file.SetPrintHead("备    注：a=b", 2);
    file.SetPrintFoot("数量合计：3", 1);
    GridTable grid = Grid({300, 1500, 0, 1000}, {300, 300});
    grid.rows[1][3] = "x\r\ny=z\xF0\x9F\x98\x80"; // the last character is not in the code page
    file.SetPrintGrid(grid, {.leftCols = 1});
    ASSERT_TRUE(WritePrintFile(test.program, file, " 同价调拨单 ", " 打印预览 "));

    const auto written = [&test] {
        QFile printed(test.folder.filePath("printfile.txt"));
        EXPECT_TRUE(printed.open(QIODevice::ReadOnly));
        return printed.readAll();
    };
    const QByteArray bytes = written();
    EXPECT_TRUE(bytes.startsWith("\xB4\xF2\xD3\xA1\xB1\xED\xB1\xED\xC3\xFB:\r\nprinttablename=\xCD\xAC")) << "in GBK";
    EXPECT_EQ(FromCodePage(bytes), "打印表表名:\r\nprinttablename=同价调拨单\r\n"
                                   "打印类别:\r\nprinttype=打印预览\r\n"
                                   "headcount:\r\ncount=2\r\nheadcontent:\r\n"
                                   "string=单据编号：TDD1\r\nstring=备    注：a=b\r\n"
                                   "footcount:\r\ncount=1\r\nfootcontent:\r\nstring=数量合计：3\r\n"
                                   "msh:\r\nmshrows=2\r\nmshcols=2\r\nmshcontent:\r\n"
                                   "cell:\r\nrow=0\r\ncol=0\r\nrowheight=300\r\ncolwidth=1500\r\nstring=01\r\n"
                                   "cell:\r\nrow=0\r\ncol=1\r\nrowheight=300\r\ncolwidth=1000\r\nstring=03\r\n"
                                   "cell:\r\nrow=1\r\ncol=0\r\nrowheight=300\r\ncolwidth=1500\r\nstring=11\r\n"
                                   "cell:\r\nrow=1\r\ncol=1\r\nrowheight=300\r\ncolwidth=1000\r\nstring=x||y=z?\r\n"
                                   "批量连续打印:\r\naccountantprintsign=\r\n");

    ASSERT_TRUE(WritePrintFile(test.program, {}, "表", "打印设置", " 1 "));
    EXPECT_EQ(FromCodePage(written()),
              "打印表表名:\r\nprinttablename=表\r\n打印类别:\r\nprinttype=打印设置\r\n"
              "headcount:\r\ncount=0\r\nfootcount:\r\ncount=0\r\nmsh:\r\nmshrows=0\r\nmshcols=0\r\n"
              "批量连续打印:\r\naccountantprintsign=1\r\n")
        << "in place of the last one, without sections that are empty";
    EXPECT_TRUE(test.prompt.boxes.empty());
}

TEST(PrintFile, AGapInTheTextsPushesTheLastOneOut)
{
    PrintFile file;
    file.SetPrintHead("a", 1);
    file.SetPrintHead("c", 3);
    file.SetPrintHead("z", 20);
    EXPECT_EQ(LinesOf(file).mid(4, 6),
              QStringList({"headcount:", "count=3", "headcontent:", "string=a", "string=", "string=c"}));
    EXPECT_THROW(file.SetPrintHead("x", 21), std::out_of_range);
    EXPECT_THROW(file.SetPrintFoot("x", -1), std::out_of_range);
}

TEST(PrintFile, SkipsAndHiddenRows)
{
    PrintFile file;
    file.SetPrintGrid(Grid({300, 100, 0, 50}, {20, 0, 30, 40}), {.topRows = 1, .leftCols = 1, .rightCols = 1});
    EXPECT_EQ(file.PrintGridRows, 2);
    EXPECT_EQ(file.PrintGridCols, 1) << "counted without the right one, which is written all the same";
    EXPECT_EQ(CellsOf(file), QStringList({"0 0 0 100 11 ", "0 1 0 50 13 ", "1 0 40 100 31 ", "1 1 40 50 33 "}))
        << "row 1 is hidden, and the row above it asked in its place";

    file.SetPrintGrid(Grid({300, 100}, {20, 30, 40}), {.leftCols = 1, .bottomRows = 1});
    EXPECT_EQ(CellsOf(file), QStringList({"0 0 20 100 01 ", "1 0 30 100 11 "}));

    file.SetPrintGrid(Grid({300, 0}, {20, 20}), {.leftCols = 1});
    EXPECT_EQ(LinesOf(file).mid(8),
              QStringList({"msh:", "mshrows=2", "mshcols=0", "批量连续打印:", "accountantprintsign=", ""}));
}

TEST(PrintFile, AFailureIsSaid)
{
    TestProgram test;
    QDir(test.folder.path()).mkpath("printfile.txt/in the way");
    EXPECT_FALSE(WritePrintFile(test.program, {}, "表", "直接打印"));
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList("不能写入打印文件" + test.folder.filePath("printfile.txt") +
                                                   "，请确定磁盘空间和程序文件夹的写权限后重新操作！"));
}

} // namespace
