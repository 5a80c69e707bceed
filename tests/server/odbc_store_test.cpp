#include "database/odbc_store.h"

#include "database/patient_store.h"
#include "database/sqlite_store.h"
#include "support/test_program.h"

#include <QTemporaryDir>
#include <algorithm>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr const char* kKeeper = "keeper";
constexpr const char* kKeepersPassword = "se;c}r=e{t%41";

std::unique_ptr<Store> Open(const QString& database)
{
    return OpenServer(TestServerSettings(), TestAddress(database));
}

/// What the user is told where a connection does not come about; empty where it does.
QString Refusal(const ServerSettings& settings, const ServerAddress& address)
{
    try {
        OpenServer(settings, address);
        return {};
    } catch (const StoreError& error) {
        EXPECT_FALSE(error.description.contains(address.password)) << error.description.toStdString();
        return error.description;
    }
}

/// Ends all other sessions of a database, as an administrator or a crash would.
void KillSessions(const QString& database)
{
    Open("postgres")->Run(Sql("select pg_terminate_backend(pid) from pg_stat_activity where datname=") + database);
}

Recordset RunOn(Store& store, const Sql& sql)
{
    try {
        return store.Run(sql);
    } catch (const StoreError& error) {
        ADD_FAILURE() << sql.shape() << ": " << error.description.toStdString();
        return {};
    }
}

bool Fails(Store& store, const Sql& sql)
{
    EXPECT_THROW(store.Run(sql), StoreError) << sql.shape();
    return store.inUnit();
}

Sql InsertGood(const QString& code, const QString& name = "")
{
    return Sql("insert into TabWareType values(") + code + "," + name + ",'0')";
}

int Goods(Store& store)
{
    return static_cast<int>(RunOn(store, Sql("select count(*) as n from TabWareType")).Integer("n"));
}

std::string Shown(const Recordset& rows)
{
    QString text;
    for (int row = 0; row < rows.size(); ++row)
        for (int column = 0; column < int(rows.columns().size()); ++column)
            text += (IsNull(rows.at(row, column)) ? "<null>" : TextOf(rows.at(row, column))) + (column ? " " : "|");
    return text.toStdString();
}

} // namespace

TEST(OdbcStore, AnswersAsTheFileDoes)
{
    TestProgram onServer;
    TestProgram onFile("Access", OpenStore);
    const Sql statements[] = {
        Sql("insert into TabWareGroup(Code,Datee,DateTimee,Cost,SumMoney,Amount,WareName,SCDate,MoneyRate) values(") +
            QString("aB-1") + "," + QDate(2023, 2, 8) + "," + Moment{QDate(2023, 2, 8), 34200004} + "," + 0.1 + "," +
            1e-7 + "," + 12345678.875 + "," + QString("O'Neil 商品\\%") + "," + QDate(2024, 1, 31) + "," + 3 + ")",
        Sql("insert into TabWareGroup(Code,Datee,DateTimee,Amount,WareName,Custom1) values('Ab_2',") +
            QDate(2023, 2, 8) + "," + Moment{QDate(2023, 2, 8), 34200000} + ",-2.5," + QString(255, u'长') + "," +
            QString(5000, u'长') + ")",
        Sql("insert into TabWareGroup(Code,Datee,DateTimee,WareName) values('AC2',") + QDate(1900, 1, 1) + "," +
            Moment{QDate(2023, 2, 9)} + "," + QString("") + ")",
        Sql("insert into TabDiffPriceMove(Code,MoneyBanlance) values('1',") + Currency::FromUnits(123456789012345) +
            ")",
        Sql("insert into TabDiffPriceMove(Code,MoneyBanlance) values('2',") + 0.005 + ")",
        Sql("insert into TabImg values('1',") + QString("x") + "," + Value(QByteArray("\0\1\xff'", 4)) + ")",
        Sql("insert into TabImg values(") + Value() + ",''," + Value(QByteArray()) + ")",
        Sql("select * from TabWareGroup order by Code"),
        Sql("select * from TabWareGroup order by Cost,Code desc"),
        Sql("select Code from TabWareGroup order by Cost desc,Code"),
        Sql("select top 1 Code from TabWareGroup order by Cost"),
        Sql("select Code from TabWareGroup where Code=") + QString("AB-1"),
        Sql("select Code from TabWareGroup where Code like ") + QString("ab%"),
        Sql("select Code from TabWareGroup where Code like ") + QString("AB_2"),
        Sql("select Code from TabWareGroup where WareName like ") + QString("%\\%"),
        Sql("select Code from TabWareGroup where WareName<>'' and Datee<=") + Moment{QDate(2023, 2, 8), 1},
        Sql("select Code from TabWareGroup where DateTimee=") + Moment{QDate(2023, 2, 8), 34200004},
        Sql("select max(Code) as m,sum(Amount) as s,count(*) as n,max(DateTimee) as d from TabWareGroup"),
        Sql("select MoneyBanlance,MoneyBanlance*2 as Twice from TabDiffPriceMove order by Code"),
        Sql("select sum(MoneyBanlance) as m from TabDiffPriceMove where Code=") + QString("nothing"),
        Sql("select * from TabImg order by BillCode"),
        Sql("update TabWareGroup ,TabWareType set TabWareGroup.Cost=1 where TabWareType.Code=TabWareGroup.Code"),
    };
    for (const Sql& sql : statements) {
        const Recordset expected = onFile.Run(sql);
        const Recordset rows = onServer.Run(sql);
        EXPECT_EQ(Shown(rows), Shown(expected)) << sql.shape();
        for (size_t column = 0; column < expected.columns().size(); ++column)
            EXPECT_EQ(rows.ColumnOf(expected.columns()[column]), int(column)) << sql.shape();
    }
    EXPECT_EQ(onServer.Run(Sql("select Img from TabImg where BillCode='1'")).at(0, "Img"),
              Value(QByteArray("\0\1\xff'", 4)));
}

