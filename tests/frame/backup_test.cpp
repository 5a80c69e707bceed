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
    QString Folder(const QString& name) const { return test.program.folder + "/" + name; }
    void WriteData(const QString& name, const QByteArray& content = "content")
    {
        QFile file(Folder("Data/" + name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    /// Makes the backup and gives its boxes, each behind its kind.
    QStringList BackUp()
    {
        BackUpDataFolder(test.program);
        QStringList texts;
        for (const ScriptedPrompt::Box& box : std::exchange(test.prompt.boxes, {}))
            texts << box.kind + ": " + box.text;
        return texts;
    }
    static QStringList FilesIn(const QString& folder) { return QDir(folder).entryList(QDir::Files, QDir::Name); }

    TestProgram test;
    const QString unforeseen = "warn: 发生不可预见性错误，自动备份失败！\r\n";
};

TEST_F(BackupTest, ACopyOfADatabaseInUseHoldsEveryCommittedRow)
{
    test.Insert("TabWare", {{"Code", "0101"}, {"Name", "O'Neil 螺丝"}});
    ASSERT_EQ(test.program.gConnection.State(), 1);
    const QString database = QFileInfo(test.databasePath()).fileName();
    ASSERT_TRUE(FilesIn(Folder("Data")).contains(database + "-wal"));

    EXPECT_EQ(BackUp(), QStringList());
    const QString target = Folder("DataBak/2023-2-8-9300/");
    const QString copy = database.section('.', 0, 0) + ".VTB";
    EXPECT_EQ(FilesIn(target), QStringList(copy));
    EXPECT_EQ(OpenSqliteFile(target + copy)->Run(Sql("select Name from TabWare")).Text("Name"), "O'Neil 螺丝");
}

TEST_F(BackupTest, NamesLoseTheirExtensionUnlessTwoWouldMeet)
{
    QTemporaryDir root;
    test.Insert("TabAutoBakPath", {{"PathName", " " + root.path() + "/bak "}});
    // The first without a point in it.
    for (const char* name : {"README", "a.txt", "shop2023.db", "shop2024.db", "b.db", "B.old", "b.db.x", ".hidden"})
        WriteData(name);
    EXPECT_EQ(BackUp(), QStringList());
    EXPECT_EQ(FilesIn(root.path() + "/bak2023-2-8-9300"), QStringList({"B.old.VTB", "a.VTB", "b.db.VTB", "b.db.x.VTB",
                                                                       "shop2023.VTB", "shop2024.VTB", "test.VTB"}));
}

TEST_F(BackupTest, SaysWhyThereIsNoBackup)
{
    test.Insert("TabAutoBakPath", {{"PathName", "D:\\bak\\"}});
    EXPECT_EQ(BackUp(), QStringList(unforeseen + "备份路径不存在：" + Folder("D:/bak")));
    test.Run(Sql("update TabAutoBakPath set PathName='D:\\'"));
    ASSERT_TRUE(QDir().mkdir(Folder("D:")));
    EXPECT_EQ(BackUp(), QStringList());
    EXPECT_TRUE(QDir(Folder("D:/2023-2-8-9300")).exists());
    test.Run(Sql("delete from TabAutoBakPath"));
    ASSERT_TRUE(QDir().mkpath(Folder("DataBak/2023-2-8-9300")));
    EXPECT_EQ(BackUp(), QStringList("inform: 自动生成的备份文件名已经存在，自动备份失败！"));
}

TEST_F(BackupTest, ADamagedDatabaseIsToldAndTheOthersAreCopied)
{
    WriteData("aaa.mdb", QByteArray("SQLite format 3\0", 16) + QByteArray(4096, 'x'));
    WriteData("zzz.txt");
    const QStringList said = BackUp();
    ASSERT_EQ(said.size(), 1);
    EXPECT_TRUE(said[0].startsWith(unforeseen) && said[0].contains("aaa.mdb")) << said[0].toStdString();
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
