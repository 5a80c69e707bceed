// Every command that writes, with the process dying and with the database failing at each of its statements in turn.

#include "bills/life/audit.h"
#include "bills/life/bill_content.h"
#include "database/sqlite_store.h"
#include "reliability/desk.h"
#include "support/faulty_store.h"
#include "support/test_program.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <utility>

namespace {

bool IsChangedFrom(const BillText& bill, const BillText& before)
{
    const BillContent then = ContentOf(before);
    const BillContent now = ContentOf(bill);
    return now.day != then.day || now.head != then.head || now.lines != then.lines;
}

/// One command on one screen.
struct KeyPress
{
    const char* name;
    const char* operation; // of the bill
    /// What is on the screen before, and in the account set.
    enum class From
    {
        Typed,     // not saved yet
        Changed,   // saved, recalled, and typed on
        Recalled,  // saved and recalled
        Vouchered, // the same with a voucher, an image and a change of stock hanging on it
        Audited,
    } from;
    void (*run)(Program& program, BillText& bill);
    bool autoAudits = false;
};

void RunSave(Program& program, BillText& bill)
{
    Save(program, bill);
}

void PrintTo(const KeyPress& press, std::ostream* out)
{
    *out << press.name;
}

using From = KeyPress::From;
const KeyPress kCommands[] = {
    {"NewTransfer", "同价调拨", From::Typed, RunSave, true},
    {"NewPricedTransfer", "异价调拨", From::Typed, RunSave},
    {"NewRevaluation", "商品调价", From::Typed, RunSave},
    {"NewLoss", "盘点报损", From::Typed, RunSave},
    {"NewOverflow", "盘点报溢", From::Typed, RunSave},
    {"NewAssembly", "商品组装", From::Typed, RunSave, true},
    {"NewDisassembly", "商品拆卸", From::Typed, RunSave},
    {"AgainTransfer", "同价调拨", From::Changed, RunSave},
    {"AgainPricedTransfer", "异价调拨", From::Changed, RunSave},
    {"AgainRevaluation", "商品调价", From::Changed, RunSave},
    {"AgainLoss", "盘点报损", From::Changed, RunSave},
    {"AgainOverflow", "盘点报溢", From::Changed, RunSave},
    {"AgainAssembly", "商品组装", From::Changed, RunSave},
    {"AgainDisassembly", "商品拆卸", From::Changed, RunSave},
    {"Audit", "盘点报溢", From::Recalled, AuditBill},
    {"UnAudit", "盘点报溢", From::Audited, UnAuditBill},
    {"VoidOverflow", "盘点报溢", From::Vouchered, VoidBill},
    {"VoidAssembly", "商品组装", From::Recalled, VoidBill},
    {"DeleteOverflow", "盘点报溢", From::Vouchered, FDelete},
    {"DeleteDisassembly", "商品拆卸", From::Recalled, FDelete},
    {"DeletePricedTransfer", "异价调拨", From::Recalled, FDelete}, // with a statement that is known to fail
};

class StatementFaults : public testing::TestWithParam<KeyPress>
{
protected:
    StatementFaults()
    {
        FillAccountSet(test);
        Prepare();
        m_screen = CopyOf(*bill);
        before = Rows();
        test.program.gConnection.Close();
        m_bytes = BytesOf(test.databasePath());
    }

    /// The command with a fault. False when the process died.
    bool Run(FaultKind kind, int at)
    {
        Restore();
        fault = {kind, at, 0, {}};
        test.program.gConnection = Connection(FaultyOpener(fault, OpenUnsynced));
        test.prompt.boxes.clear();
        return Press();
    }

    /// The same key again, without a fault.
    bool Press()
    {
        test.prompt.answers = {true, true};
        try {
            GetParam().run(test.program, *bill);
        } catch (const ProcessDied&) {
            return false;
        }
        return true;
    }

    /// The program is started again.
    void Reopen()
    {
        fault = {};
        test.program.gConnection = Connection(OpenUnsynced);
        test.Run(Sql("select Code from TabWare"));
    }

    QStringList Rows() { return RowsOf(test.program.gConnection.store()); }

    /// What a bill of this kind is saved as next.
    void ExpectNextSave()
    {
        bill = TypeBill(test.program, Wish());
        EXPECT_TRUE(Save(test.program, *bill).stored);
        EXPECT_EQ(test.prompt.boxes.back().text, "保存成功！");
    }

    int Errors() const
    {
        return static_cast<int>(
            std::ranges::count_if(test.prompt.boxes, [](const auto& box) { return box.kind == u"error"; }));
    }

    /// What the account set holds after the command without a fault, as the result of its first step alone or in full.
    std::vector<QStringList> CleanResults()
    {
        EXPECT_TRUE(Run(FaultKind::None, 0));
        statements = fault.statements;
        std::vector<QStringList> results = {before, Rows()};
        EXPECT_NE(results[0], results[1]);
        if (GetParam().autoAudits) {
            m_screen->ChAutoAuditing = false;
            EXPECT_TRUE(Run(FaultKind::None, 0));
            results.push_back(Rows());
            m_screen->ChAutoAuditing = true;
        }
        return results;
    }

    bool isSave() const { return GetParam().run == RunSave; }

    bool IsScreenAsBefore() const
    {
        return !IsChangedFrom(*bill, *m_screen) && bill->TxtBillCode == m_screen->TxtBillCode &&
               bill->TxtDate == m_screen->TxtDate && bill->TxtAuditing == m_screen->TxtAuditing &&
               bill->BillSavedFlag == m_screen->BillSavedFlag && bill->enabled == m_screen->enabled;
    }

