// A database that another program holds, a file or a folder that may not be written, a clock that jumps, and files that
// hold anything but what they should.

#include "database/sqlite_store.h"
#include "reliability/desk.h"
#include "stock/balance.h"
#include "support/test_program.h"

#include <QFile>
#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <set>
#include <unistd.h>

namespace {

class BadDays : public testing::Test
{
protected:
    BadDays() { FillAccountSet(test); }

    void Open(const char* operation = "同价调拨")
    {
        bill = TypeBill(test.program, {KindOfOperation(operation), {{"A001", 3, 12}, {"A002", 2, 12}}});
        test.prompt.boxes.clear();
    }

    /// The boxes of a save that must store nothing.
    QStringList SaveInVain()
    {
        const BillText before = *bill;
        EXPECT_FALSE(Save(test.program, *bill).stored);
        EXPECT_FALSE(bill->BillSavedFlag);
        EXPECT_EQ(bill->MSH.lastRow(), before.MSH.lastRow());
        const QStringList texts = test.prompt.TakeTexts();
        EXPECT_FALSE(texts.isEmpty());
        EXPECT_FALSE(texts.contains("保存成功！"));
        return texts;
    }

    void ExpectSaved()
    {
        EXPECT_TRUE(Save(test.program, *bill).stored);
        EXPECT_EQ(test.prompt.TakeTexts(), QStringList("保存成功！"));
    }

