#include "database/sqlite_store.h"
#include "frame/backup.h"
#include "support/test_program.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace {

class BackupTest : public testing::Test
{
protected:
    QString Folder(const QString& name) const { return m_test.program.folder + "/" + name; }

    void WriteData(const QString& name, const QByteArray& content)
    {
        QFile file(Folder("Data/" + name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    static QStringList FilesIn(const QString& folder) { return QDir(folder).entryList(QDir::Files, QDir::Name); }

    TestProgram m_test;
};

TEST_F(BackupTest, ACopyOfADatabaseInUseHoldsEveryCommittedRow)
{
    ASSERT_TRUE(QDir().mkdir(Folder("DataBak")));
    m_test.Insert("TabWare", {{"Code", "0101"}, {"Name", "O'Neil 螺丝"}});
    ASSERT_EQ(m_test.program.gConnection.State(), 1);
    const QString database = QFileInfo(m_test.databasePath()).fileName();
    ASSERT_TRUE(FilesIn(Folder("Data")).contains(database + "-wal"));

    BackUpDataFolder(m_test.program);
    EXPECT_EQ(m_test.prompt.TakeTexts(), QStringList());
    const QString target = Folder("DataBak/2023-2-8-9300/");
    const QString copy = database.left(database.size() - 4) + ".VTB";
    EXPECT_EQ(FilesIn(target), QStringList(copy));
    const auto store = OpenSqliteFile(target + copy);
    EXPECT_EQ(store->Run(Sql("select Name from TabWare")).Text("Name"), "O'Neil 螺丝");
}

TEST_F(BackupTest, NamesLoseFourCharactersWhateverTheyAre)
{
    QTemporaryDir root;
    m_test.Insert("TabAutoBakPath", {{"PathName", " " + root.path() + "/bak "}});
    WriteData("README", "no point in it");
    WriteData("notes.a", "1");
    WriteData("old.accdb", "2");
    WriteData("sheet-wal.txt", "3");
    BackUpDataFolder(m_test.program);
    const QStringList names = FilesIn(root.path() + "/bak2023-2-8-9300");
    EXPECT_EQ(names.filter("old"), QStringList("old.a.VTB"));
    EXPECT_EQ(names.filter("not"), QStringList("not.VTB"));
    EXPECT_EQ(names.filter("sheet"), QStringList("sheet-wal.VTB"));
    EXPECT_EQ(names.filter("README"), QStringList());
    EXPECT_EQ(m_test.prompt.TakeTexts(), QStringList());
}

TEST_F(BackupTest, SaysWhyThereIsNoBackup)
{
    BackUpDataFolder(m_test.program);
    EXPECT_EQ(m_test.prompt.boxes.front().kind, "warn");
    EXPECT_EQ(m_test.prompt.TakeTexts(), QStringList("发生不可预见性错误，自动备份失败！"));

    ASSERT_TRUE(QDir().mkpath(Folder("DataBak/2023-2-8-9300")));
    BackUpDataFolder(m_test.program);
    EXPECT_EQ(m_test.prompt.boxes.front().kind, "inform");
    EXPECT_EQ(m_test.prompt.TakeTexts(), QStringList("自动生成的备份文件名已经存在，自动备份失败！"));
}

TEST_F(BackupTest, ADamagedDatabaseIsToldAndTheOthersAreCopied)
{
    ASSERT_TRUE(QDir().mkdir(Folder("DataBak")));
    WriteData("aaa.mdb", QByteArray("SQLite format 3\0", 16) + QByteArray(4096, 'x'));
    WriteData("zzz.txt", "whole");
    BackUpDataFolder(m_test.program);
    EXPECT_EQ(m_test.prompt.TakeTexts(), QStringList("发生不可预见性错误，自动备份失败！"));
    const QStringList names = FilesIn(Folder("DataBak/2023-2-8-9300"));
    EXPECT_FALSE(names.contains("aaa.VTB"));
    EXPECT_TRUE(names.contains("zzz.VTB"));
}

TEST(BackupStamp, HasNoZerosInFront)
{
    EXPECT_EQ(BackupStamp({QDate(2023, 1, 7), ((9 * 60 + 5) * 60 + 12) * 1000 + 999}), "2023-1-7-9512");
    EXPECT_EQ(BackupStamp({QDate(2023, 11, 17), 0}), "2023-11-17-000");
}

} // namespace
