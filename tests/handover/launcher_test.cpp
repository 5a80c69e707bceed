#include "handover/launcher.h"
#include "support/test_program.h"

#include <QDir>
#include <QFile>
#include <QThread>
#include <gtest/gtest.h>

namespace {

class LauncherTest : public testing::Test
{
protected:
    LauncherTest()
    {
        program().leave = [this] { ++m_left; };
    }
    Program& program() { return m_test.program; }
    QString Path(const QString& name) const { return m_test.program.folder + "/" + name; }

    /// A sibling that notes the file it was started with and the folder that it was started in.
    void InstallSibling(const QString& name)
    {
        Write(name, "#!/bin/sh\nls CfgVault.dll lnch.ini 2>/dev/null > started.tmp\npwd >> started.tmp\n"
                    "mv started.tmp started\n");
        QFile(Path(name)).setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    void Write(const QString& name, const QByteArray& content)
    {
        QFile file(Path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    /// What the started sibling noted; it runs on its own.
    QString Note() const
    {
        QFile note(Path("started"));
        for (int look = 0; look < 1000 && !note.exists(); ++look)
            QThread::msleep(10);
        return note.open(QIODevice::ReadOnly) ? QString::fromUtf8(note.readAll()) : QString();
    }

    TestProgram m_test;
    int m_left = 0; // how often the process would have ended
};

TEST_F(LauncherTest, EachWordLeadsToItsProgram)
{
    const std::pair<QString, QString> programs[] = {
        {"打印管理程序", "打印"},
        {"外部报表管理程序", "外部报表管理"},
        {"入库管理程序", "商品入库"},
        {"出库管理程序", "商品出库"},
        {"仓库管理程序", "商品拆卸原单查看|商品入库原单查看"},
        {"基础管理程序", "期初库存设置数据查询|商品/物料属性设置"},
        {"汇总管理程序", "仓库库存变动汇总表|按业务员出库明细表|异价调入汇总表|拆卸出库明细表|商品仓库分布表"},
        {"查询管理程序", "库存期末结转查询"},
        {"系统维护程序", " 备份数据库 |仓库反日结"},
        {"会计事务程序", "查看会计凭证"},
        {"图片管理程序", "商品拆卸单图片"},
        {"启动程序", "更换账套"},
    };
    for (const auto& [title, words] : programs) {
        for (const QString& word : words.split('|')) {
            SCOPED_TRACE(word.toStdString());
            EXPECT_FALSE(LaunchByWord(program(), word));
            ASSERT_EQ(m_test.prompt.boxes.size(), 1U);
            EXPECT_EQ(m_test.prompt.boxes.front().kind, "warn");
            EXPECT_EQ(m_test.prompt.TakeTexts(), QStringList(title + "不存在，请确定您程序安装是否完整！"));
        }
    }
    for (const char* word : {"", "折卸入库汇总表", "计算器", "打印机"}) {
        EXPECT_FALSE(LaunchByWord(program(), word));
        EXPECT_EQ(m_test.prompt.boxes.front().kind, "inform");
        EXPECT_EQ(m_test.prompt.TakeTexts(), QStringList("未传递操作指令，操作中断！")) << word;
    }
}

TEST_F(LauncherTest, StartsTheSiblingInItsFolderWithTheHandOver)
{
    InstallSibling("WHMO.exe");
    program().parameters.ConDataName = "acct01";
    const bool isStarted = LaunchFunction(program(), "商品组装原单查看",
                                          {"商品组装原单查看", " 商品组装 ", "TabWarePiece", "ZZD202302080001", ""});
    EXPECT_TRUE(isStarted);
    EXPECT_EQ(m_left, 0);
    EXPECT_EQ(Note(), "CfgVault.dll\n" + QDir(program().folder).canonicalPath() + "\n");
    EXPECT_EQ(QFile::permissions(Path("CfgVault.dll")) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());

    const auto handedOver = ReadRunParameters(program().folder, QDate(2023, 2, 8));
    ASSERT_TRUE(handedOver);
    EXPECT_EQ(handedOver->ConDataName, "acct01");
    EXPECT_EQ(handedOver->OperateType, "商品组装原单查看");
    EXPECT_EQ(handedOver->OperationsDirective2, "商品组装");
    EXPECT_EQ(handedOver->OperationsDirective4, "ZZD202302080001");
    EXPECT_TRUE(m_test.prompt.boxes.empty());
}

TEST_F(LauncherTest, LeavesForBackupAndRestoreButNotForOtherMaintenance)
{
    InstallSibling("SYMO.exe");
    for (const auto& [word, leaves] :
         {std::pair("备份数据库", true), {"恢复数据库", true}, {"操作用户设置", false}, {"仓库日结", false}}) {
        m_left = 0;
        EXPECT_TRUE(LaunchByWord(program(), word)) << word;
        EXPECT_EQ(m_left, leaves) << word;
        EXPECT_NE(Note(), "");
        QFile::remove(Path("started"));
    }
    program().mayLeave = [] { return false; };
    EXPECT_FALSE(LaunchByWord(program(), "恢复数据库")) << "the user stays with a bill that is not stored";
    EXPECT_FALSE(QFile::exists(Path("started")));
    EXPECT_TRUE(LaunchByWord(program(), "操作用户设置"));
}

TEST_F(LauncherTest, TheStarterGetsOneClearWordAndNoHandOver)
{
    InstallSibling("Lnch.exe");
    EXPECT_TRUE(LaunchByWord(program(), "更换操作员"));
    EXPECT_EQ(m_left, 1);
    EXPECT_TRUE(Note().startsWith("lnch.ini\n/"));
}

TEST_F(LauncherTest, SaysWhenAProgramDoesNotStart)
{
    Write("IMMO.exe", "no program");
    Write("Lnch.exe", "no program");
    EXPECT_FALSE(LaunchByWord(program(), "盘点报溢单图片"));
    EXPECT_FALSE(LaunchByWord(program(), "更换账套"));
    EXPECT_EQ(m_left, 0);
    EXPECT_EQ(m_test.prompt.TakeTexts(), QStringList({"启动图片管理程序意外终止！", "启动程序意外终止！"}));
}

TEST_F(LauncherTest, AnUnwritableFolderStartsNothing)
{
    InstallSibling("PRMO.exe");
    program().folder = Path("missing");
    EXPECT_FALSE(LaunchByWord(program(), "打印"));
    EXPECT_TRUE(m_test.prompt.boxes.empty());
    EXPECT_FALSE(LaunchByWord(program(), "更换账套"));
    EXPECT_EQ(m_test.prompt.TakeTexts(), QStringList("传递操作指令失败！"));
}

} // namespace
