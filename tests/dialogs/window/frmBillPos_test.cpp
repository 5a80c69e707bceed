#include "dialogs/window/frmBillPos.h"

#include "support/window.h"

namespace {

class ScanWindow : public WindowOf<frmBillPos>
{
protected:
    ScanWindow()
    {
        for (const auto& [code, name] : {std::pair("G1", "螺丝"), {"G2", "螺母"}})
            test.Insert("TabWare", {{"Code", code}, {"Name", name}, {"TiaoXingCode", "690001"}});
        const auto add = [this](const QString& code, double amount, double unitPrice) {
            lines += QString("%1 %2 %3").arg(code).arg(amount).arg(unitPrice);
            return true;
        };
        ShowNew(ScannedBill{[this](const QString& code) { return code == "G1" ? price : QString("?"); }, add}, nullptr);
    }
    QString Boxes()
    {
        QStringList texts;
        for (const char* box : {"TxtTiaoXingCode", "TxtWareCode", "TxtWareName", "TxtAmount", "TxtPrice"})
            texts << Box(box);
        return texts.join('|');
    }

    QString price = "2.5";
    QStringList lines;
};

TEST_F(ScanWindow, EnterLeadsThroughALineAndBackToTheNextScan)
{
    price = "1,234.5";
    EXPECT_EQ(Focus(), "TxtTiaoXingCode");
    TypeAndEnter({" 690001 "});
    EXPECT_EQ(Focus(), "TxtAmount");
    EXPECT_EQ(Boxes(), " 690001 |G1|螺丝|1|1,234.5") << "the first good of the barcode";
    TypeAndEnter({"1-2x"}); // replaces the 1
    EXPECT_EQ(Focus(), "TxtPrice");
    TypeAndEnter({"", ""}); // leads to the button, and presses it
    EXPECT_EQ(lines, QStringList("G1 12 1234.5"));
    EXPECT_EQ(Focus(), "TxtTiaoXingCode");
    EXPECT_EQ(Boxes(), "|||1|");
}

TEST_F(ScanWindow, ScansFollowEachOtherUnaided)
{
    Click("ChAutoIn");
    TypeAndEnter({"690001", "1234567", "' or '1'='1", "690001"}); // each replaces an unknown one
    EXPECT_EQ(lines, QStringList({"G1 1 2.5", "G1 1 2.5"}));
    EXPECT_EQ(Boxes(), "|||1|");
    EXPECT_TRUE(test.prompt.boxes.empty());
}

TEST_F(ScanWindow, AnUnknownBarcodeLeavesNoGoodBehind)
{
    TypeAndEnter({"  ", "690001"});
    EXPECT_EQ(test.Boxes(), "请先输入条形码！");
    Press({Qt::Key_Backtab});
    TypeAndEnter({"x"});
    EXPECT_EQ(Boxes(), "x|||1|");
    Click("CmdOk");
    EXPECT_EQ(test.Boxes(), "条形码对应的商品编号不存在，请重新录入条形码！");
    EXPECT_EQ(Focus(), "TxtTiaoXingCode");
    EXPECT_TRUE(lines.isEmpty());
}

TEST_F(ScanWindow, AsksForAQuantityAndAboutNoPrice)
{
    price.clear();
    TypeAndEnter({"690001", "0.00", "", ""});
    EXPECT_EQ(test.Boxes(), "商品数量不能为零！请输入商品数量！");
    EXPECT_EQ(Focus(), "TxtAmount");

    Click("ChZeroPrice");
    test.prompt.answers = {false, true};
    TypeAndEnter({"3", "", ""});
    EXPECT_EQ(Focus(), "TxtPrice");
    EXPECT_EQ(Boxes(), "690001|G1|螺丝|3|");
    EXPECT_TRUE(lines.isEmpty());
    TypeAndEnter({"", ""});
    EXPECT_EQ(test.Boxes(), "商品单价为零吗？|商品单价为零吗？");
    EXPECT_EQ(lines, QStringList("G1 3 0"));

    Click("ChZeroPrice");
    TypeAndEnter({"690001", "2", "", ""});
    EXPECT_EQ(lines.value(1), "G1 2 0");
    EXPECT_EQ(test.Boxes(), "");
}

} // namespace
