#include "handover/run_parameters.h"

#include "base/code_page.h"
#include "base/program_folder.h"
#include "support/test_program.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>

namespace {

const QDate kToday(2023, 2, 9);

RunParameters Sample()
{
    RunParameters parameters;
    parameters.SoftType = "QV";
    parameters.DatabaseType = "Access";
    parameters.VisionNum = "V10.0版";
    parameters.LoginType = "服务器端";
    parameters.CalCostType = "移动加权平均法";
    parameters.IsJXC = true;
    parameters.IsAccess = true;
    parameters.ConDataName = "总店 账套.mdb";
    parameters.ConDataRemark = "镕记：仓库=1";
    parameters.ConDataBasePWD = "a=b:c";
    parameters.ConServerIP = "1.2.3.4:80";
    parameters.OperateType = "商品组装";
    parameters.UserName = "系统管理员";
    parameters.UserPSW = "a=b";
    parameters.UserNum = 7;
    parameters.OperateDate = "2023-2-8";
    return parameters;
}

const Directives kDirectives = {" 商品拆卸原单查看 ", "商品拆卸", "TabWarePiece", "CX-20230208-0001", ""};

/// A program folder with the hand-over in it.
class RunParametersTest : public testing::Test
{
protected:
    QString path(const QString& name = "CfgVault.dll") const { return PathInFolder(m_folder.path(), name); }

    QByteArray Bytes(const QString& name = "CfgVault.dll") const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
    }

    void WriteBytes(const QByteArray& bytes) const
    {
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    /// A hand-over of these clear lines, as a sender writes it.
    void WriteLines(const QStringList& lines) const
    {
        QByteArray bytes;
        for (const QString& line : lines)
            bytes += ScrambleParameterLine(ToCodePage(line)) + "\r\n";
        WriteBytes(bytes);
    }

    /// The clear lines of the sample.
    QStringList SampleLines() const
    {
        EXPECT_TRUE(WriteRunParameters(m_folder.path(), Sample(), kDirectives));
        return ReadClearLines(m_folder.path()).value_or(QStringList());
    }

    std::optional<RunParameters> Read() const { return ReadRunParameters(m_folder.path(), kToday); }

    QTemporaryDir m_folder;
};

} // namespace

TEST_F(RunParametersTest, ALineIsReversedAndEachCodeFiveLower)
{
    EXPECT_EQ(ScrambleParameterLine("A=1"), QByteArray("\x2C\x38\x3C"));
    EXPECT_EQ(ScrambleParameterLine("  A=1 "), QByteArray("\x2C\x38\x3C"));
    EXPECT_EQ(ScrambleParameterLine("   "), QByteArray());
    // The second byte may leave the range of the code page; the character stays whole all the same.
    EXPECT_EQ(ScrambleParameterLine("K=\xB0\xA1"), QByteArray("\xB0\x9C\x38\x46"));
    EXPECT_EQ(ScrambleParameterLine("K=\xA0\x40"), QByteArray("\xA0\x3B\x38\x46"));
    EXPECT_EQ(ScrambleParameterLine("K\xB0"), QByteArray("\xAB\x46"));
    EXPECT_EQ(UnscrambleParameterLine("\x2C\x38\x3C"), QByteArray("A=1"));
}

TEST_F(RunParametersTest, EveryCharacterOfTheCodePageRoundTrips)
{
    for (int lead = 0x81; lead <= 0xFE; ++lead) {
        QByteArray line = "Key=";
        for (int trail = 0x40; trail <= 0xFE; ++trail)
            line += QByteArray(1, static_cast<char>(lead)) + static_cast<char>(trail) + 'x';
        EXPECT_EQ(UnscrambleParameterLine(ScrambleParameterLine(line)), line) << lead;
    }
}

