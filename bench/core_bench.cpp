// The core on a large account set: balance, cost, number, save and rewrite, each beside hand-written statements over
// the same rows.
#include "account_set.h"
#include "figures.h"
#include "hand_written.h"
#include "typed_transfer.h"

#include "bills/saving/save.h"
#include "data/numbering.h"
#include "handover/open_query.h"
#include "stock/balance.h"
#include "stock/cost_rewrite.h"
#include "stock/unit_cost.h"

#include <QCoreApplication>

namespace {

using benchmark::State;

const std::string kTodayText = DayText(kToday).toStdString();
const std::string kLastClose = "2024-12-31";

/// Takes the goods by turns.
class Rounds
{
public:
    explicit Rounds(std::vector<BenchGood> goods) : m_goods(std::move(goods)) {}
    const BenchGood& Next() { return m_goods[m_next++ % m_goods.size()]; }

private:
    std::vector<BenchGood> m_goods;
    size_t m_next = 0;
};

std::vector<BenchGood> HottestGood()
{
    return {GoodsByTrade().front()};
}

Program& ReadingProgram()
{
    static BenchProgram program(BenchSet());
    return program.program;
}

HandWritten& ReadingFloor()
{
    static HandWritten set(BenchSet());
    return set;
}

/// Steps through all rows.
void Exhaust(State& state, sqlite3_stmt* statement)
{
    int code = SQLITE_ROW;
    while ((code = sqlite3_step(statement)) == SQLITE_ROW)
        benchmark::DoNotOptimize(sqlite3_column_double(statement, 0));
    if (code != SQLITE_DONE)
        state.SkipWithError("a hand-written statement failed");
    sqlite3_reset(statement);
}

std::function<void(State&)> Balance(const std::vector<BenchGood>& goods)
{
    return [rounds = Rounds(goods)](State& state) mutable {
        Program& program = ReadingProgram();
        for ([[maybe_unused]] const auto& pass : state) {
            const BenchGood& good = rounds.Next();
            const StockQuestion question{.warehouse = good.warehouse, .wareCode = good.code, .asOf = {kToday}};
            benchmark::DoNotOptimize(GetStockBalance(program, question));
        }
    };
}

std::function<void(State&)> BalanceFloor(const std::vector<BenchGood>& goods)
{
    return [rounds = Rounds(goods)](State& state) mutable {
        sqlite3_stmt* const scan = ReadingFloor().Statement(kScanSources);
        for ([[maybe_unused]] const auto& pass : state) {
            const std::string code = rounds.Next().code.toStdString();
            BindText(scan, 1, code);
            BindText(scan, 2, kLastClose);
            BindText(scan, 3, kTodayText);
            Exhaust(state, scan);
        }
    };
}

std::function<void(State&)> LastCost(const std::vector<BenchGood>& goods)
{
    return [rounds = Rounds(goods)](State& state) mutable {
        Program& program = ReadingProgram();
        for ([[maybe_unused]] const auto& pass : state) {
            const CostQuestion question{.moment = {kToday}, .wareCode = rounds.Next().code};
            benchmark::DoNotOptimize(GetUnitCost(program, question));
        }
    };
}

std::function<void(State&)> LastCostFloor(const std::vector<BenchGood>& goods)
{
    return [rounds = Rounds(goods)](State& state) mutable {
        sqlite3_stmt* const newest = ReadingFloor().Statement(kNewestCosts);
        for ([[maybe_unused]] const auto& pass : state) {
            const std::string code = rounds.Next().code.toStdString();
            BindText(newest, 1, code);
            BindText(newest, 2, kTodayText);
            Exhaust(state, newest);
        }
    };
}

void NextCode(State& state)
{
    Program& program = ReadingProgram();
    for ([[maybe_unused]] const auto& pass : state)
        benchmark::DoNotOptimize(NextBillCode(program, "TDD", "TabSamePriceMove"));
}

void NextCodeFloor(State& state)
{
    sqlite3_stmt* const largest = ReadingFloor().Statement(kLargestCode);
    for ([[maybe_unused]] const auto& pass : state) {
        BindText(largest, 1, "TDD20251231");
        BindText(largest, 2, "TDD20251232");
        Exhaust(state, largest);
    }
}

/// One copy of the set for all that writes, with the bill typed on it.
struct Desk
{
    QString path = CopyOfBenchSet("written");
    BenchProgram program{path};
    BillText typed = TypedTransfer(program.program, GoodsByTrade());
};

Desk& WritingDesk()
{
    static Desk desk;
    return desk;
}

HandWritten& WritingFloor()
{
    static HandWritten set(WritingDesk().path);
    return set;
}

Posting SaveTyped(Desk& desk)
{
    BillText bill = desk.typed;
    return FSave(desk.program.program, bill);
}

void Save(State& state)
{
    Desk& desk = WritingDesk();
    for ([[maybe_unused]] const auto& pass : state) {
        const Posting posting = SaveTyped(desk);
        state.PauseTiming();
        if (!posting.stored)
            state.SkipWithError("the bill was not saved");
        RemoveBill(desk.program.program, "TabSamePriceMove", posting.code);
        state.ResumeTiming();
    }
}

/// The rows of one saved bill under new codes.
class RowsAgain
{
public:
    RowsAgain(HandWritten& set, const QString& code) : m_set(set)
    {
        m_set.Run("create temp table Head as select * from TabSamePriceMove where Code='" + code.toStdString() + "'");
        m_set.Run("create temp table Lines as select * from TabSamePriceMoveInf where BillCode='" + code.toStdString() +
                  "'");
    }

