// One of many users: saves, changes, audits, voids and deletes bills of all kinds on an account set until its time is
// up, and says so line by line. Each save leaves its mark on the bill's head and on all of its lines, so that rows of
// two saves can be told apart afterwards.
//
//     busy_user FILE SEED SECONDS
//
// On the server of the tests FILE is the name of a database.
//
// Lines: "stored TABLE CODE MARK" after a save, "voids TABLE CODE", "deletes TABLE CODE" in front of what a killed user
// could no longer speak of, "box KIND TEXT", between tabs.

#include "base/number_text.h"
#include "bills/life/audit.h"
#include "bills/lines/line_columns.h"
#include "data/decimals.h"
#include "database/odbc_store.h"
#include "database/sqlite_store.h"
#include "reliability/desk.h"
#include "support/test_program.h"

#include <QDeadlineTimer>
#include <QFileInfo>
#include <cstdio>
#include <random>

namespace {

void Say(const QStringList& words)
{
    QString line = words.join('\t');
    line.replace("\r\n", " ");
    std::puts(line.toUtf8().constData());
    std::fflush(stdout); // a killed process has said all that it has done
}

/// Says every box and agrees to everything.
class AgreeingPrompt : public ScriptedPrompt
{
public:
    bool Ask(const QString& text) override
    {
        ScriptedPrompt::Ask(text);
        return true;
    }

    void SayBoxes()
    {
        for (const Box& box : boxes)
            Say({"box", box.kind, box.text});
        boxes.clear();
    }
};

struct OwnBill
{
    const BillKind* kind;
    QString code;
};

RunParameters ParametersFor(bool onServer)
{
    RunParameters parameters;
    parameters.DatabaseType = onServer ? "SQL" : "Access";
    parameters.IsAccess = !onServer;
    parameters.ConDataName = "test.db";
    parameters.ConDataBaseUID = "tester";
    parameters.ConServerIP = "127.0.0.1";
    parameters.UserName = "系统管理员";
    parameters.OperateDate = "2023-02-08";
    return parameters;
}

class BusyUser
{
public:
    BusyUser(const QString& accountSet, unsigned seed)
        : m_program({}, ParametersFor(!TestServer().isEmpty()), m_prompt, m_clock,
                    [accountSet](const QString&) {
                        return TestServer().isEmpty() ? OpenSqliteFile(accountSet)
                                                      : OpenServer(TestServerSettings(), TestAddress(accountSet));
                    }),
          m_dice(seed),
          m_seed(seed)
    {
        LoadDecimalPlaces(m_program);
    }

    void Act()
    {
        if (m_bills.empty() || Chance(60))
            SaveNew();
        else
            TouchOwn(m_bills[Below(m_bills.size())]);
        m_prompt.SayBoxes();
    }

private:
    size_t Below(size_t count) { return std::uniform_int_distribution<size_t>(0, count - 1)(m_dice); }
    bool Chance(size_t percent) { return Below(100) < percent; }

    WishedBill Wish()
    {
        static const QString warehouses[] = {"101", "102", "103"};
        WishedBill wish;
        wish.kind = &BillKinds()[Below(BillKinds().size())];
        const size_t from = Below(3);
        wish.from = warehouses[from];
        wish.to = warehouses[(from + 1 + Below(2)) % 3];
        for (size_t lines = 1 + Below(4); lines > 0; --lines)
            wish.lines.push_back({GoodCode(1 + static_cast<int>(Below(5))), 1.0 + static_cast<double>(Below(4)),
                                  10.0 + static_cast<double>(Below(50))});
        return wish;
    }

    /// Leaves the mark of this save on head and lines, and saves.
    void SaveMarked(BillText& bill)
    {
        const int lines = bill.MSH.lastRow() - 1;
        const QString mark = QString("%1.%2.%3").arg(m_seed).arg(++m_saves).arg(lines);
        bill.TxtMemo = mark;
        if (auto* const piece = dynamic_cast<GroupPieceText*>(&bill))
            piece->TxtCustom1 = mark;
        const LineColumns at(*bill.kind);
        for (int row = 1; row <= lines; ++row)
            bill.MSH.SetCell(row, at.remark, mark);
        const BillKind* const kind = bill.kind;
        const Posting posting = Save(m_program, bill);
        if (!posting.stored)
            return;
        Say({"stored", kind->headTable, posting.code, mark});
        std::erase_if(m_bills, [&](const OwnBill& own) { return own.code == posting.code; });
        m_bills.push_back({kind, posting.code});
    }

    void SaveNew() { SaveMarked(*TypeBill(m_program, Wish())); }

    void TouchOwn(OwnBill own)
    {
        const std::unique_ptr<BillText> bill = Recall(m_program, *own.kind, own.code);
        const size_t what = Below(10);
        if (what < 5) {
            if (bill->isEnabled(Command::Save))
                SaveMarked(*bill);
        } else if (what < 8) {
            AuditBill(m_program, *bill);
            if (what < 7)
                UnAuditBill(m_program, *bill);
        } else if (bill->isEnabled(Command::Void) && what == 8) {
            Say({"voids", own.kind->headTable, own.code});
            VoidBill(m_program, *bill);
        } else if (bill->isEnabled(Command::Delete) && own.kind->lines != LineShape::Priced) {
            Say({"deletes", own.kind->headTable, own.code});
            FDelete(m_program, *bill);
            std::erase_if(m_bills, [&](const OwnBill& other) { return other.code == own.code; });
        }
    }

    AgreeingPrompt m_prompt;
    SystemClock m_clock;
    Program m_program;
    std::mt19937 m_dice;
    unsigned m_seed;
    int m_saves = 0;
    std::vector<OwnBill> m_bills;
};

} // namespace

int main(int argc, char** argv)
{
    if (argc != 4) {
        std::fputs("usage: busy_user FILE SEED SECONDS\n", stderr);
        return 2;
    }
    BusyUser user(QString::fromLocal8Bit(argv[1]), static_cast<unsigned>(std::atoi(argv[2])));
    const QDeadlineTimer end(static_cast<qint64>(std::atof(argv[3]) * 1000));
    while (!end.hasExpired())
        user.Act();
    return 0;
}
