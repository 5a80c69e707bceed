// Processes of their own that save bills of all kinds at once on one account set, and processes that are killed while
// they do; on files, and on the server that tests/postgres_server.sh starts. WAREHOUSE_SECONDS makes them last longer.

#include "reliability/accounts.h"
#include "reliability/desk.h"
#include "stock/balance.h"
#include "support/test_program.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QThread>
#include <gtest/gtest.h>
#include <random>

namespace {

double Seconds(double usual)
{
    bool isSet = false;
    const double seconds = qEnvironmentVariable("WAREHOUSE_SECONDS").toDouble(&isSet);
    return isSet ? seconds : usual;
}

class ManyUsers : public testing::Test
{
protected:
    ManyUsers()
    {
        FillAccountSet(test, 5);
        // Enough of everything: what is refused is refused by chance of a taken number alone.
        test.Run(Sql("update TabWarehouseTurn set Amount=1000000, Cost=10000000"));
        test.program.gConnection.Close();
    }

    std::unique_ptr<QProcess> Start(int seed, double seconds)
    {
        auto user = std::make_unique<QProcess>();
        user->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        user->start(BUSY_USER_PROGRAM, {test.database ? test.database->name() : test.databasePath(),
                                        QString::number(seed), QString::number(seconds)});
        EXPECT_TRUE(user->waitForStarted());
        return user;
    }

    /// Takes down what a user has said. A line that was cut off was not said.
    void Hear(QProcess& user)
    {
        const QString said = QString::fromUtf8(user.readAllStandardOutput());
        QStringList lines = said.split('\n');
        lines.removeLast();
        for (const QString& line : lines) {
            const QStringList words = line.split('\t');
            if (words[0] == u"box") {
                boxes << words.mid(1).join(' ');
                continue;
            }
            const QString bill = words.value(1) + " " + words.value(2);
            if (words[0] == u"stored")
                stored[bill] = words.value(3);
            else
                changed.insert(bill);
            actions += 1;
        }
    }

    /// Whatever was said to be stored is there, as it was said last, and every bill is whole.
    void ExpectWhole()
    {
        test.Run(Sql("select Code from TabWare")); // opens
        Store& store = test.program.gConnection.store();
        if (!test.database) {
            EXPECT_EQ(TextOf(store.Run(Sql("pragma integrity_check")).at(0, 0)), "ok");
        }
        const Bills bills = LookAtBills(test.program);
        EXPECT_TRUE(bills.faults.isEmpty()) << bills.faults.join('\n').toStdString();
        for (const auto& [bill, mark] : stored) {
            if (changed.contains(bill))
                continue;
            const auto found = bills.marks.find(bill);
            ASSERT_NE(found, bills.marks.end()) << bill.toStdString() << " is lost";
            // A killed user may have stored once more than it could say.
            const bool isSaid = found->second == mark;
            const bool isNewer = found->second.section('.', 0, 0) == mark.section('.', 0, 0) &&
                                 found->second.section('.', 1, 1).toInt() > mark.section('.', 1, 1).toInt();
            EXPECT_TRUE(isSaid || (usersDie && isNewer)) << bill.toStdString() << " " << mark.toStdString();
        }
    }

    void ExpectStockAsSummed()
    {
        for (const auto& [place, amount] : AmountsOf(test.program.gConnection.store())) {
            const StockQuestion question{
                .warehouse = place.second, .wareCode = place.first, .asOf = {QDate(2099, 1, 1), 0}};
            EXPECT_NEAR(GetStockBalance(test.program, question).ShownAmount, amount, 0.005)
                << place.first.toStdString() << " in " << place.second.toStdString();
        }
    }

    /// The only boxes are questions, successes and the refusal of a number that another user drew at the same moment.
    void ExpectOnlyNamedBoxes()
    {
        const QStringList named = {"inform 保存成功！",
                                   "inform 作废成功！",
                                   "inform 单据已删除！",
                                   "inform 单编号重复，请重新执行保存！",
                                   "inform 单编号重复，请重新执保存！",
                                   "inform 已审核单据，禁止重复审核！",
                                   "inform 未审核单据，禁止反审核！",
                                   "ask 如果确定修改则按是，否则按否退出重新执行保存！",
                                   "ask 确定作废该单据吗？",
                                   "ask 删除当前单据吗？"};
        for (const QString& box : boxes)
            EXPECT_TRUE(named.contains(box)) << box.toStdString();
    }

    TestProgram test;
    QStringList boxes;
    std::map<QString, QString> stored; // "TABLE CODE" to the last mark
    std::set<QString> changed;         // voided or deleted by its user, who may have lent its code to another
    int actions = 0;
    bool usersDie = false;
};

TEST_F(ManyUsers, EightProcessesSaveBillsOfAllKindsAtOnce)
{
    const double seconds = Seconds(6);
    std::vector<std::unique_ptr<QProcess>> users;
    for (int seed = 1; seed <= 8; ++seed)
        users.push_back(Start(seed, seconds));
    for (const auto& user : users) {
        EXPECT_TRUE(user->waitForFinished(static_cast<int>(seconds * 1000) + 60000));
        EXPECT_EQ(user->exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(user->exitCode(), 0);
        Hear(*user);
    }
    ExpectOnlyNamedBoxes();
    ExpectWhole();
    ExpectStockAsSummed();
    EXPECT_GE(actions, 8) << "each has done something";
    RecordProperty("actions", actions);
    std::printf("%d bills stored, %d said taken\n", actions, static_cast<int>(boxes.filter("单编号重复").size()));
}

TEST_F(ManyUsers, AProcessKilledAtAnyMomentLosesNothingThatItHasSaid)
{
    usersDie = true;
    const double seconds = Seconds(6);
    std::mt19937 dice(7);
    QElapsedTimer time;
    time.start();
    int kills = 0;
    while (time.elapsed() < seconds * 1000) {
        std::vector<std::unique_ptr<QProcess>> users;
        for (int i = 0; i < 3; ++i)
            users.push_back(Start(100 + 3 * kills + i, 600));
        QThread::msleep(150 + dice() % 350);
        for (const auto& user : users) {
            user->kill();
            EXPECT_TRUE(user->waitForFinished(60000));
            Hear(*user);
        }
        ++kills;
        ExpectWhole();
        if (HasFailure())
            break;
    }
    ExpectOnlyNamedBoxes();
    ExpectStockAsSummed();
    EXPECT_GE(actions, 1);
    std::printf("%d rounds of kills, %d bills stored\n", kills, actions);

    // The next one starts and works.
    EXPECT_TRUE(Save(test.program, *TypeBill(test.program, {KindOfOperation("盘点报溢"), {{"A001", 1}}})).stored);
}

} // namespace