    TestProgram test;
    std::unique_ptr<BillText> bill;
    Fault fault;
    QStringList before;
    int statements = 0;

private:
    static std::unique_ptr<Store> OpenUnsynced(const QString& connectionString)
    {
        std::unique_ptr<Store> store = OpenStore(connectionString);
        store->Run(Sql("pragma synchronous=off"));
        return store;
    }

    WishedBill Wish() const
    {
        WishedBill wish = {KindOfOperation(GetParam().operation), {{"A001", 4, 12.5}}};
        if (GetParam().from == From::Typed)
            wish.lines.push_back({"A002", 2, 30});
        return wish;
    }

    void Prepare()
    {
        // Another bill and its voucher, which nothing may touch.
        WishedBill other = Wish();
        other.lines[0].quantity = 7;
        Save(test.program, *TypeBill(test.program, other));
        test.clock.now.millisecondOfDay += 60000;
        bill = TypeBill(test.program, Wish());
        bill->ChAutoAuditing = GetParam().autoAudits;
        if (GetParam().from == From::Typed)
            return;
        const QString code = Save(test.program, *bill).code;
        if (GetParam().from == From::Audited)
            AuditBill(test.program, *bill);
        if (GetParam().from == From::Vouchered) {
            test.Insert("TabWarrant", {{"Code", "PZD1"}, {"JXCBillCode", code}, {"State", "未审核"}});
            test.Insert("TabWarrantInf", {{"BillCode", "PZD1"}, {"Num", 1}});
            test.Insert("TabWarehouseAmountChange", {{"BillCode", code}});
            test.Insert("TabImg", {{"BillCode", code}, {"Type", bill->kind->bill + "图片"}});
        }
        bill = Recall(test.program, *bill->kind, code);
        test.clock.now.millisecondOfDay += 60000;
        if (GetParam().from != From::Changed)
            return;
        bill->TxtMemo = "改";
        if (auto* const piece = dynamic_cast<GroupPieceText*>(bill.get()))
            piece->TxtCustom1 = "改";
        else
            AddLine(test.program, *bill, {"A002", 1, 20});
    }

    void Restore()
    {
        test.program.gConnection.Close();
        WriteBytes(test.databasePath(), m_bytes);
        bill = CopyOf(*m_screen);
    }

    std::unique_ptr<BillText> m_screen;
    QByteArray m_bytes;
};

std::string Difference(const QStringList& rows, const QStringList& expected)
{
    QStringList more;
    QStringList less;
    std::ranges::set_difference(rows, expected, std::back_inserter(more));
    std::ranges::set_difference(expected, rows, std::back_inserter(less));
    return ("more:\n" + more.join('\n') + "\nless:\n" + less.join('\n')).toStdString();
}

bool IsOneOf(const QStringList& rows, const std::vector<QStringList>& results)
{
    return std::ranges::find(results, rows) != results.end();
}

TEST_P(StatementFaults, AProcessThatDiesLeavesTheOldBillOrTheNewOneWhole)
{
    const std::vector<QStringList> results = CleanResults();
    QStringList last;
    for (int at = 1; at <= statements; ++at) {
        SCOPED_TRACE(at);
        ASSERT_FALSE(Run(FaultKind::Death, at));
        SCOPED_TRACE(fault.struck.toStdString());
        test.prompt.boxes.clear();
        Reopen();
        EXPECT_EQ(TextOf(test.Run(Sql("pragma integrity_check")).at(0, 0)), "ok");
        const QStringList rows = Rows();
        ASSERT_TRUE(IsOneOf(rows, results)) << Difference(rows, results[1]);
        if (std::exchange(last, rows) != rows)
            ExpectNextSave();
        ASSERT_EQ(Errors(), 0);
    }
}

/// Whatever is not answered ends the command: its boxes say what is true, and its screen is that of its rows.
TEST_P(StatementFaults, AFailureIsShownOnceAndLeavesTheOldBillOrTheNewOneWhole)
{
    const std::vector<QStringList> results = CleanResults();
    const int usual = Errors();
    for (const FaultKind kind : {FaultKind::Failure, FaultKind::FullDisk, FaultKind::Lost, FaultKind::Unheard}) {
        for (int at = 1; at <= statements; ++at) {
            ASSERT_TRUE(Run(kind, at));
            SCOPED_TRACE(std::to_string(static_cast<int>(kind)) + " " + std::to_string(at));
            SCOPED_TRACE(fault.struck.toStdString());
            const bool unheard = kind == FaultKind::Unheard && fault.struck == u"commit";
            EXPECT_TRUE(unheard ? Errors() == usual : Errors() >= 1 && Errors() <= usual + 1);
            EXPECT_TRUE(test.program.heldBoxes.empty());
            const bool saidSo = test.prompt.TakeTexts().contains("保存成功！");
            Reopen();
            const QStringList rows = Rows();
            ASSERT_TRUE(IsOneOf(rows, results)) << Difference(rows, results[1]);
            if (isSave()) {
                EXPECT_EQ(saidSo, rows != before);
                EXPECT_TRUE(rows != before || IsScreenAsBefore());
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Commands, StatementFaults, testing::ValuesIn(kCommands),
                         [](const auto& press) { return press.param.name; });

} // namespace
