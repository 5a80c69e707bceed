#include "bills/lines/line_import.h"

#include "assembly/piece_screen.h"
#include "support/memory_workbook.h"

#include <QRegularExpression>

namespace {

template <typename Screen>
struct ImportOn : Screen
{
    using Screen::bill;
    using Screen::test;

    MemorySpreadsheet& office = UseMemorySpreadsheet(test.program);

    void Put(const std::vector<QStringList>& rows, const QString& sheet = "Sheet1")
    {
        office.books["book.xls"] = {{"其他", {}}, SheetOfTexts(sheet, rows)};
    }

    /// What is said at the end.
    QString Import(int rowsUntilCancelled = -1)
    {
        int steps = rowsUntilCancelled;
        return ExcelInBill(test.program, bill, "book.xls",
                           [&steps](int, int total) { return total == 0 || steps-- != 0; });
    }

    /// The cells behind the row head, without empty ones at the end.
    QStringList Lines()
    {
        QStringList lines;
        for (int row = 1; row < bill.MSH.lastRow(); ++row) {
            QStringList cells;
            for (int column = 1; column < bill.MSH.columns(); ++column)
                cells << bill.MSH.Cell(row, column);
            while (!cells.isEmpty() && cells.back().isEmpty())
                cells.removeLast();
            lines << cells.join('|');
        }
        return lines;
    }
};

using LineImport = ImportOn<BillScreen>;
using PieceImport = ImportOn<PieceScreen>;

TEST_F(LineImport, EveryKindTakesItsColumns)
{
    const struct
    {
        const char* what;
        const char* operation;
        std::vector<QStringList> rows;
        QStringList lines;
        QString totals; // amount and money
    } cases[] = {
        {"titles in any order, figures as texts",
         "同价调拨",
         {{"备注", " 数量 ", "金额", "商品编号"}, {"r", "1,234.5", "7", " A001　"}, {"", "2件", "", "b001"}},
         {"A001|螺丝|M8||箱|1,234.50|10.00|12,345.00||||||||||r", "B001|O'Neil|||件|2.00|0.00|0.00"},
         "1,236.50 12,345.00"},
        {"what the sheet says of a good goes before what is known of it",
         "盘点报损",
         {{"商品编号", "商品名称", "规格", "属性", "单位", "数量"},
          {"A001", "螺丝甲", "M9", "0102", "个", "1"},
          {"A001", "　", "", "0102>颜色>红", "", "1"},
          {"A001", "", "", "none", "", "1"}},
         {"A001|螺丝甲|M9|0102>颜色>红|个|1.00|10.00|10.00", "A001|螺丝|M8|0102>颜色>红|箱|1.00|10.00|10.00",
          "A001|螺丝|M8|none>none|箱|1.00|10.00|10.00"},
         "3.00 30.00"},
        {"the price of a sheet is not taken",
         "异价调拨",
         {{"商品编号", "数量", "单价", "金额", "含税单价"}, {"A001", "3", "12", "36", "13"}},
         {"A001|螺丝|M8||箱|3.00||10.00|0.00"},
         "3.00 0.00"},
        {"a revaluation as it was typed",
         "商品调价",
         {{"商品编号", "商品名称", "调价金额", "数量"}, {"A001", "", "-1,234.567", "5"}, {"B001", "", "", ""}},
         {"A001|螺丝|M8||箱|-1234.567", "B001|O'Neil|||件|0"},
         "0.00 -1,234.57"},
        {"texts as they stand, on one line",
         "盘点报溢",
         {{"商品编号", "唯一码", "生产日期", "有效日期", "批号", "自定义字段1", "自定义字段3", "品牌", "生产厂商",
           "备注"},
          {"A001", "007", "2023-01-05", "no day", "0012", "c1", "c3", "brand", "maker", "a\nb"}},
         {"A001|螺丝|M8||箱|0.00|10.00|0.00|maker|brand|0012|2023-01-05|no day|007|c1||c3|a b"},
         "0.00 0.00"},
        {"the first of two titles",
         "同价调拨",
         {{"商品编号", "数量", "数量"}, {"A001", "3", "4"}},
         {"A001|螺丝|M8||箱|3.00|10.00|30.00"},
         "3.00 30.00"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        Open(c.operation);
        AddLine("B001");
        Put(c.rows);
        EXPECT_EQ(Import().section('\n', 0, 0), "共导入" + QString::number(c.lines.size()) + " 条数据！");
        EXPECT_EQ(Lines(), c.lines);
        EXPECT_EQ(bill.LabTotalAmount + " " + bill.LabTotalMoney, c.totals);
        EXPECT_EQ(bill.MSH.Cell(bill.MSH.lastRow(), 1), "") << "a blank row follows";
        EXPECT_TRUE(test.prompt.boxes.empty());
    }
}

TEST_F(LineImport, WhatIsLeftOutIsNamedAndWithoutAGoodTheLinesStay)
{
    const QString none = "共导入0 条数据！\n", stays = "原有的明细没有改变。";
    const struct
    {
        std::vector<QStringList> rows;
        QString said;
        QStringList lines;
    } cases[] = {
        {{{"X"}, {"B001"}, {"　 ", "1"}, {"A001"}},
         "共导入1 条数据！\n以下1行没有导入：\n第2行：没有编号为“X”的商品\n第4行没有商品编号，从这一行起没有导入。",
         {"B001"}},
        {std::vector<QStringList>(11, {"101"}),
         none + "以下11行没有导入：\n" + QStringList(10, "第%1行：没有编号为“101”的商品\n").join("") + "……\n" + stays,
         {"A001"}},
        {{}, none + stays, {"A001"}},
        {{{"B001", "", "", "a\nb"}}, "共导入1 条数据！\n第2行的文字中有换行，已改为空格。", {"B001"}},
        {{{"A001", "1e20"}, {"A001", "2"}, {"A001", "3", QString(51, u'字')}},
         "共导入1 条数据！\n以下2行没有导入：\n第2行：数量 超出系统所能保存的范围，请修改后再保存！\n"
         "第4行：批号 超过 50 个字，请修改后再保存！",
         {"A001"}},
        {{{}, {"A001"}}, none + "第2行没有商品编号，从这一行起没有导入。\n" + stays, {"A001"}},
    };
    for (auto [rows, said, lines] : cases) {
        OpenWithLine("同价调拨", {{"数量", "2"}});
        rows.insert(rows.begin(), {"商品编号", "数量", "批号", "备注"});
        Put(rows);
        for (int row = 2; said.contains('%'); ++row)
            said.replace(said.indexOf("%1"), 2, QString::number(row));
        EXPECT_EQ(Import(), said);
        EXPECT_EQ(Lines().replaceInStrings(QRegularExpression("\\|.*"), ""), lines);
    }
}

TEST_F(LineImport, ANumberCanBeACode)
{
    test.Insert("TabWare", {{"Code", "1001"}, {"Name", "垫片"}});
    Open("盘点报溢");
    office.books["book.xls"] = {{"only", {{QString("商品编号"), QString("数量")}, {1001.0, 0.1}}}};
    EXPECT_EQ(Import(), "共导入1 条数据！");
    EXPECT_EQ(Lines(), QStringList("1001|垫片||||0.10|0.00|0.00"));
}

TEST_F(LineImport, WhatCannotBeReadLeavesTheLines)
{
    using Kind = SpreadsheetError::Kind;
    const QStringList good = {"商品编号"};
    const QString noSheet = "文件“book.xls”中没有名称为“sheet1”的工作表（只有“其他”、“工作表1”），不能导入！";
    const QString noTitle = "文件“book.xls”中没有“商品编号”列（工作表的第一行是表头），不能导入！";
    const struct
    {
        const char* operation; // that fails
        Kind kind;
        int rows; // until the user has had enough
        QStringList titles;
        const char* sheet;
        QString said;
    } failures[] = {
        {"Open", Kind::CannotOpen, -1, good, "sheet1", "broken"},
        {"Run", Kind::NotInstalled, -1, good, "sheet1", "broken"},
        {"Read", Kind::Stopped, -1, good, "sheet1", "broken"},
        {"Read", Kind::Cancelled, -1, good, "sheet1", ""},
        {nullptr, {}, -1, good, "工作表1", noSheet},
        {nullptr, {}, -1, {"编号"}, "sheet1", noTitle},
        {nullptr, {}, 1, good, "sheet1", ""},
    };
    OpenWithLine("同价调拨", {{"数量", "2"}});
    const QStringList before = Lines();
    for (const auto& failure : failures) {
        Put({failure.titles, {"B001"}, {"B001"}}, failure.sheet);
        office.failures.clear();
        if (failure.operation)
            office.failures[failure.operation] = {failure.kind, "broken"};
        EXPECT_EQ(Import(failure.rows), failure.said);
        EXPECT_EQ(Lines(), before) << failure.said.toStdString();
        EXPECT_EQ(bill.LabTotalMoney, "20.00");
    }

    office.failures.clear();
    test.Run(Sql("drop table TabWare"));
    EXPECT_EQ(Import(), "");
    EXPECT_EQ(test.prompt.boxes.size(), 1U) << "a lost table is said once, not for every line";
    EXPECT_EQ(Lines(), before);
}

TEST_F(LineImport, NothingBelowTheLinesIsRead)
{
    Open("同价调拨");
    std::vector<QStringList> rows(5000);
    rows[0] = {"商品编号"};
    rows[1] = {"A001"};
    rows[4999] = {"A001"};
    Put(rows);
    EXPECT_TRUE(Import().startsWith("共导入1 条数据！"));
    EXPECT_EQ(office.calls["Read"], 2);
    EXPECT_EQ(office.input, SpreadsheetHost::Input::Passes);
}

TEST_F(LineImport, AWorkbookForAKindHasWhatItTakes)
{
    for (const BillKind& kind : BillKinds()) {
        for (const auto& [title, isText] : ImportColumns(kind))
            EXPECT_NE(ColumnIndex(kind, title), 0) << title.toStdString() << " " << kind.bill.toStdString();
    }
    EXPECT_EQ(ImportColumns(*KindOfBill("商品调价单"))[2].title, "调价金额") << "as the rules on the screen ask for";
}

TEST_F(PieceImport, TheHeadFollowsTheLines)
{
    Open(true, "2");
    bill.ChSpecJE = true; // an import knows no factor
    Put({{"商品编号", "数量", "规格", "成本价"}, {"A001", "3", "2*2", "99"}, {"B001", "1", "", ""}});
    EXPECT_EQ(Import(), "共导入2 条数据！");
    EXPECT_EQ(Lines(), QStringList({"A001|螺丝|2*2||箱|3.00|10.00|30.00", "B001|O'Neil|||件|1.00|0.00|0.00"}));
    EXPECT_EQ(bill.LabTotalMoney + " " + bill.TxtTotalMoney + " " + bill.TxtCost, "30.00 30.00 15.00");
}

TEST_F(PieceImport, TheWorkbookIsAskedFor)
{
    const QString filter = "选择导入数据|Microsoft Excel 工作簿 (*.XLS *.xlsx)";
    EXPECT_EQ(AskImportFile(test.program, *KindOfBill("商品拆卸单")), "");
    EXPECT_EQ(test.Boxes(), filter + "|不能确定导入文件路径，请重新选择导入文件！");
    test.prompt.file = "a.xls";
    EXPECT_EQ(AskImportFile(test.program, *KindOfBill("盘点报损单")), "a.xls");
    EXPECT_EQ(test.Boxes(), filter + ";;All Files (*.*)");
}

} // namespace
