// The command line itself: what it refuses and how, and what it prints.

#include "acctset/books.h"

#include "handover/run_parameters.h"
#include "support/test_program.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

namespace {

QJsonObject JsonOf(const Outcome& outcome)
{
    EXPECT_EQ(outcome.exitCode, 0) << outcome.error.toStdString();
    return QJsonDocument::fromJson(outcome.out.toUtf8()).object();
}

} // namespace

TEST(Acctset, RefusesWithOneAndCallsWrongUseTwo)
{
    const QTemporaryDir folder;
    QFile text(folder.filePath("text.db"));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("no account set at all, only some text");
    text.close();
    const struct
    {
        QStringList arguments;
        int exitCode;
    } cases[] = {
        {{}, 2},
        {{"--help"}, 0},
        {{"nothing"}, 2},
        {{"create"}, 2},
        {{"create", "a", "b"}, 2},
        {{"create", folder.filePath("none/x.db")}, 1},
        {{"create", DemoFile()}, 1},
        {{"create", folder.filePath("x.db"), "--wrong"}, 2},
        {{"generate", folder.filePath("x.db"), "--lines", "10"}, 2},
        {{"generate", folder.filePath("x.db"), "--lines", "ten", "--goods", "100"}, 2},
        {{"generate", folder.filePath("x.db"), "--lines", "10", "--goods", "0"}, 2},
        {{"generate", DemoFile(), "--lines", "10", "--goods", "100"}, 1},
        {{"stock", DemoFile()}, 2},
        {{"stock", DemoFile(), "--ware", "none"}, 1},
        {{"stock", DemoFile(), "--ware", "010101001", "--date", "someday"}, 2},
        {{"stock", folder.filePath("x.db"), "--ware", "010101001"}, 1},
        {{"stock", text.fileName(), "--ware", "010101001"}, 1},
        {{"check", text.fileName()}, 1},
        {{"cost", DemoFile(), "--ware", "010101001", "--amount", "many"}, 2},
        {{"rewrite", DemoFile(), "--ware", "010101001", "--warehouse", "0101"}, 2},
        {{"handover", folder.path()}, 2},
        {{"handover", folder.path(), "--data", "a.db", "--type", "Oracle"}, 2},
        {{"handover", folder.filePath("none"), "--data", "a.db"}, 1},
        {{"read-handover", folder.path()}, 1},
    };
    for (const auto& [arguments, exitCode] : cases) {
        const Outcome outcome = RunAcctset(arguments);
        EXPECT_EQ(outcome.exitCode, exitCode) << arguments.join(' ').toStdString();
        EXPECT_EQ(outcome.error.isEmpty(), exitCode == 0) << arguments.join(' ').toStdString();
        EXPECT_EQ(outcome.out.isEmpty(), exitCode != 0) << arguments.join(' ').toStdString();
        EXPECT_TRUE(exitCode != 1 || outcome.error.count('\n') <= 2) << "a reason is said once";
    }
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList("text.db"));
}

TEST(Acctset, ANewSetHasWhatItCannotWorkWithout)
{
    const QTemporaryDir folder;
    for (const QStringList& company : {QStringList(), QStringList({"--company", "甲公司"})}) {
        const QString path = folder.filePath(company.isEmpty() ? "shop.db" : "other.db");
        ASSERT_EQ(RunAcctset(QStringList({"create", path}) + company).exitCode, 0);
        const auto store = OpenSqliteFile(path);
        EXPECT_EQ(store->Run(Sql("select Name from TabCompanyInf")).Text("Name"), company.value(1, "shop"));
        EXPECT_EQ(store->Run(Sql("select Name from TabMoneyType where IsBWB='是' and Rate=1")).Text("Name"), "人民币");
        EXPECT_EQ(store->Run(Sql("select IsZero from TabSysSet")).at(0, 0), Value(qint64(0))) << "stock is tested";
        const Recordset places = store->Run(Sql("select group_concat(Name||Num) as places from TabDotSet"));
        EXPECT_EQ(places.Text("places"), "单价型4,数值型2,金额型2,货币型2");
    }
}

TEST(Acctset, EveryCommandTellsItsOptions)
{
    for (const char* command :
         {"create", "generate", "handover", "read-handover", "stock", "cost", "explain", "check", "rewrite"}) {
        const Outcome outcome = RunAcctset({command, "--help"});
        EXPECT_EQ(outcome.exitCode, 0) << command;
        EXPECT_TRUE(outcome.out.startsWith(QString("Usage: acctset %1 ").arg(command))) << outcome.out.toStdString();
    }
}