    void Write(State& state, const std::string& code)
    {
        m_set.Run("begin immediate");
        Copy(state, "Head", "TabSamePriceMove", 1, code);
        Copy(state, "Lines", "TabSamePriceMoveInf", 3, code);
        m_set.Run("commit");
    }

private:
    /// Reads each row and binds its values to one insert.
    void Copy(State& state, const std::string& from, const std::string& table, int codeColumn, const std::string& code)
    {
        sqlite3_stmt* const read = m_set.Statement("select * from temp." + from);
        const int columns = sqlite3_column_count(read);
        std::string marks = "?";
        for (int i = 1; i < columns; ++i)
            marks += ",?";
        sqlite3_stmt* const insert = m_set.Statement("insert into " + table + " values(" + marks + ")");
        while (sqlite3_step(read) == SQLITE_ROW) {
            for (int i = 0; i < columns; ++i)
                sqlite3_bind_value(insert, i + 1, sqlite3_column_value(read, i));
            BindText(insert, codeColumn, code);
            Exhaust(state, insert);
        }
        sqlite3_reset(read);
    }

    HandWritten& m_set;
};

void SaveFloor(State& state)
{
    static RowsAgain rows(WritingFloor(), SaveTyped(WritingDesk()).code);
    for ([[maybe_unused]] const auto& pass : state) {
        rows.Write(state, "FLOOR");
        state.PauseTiming();
        RemoveBill(WritingDesk().program.program, "TabSamePriceMove", "FLOOR");
        state.ResumeTiming();
    }
}

void Rewrite(State& state)
{
    Program& program = WritingDesk().program.program;
    const BenchGood good = GoodsByTrade().front();
    for ([[maybe_unused]] const auto& pass : state) {
        SaveUnit unit(program);
        RewriteCostOverBills(program, good.code, good.warehouse, kToday, {}, false);
        if (!unit.Commit())
            state.SkipWithError("the costs were not rewritten");
    }
}

/// All lines of the good since the close, each table at once.
void RewriteFloor(State& state)
{
    HandWritten& set = WritingFloor();
    const std::string code = GoodsByTrade().front().code.toStdString();
    for ([[maybe_unused]] const auto& pass : state) {
        set.Run("begin immediate");
        for (const char* const columns :
             {"TabOutBillInf set Cost=?1,AveragePrice=?1", "TabElseOutBillInf set Cost=?1,AveragePrice=?1",
              "TabOutCancleBillInf set Cost=?1,AveragePrice=?1", "TabSamePriceMoveInf set AveragePrice=?1",
              "TabCheckLoseInf set AveragePrice=?1", "TabCheckOverInf set AveragePrice=?1"}) {
            sqlite3_stmt* const update =
                set.Statement(std::string("update ") + columns + " where WareCode=?2 and Datee>?3");
            sqlite3_bind_double(update, 1, 12.3456);
            BindText(update, 2, code);
            BindText(update, 3, kLastClose);
            Exhaust(state, update);
        }
        set.Run("commit");
    }
}

std::vector<Figure> Figures()
{
    const std::vector<BenchGood> median = MedianGoods();
    const std::vector<BenchGood> hottest = HottestGood();
    return {
        {"Balance of a median good in one warehouse", 8, true, Balance(median), BalanceFloor(median)},
        {"Balance of the hottest good in one warehouse", 4, true, Balance(hottest), BalanceFloor(hottest)},
        {"Last recorded cost of a median good", 0.05, false, LastCost(median), LastCostFloor(median)},
        {"Next bill code", 0.02, false, NextCode, NextCodeFloor},
        {"Transfer of 200 lines checked and saved", 150, false, Save, SaveFloor},
        {"Rewrite of the hottest good's costs", 400, false, Rewrite, RewriteFloor},
    };
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    return MeasureFigures(Figures, argc, argv);
}
