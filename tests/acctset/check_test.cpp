// Faults planted into account sets are found, each as its line, and made-up sets have none.

#include "acctset/books.h"

#include "support/test_program.h"

#include <gtest/gtest.h>

namespace {

/// Runs statements one after the other on a copy of the demonstration set, and checks it.
Outcome CheckPlanted(const QStringList& statements)
{
    const QTemporaryDir folder;
    const QString path = OwnDemo(folder);
    const auto store = OpenSqliteFile(path);
    for (const QString& statement : statements)
        store->Run(Sql(statement.toUtf8().constData()));
    return RunAcctset({"check", path});
}

struct Fault
{
    QStringList statements;
    QStringList findings; // all of them, in the order of the checks
};

// The last bills of the year: nothing after them follows their stock and cost.
const Fault kFaults[] = {
    {{"insert into TabWarehouseType(Code,Name,ParentCode) values('０３ ','x','0')"},
     {"alike\t\t０３ \ta server takes the codes \"03\" and \"０３ \" of TabWarehouseType for one"}},
    {{"delete from TabCheckLose where Code='BSD202312300001'"},
     {"orphan\t盘点报损单\tBSD202312300001\t3 line(s) without a head"}},
    {{"delete from TabCheckLoseInf where BillCode='BSD202312300001'"},
     {"headless\t盘点报损单\tBSD202312300001\ta head without lines"}},
    {{"delete from TabWarrant where Code='PZD202312200001'"},
     {"orphan\t会计凭证\tPZD202312200001\t3 line(s) without a head"}},
    {{"delete from TabWarrantInf where BillCode='PZD202312200001'"},
     {"headless\t会计凭证\tPZD202312200001\ta head without lines"}},
    {{"create table Heads as select * from TabCheckLose", "drop table TabCheckLose",
      "alter table Heads rename to TabCheckLose",
      "insert into TabCheckLose select * from TabCheckLose where Code='BSD202312300001'"},
     {"twice\t盘点报损单\tBSD202312300001\tthe code of 2 heads"}},
    {{"update TabWarrant set WarrantNum1=1 where Code='PZD202312200001'"},
     {"twice\t会计凭证\tPZD202312060001\tnumber 1 of book 1 in 2023-12 on 2 vouchers, also on PZD202312200001"}},
    {{"update TabCheckLoseInf set State='作废' where BillCode='BSD202312300001' and Num=1"},
     {"state\t盘点报损单\tBSD202312300001\tthe head says \"正常\", 1 line(s) say \"作废\""}},
    {{"update TabCheckLose set Auditing='' where Code='BSD202312300001'"},
     {"audit\t盘点报损单\tBSD202312300001\tthe head says \"\", 3 line(s) say \"系统管理员\""}},
    {{"update TabWarrantInf set Debtor=Debtor+1 where BillCode='PZD202312200001' and Num=1"},
     {"voucher\t会计凭证\tPZD202312200001\tdebit 3187.24 and credit 3186.24 of its rows"}},
    {{"update TabWarrant set SumLender=SumLender-0.01 where Code='PZD202312200001'"},
     {"voucher\t会计凭证\tPZD202312200001\tdebit 3226.24 and credit 3226.23 of its head"}},
    {{"update TabCheckLoseInf set DateTimee='2023-12-31 09:00:00' where BillCode='BSD202312300001' and Num=3"},
     {"moment\t盘点报损单\tBSD202312300001\tline 3 of 2023-12-30 is at 2023-12-31 09:00:00"}},
    {{"update TabCheckLose set DateTimee='2023-12-29 09:00:00' where Code='BSD202312300001'"},
     {"moment\t盘点报损单\tBSD202312300001\thead of 2023-12-30 is at 2023-12-29 09:00:00"}},
    {{"update TabCheckLoseInf set Datee='2023-12-31',DateTimee='2023-12-31 09:00:00'"
      " where BillCode='BSD202312300001' and Num=3"},
     {"moment\t盘点报损单\tBSD202312300001\tline 3 is of 2023-12-31, the head of 2023-12-30"}},
    {{"update TabCheckLose set DateTimee='2023-12-30 09:47:41.894' where Code='BSD202312300001'"},
     {"moment\t盘点报损单\tBSD202312300001\tthe lines begin at 2023-12-30 09:47:41.894, not after the head at "
      "2023-12-30 09:47:41.894"}},
    {{"update TabCheckLoseInf set DateTimee='2023-12-30 09:47:41.898' where BillCode='BSD202312300001' and Num=3"},
     {"moment\t盘点报损单\tBSD202312300001\tline 3 at 2023-12-30 09:47:41.898 is not after the one before at "
      "2023-12-30 09:47:41.898"}},
    {{"insert into TabDiffPriceMove(Code,Datee,DateTimee,State,Auditing)"
      " values('YDD202312300009','2023-12-30','2023-12-30 09:00:00','正常','')",
      "insert into TabDiffPriceMoveInf(BillCode,Num,WareCode,Datee,DateTimee,State,Auditing)"
      " values('YDD202312300009',1,'020101002','2023-12-30','2023-12-30 09:47:41.894','正常','')"},
     {"same\t商品\t020101002\t2 lines at 2023-12-30 09:47:41.894, on BSD202312300001 and YDD202312300009"}},
    {{"update TabOutBillInf set AveragePrice=AveragePrice+1 where BillCode='XSC202312300001' and Num=1"},
     {"cost\t销售出库单\tXSC202312300001\tline 1 of 2023-12-30, good 030102005: stored 17.7082, the engine gives "
      "16.7082"}},
    {{"update TabCheckLoseInf set AveragePrice=5.5 where BillCode='BSD202312300001' and Num=1"},
     {"cost\t盘点报损单\tBSD202312300001\tline 1 of 2023-12-30, good 020101002: stored 5.5, the engine gives 5.4027"}},
    // A wrong cost of a line that brings value in carries on to those that take it.
    {{"update TabChangePriceInf set lastAveragePrice=1 where BillCode='TJD202311040001' and Num=3"},
     {"cost\t商品调价单\tTJD202311040001\tline 3 of 2023-11-04, good 010302007: stored 1, the engine gives 13.2851",
      "cost\t销售出库单\tXSC202311100002\tline 3 of 2023-11-10, good 010302007: stored 13.2851, the engine gives 1",
      "cost\t销售出库单\tXSC202312010001\tline 3 of 2023-12-01, good 010302007: stored 13.2851, the engine gives 1",
      "cost\t销售出库单\tXSC202312070002\tline 4 of 2023-12-07, good 010302007: stored 13.2851, the engine gives 1"}},
    {{"update TabWareGroup set AveragePrice=1 where Code='ZZD202312200001'"},
     {"cost\t商品组装单\tZZD202312200001\thead of 2023-12-20, good 020101007: stored 1, the engine gives 31.4481"}},
    // Its total of 3,186.24 counts as 3 when it is saved.
    {{"update TabWareGroup set AveragePrice=25.5858 where Code='ZZD202312200001'"}, {}},
};

} // namespace