    TestProgram test;
    std::unique_ptr<BillText> bill;
};

TEST_F(BadDays, AnAccountSetThatAnotherProgramHoldsIsSaidAndNothingIsLost)
{
    Open();
    const std::unique_ptr<Store> other = OpenSqliteFile(test.databasePath());
    other->BeginUnit();
    other->Run(Sql("update TabWare set Spec='held' where Code='A002'"));
    test.Run(Sql("pragma busy_timeout=100")); // the user waits longer
    const QStringList boxes = SaveInVain();
    EXPECT_EQ(boxes.size(), 1);
    EXPECT_TRUE(boxes[0].contains("数据库正被其他程序占用，请稍后重试！")) << boxes[0].toStdString();
    const StockQuestion question{.wareCode = "A001", .asOf = {QDate(2023, 2, 28), 0}};
    EXPECT_EQ(GetStockBalance(test.program, question).ShownAmount, 2999) << "who asks does not wait";
    other->CommitUnit();
    ExpectSaved();
}

TEST_F(BadDays, AnAccountSetThatIsReplacedIsSaidAndTheNextSaveGoesIntoTheNewOne)
{
    test.program.gConnection.Close(); // and all is in the file
    Open();
    const QString path = test.databasePath();
    ASSERT_TRUE(QFile::rename(path, path + ".old") && QFile::copy(path + ".old", path));
    const QStringList boxes = SaveInVain();
    EXPECT_EQ(boxes.size(), 1);
    EXPECT_TRUE(boxes[0].contains("被删除、移动或替换") && boxes[0].endsWith(path)) << boxes[0].toStdString();
    ExpectSaved();
    EXPECT_EQ(OpenSqliteFile(path)->Run(Sql("select Code from TabSamePriceMove")).size(), 1);
}

/// Not the administrator, who may write everywhere.
struct LesserUser
{
    LesserUser() { EXPECT_EQ(seteuid(65534), 0); }
    ~LesserUser() { EXPECT_EQ(seteuid(0), 0); }
};

TEST_F(BadDays, AFileOrAFolderThatMayNotBeWrittenIsSaidAndNothingIsLost)
{
    const QString data = test.folder.filePath("Data");
    const auto readable = QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther;
    const auto searchable = readable | QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther;
    const auto writable = QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
    QFile::setPermissions(test.folder.path(), searchable);
    const struct
    {
        QFile::Permissions file;
        QFile::Permissions folder;
    } cases[] = {
        {readable, searchable | writable}, {readable | writable, searchable}, {readable, searchable}, {{}, searchable}};
    for (const auto& c : cases) {
        Open();
        test.program.gConnection.Close();
        QFile::setPermissions(test.databasePath(), c.file);
        QFile::setPermissions(data, c.folder);
        {
            std::optional<LesserUser> lesser;
            if (geteuid() == 0)
                lesser.emplace();
            for (const QString& box : SaveInVain())
                EXPECT_TRUE(box.contains("只读") || box.contains("不能打开") || !box.startsWith("Error:"))
                    << box.toStdString();
            test.program.gConnection.Close();
        }
        QFile::setPermissions(test.databasePath(), readable | writable);
        QFile::setPermissions(data, searchable | writable);
        ExpectSaved();
    }
    QFile::setPermissions(test.folder.path(), searchable | writable);
}

TEST_F(BadDays, AClockThatJumpsBackBreaksNeitherCodesNorTheOrderOfMoments)
{
    const Moment noon = {QDate(2023, 2, 8), 12 * 60 * 60 * 1000};
    const Moment times[] = {noon, {noon.day, 60000}, {noon.day.addDays(-1), noon.millisecondOfDay}, noon};
    std::set<QString> codes;
    for (const Moment& time : times) {
        test.clock.now = time;
        test.clock.step = -250; // and within a save
        Open();
        const Posting posting = Save(test.program, *bill);
        EXPECT_TRUE(posting.stored);
        EXPECT_TRUE(codes.insert(posting.code).second) << posting.code.toStdString();
        const Recordset rows =
            test.Run(Sql("select DateTimee,0 as Num from TabSamePriceMove where Code=") + posting.code +
                     " union all select DateTimee,Num from TabSamePriceMoveInf where BillCode=" + posting.code +
                     " order by Num");
        ASSERT_EQ(rows.size(), 3);
        for (int row = 1; row < rows.size(); ++row)
            EXPECT_LT(rows.Text("DateTimee", row - 1), rows.Text("DateTimee", row));
    }
    EXPECT_EQ(codes.size(), std::size(times));
}

TEST_F(BadDays, AHandoverCutOffAnywhereLeavesAProgramThatSaysSo)
{
    RunParameters whole = test.program.parameters;
    whole.ConDataRemark = "镕记：仓库=1";
    const QString path = test.folder.filePath("CfgVault.dll");
    ASSERT_TRUE(WriteRunParameters(test.folder.path(), whole, {"同价调拨", "", "", "", ""}));
    const QByteArray bytes = BytesOf(path);
    ASSERT_FALSE(bytes.isEmpty());
    for (qsizetype size = 0; size <= bytes.size(); ++size) {
        SCOPED_TRACE(size);
        WriteBytes(path, bytes.first(size));
        const std::optional<RunParameters> read = ReadRunParameters(test.folder.path(), QDate(2023, 2, 8));
        ASSERT_TRUE(read);
        EXPECT_FALSE(QFile::exists(path));
        EXPECT_TRUE(read->UserName.isEmpty() || read->UserName == whole.UserName);
        EXPECT_TRUE(read->ConDataName.isEmpty() || read->ConDataName == whole.ConDataName);
        test.prompt.boxes.clear();
        Program program(test.folder.path(), *read, test.prompt, test.clock);
        const bool answers = static_cast<bool>(OpenQuery(program, Sql("select Code from TabWare")));
        EXPECT_NE(answers, !test.prompt.boxes.empty()) << "it works, or it says why not";
    }
}

/// The same bytes every time.
class Noise
{
public:
    qsizetype Below(qsizetype count) { return std::uniform_int_distribution<qsizetype>(0, count - 1)(m_dice); }
    char Byte() { return static_cast<char>(Below(256)); }
    QByteArray Bytes(qsizetype count)
    {
        QByteArray bytes(count, 0);
        std::ranges::generate(bytes, [this] { return Byte(); });
        return bytes;
    }

private:
    std::mt19937 m_dice{2};
};

TEST_F(BadDays, AnAccountSetOfAnyBytesIsRefusedOrAnswersAndNeverEndsTheProgram)
{
    test.program.gConnection.Close();
    const QByteArray whole = BytesOf(test.databasePath());
    Noise noise;
    std::ptrdiff_t refused = 0;
    for (int i = 0; i < 120; ++i) {
        SCOPED_TRACE(i);
        QByteArray bytes = whole;
        if (i % 3 == 0) {
            bytes = (i % 2 == 0 ? whole.first(16) : QByteArray()) + noise.Bytes(noise.Below(20000));
        } else if (i % 3 == 1) {
            bytes.truncate(noise.Below(whole.size()));
        } else {
            for (int hit = 0; hit < 200; ++hit)
                bytes[noise.Below(bytes.size())] = noise.Byte();
        }
        test.program.gConnection.Close();
        WriteBytes(test.databasePath(), bytes);
        test.prompt.boxes.clear();
        Save(test.program, *TypeBill(test.program, {KindOfOperation("同价调拨"), {{"A001", 3}}}));
        refused += std::ranges::count(test.prompt.boxes, QString("error"), &ScriptedPrompt::Box::kind);
    }
    EXPECT_GT(refused, 100);
}

} // namespace
