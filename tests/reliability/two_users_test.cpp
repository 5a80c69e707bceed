// Two users on one bill: what one does while the other has it on the screen.

#include "bills/audit.h"
#include "reliability/desk.h"
#include "support/test_program.h"

#include <functional>
#include <gtest/gtest.h>

namespace {

const QString kQuestion = "如果确定修改则按是，否则按否退出重新执行保存！";
const QString kSaved = "保存成功！";

class TwoUsers : public testing::Test
{
protected:
    TwoUsers()
    {
        FillAccountSet(test);
        otherPrompt.answers = {true, true, true};
    }

    /// A saved bill on the screens of both.
    void OpenOnBoth(const char* operation)
    {
        const BillKind& kind = *KindOfOperation(operation);
        code = Save(test.program, *TypeBill(test.program, {&kind, {{"A001", 3}, {"A002", 2}}})).code;
        mine = Recall(test.program, kind, code);
        others = Recall(other, kind, code);
        test.prompt.TakeTexts();
        test.prompt.answers = {true};
    }

    QStringList SaveMine()
    {
        Save(test.program, *mine);
        return test.prompt.TakeTexts();
    }

    QStringList Rows() { return RowsOf(test.program.gConnection.store()); }

    TestProgram test;
    ScriptedPrompt otherPrompt;
    Program other{test.folder.path(), test.program.parameters, otherPrompt, test.clock,
                  test.database ? test.database->opener() : OpenStore};
    std::unique_ptr<BillText> mine;
    std::unique_ptr<BillText> others;
    QString code;
};

TEST_F(TwoUsers, ABillThatWasLockedMeanwhileIsNotReplaced)
{
    const struct
    {
        const char* name;
        std::function<void()> lock;
        const char* refusal;
    } cases[] = {
        {"audited", [this] { AuditBill(other, *others); }, "该单据已被其他用户审核，禁止修改！"},
        {"voided", [this] { VoidBill(other, *others); }, "该单据已被其他用户作废，禁止修改！"},
        {"closed",
         [this] {
             test.Insert("TabTurnDay", {{"Datee", QDate(2023, 2, 10)}});
             mine->DTPDate = QDate(2023, 2, 20); // an open day
         },
         "今天已结转，禁止当前操作！"},
    };
    for (const char* operation : {"同价调拨", "商品调价", "商品组装"}) {
        for (const auto& c : cases) {
            SCOPED_TRACE(std::string(operation) + c.name);
            OpenOnBoth(operation);
            mine->TxtMemo = "改";
            c.lock();
            const QStringList before = Rows();
            EXPECT_EQ(SaveMine(), QStringList({kQuestion, c.refusal}));
            EXPECT_EQ(Rows(), before);
            test.Run(Sql("delete from TabTurnDay"));
        }
    }
}

TEST_F(TwoUsers, TheSecondSaveReplacesTheFirstWhole)
{
    for (const char* operation : {"异价调拨", "盘点报损", "商品组装"}) {
        SCOPED_TRACE(operation);
        OpenOnBoth(operation);
        const QStringList untouched = Rows();
        EXPECT_EQ(SaveMine(), QStringList({kQuestion, kSaved}));
        AddLine(other, *others, {"A002", 9, 20});
        AddLine(other, *others, {"A002", 8, 20});
        Save(other, *others);
        EXPECT_NE(Rows(), untouched);
        test.prompt.answers = {true};
        EXPECT_EQ(SaveMine(), QStringList({kQuestion, kSaved}));
        EXPECT_EQ(Rows().filter(mine->kind->lineTable + QString("|")).filter(code).size(), 2);
    }
}

TEST_F(TwoUsers, ABillThatWasDeletedMeanwhileIsStoredAfresh)
{
    OpenOnBoth("盘点报溢");
    const QStringList before = Rows();
    FDelete(other, *others);
    EXPECT_EQ(SaveMine(), QStringList(kSaved));
    EXPECT_EQ(Rows(), before);
}

TEST_F(TwoUsers, LinesLeftBehindDoNotBecomePartOfAnotherBill)
{
    // Deleting a set-price transfer leaves its lines, and its code is the next one again.
    OpenOnBoth("异价调拨");
    FDelete(other, *others);
    const Posting posting = Save(test.program, *TypeBill(test.program, {mine->kind, {{"A001", 5}}}));
    EXPECT_EQ(posting.code, code);
    const Recordset lines = test.Run(Sql("select Amount from TabDiffPriceMoveInf where BillCode=") + code);
    EXPECT_EQ(lines.size(), 1);
    EXPECT_EQ(lines.Number("Amount"), 5);
}

} // namespace