TEST(Check, MadeUpSetsAreClean)
{
    const QTemporaryDir folder;
    const QString generated = folder.filePath("generated.db");
    ASSERT_EQ(RunAcctset({"generate", generated, "--lines", "4000", "--goods", "100"}).exitCode, 0);
    for (const QString& path : {DemoFile(), generated}) {
        const Outcome outcome = RunAcctset({"check", path});
        EXPECT_EQ(outcome.exitCode, 0) << path.toStdString();
        EXPECT_EQ(outcome.out + outcome.error, "") << path.toStdString();
    }
}

TEST(Check, EveryPlantedFaultIsFoundAndNothingElse)
{
    for (const Fault& fault : kFaults) {
        const Outcome outcome = CheckPlanted(fault.statements);
        EXPECT_EQ(outcome.exitCode, fault.findings.isEmpty() ? 0 : 1) << outcome.out.toStdString();
        EXPECT_EQ(outcome.out.trimmed(), fault.findings.join('\n'));
        EXPECT_EQ(outcome.error, "");
    }
}

/// Too much goes out two days before the close, whose snapshot knows better; and on the last day.
TEST(Check, StockBelowZeroIsToldWithItsDays)
{
    const Outcome outcome = CheckPlanted(
        {"insert into TabElseOutBill(Code,Datee,DateTimee,State,Auditing,WarehouseCode)"
         " values('QTC202306280009','2023-06-28','2023-06-28 23:00:00','正常','','0101')",
         "insert into TabElseOutBillInf(BillCode,Num,WareCode,Datee,DateTimee,State,Auditing,UnionAmount,Cost)"
         " values('QTC202306280009',1,'020101002','2023-06-28','2023-06-28 23:00:01','正常','',10000,0)",
         "update TabCheckLoseInf set UnionAmount=20000 where BillCode='BSD202312300001' and Num=2"});
    EXPECT_EQ(outcome.exitCode, 1);
    const QStringList lines = outcome.out.split('\n').filter("stock\t商品");
    ASSERT_EQ(lines.size(), 2) << outcome.out.toStdString();
    EXPECT_TRUE(lines[0].startsWith("stock\t商品\t020101002\twarehouse 0101 below zero since 2023-06-28 until "
                                    "2023-06-30, lowest -9"))
        << lines[0].toStdString();
    EXPECT_TRUE(lines[1].startsWith("stock\t商品\t040202001\twarehouse 0101 below zero since 2023-12-30 to this day, "
                                    "lowest -19"))
        << lines[1].toStdString();
    EXPECT_TRUE(lines[1].endsWith(" on 2023-12-30")) << lines[1].toStdString();
}