TEST_F(RunParametersTest, WrittenParametersComeBackAndTheFileIsGone)
{
    WriteBytes("an older hand-over, readable by all");
    ASSERT_TRUE(WriteRunParameters(m_folder.path(), Sample(), kDirectives));
    const auto ownerOnly = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
    EXPECT_EQ(QFileInfo(path()).permissions(), ownerOnly);

    const QByteArray bytes = Bytes();
    EXPECT_EQ(bytes.count("\r\n"), 27);
    EXPECT_TRUE(bytes.endsWith("\r\n"));

    QStringList lines = *ReadClearLines(m_folder.path());
    const auto read = Read();
    ASSERT_TRUE(read);
    EXPECT_FALSE(QFileInfo::exists(path()));
    EXPECT_FALSE(Read());

    ASSERT_TRUE(WriteRunParameters(m_folder.path(), *read, kDirectives));
    lines[15] = "OperateType=商品拆卸原单查看";
    EXPECT_EQ(*ReadClearLines(m_folder.path()), lines);
}

TEST_F(RunParametersTest, TheLinesStandInFileOrder)
{
    RunParameters parameters = Sample();
    parameters.SoftType = " Z3 ";
    parameters.ConDataRemark = " abc ";
    parameters.UserNum = -12;
    ASSERT_TRUE(WriteRunParameters(m_folder.path(), parameters, kDirectives));
    const QString expected = "SoftType=Z3|DatabaseType=Access|VisionNum=V10.0版|LoginType=服务器端|"
                             "CalCostType=移动加权平均法|IsJXC=1|IsAccessSQL=1|IsLotMoney=0|ConDataName=总店 账套.mdb|"
                             "ConDataRemark= abc|PrintModleName=|ConDataBaseUID=|ConDataBasePWD=a=b:c|"
                             "ConServerIP=1.2.3.4:80|ConPortNum=|OperateType=商品组装|UserName=系统管理员|UserPSW=a=b|"
                             "UserNum=-12|OperateDate=2023-2-8|CloudAccount=|CloudAccount2=|"
                             "OperationsDirective=商品拆卸原单查看|OperationsDirective2=商品拆卸|"
                             "OperationsDirective3=TabWarePiece|OperationsDirective4=CX-20230208-0001|"
                             "OperationsDirective5=";
    EXPECT_EQ(ReadClearLines(m_folder.path())->join('|'), expected);
    EXPECT_TRUE(QFileInfo::exists(path()));

    parameters.UserNum = 12;
    ASSERT_TRUE(WriteRunParameters(m_folder.path(), parameters, kDirectives));
    EXPECT_EQ(ReadClearLines(m_folder.path())->at(18), QString("UserNum= 12"));
}

TEST_F(RunParametersTest, KeysAreReadForwardOnly)
{
    // An unknown key, a label of a wanted name and a key met too early are passed over on the way.
    WriteLines({"Colour=red", "SoftType:", "SoftType=Z3", "VisionNum=early", "DatabaseType=SQL", "LoginType=client"});
    auto read = Read();
    ASSERT_TRUE(read);
    EXPECT_EQ(read->SoftType, QString("Z3"));
    EXPECT_EQ(read->DatabaseType, QString("SQL"));
    EXPECT_EQ(read->VisionNum, QString()); // runs to the end, so what follows is empty too
    EXPECT_EQ(read->LoginType, QString());

    // A line that is neither value nor label ends the read of one key only.
    WriteLines({"SoftType=Z3", "", "VisionNum=V1"});
    read = Read();
    EXPECT_EQ(read->DatabaseType, QString());
    EXPECT_EQ(read->VisionNum, QString("V1"));

    // Names are compared exactly, and a colon before the equals sign makes a label of the line.
    WriteLines({"softtype=a", "SoftType =b", "SoftType:x=c", "SoftType=  d"});
    EXPECT_EQ(Read()->SoftType, QString("  d"));

    WriteBytes(ScrambleParameterLine("SoftType=cut")); // off before the line's end
    EXPECT_EQ(Read()->SoftType, QString("cut"));
}

