// Lines out of workbooks as they are found, read by LibreOffice itself.

#include "bills/lines/line_import.h"

#include "bills/screen.h"
#include "output/spreadsheet_plugin.h"
#include "support/zip_file.h"

#include <QFile>

namespace {

const QByteArray kStrings = "<si><t>商品编号</t></si><si><r><t>数</t></r><r><t>量</t></r></si><si><t>001</t></si>"
                            "<si><t xml:space=\"preserve\">　B001 </t></si><si><t>A001</t></si>";

const QByteArray kFormats =
    "<numFmts count=\"1\"><numFmt numFmtId=\"176\" formatCode=\"yyyy&quot;年&quot;m&quot;月"
    "&quot;d&quot;日&quot;\"/></numFmts><cellXfs count=\"4\"><xf/>"
    "<xf numFmtId=\"14\" applyNumberFormat=\"1\"/><xf numFmtId=\"176\" applyNumberFormat=\"1\"/>"
    "<xf numFmtId=\"11\" applyNumberFormat=\"1\"/></cellXfs>";

/// A merged title, titles out of order and in two runs, one in the fortieth column and one behind it; codes as texts
/// and as numbers; a barcode shown with an exponent; dates in two formats, and as a text; formulas; a blank row.
const QByteArray kSheet = R"(<sheetData><row r="1"><c r="A1" t="s"><v>0</v></c><c r="C1" t="s"><v>1</v></c>
<c r="D1" t="inlineStr"><is><t>生产日期</t></is></c><c r="E1" t="inlineStr"><is><t>有效日期</t></is></c>
<c r="F1" t="inlineStr"><is><t>唯一码</t></is></c><c r="G1" t="inlineStr"><is><t>自定义字段1</t></is></c>
<c r="AN1" t="inlineStr"><is><t>批号</t></is></c><c r="AO1" t="inlineStr"><is><t>品牌</t></is></c></row>
<row r="2"><c r="A2" t="s"><v>2</v></c><c r="C2" t="inlineStr"><is><t>1,234.5</t></is></c><c r="D2" s="1"><v>44931</v></c>
<c r="E2" t="inlineStr"><is><t>2023-02-01</t></is></c><c r="F2" s="3"><v>6901234567890</v></c>
<c r="G2"><f>1+1</f><v>2</v></c><c r="AN2" t="inlineStr"><is><t>007</t></is></c>
<c r="AO2" t="inlineStr"><is><t>behind</t></is></c></row>
<row r="3"><c r="A3"><v>1001</v></c><c r="C3"><v>0.1</v></c><c r="D3" s="2"><v>44931</v></c>
<c r="G3" t="str"><f>"a"&amp;"b"</f><v>ab</v></c></row>
<row r="4"><c r="A4" t="s"><v>3</v></c><c r="C4"><f>C3*10</f></c></row>
<row r="6"><c r="A6" t="s"><v>4</v></c></row></sheetData>
<mergeCells count="1"><mergeCell ref="A1:B1"/></mergeCells>)";

const QString kThree = "共导入3 条数据！\n第5行没有商品编号，从这一行起没有导入。";

struct OfficeImport : BillScreen
{
    OfficeImport()
    {
        test.program.spreadsheet = LoadSpreadsheet(OFFICE_FOLDER);
        for (const char* code : {"001", "1001"})
            test.Insert("TabWare", {{"Code", code}, {"Name", "n"}});
        Open("盘点报溢");
        AddLine("A001", {});
    }
    QString Put(const QString& name, const QByteArray& content)
    {
        const QString path = test.folder.filePath(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        return path;
    }
    /// A workbook in the older format in which nothing but its outermost frame is left.
    QByteArray Scrambled(const QByteArray& workbook)
    {
        const QString newer = Put("whole.xlsx", workbook), older = test.folder.filePath("whole.xls");
        test.program.spreadsheet->Run([&](SpreadsheetApplication& office) { office.Open(newer)->SaveAs(older); });
        QFile file(older);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        QByteArray content = file.readAll();
        for (qsizetype at = 1024; at < 3000; ++at)
            content[at] = char(content[at] ^ 0x5a);
        return content;
    }
    QString Import(const QString& path)
    {
        return ExcelInBill(test.program, bill, path, [](int, int) { return true; });
    }
    QStringList Lines()
    {
        QStringList lines;
        for (int row = 1; row < bill.MSH.lastRow(); ++row) {
            QStringList cells;
            for (const char* caption :
                 {"商品编号", "数量", "品牌", "批号", "生产日期", "有效日期", "唯一码", "自定义字段1"})
                cells << Cell(row, caption);
            lines << cells.join('|');
        }
        return lines;
    }
};

TEST_F(OfficeImport, WorkbooksAsTheyAreFound)
{
    const QStringList lines = {"001|1,234.50||007|2023-01-05|2023-02-01|6901234567890|2", "1001|0.10|||2023-01-05|||ab",
                               "B001|1.00||||||"};
    const QString newer = Put("book.xlsx", XlsxOf("an only sheet", kSheet, kStrings, kFormats));
    EXPECT_EQ(Import(newer), kThree);
    EXPECT_EQ(Lines(), lines);

    const QString older = test.folder.filePath("book.xls");
    test.program.spreadsheet->Run([&](SpreadsheetApplication& office) { office.Open(newer)->SaveAs(older); });
    Open("盘点报溢");
    EXPECT_EQ(Import(older), kThree);
    EXPECT_EQ(Lines(), lines);
}

TEST_F(OfficeImport, WhatIsNoSheetOfLinesIsRefusedAndTheLinesStay)
{
    const QByteArray workbook = XlsxOf("Sheet1", kSheet, kStrings, kFormats);
    const std::pair<const char*, QByteArray> files[] = {
        {"rubbish.xls", "\xd0\xcf\x11\xe0" + workbook},
        {"cut.xlsx", workbook.left(workbook.size() / 2)},
        {"scrambled.xls", Scrambled(workbook)},
        {"untitled.xlsx", XlsxOf("sheet1", "<sheetData/>", kStrings, kFormats)},
    };
    const QStringList before = Lines();
    for (const auto& [name, content] : files) {
        const QString said = Import(Put(name, content));
        EXPECT_TRUE(said.contains(name)) << said.toStdString();
        EXPECT_EQ(Lines(), before) << name;
    }
    EXPECT_TRUE(Import(test.folder.filePath("gone.xls")).contains("gone.xls"));
    EXPECT_EQ(Import(Put("good.xlsx", workbook)), kThree) << "the next file is read as ever";
}

} // namespace
