#include "bills/lines/paste.h"

#include "screen.h"

namespace {

TEST(PastedText, IsATableWithMoreThanOneCell)
{
    const std::tuple<const char*, bool, QString> cases[] = {
        {"", false, ""},
        {"A001", false, "A001"},
        {"A001\r\n", false, "A001"},
        {"\"two\r\nlines\"\r\n", false, "\"two lines\""},
        {"A001\t2", true, "A001 2"},
        {"A001\t", true, "A001"},
        {"A001\nB001", true, "A001 B001"},
        {"A001\r\n\r\n", true, "A001"},
        {"a \"quote", false, "a \"quote"},
    };
    for (const auto& [text, isTable, line] : cases) {
        EXPECT_EQ(IsTable(text), isTable) << text;
        EXPECT_EQ(OneLine(text), line);
    }
}

class PasteTest : public BillScreen
{
protected:
    void Paste(int row, const char* caption, const QString& text)
    {
        GoTo(row, caption);
        PasteTable(test.program, bill, text);
    }
    QString Line(int row)
    {
        QStringList texts;
        for (const char* caption : {"商品编号", "商品名称", "规格", "属性", "单位", "数量", "金额", "备注"})
            texts << Cell(row, caption);
        return texts.join('|');
    }
};

TEST_F(PasteTest, RowsOfASpreadsheetBecomeLines)
{
    Open("同价调拨");
    Paste(1, "商品编号",
          "A001\t的确是螺丝\tM10\t0102\t个\t1,200.505\t\"two\r\nlines \"\"quoted\"\"\"\r\n"
          "\t\t\t\t\t\t\r\n"
          "\tO'Neil\t\t\t\t2\r\n"
          "\tLS\t\t0102>颜色>红\t\tabc\t a b \r\n");
    EXPECT_EQ(test.Boxes(), "");
    EXPECT_EQ(Line(1), "A001|螺丝|M10|0102>颜色>红|个|1,200.51|12,005.10|two lines \"quoted\"");
    EXPECT_EQ(Line(2), "B001|O'Neil|||件|2.00|0.00|");
    EXPECT_EQ(Line(3), "A001|螺丝|M8|0102>颜色>红|箱|0.00|0.00|a b");
    EXPECT_EQ(bill.MSH.rows(), 5);
    EXPECT_EQ(bill.LabTotalAmount + " " + bill.LabTotalMoney, "1,202.51 12,005.10");
}

TEST_F(PasteTest, ComputedColumnsKeepTheirFigures)
{
    OpenWithLine("异价调拨");
    Paste(1, "数量", "3\t2.5\t999\t999\tnote\tbeyond the last column");
    EXPECT_EQ(Line(1), "A001|螺丝|M8||箱|3.00|7.50|note");
    EXPECT_EQ(Cell(1, "成本价"), "10.00");
    EXPECT_EQ(bill.MSH.currentColumn, ColumnIndex(*bill.kind, u"数量"));
}

TEST_F(PasteTest, UnknownGoodsAreSaidAndShown)
{
    Open("盘点报损");
    Paste(1, "商品编号", "A001\nX1\tnobody\nX2\tO'Neil\nX3\n");
    EXPECT_EQ(test.Boxes(), "粘贴的商品中有2个不存在！\n第2行：X1\n第4行：X3");
    EXPECT_EQ(Cell(2, "商品编号") + Cell(3, "商品编号"), "X1B001") << "one is found by its name";
    EXPECT_EQ(std::pair(bill.MSH.currentRow, bill.MSH.currentColumn), std::pair(2, 1));
}

TEST_F(PasteTest, WhatACellCannotHoldIsSaidAndShown)
{
    OpenWithLine("盘点报损");
    Paste(1, "单位", QString("个\t3\ta") + QChar(0) + QChar(0xd800) + "\n\t1e20\tb\n");
    EXPECT_EQ(test.Boxes(), "粘贴的内容中有1处未录入！\n第2行：数量 超出系统所能保存的范围，请修改后再保存！");
    EXPECT_EQ(Cell(1, "备注"), QString("a") + QChar(0xfffd) + QChar(0xfffd));
    EXPECT_EQ(Cell(1, "数量") + Cell(2, "数量") + Cell(2, "备注"), "3.00b");
    EXPECT_EQ(std::pair(bill.MSH.currentRow, bill.MSH.currentColumn), std::pair(2, 6));
}

TEST_F(PasteTest, AttributesAreThoseOfTheGood)
{
    test.Insert("TabAttribute", {{"Code", "02"}, {"Name", "尺寸"}, {"ParentCode", "0"}});
    Open("盘点报损");
    Paste(1, "商品编号", "A001\t\t\t02\nB001\t\t\t0102\nA001\t\t\tred");
    for (int row = 1; row <= 3; ++row)
        EXPECT_EQ(Cell(row, "属性"), "");
}

TEST_F(PasteTest, NothingGoesIntoALockedBillOrOneWithoutWarehouses)
{
    Open("盘点报损");
    bill.TxtWarehouseNameS.clear();
    Paste(1, "商品编号", "A001\t");
    EXPECT_EQ(test.Boxes(), "请先选择报损仓库名称！");
    ChooseWarehouses();
    bill.entryEnabled = false;
    Paste(1, "商品编号", "A001\t");
    EXPECT_EQ(Cell(1, "商品编号"), "");
}

TEST_F(PasteTest, AThousandRowsAllArrive)
{
    Open("同价调拨");
    QString text;
    for (int row = 1; row <= 1000; ++row)
        text += "A001\t\t\t\t\t" + QString::number(row) + "\r\n";
    Paste(1, "商品编号", text);
    EXPECT_EQ(bill.MSH.rows(), 1002);
    EXPECT_EQ(bill.LabTotalAmount, "500,500.00");
}

} // namespace
