// Two users on one bill: what one does while the other has it on the screen.

#include "bills/life/audit.h"
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

/// Another user saved it again, or deleted it and a new bill has drawn its number.
TEST_F(TwoUsers, WhatIsAnotherBillByNowIsLeftAlone)
{
    struct Command
    {
        void (*run)(Program& program, BillText& bill);
        const char* question;
        const char* word;
    };
    const Command commands[] = {
        {[](Program& program, BillText& bill) { Save(program, bill); },
         "如果确定修改则按是，否则按否退出重新执行保存！", "修改"},
        {VoidBill, "确定作废该单据吗？", "作废"},
        {FDelete, "删除当前单据吗？", "删除"},
        {AuditBill, "", "审核"},
    };
    for (const char* operation : {"异价调拨", "盘点报损", "商品组装"}) {
        for (const bool redrawn : {false, true}) {
            for (const Command& command : commands) {
                SCOPED_TRACE(std::string(operation) + command.word);
                OpenOnBoth(operation);
                test.clock.now.millisecondOfDay += 60000;
                if (redrawn) {
                    FDelete(other, *others);
                    others = TypeBill(other, {mine->kind, {{"A001", 5}}});
                } else {
                    AddLine(other, *others, {"A002", 9, 20});
                }
                otherPrompt.answers = {true};
                EXPECT_EQ(Save(other, *others).code, code);
                const QStringList before = Rows();
                test.prompt.answers = {true};
                command.run(test.program, *mine);
                const QString refusal = QString("该单据已被其他用户修改，禁止") + command.word + "！";
                QStringList boxes = {command.question, refusal};
                boxes.removeAll(QString());
                EXPECT_EQ(test.prompt.TakeTexts(), boxes);
                EXPECT_EQ(Rows(), before);
                otherPrompt.answers = {true, true};
                FDelete(other, *others);
            }
        }
    }
}

TEST_F(TwoUsers, AnAuditMadeMeanwhileKeepsTheBill)
{
    for (const auto& [command, word] : {std::pair(&VoidBill, "作废"), {&FDelete, "删除"}}) {
        OpenOnBoth("盘点报溢");
        AuditBill(other, *others);
        const QStringList before = Rows();
        command(test.program, *mine);
        EXPECT_EQ(test.prompt.TakeTexts().last(), QString("该单据已被其他用户审核，禁止") + word + "！");
        EXPECT_EQ(Rows(), before);
    }
    // The stored day counts, whatever the box says.
    OpenOnBoth("盘点报溢");
    test.Insert("TabTurnDay", {{"Datee", QDate(2023, 2, 10)}});
    mine->DTPDate = QDate(2023, 2, 20);
    FDelete(test.program, *mine);
    EXPECT_EQ(test.prompt.TakeTexts().last(), "今天已结转，禁止当前操作！");
    EXPECT_EQ(Rows().filter(code).filter("TabCheckOver|").size(), 1);
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