TEST_F(RunParametersTest, WithoutDirectiveTheReadStillSucceeds)
{
    QStringList lines = SampleLines();
    lines.removeIf([](const QString& line) { return line.startsWith("OperationsDirective="); });
    WriteLines(lines);
    const auto read = Read();
    ASSERT_TRUE(read);
    EXPECT_EQ(read->UserName, QString("系统管理员"));
    EXPECT_EQ(read->OperateType + read->OperationsDirective2, QString());
}

TEST_F(RunParametersTest, ValuesAreReadByKind)
{
    const struct
    {
        const char* type;
        const char* flag;
        const char* number;
        const char* date;
        bool isAccess;
        bool isJXC;
        int userNum;
        const char* operateDate;
    } cases[] = {
        {"Access", " 1 ", " 12", "2023/2/8", true, true, 12, "2023/2/8"},
        {"Access2", "True", "-3.5", "2023-02-30", false, false, -4, "2023-02-09"},
        {"SQL", "0", "99999", "", false, false, 32767, "2023-02-09"},
        {" Access", "11", "abc", "soon", false, false, 0, "2023-02-09"},
        {"", "", "-1e99", "2023-2-8 x", false, false, -32768, "2023-02-09"},
    };
    for (const auto& c : cases) {
        QStringList lines = SampleLines();
        lines[1] = QString("DatabaseType=") + c.type;
        lines[5] = QString("IsJXC=") + c.flag;
        lines[18] = QString("UserNum=") + c.number;
        lines[19] = QString("OperateDate=") + c.date;
        WriteLines(lines);
        const auto read = Read();
        ASSERT_TRUE(read);
        EXPECT_EQ(read->IsAccess, c.isAccess) << c.type;
        EXPECT_EQ(read->IsJXC, c.isJXC) << c.flag;
        EXPECT_EQ(read->UserNum, c.userNum) << c.number;
        EXPECT_EQ(read->OperateDate, QString(c.operateDate)) << c.date;
    }
}

TEST_F(RunParametersTest, WhatIsNoHandOverNeverStopsTheProgram)
{
    WriteBytes(QByteArray(8 * 1024 * 1024, '\n'));
    EXPECT_TRUE(Read());
    ASSERT_TRUE(QDir().mkdir(path()));
    EXPECT_FALSE(Read());
    EXPECT_FALSE(ReadClearLines(m_folder.path()));
    EXPECT_FALSE(WriteRunParameters(m_folder.path(), Sample(), kDirectives));
}

TEST_F(RunParametersTest, AFileThatCannotBeWrittenIsNotLeftBehind)
{
    EXPECT_FALSE(WriteRunParameters(m_folder.path() + "/nowhere", Sample(), kDirectives));

    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit full{100, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &full);
    const bool written = WriteRunParameters(m_folder.path(), Sample(), kDirectives);
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_FALSE(written);
    EXPECT_FALSE(QFileInfo::exists(path()));
}

TEST_F(RunParametersTest, ALinkIsReplacedNotFollowed)
{
    QFile(path("other.txt")).open(QIODevice::WriteOnly);
    ASSERT_TRUE(QFile::link(path("other.txt"), path()));
    EXPECT_TRUE(WriteRunParameters(m_folder.path(), Sample(), kDirectives));
    EXPECT_EQ(Bytes("other.txt"), QByteArray());
    EXPECT_FALSE(QFileInfo(path()).isSymLink());
}

TEST_F(RunParametersTest, TheStarterGetsOneClearWord)
{
    EXPECT_FALSE(WriteStarterDirective(m_folder.path(), "  "));
    EXPECT_FALSE(QFileInfo::exists(path("lnch.ini")));
    EXPECT_TRUE(WriteStarterDirective(m_folder.path(), "更换账套"));
    EXPECT_TRUE(WriteStarterDirective(m_folder.path(), " 更换操作员 "));
    EXPECT_EQ(Bytes("lnch.ini"), ToCodePage("更换操作员") + "\r\n");
    EXPECT_FALSE(WriteStarterDirective(m_folder.path() + "/nowhere", "更换账套"));
}