TEST(OdbcStore, RefusesAValueOfAnotherForm)
{
    TestDatabase database;
    const auto store = Open(database.name());
    const Sql values[] = {
        Sql("insert into TabTurn(Datee) values(") + QString("") + ")",
        Sql("insert into TabTurn(Datee) values(") + Moment{QDate(2023, 2, 8), 1000} + ")",
        Sql("insert into TabDotSet values('a',") + QString("") + ")",
        Sql("insert into TabDotSet values('a',") + QString("x") + ")",
    };
    for (const Sql& sql : values)
        Fails(*store, sql);
}

TEST(OdbcStore, AStatementIsPreparedAndPlannedOncePerConnection)
{
    TestDatabase database;
    const auto store = Open(database.name());
    for (const char* code : {"A", "B", "C"})
        RunOn(*store, Sql("select Name from TabWare where Code=") + QString(code));
    const Recordset prepared = RunOn(*store, Sql("select count(*) as n,sum(generic_plans) as g,sum(custom_plans) as c "
                                                 "from pg_prepared_statements where statement like ") +
                                                 QString("select Name from TabWare where%"));
    EXPECT_EQ(prepared.Integer("n"), 1);
    EXPECT_EQ(prepared.Integer("g"), 3);
    EXPECT_EQ(prepared.Integer("c"), 0);
}

TEST(OdbcStore, AFailedConnectionIsSaidInTheUsersWords)
{
    TestDatabase database;
    ServerAddress good = TestAddress(database.name());
    good.user = kKeeper;
    good.password = kKeepersPassword;
    EXPECT_EQ(Refusal(TestServerSettings(), good), QString());

    ServerAddress address = good;
    address.password = "wrong;UID=tester;PWD=x";
    EXPECT_TRUE(Refusal(TestServerSettings(), address).startsWith("登录数据库服务器失败"));
    address = good;
    address.database = "nowhere";
    EXPECT_TRUE(Refusal(TestServerSettings(), address).startsWith("数据库服务器上没有此账套"));
    address = good;
    address.port = "5433";
    EXPECT_TRUE(Refusal(TestServerSettings(), address).startsWith("不能连接数据库服务器"));
    ServerSettings settings = TestServerSettings();
    settings.driver = "No Such Driver";
    EXPECT_TRUE(Refusal(settings, good).startsWith("没有安装数据库服务器的驱动程序"));
}

TEST(OdbcStore, ASlowServerIsGivenUp)
{
    // It takes the connection and says nothing.
    const QTemporaryDir folder;
    const QByteArray path = folder.filePath(".s.PGSQL.5432").toLocal8Bit();
    sockaddr_un silent{};
    silent.sun_family = AF_UNIX;
    ASSERT_LT(size_t(path.size()), sizeof silent.sun_path);
    std::ranges::copy(path, silent.sun_path);
    const int listener = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(listener, reinterpret_cast<sockaddr*>(&silent), sizeof silent), 0);
    ASSERT_EQ(listen(listener, 1), 0);
    ServerSettings settings = TestServerSettings();
    settings.connectSeconds = 2;
    ServerAddress address = TestAddress("any");
    address.server = folder.path();
    EXPECT_TRUE(Refusal(settings, address).startsWith("数据库服务器没有在规定时间内答复"));
    close(listener);

    TestDatabase database;
    settings.statementSeconds = 1;
    const auto store = OpenServer(settings, TestAddress(database.name()));
    store->BeginUnit();
    RunOn(*store, InsertGood("A"));
    EXPECT_TRUE(Fails(*store, Sql("select cast(pg_sleep(30) as text)")));
    store->CommitUnit();
    EXPECT_EQ(Goods(*store), 1);
}

