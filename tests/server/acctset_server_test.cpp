// The command line on a server: the same answers as on a file.

#include "acctset/books.h"

#include "support/test_server.h"

#include <QFile>
#include <QUrl>
#include <gtest/gtest.h>

namespace {

QString OnServer(const QString& login, const QString& database)
{
    return "postgresql://" + login + "@" + QUrl::toPercentEncoding(TestServer()) + "/" + database;
}

/// A file that holds nothing else.
QString FileWith(const QTemporaryDir& folder, const char* name, const QByteArray& text)
{
    QFile file(folder.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
    return file.fileName();
}

} // namespace

TEST(AcctsetOnServer, AnswersAsOnAFile)
{
    const QTemporaryDir folder;
    const QString set = OnServer("tester", "演示");
    const Outcome made = RunAcctset({"create", set, "--demo"});
    ASSERT_EQ(made.exitCode, 0) << made.error.toStdString();
    const QString file = OwnDemo(folder);

    const QString bill = FileWith(folder, "bill.json", R"({"bill": "同价调拨单", "date": "2023-12-31",
        "fields": {"TxtWarehouseNameF": "主仓", "TxtWarehouseNameS": "门店仓"},
        "lines": [{"商品编号": "010101001", "数量": "3"}]})");
    const QStringList questions[] = {
        {"stock", "", "--ware", "010101001", "--date", "2023-12-31"},
        {"stock", "", "--ware", "010101001", "--warehouse", "0101", "--date", "2023-05-31"},
        {"cost", "", "--ware", "010101001", "--moment", "2023-12-31 12:00:00"},
        {"cost", "", "--ware", "010101001", "--moment", "2023-04-01", "--display", "--moving"},
        {"rewrite", "", "--ware", "010101001", "--warehouse", "0101", "--date", "2023-12-31"},
        {"show", "", "同价调拨单", "nothing"},
    };
    for (QStringList question : questions) {
        question[1] = file;
        const Outcome expected = RunAcctset(question);
        question[1] = set;
        const Outcome outcome = RunAcctset(question);
        EXPECT_EQ(outcome.exitCode, expected.exitCode) << outcome.error.toStdString();
        EXPECT_EQ(outcome.out.toStdString(), expected.out.toStdString()) << question.join(' ').toStdString();
    }
    const auto firstOf = [](const QString& table) { return Sql("select min(Code) as Code from ") + Name(table); };
    for (const auto& [name, table] : {std::pair("同价调拨单", "TabSamePriceMove"), {"商品组装单", "TabWareGroup"}}) {
        const QString code = OpenSqliteFile(file)->Run(firstOf(table)).Text("Code");
        EXPECT_EQ(RunAcctset({"show", set, name, code}).out.toStdString(),
                  RunAcctset({"show", file, name, code}).out.toStdString());
    }
    const Outcome posted = RunAcctset({"post", set, bill});
    EXPECT_EQ(posted.exitCode, RunAcctset({"post", file, bill}).exitCode) << posted.out.toStdString();
    EXPECT_EQ(RunAcctset({"create", set}).exitCode, 1) << "an existing one is never overwritten";
}

TEST(AcctsetOnServer, RefusesAsOnAFile)
{
    const QTemporaryDir folder;
    qputenv("ACCTSET_PASSWORD_FILE", FileWith(folder, "password", "not the password\n").toLocal8Bit());
    const Outcome wrong = RunAcctset({"stock", OnServer("keeper", "postgres"), "--ware", "1"});
    qunsetenv("ACCTSET_PASSWORD_FILE");
    EXPECT_EQ(wrong.exitCode, 1);
    EXPECT_TRUE(wrong.error.contains("登录数据库服务器失败")) << wrong.error.toStdString();
    EXPECT_FALSE(wrong.error.contains("not the password"));

    EXPECT_EQ(RunAcctset({"stock", OnServer("tester", "nowhere"), "--ware", "1"}).exitCode, 1);
    EXPECT_EQ(RunAcctset({"stock", OnServer("tester:secret", "a"), "--ware", "1"}).exitCode, 2);
    EXPECT_EQ(RunAcctset({"stock", "oracle://a@b/c", "--ware", "1"}).exitCode, 2);
    EXPECT_EQ(RunAcctset({"ddl", "--server", "oracle"}).exitCode, 2);
    EXPECT_TRUE(RunAcctset({"ddl", "--server", "sqlserver"}).out.startsWith("create table "));
    EXPECT_TRUE(RunAcctset({"ddl", "--server", "sqlserver", "--database", "a]b"})
                    .out.contains("\nalter database [a]]b] set read_committed_snapshot on;\ncreate table "));
    // A failure on the way leaves no database behind.
    EXPECT_EQ(RunAcctset({"generate", OnServer("tester", "half"), "--lines", "x", "--goods", "100"}).exitCode, 2);
    EXPECT_EQ(RunAcctset({"stock", OnServer("tester", "half"), "--ware", "1"}).exitCode, 1);
}