TEST(Acctset, HandoverIsReadBackAndStays)
{
    const QTemporaryDir folder;
    ASSERT_EQ(RunAcctset({"handover", folder.path(), "--data", "demo.db", "--type", "Access2", "--operator", "仓管员",
                          "--date", "2023-07-01", "--directive1", "单据查询", "--directive4", "TDD202302080001"})
                  .exitCode,
              0);
    const Outcome read = RunAcctset({"read-handover", folder.path()});
    EXPECT_EQ(read.exitCode, 0);
    for (const char* line : {"DatabaseType=Access2", "ConDataName=demo.db", "UserName=仓管员", "OperateDate=2023-07-01",
                             "OperationsDirective4=TDD202302080001"})
        EXPECT_TRUE(read.out.split('\n').contains(line)) << line;

    const std::optional<RunParameters> parameters = ReadRunParameters(folder.path(), QDate(2000, 1, 1));
    ASSERT_TRUE(parameters);
    EXPECT_EQ(parameters->UserName, "仓管员");
    EXPECT_EQ(parameters->OperationsDirective, "单据查询");
    EXPECT_FALSE(parameters->IsAccess);
}

TEST(Acctset, StockAnswersByWarehouseDayAndDimension)
{
    const auto store = OpenSqliteFile(DemoFile());
    const Recordset snapshot =
        store->Run(Sql("select WareCode,sum(Amount) as Amount from TabWarehouseTurn where Datee='2023-06-30'"
                       " and WarehouseCode='0101' and AttributeCode='0102' group by WareCode"));
    ASSERT_FALSE(snapshot.isEmpty());
    const QString good = snapshot.Text("WareCode");
    const QStringList question = {"stock", DemoFile(), "--ware",     good,          "--warehouse",
                                  "0101",  "--date",   "2023-06-30", "--attribute", "0102"};
    const QJsonObject stock = JsonOf(RunAcctset(question));
    EXPECT_DOUBLE_EQ(stock["amount"].toDouble(), snapshot.Number("Amount"));
    EXPECT_TRUE(stock["money"].isString());
    EXPECT_EQ(stock.keys(), QStringList({"amount", "money", "unitCost"}));

    QStringList root = question;
    root.last() = "01";
    EXPECT_GE(JsonOf(RunAcctset(root))["amount"].toDouble(), snapshot.Number("Amount"));
    EXPECT_EQ(JsonOf(RunAcctset(root + QStringList("--exact")))["amount"].toDouble(), 0);
}

TEST(Acctset, CostAnswersForLinesThatAddAndLinesThatLeave)
{
    const QStringList question = {"cost", DemoFile(), "--ware", "010101001", "--moment", "2023-12-31 10:00:00"};
    const double recorded = JsonOf(RunAcctset(question))["cost"].toDouble();
    EXPECT_GT(recorded, 0);
    const QStringList adding = {"--adds", "--amount", "1000", "--money", "50000"};
    EXPECT_GT(JsonOf(RunAcctset(question + adding))["cost"].toDouble(), 2 * recorded);
    EXPECT_DOUBLE_EQ(JsonOf(RunAcctset(question + QStringList("--display")))["cost"].toDouble(), recorded);
}

TEST(Acctset, RewriteCarriesALateCostForward)
{
    const QTemporaryDir folder;
    const QString path = OwnDemo(folder);
    const Recordset line = OpenSqliteFile(path)->Run(
        Sql("select L.WareCode as WareCode,L.Datee as Datee from TabInBillInf L,TabWare W where L.WareCode=W.Code"
            " and W.CostStyle='移动加权平均法' and L.Datee>'2023-07-10' and L.Datee<'2023-10-01'"
            " order by L.Datee,L.WareCode"));
    ASSERT_FALSE(line.isEmpty());
    const QString good = line.Text("WareCode");
    const QString day = line.Text("Datee");
    OpenSqliteFile(path)->Run(Sql("update TabInBillInf set AveragePrice=77.5 where WareCode=") + good +
                              " and Datee=" + day);
    ASSERT_EQ(RunAcctset({"rewrite", path, "--ware", good, "--warehouse", "0101", "--date", "2023-12-31"}).exitCode, 0);
    const Recordset next = OpenSqliteFile(path)->Run(Sql("select Cost from TabOutBillInf where WareCode=") + good +
                                                     " and Datee>" + day + " order by DateTimee");
    ASSERT_FALSE(next.isEmpty());
    EXPECT_DOUBLE_EQ(next.Number("Cost"), 77.5);
}