/// The session of a store neither answers nor ends, as behind a network that has lost it.
TEST(OdbcStore, ASilentServerIsLeftBehindAndTheNextQueryConnectsAgain)
{
    TestDatabase database;
    ServerSettings settings = TestServerSettings();
    settings.statementSeconds = 1;
    TestProgram test("SQL", [&](const QString&) { return OpenServer(settings, TestAddress(database.name())); });
    const qint64 session = test.Run(Sql("select pg_backend_pid() as Pid")).Integer("Pid");
    ASSERT_EQ(kill(pid_t(session), SIGSTOP), 0);
    EXPECT_FALSE(OpenQuery(test.program, InsertGood("A")));
    EXPECT_EQ(test.prompt.TakeTexts(), QStringList("Error:-2147467259\r\n" + QString(kSlowServer)));
    EXPECT_EQ(test.program.gConnection.State(), 0);
    EXPECT_TRUE(OpenQuery(test.program, InsertGood("B")));
    test.program.gConnection.Close();
    KillSessions(database.name());
    EXPECT_EQ(kill(pid_t(session), SIGCONT), 0);
}

TEST(OdbcStore, AFailingStatementTakesOnlyItselfBack)
{
    TestDatabase database;
    const auto store = Open(database.name());
    store->BeginUnit();
    // More rows than lie between two savepoints, with failures before, at and behind one.
    for (int i = 0; i < 70; ++i) {
        RunOn(*store, InsertGood(QString("A%1").arg(i)));
        if (i % 15 == 0 || i == 31 || i == 32) {
            EXPECT_TRUE(Fails(*store, InsertGood("a0")));
            EXPECT_TRUE(Fails(*store, Sql("select * from TabNothing")));
        }
    }
    EXPECT_EQ(Goods(*Open(database.name())), 0) << "others see nothing before the end";
    store->CommitUnit();
    EXPECT_FALSE(store->inUnit());
    EXPECT_EQ(Goods(*Open(database.name())), 70);

    store->BeginUnit();
    RunOn(*store, InsertGood("B"));
    Fails(*store, InsertGood("b"));
    store->RollbackUnit();
    EXPECT_FALSE(store->inUnit());
    EXPECT_EQ(Goods(*store), 70);
}

TEST(OdbcStore, UnitsOfTwoProgramsFollowEachOther)
{
    TestDatabase database;
    const auto addNext = [](Store& store) {
        const int next = int(RunOn(store, Sql("select count(*) as n from TabWareType")).Integer("n")) + 1;
        RunOn(store, InsertGood(QString("C%1").arg(next)));
        store.CommitUnit();
    };
    const auto first = Open(database.name());
    first->BeginUnit();
    std::thread other([&] {
        const auto second = Open(database.name());
        second->BeginUnit();
        addNext(*second);
    });
    addNext(*first);
    other.join();
    EXPECT_EQ(Goods(*first), 2);
}

TEST(OdbcStore, AUnitThatLastsIsNotWaitedForEver)
{
    TestDatabase database;
    const auto first = Open(database.name());
    const auto second = Open(database.name());
    RunOn(*second, Sql("set lock_timeout='100ms'"));
    first->BeginUnit();
    try {
        second->BeginUnit();
        ADD_FAILURE() << "two units at a time";
    } catch (const StoreError& error) {
        EXPECT_TRUE(error.description.startsWith("数据库正被其他程序占用")) << error.description.toStdString();
    }
    EXPECT_FALSE(second->inUnit());
    EXPECT_EQ(Goods(*second), 0);
    first->CommitUnit();
    second->BeginUnit();
    RunOn(*second, InsertGood("A"));
    second->CommitUnit();
    EXPECT_EQ(Goods(*first), 1);
}

TEST(OdbcStore, ALostServerEndsTheUnitAndTheNextQueryConnectsAgain)
{
    TestProgram test;
    {
        SaveUnit unit(test.program);
        ASSERT_TRUE(unit.isOpen());
        EXPECT_TRUE(OpenQuery(test.program, InsertGood("A")));
        KillSessions(test.database->name());
        EXPECT_FALSE(OpenQuery(test.program, InsertGood("B")));
        EXPECT_FALSE(OpenQuery(test.program, InsertGood("C")));
        EXPECT_FALSE(unit.Commit());
    }
    ASSERT_EQ(test.prompt.boxes.size(), 1u);
    EXPECT_TRUE(test.prompt.TakeTexts().first().contains("\r\n与数据库服务器的连接已断开"));
    EXPECT_EQ(test.Run(Sql("select * from TabWareType")).size(), 0);

    KillSessions(test.database->name());
    EXPECT_FALSE(OpenQuery(test.program, InsertGood("D")));
    EXPECT_EQ(test.prompt.TakeTexts().size(), 1);
    EXPECT_TRUE(OpenQuery(test.program, InsertGood("E")));

    {
        SaveUnit unit(test.program);
        EXPECT_TRUE(OpenQuery(test.program, InsertGood("F")));
        KillSessions(test.database->name());
        EXPECT_FALSE(unit.Commit());
    }
    EXPECT_EQ(test.prompt.TakeTexts().size(), 1);
    EXPECT_EQ(test.Run(Sql("select * from TabWareType")).size(), 1);
}
