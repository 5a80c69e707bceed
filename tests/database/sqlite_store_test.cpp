#include "database/open_store.h"
#include "database/sqlite_store.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>

namespace {
class SqliteStoreTest : public testing::Test
{
protected:
    SqliteStoreTest()
    {
        store = CreateSqliteFile(path);
        store->Run(Sql("create table TabDotSet(Name TEXT primary key, Num REAL, Datee TEXT, Inf BLOB)"));
    }

    void Insert(const Value& name, const Value& number = {}, const Value& day = {}, const Value& bytes = {})
    {
        store->Run(InsertInto(Name("TabDotSet"), {name, number, day, bytes}));
    }
    int Count(Store& in) { return static_cast<int>(in.Run(Sql("select count(*) as n from TabDotSet")).Integer("n")); }

    void Write(const QString& name, const QByteArray& bytes)
    {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    QString Refusal(const QString& name)
    {
        try {
            OpenSqliteFile(folder.filePath(name));
            return "opened";
        } catch (const StoreError& error) {
            EXPECT_NE(error.number, 0);
            return error.description;
        }
    }

    QTemporaryDir folder;
    QString path = folder.filePath("acct.db");
    std::unique_ptr<Store> store;
};
} // namespace

TEST_F(SqliteStoreTest, GivesBackWhatWasStored)
{
    const QString name = "O'Neil \"?\" 中文 \n;--";
    Insert(name, 0.1 + 0.2, QDate(2023, 2, 8), QByteArray("\0\x01", 2));
    Insert(QString(), Currency::FromUnits(12345), Moment{QDate(2023, 2, 8), 1004});
    Insert(QString("null"), Value(), QDate());

    const Recordset rows = store->Run(Sql("select * from TabDotSet where Name=") + name);
    ASSERT_EQ(rows.size(), 1);
    EXPECT_EQ(rows.Text("NAME"), name);
    EXPECT_EQ(rows.Number("num"), 0.1 + 0.2);
    EXPECT_EQ(rows.Day("Datee"), QDate(2023, 2, 8));
    EXPECT_EQ(std::get<QByteArray>(rows.at(0, "Inf")), QByteArray("\0\x01", 2));

    const Recordset empty = store->Run(Sql("select * from TabDotSet where Name=") + QString());
    EXPECT_EQ(empty.Money("Num").text(), "1.2345");
    EXPECT_EQ(empty.Text("Datee"), "2023-02-08 00:00:01.004");
    EXPECT_FALSE(empty.IsNull("Name"));

    const Recordset null = store->Run(Sql("select * from TabDotSet where Name=") + QString("null"));
    EXPECT_TRUE(null.IsNull("Num"));
    EXPECT_TRUE(null.IsNull("Datee"));
    EXPECT_TRUE(null.IsNull("NoSuchColumn"));
}

TEST_F(SqliteStoreTest, SumsWithoutDrift)
{
    store->BeginUnit();
    Insert(QString("big"), 1e15);
    for (int i = 0; i < 10000; ++i)
        Insert(QString::number(i), 0.1);
    Insert(QString("less"), -1e15);
    store->CommitUnit();
    EXPECT_NEAR(store->Run(Sql("select sum(Num) as s from TabDotSet")).Number("s"), 1000, 1e-9);
    EXPECT_TRUE(store->Run(Sql("select sum(Num) as s from TabDotSet where Name='none'")).IsNull("s"));
}

TEST_F(SqliteStoreTest, StoresAUnitWholeOrNotAtAll)
{
    store->BeginUnit();
    Insert(QString("a"));
    EXPECT_THROW(Insert(QString("a")), StoreError);
    Insert(QString("b"));
    EXPECT_EQ(Count(*OpenSqliteFile(path)), 0) << "others see nothing before the end";
    store->CommitUnit();
    EXPECT_EQ(Count(*OpenSqliteFile(path)), 2) << "the failed row alone is missing";

    store->BeginUnit();
    Insert(QString("c"));
    store->RollbackUnit();
    EXPECT_FALSE(store->inUnit());
    EXPECT_EQ(Count(*store), 2);
}

TEST_F(SqliteStoreTest, RefusesWhatIsNoAccountSet)
{
    Write("empty.db", "");
    Write("text.db", "not a database at all, but long enough to hold a header of thirty-two bytes");
    Write("jet.mdb", QByteArray("\0\1\0\0Standard Jet DB\0rest of the header page follows here", 50));
    CreateSqliteFile(folder.filePath("foreign.db"))->Run(Sql("create table Other(a)"));
    Write("cut.db", QByteArray("SQLite format 3\0", 16) + QByteArray(200, 'x'));

    const std::pair<const char*, const char*> refusals[] = {{"missing.db", "不存在"},
                                                            {"empty.db", "已损坏"},
                                                            {"text.db", "已损坏"},
                                                            {"cut.db", "已损坏"},
                                                            {"jet.mdb", "Jet"},
                                                            {"foreign.db", "不是本系统的账套"},
                                                            {"", "不存在"}};
    for (const auto& [name, word] : refusals)
        EXPECT_TRUE(Refusal(name).contains(word)) << name;
    EXPECT_FALSE(QFile::exists(folder.filePath("missing.db")));
    EXPECT_THROW(CreateSqliteFile(path), StoreError) << "an existing file is never overwritten";
}

TEST_F(SqliteStoreTest, WritesNothingIntoAFileThatIsGone)
{
    store.reset();
    const QString aside = folder.path() + ".aside";
    for (const char* gone : {"", "/acct.db", "/acct.db-wal"}) { // the folder, or a file in it
        for (const bool isBack : {false, true}) {               // another one in its place
            for (const bool inUnit : {false, true}) {
                const QString place = folder.path() + gone;
                const auto opened = OpenSqliteFile(path);
                if (inUnit)
                    opened->BeginUnit();
                ASSERT_TRUE(QFile::rename(place, aside));
                if (isBack)
                    *gone ? QFile::copy(aside, place) : QDir().mkdir(place) && QFile::copy(aside + "/acct.db", path);
                try {
                    inUnit ? opened->CommitUnit() : opened->BeginUnit();
                    ADD_FAILURE() << gone << " went on";
                } catch (const StoreError& error) {
                    EXPECT_TRUE(error.description.endsWith(*gone ? place : path)) << error.description.toStdString();
                }
                EXPECT_TRUE(opened->isLost());
                QFile::remove(place);
                if (!*gone)
                    QDir(place).removeRecursively();
                ASSERT_TRUE(QFile::rename(aside, place));
            }
        }
    }
}

TEST_F(SqliteStoreTest, TheLogIsBroughtHomeWhenThereIsTime)
{
    int count = 0;
    const QCoreApplication application(count, nullptr);
    store->BeginUnit();
    Insert(QString("a"));
    store->CommitUnit();
    const auto logSize = [this] { return QFileInfo(path + "-wal").size(); };
    EXPECT_GT(logSize(), 0);
    while (logSize() > 0)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

/// What a program that was killed leaves behind is a log beside the file.
class LeftOpen : public SqliteStoreTest
{
protected:
    void AddRows(int count)
    {
        store = OpenSqliteFile(path);
        store->BeginUnit();
        for (int i = 0; i < count; ++i)
            Insert(QString("%1 of %2").arg(i).arg(count), 1, {}, QByteArray(100, 'x'));
        store->CommitUnit();
    }
    /// The file as it was at the beginning, with the log of a later day beside it.
    /// @param between  rows that are in neither
    QString Restore(int between)
    {
        const QString restored = folder.filePath("restored.db");
        AddRows(1000);
        store.reset();
        EXPECT_TRUE(QFile::copy(path, restored));
        if (between > 0)
            AddRows(between);
        store.reset();
        AddRows(100);
        EXPECT_TRUE(QFile::copy(path + "-wal", restored + "-wal"));
        return restored;
    }
};

TEST_F(LeftOpen, AWholeFileIsTakenUpAgain)
{
    const QString file = Restore(0);
    {
        const auto opened = OpenSqliteFile(file);
        opened->WhenDamaged([](const QString& text) { ADD_FAILURE() << text.toStdString(); });
        opened->Run(Sql("delete from TabDotSet where Name='1 of 100'"));
    }
    EXPECT_FALSE(QFile::exists(file + "-wal"));
    EXPECT_EQ(Count(*OpenSqliteFile(file)), 1099);
}

TEST_F(LeftOpen, ADamagedOneIsSaidAndNothingIsWritten)
{
    const QString file = Restore(2000);
    QString told;
    {
        const auto opened = OpenSqliteFile(file);
        opened->WhenDamaged([&](const QString& text) { told = text; });
        EXPECT_TRUE(told.contains(file)) << told.toStdString();
        EXPECT_THROW(opened->BeginUnit(), StoreError);
        EXPECT_THROW(opened->Run(Sql("delete from TabDotSet")), StoreError);
    }
    QFile::remove(file + "-wal");
    QFile::remove(file + "-shm");
    EXPECT_EQ(Count(*OpenSqliteFile(file)), 1000) << "the log has not got into it";
}

TEST_F(SqliteStoreTest, CopiesEveryCommittedRowAndNoSideFile)
{
    Insert(QString("a"));
    Insert(QString("b"));
    const QString copy = folder.filePath("copy.VTB");
    CopySqliteFile(path, copy);
    EXPECT_TRUE(QDir(folder.path()).entryList({"copy*"}).size() == 1);
    EXPECT_EQ(Count(*OpenSqliteFile(copy)), 2);
}

TEST_F(SqliteStoreTest, ConnectionStringNamesTheFile)
{
    const QString start = "Provider = Microsoft.Jet.OLEDB.4.0;Data Source = " + folder.path() + "\\acct.db;";
    for (const char* end : {"Jet OLEDB:Database Password='p'", "  Jet OLEDB:Database Password='p'"})
        EXPECT_NO_THROW(OpenStore(start + end)) << end;
    for (const char* text : {"", "Driver={SQL Server};Server=x,1433;DataBase=y;UID=u;PWD=p; "})
        EXPECT_THROW(OpenStore(text), StoreError) << text;
}
