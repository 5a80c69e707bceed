#include "dialogs/barcode_entry.h"

#include "support/test_program.h"

#include <gtest/gtest.h>

namespace {

class Scanning : public testing::Test
{
protected:
    Scanning()
    {
        test.Insert("TabWare", {{"Code", "G1"}, {"Name", "螺丝"}, {"TiaoXingCode", "690001"}});
        test.Insert("TabWare", {{"Code", "G2"}, {"Name", "螺母"}, {"TiaoXingCode", "690001"}});
    }
    EntryField Scan(const QString& barcode)
    {
        entry.TxtTiaoXingCode = barcode;
        return ReadBarcode(test.program, bill, entry);
    }

    TestProgram test;
    QStringList lines;
    QString price = "2.5";
    ScannedBill bill{[this](const QString& code) { return code == "G1" ? price : QString("?"); },
                     [this](const QString& code, double amount, double unitPrice) {
                         lines += QString("%1 %2 %3").arg(code).arg(amount).arg(unitPrice);
                     }};
    BarcodeEntry entry;
};

} // namespace

TEST_F(Scanning, ShowsTheFirstGoodOfABarcodeAndWaitsForTheQuantity)
{
    EXPECT_EQ(Scan(" 690001 "), EntryField::Amount);
    EXPECT_EQ(entry.TxtWareCode, "G1");
    EXPECT_EQ(entry.TxtWareName, "螺丝");
    EXPECT_EQ(entry.TxtPrice, "2.5");
    EXPECT_TRUE(lines.isEmpty());

    entry.TxtAmount = "12";
    entry.TxtPrice = "1,234.5";
    EXPECT_EQ(EnterLine(test.program, bill, entry), EntryField::TiaoXingCode);
    EXPECT_EQ(lines, QStringList("G1 12 1234.5"));
    EXPECT_EQ(entry.TxtTiaoXingCode + entry.TxtWareCode + entry.TxtWareName + entry.TxtPrice, "");
    EXPECT_EQ(entry.TxtAmount, "1");
}

TEST_F(Scanning, EntersAtOnceWhenToldSo)
{
    entry.ChAutoIn = true;
    EXPECT_EQ(Scan("690001"), EntryField::TiaoXingCode);
    EXPECT_EQ(Scan("690001"), EntryField::TiaoXingCode);
    EXPECT_EQ(lines, QStringList({"G1 1 2.5", "G1 1 2.5"}));
    EXPECT_TRUE(test.prompt.boxes.empty());
}

TEST_F(Scanning, AnUnknownBarcodeLeavesNoGoodBehind)
{
    EXPECT_EQ(Scan("  "), EntryField::TiaoXingCode);
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList("请先输入条形码！"));

    Scan("690001");
    entry.ChAutoIn = true;
    EXPECT_EQ(Scan("' or '1'='1"), EntryField::TiaoXingCode);
    EXPECT_TRUE(test.prompt.boxes.empty());
    EXPECT_EQ(EnterLine(test.program, bill, entry), EntryField::TiaoXingCode);
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList("条形码对应的商品编号不存在，请重新录入条形码！"));
    EXPECT_TRUE(lines.isEmpty());
}

TEST_F(Scanning, AsksForAQuantityAndAboutNoPrice)
{
    price.clear();
    Scan("690001");
    entry.TxtAmount = "0.00";
    EXPECT_EQ(EnterLine(test.program, bill, entry), EntryField::Amount);
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList("商品数量不能为零！请输入商品数量！"));

    entry.TxtAmount = "3";
    entry.ChZeroPrice = true;
    test.prompt.answers = {false, true};
    EXPECT_EQ(EnterLine(test.program, bill, entry), EntryField::Price);
    EXPECT_TRUE(lines.isEmpty());
    EXPECT_EQ(entry.TxtWareCode, "G1");
    EXPECT_EQ(EnterLine(test.program, bill, entry), EntryField::TiaoXingCode);
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList({"商品单价为零吗？", "商品单价为零吗？"}));
    EXPECT_EQ(lines, QStringList("G1 3 0"));
}
