#include "assembly/voucher/voucher.h"
#include "piece_screen.h"

#include <functional>
#include <random>

namespace {

const QString kSaved = "保存成功！";
const QByteArray kRowFigures =
    "select Num,AccountantCode,AccountantName,AccountantPath,Debtor,Lender from TabWarrantInf order by Num";

struct VoucherTest : PieceScreen
{
    VoucherTest()
    {
        test.program.parameters.IsJXC = false;
        for (const auto& [code, name, parent] : {std::tuple("14", "存货", "0"), std::tuple("1403", "原材料", "14"),
                                                 std::tuple("1405", "库存商品", "14"), std::tuple("1001", "现金", "0")})
            test.Insert("TabAccountantType", {{"Code", code}, {"Name", name}, {"ParentCode", parent}});
        test.Insert("TabMoneyType", {{"Name", "人民币"}, {"Rate", 1.0}, {"IsBWB", "是"}});
        test.Run(Sql("update TabWare set AccountantCode='1403' where Code<>'P001'"));
        test.Run(Sql("update TabWare set AccountantCode='1405' where Code='P001'"));
    }

    void AddSettings()
    {
        const std::tuple<const char*, const char*, const char*, const char*, const char*> settings[] = {
            {"商品组装单", "组装成商品的金额", "", "借方", "否"},
            {"商品组装单", "商品组装费用的借方", "5101", "借方", "否"},
            {"商品组装单", "商品组装费用的贷方", "1001", "贷方", "否"},
            {"商品拆卸单", "拆卸成商品我金额", "", "贷方", "否"},
            {"商品拆卸单", "商品拆卸费用的借方", "5101", "借方", "否"},
            {"商品拆卸单", "商品拆卸费用的贷方", "1001", "", "是"},
        };
        for (const auto& [billName, item, account, direction, reversed] : settings)
            test.Insert("TabJXCAccount", {{"JXCTabName", billName},
                                          {"Item", item},
                                          {"AccountCode", account},
                                          {"AccountName", QString("设") + account},
                                          {"FX", direction},
                                          {"IsFuShu", reversed}});
        test.Run(Sql("update TabJXCAccount set IsWarrant=1,AccountBook1=1,AccountBook3=1,WarrantType='转账凭证'"));
        test.Insert("TabWarrantTypeSet", {{"Name", "转账凭证"}, {"Zi", "转"}});
    }

    void OpenBill(bool assembles, const char* lines, const char* fee)
    {
        Open(assembles);
        AddLine("A001", {{"成本价", lines}});
        if (!assembles)
            TypeAndLeave("TxtCost", NumberText(Val(QString(lines)) - Val(QString(fee))));
        TypeAndLeave("TxtFee", fee);
    }

    /// An assembly of 100 and a fee of 10, with its voucher.
    void SaveAssembly()
    {
        AddSettings();
        OpenBill(true, "100", "10");
        EXPECT_EQ(Save(), QStringList(kSaved));
    }

    QStringList SaveAgain()
    {
        test.prompt.answers = {true};
        QStringList boxes = Save();
        boxes.removeFirst();
        return boxes;
    }
};

TEST_F(VoucherTest, AnAssemblyWritesProductGoodsAndFee)
{
    test.Insert("TabWarrant", {{"Code", "PZD202302080001"}, {"Datee", QDate(2023, 2, 1)}, {"WarrantNum1", 7}});
    test.Run(Sql("update TabWarrant set AccountBook1=1,WarrantNum3=2"));
    SaveAssembly();
    // The head adds the fee to a money that holds it; book 2 has no number.
    EXPECT_EQ(Rows("select * from TabWarrant where JXCBillCode<>''"),
              QStringList("PZD202302080002|2023-02-08|2023|2|8|1|系统管理员|||商品组装单|未审核|120|120|"
                          "ZZD202302080001|0|0|1|1|1|0|1|转账凭证||转|0"));
    EXPECT_EQ(Rows(kRowFigures), QStringList({"1|1405|库存商品|存货>库存商品|110|0", "2|1403|原材料|存货>原材料|0|100",
                                              "4|1001|设1001|现金|0|10"}));
    EXPECT_EQ(Rows("select * from TabWarrantInf where Num=4"),
              QStringList("4|2023-02-08|2023|2|PZD202302080002|第ZZD202302080001号商品组装单|1001|设1001|现金|0|10|"
                          "未审核|8|0|1|1|0|1|转账凭证||||0|0||人民币|1"));
    EXPECT_EQ(Rows("select * from TabWriteAccountant"), QStringList("2023|2|未审核"));
    EXPECT_EQ(Rows("select Report from TabWareGroup"), QStringList("已生成会计凭证"));
}

TEST_F(VoucherTest, ADisassemblyWritesTheOtherWayRound)
{
    AddSettings();
    OpenBill(false, "110", "10");
    EXPECT_EQ(Save(), QStringList(kSaved));
    EXPECT_EQ(Rows("select SumDebtor,SumLender from TabWarrant"), QStringList("110|110"));
    EXPECT_EQ(Rows(kRowFigures), QStringList({"1|1405|库存商品|存货>库存商品|0|100", "2|1403|原材料|存货>原材料|110|0",
                                              "4|1001|设1001|现金|0|10"}));
}

TEST_F(VoucherTest, OneSignServesAllRowsAndTheFeesDebitItemDecides)
{
    SaveAssembly();
    test.Run(Sql("update TabJXCAccount set IsFuShu='是' where Item='组装成商品的金额'"));
    SaveAgain();
    EXPECT_EQ(Rows("select Debtor,Lender from TabWarrantInf order by Num"), QStringList({"110|0", "0|100", "0|10"}));
    test.Run(Sql("update TabJXCAccount set IsFuShu='是' where Item='商品组装费用的借方'"));
    SaveAgain();
    EXPECT_EQ(Rows("select Debtor,Lender from TabWarrantInf order by Num"), QStringList({"-110|0", "0|-100", "0|-10"}));
    test.Run(Sql("delete from TabJXCAccount where Item='商品组装费用的借方'"));
    OpenBill(true, "100", "0");
    Save();
    EXPECT_EQ(Rows("select Debtor from TabWarrantInf where Num=1 and Debtor=-100"), QStringList("-100"));
}

TEST_F(VoucherTest, ARewriteKeepsCodeAndNumbersAndGroupsByAccount)
{
    SaveAssembly();
    test.Run(Sql("update TabWarrant set Auditing='会计',State='已审核',RecordAccountant='x',WarrantNum1=33"));
    test.Run(Sql("update TabJXCAccount set AccountBook2=1,AccountBook3=0"));
    AddLine("A001", {{"成本价", "5"}});
    AddLine("B001", {{"成本价", "20"}});
    test.Run(Sql("update TabWare set AccountantCode='1001' where Code='B001'"));
    EXPECT_EQ(SaveAgain(), QStringList(kSaved));
    EXPECT_EQ(Rows("select Code,WarrantNum1,WarrantNum2,WarrantNum3,AffixNum1,AffixNum2,AffixNum3,AccountBook2,"
                   "AccountBook3,Auditing,State,RecordAccountant,SumDebtor from TabWarrant"),
              QStringList("PZD202302080001|33|0|1|1|1|0|1|0||未审核||145"));
    QStringList rows = Rows("select AccountantCode,Debtor,Lender,WarrantNum1 from TabWarrantInf order by Num");
    rows.sort();
    EXPECT_EQ(rows, QStringList({"1001|0|10|33", "1001|0|20|33", "1403|0|105|33", "1405|135|0|33"}));
    EXPECT_EQ(Rows("select Num from TabWarrantInf order by Num"), QStringList({"1", "2", "3", "5"}));

    test.Run(Sql("update TabWarrant set State='已登账'"));
    EXPECT_EQ(Save(),
              QStringList("当前单据对应的会计凭证已登账，禁止修改！如果确需修改，请先操作反登账，之后再修改本单据！"));
}

TEST_F(VoucherTest, WithoutSettingsTheMainBookTakesIt)
{
    for (const auto& [main, numbers] : {std::pair(0, "1|0|0|1|0|0|1|0|0"), std::pair(2, "0|1|0|0|1|0|0|1|0")}) {
        test.Run(Sql("delete from TabWarrant"));
        if (main)
            test.Insert("TabAccountantNameSet", {{"Code", main}, {"Main", 1}});
        OpenBill(true, "100", "0");
        EXPECT_EQ(Save(), QStringList(kSaved));
        EXPECT_EQ(Rows("select WarrantNum1,WarrantNum2,WarrantNum3,AffixNum1,AffixNum2,AffixNum3,AccountBook1,"
                       "AccountBook2,AccountBook3,Type,ZD from TabWarrant"),
                  QStringList(QString(numbers) + "|记账凭证|记"));
    }
    TypeAndLeave("TxtFee", "3");
    const QStringList boxes = Save();
    EXPECT_EQ(boxes.size(), 1);
    EXPECT_TRUE(boxes[0].startsWith("商品组装(或拆卸)时，组装(或拆卸)费用在会计账务中必须生成"));
}

TEST_F(VoucherTest, AFeeAloneGetsItsRow)
{
    AddSettings();
    OpenBill(false, "0", "0");
    TypeAndLeave("TxtCost", "0");
    TypeHead("TxtFee", "5");
    Type(1, "成本价", "5");
    EXPECT_EQ(Save(), QStringList(kSaved));
    EXPECT_EQ(Rows("select Num,Debtor,Lender from TabWarrantInf"), QStringList("2|0|5"));
}

TEST_F(VoucherTest, GoodsThatAreMissingStopTheSave)
{
    OpenBill(true, "100", "0");
    bill.TxtWareCode = "X9";
    EXPECT_FALSE(CheckWarrantSettings(test.program, bill));
    const QStringList boxes = test.prompt.TakeTexts();
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_TRUE(boxes[0].startsWith("商品编号为 X9 商品名称为 套装  的商品在商品信息设置中没有设置 会计凭证中"));
    EXPECT_TRUE(boxes[0].contains("自动生\"成其对应"));
    EXPECT_EQ(Rows("select Code from TabWareGroup"), QStringList());
}

TEST_F(VoucherTest, AnUnwantedVoucherIsTakenAwayWhateverItsState)
{
    AddSettings();
    const std::function<void()> unwants[] = {
        [this] { test.Run(Sql("update TabJXCAccount set IsWarrant=0")); },
        [this] { test.program.parameters.IsJXC = true; },
        [this] {
            TypeHead("TxtFee", "0");
            Type(1, "成本价", "0");
        },
    };
    for (const auto& unwant : unwants) {
        test.program.parameters.IsJXC = false;
        test.Run(Sql("update TabJXCAccount set IsWarrant=1"));
        OpenBill(true, "100", "10");
        EXPECT_EQ(Save(), QStringList(kSaved));
        test.Run(Sql("update TabWarrant set State='已登账'"));
        unwant();
        EXPECT_EQ(SaveAgain(), QStringList(kSaved));
        EXPECT_EQ(Rows("select Code from TabWarrant union all select BillCode from TabWarrantInf"), QStringList());
    }
}

TEST_F(VoucherTest, AClosedMonthKeepsTheVoucherAndSaysSoOnceTheBillIsStored)
{
    SaveAssembly();
    const auto refusal = [](const char* month) {
        return "最后一次会计期末结转为 2023 年 " + QString(month) +
               " 月，本凭证录入日期有误！（不应小于最后一次结转会计期），将跳过自动生成会计凭证！";
    };
    // The tenth month closes after the ninth: months are numbers.
    for (const char* month : {"10", "9"})
        test.Insert("TabWriteAccountant", {{"DateeY", "2023"}, {"DateeM", month}, {"State", "已结账"}});
    TypeAndLeave("TxtFee", "20");
    EXPECT_EQ(SaveAgain(), QStringList({refusal("10"), kSaved}));
    EXPECT_EQ(Rows("select Report,Fee from TabWareGroup"), QStringList("|20"));
    EXPECT_EQ(Rows("select SumDebtor from TabWarrant"), QStringList("120"));
    test.Run(Sql("delete from TabWriteAccountant where DateeM='10'"));
    test.Run(Sql("update TabWriteAccountant set DateeM='2' where State='已结账'"));
    EXPECT_EQ(SaveAgain(), QStringList({refusal("2"), kSaved}));
    test.Run(Sql("update TabWriteAccountant set DateeM='1' where State='已结账'"));
    EXPECT_EQ(SaveAgain(), QStringList(kSaved));
    EXPECT_EQ(Rows("select SumDebtor from TabWarrant"), QStringList("140"));
}

TEST_F(VoucherTest, PeriodsOfTheAccountingCalendar)
{
    AddSettings();
    test.Insert("TabAccountAreaSet", {{"DateeM", 1}, {"DateeD", 25}});
    test.Insert("TabAccountAreaSet", {{"DateeM", 2}, {"DateeD", 5}});
    OpenBill(true, "100", "0");
    Save();
    EXPECT_EQ(Rows("select DateeY,DateeM from TabWarrant"), QStringList("2023|3"));
    EXPECT_EQ(Rows("select DateeY,DateeM from TabWriteAccountant"), QStringList("2023|3"));
}

TEST_F(VoucherTest, APeriodThatCannotBeFormedIsNamedAndWritesNoVoucher)
{
    SaveAssembly();
    const QStringList vouchers = Rows("select * from TabWarrant") + Rows("select * from TabWarrantInf");
    TypeAndLeave("TxtFee", "20");
    for (const auto& [month, day] : {std::pair(1, 32), {2, 30}}) {
        test.Insert("TabAccountAreaSet", {{"DateeM", month}, {"DateeD", day}});
        const QStringList boxes = SaveAgain();
        ASSERT_EQ(boxes.size(), 2);
        EXPECT_TRUE(boxes[0].contains(QString("TabAccountAreaSet）中 %1 月的结账日为 %2").arg(month).arg(day)));
        EXPECT_EQ(boxes[1], kSaved);
        test.Run(Sql("delete from TabAccountAreaSet"));
    }
    EXPECT_EQ(Rows("select Report,Fee from TabWareGroup"), QStringList("|20"));
    EXPECT_EQ(Rows("select * from TabWarrant") + Rows("select * from TabWarrantInf"), vouchers);
}

TEST_F(VoucherTest, ARefusedRewriteStillWritesTheVoucher)
{
    SaveAssembly();
    test.Run(Sql("delete from TabWarrant"));
    EXPECT_EQ(Save().last(), kSaved);
    EXPECT_EQ(Rows("select JXCBillCode,SumDebtor from TabWarrant"), QStringList("ZZD202302080001|120"));
}

TEST_F(VoucherTest, SeeingAVoucherNeedsOne)
{
    Open(true);
    SeeBillWarrant(test.program, bill, false);
    bill.TxtBillCode = "ZZD1";
    SeeBillWarrant(test.program, bill, true);
    test.program.parameters.IsJXC = true;
    SeeBillWarrant(test.program, bill, false);
    test.program.parameters.UserName = "小李";
    SeeBillWarrant(test.program, bill, true);
    EXPECT_EQ(test.prompt.TakeTexts(),
              QStringList({"单据编号不存在，不能查看凭证！", "本单据没有对应的凭证！",
                           "本账套是进销存与财务分离账套，不允许查看凭证！", "没有操作权限！"}));
    test.program.parameters.IsJXC = false;
    test.Insert("TabWarrant", {{"Code", "PZD9"}, {"JXCBillCode", "ZZD1"}});
    SeeBillWarrant(test.program, bill, false);
    EXPECT_EQ(ReadClearLines(test.program.folder)->filter("PZD9").size(), 1);
}

/// Rows of a voucher balance for whatever bill, as long as lines have no more decimals than money.
TEST_F(VoucherTest, RowsBalanceForEveryBill)
{
    AddSettings();
    std::mt19937 random(5);
    const auto figure = [&random](int most) {
        return NumberText(static_cast<double>(random() % static_cast<unsigned>(most)) / 100);
    };
    int saved = 0;
    for (int round = 0; round < 150; ++round) {
        const bool assembles = round % 2 == 0;
        const int money = 2 + round % 3;
        SetPlaces(2, round % 5, money);
        test.Run(Sql("delete from TabWarrantInf"));
        Open(assembles, "1");
        double total = 0;
        for (unsigned line = random() % 6 + 1; line > 0; --line) {
            const int row = bill.MSH.lastRow();
            AddLine(random() % 2 ? "A001" : "B001", {});
            Type(row, "成本价", figure(500000));
            Type(row, "数量", QString::number(random() % 9 + 1));
            total += CellNumber(Cell(row, "金额"));
        }
        TypeAndLeave("TxtFee", random() % 3 ? figure(5000) : QString("0"));
        if (!assembles)
            TypeAndLeave("TxtCost", FormatByDigits(total - CellNumber(bill.TxtFee), 2));
        // A sum that binary figures miss is refused; whatever is saved balances.
        if (!Save().contains(kSaved))
            continue;
        ++saved;
        const Recordset rows = test.Run(Sql("select Debtor,Lender from TabWarrantInf"));
        Currency difference;
        for (int row = 0; row < rows.size(); ++row)
            difference += rows.Money("Debtor", row) - rows.Money("Lender", row);
        EXPECT_EQ(difference.units(), 0) << bill.TxtBillCode.toStdString();
    }
    EXPECT_GT(saved, 75);
}

} // namespace
