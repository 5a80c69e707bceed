// The core on a PostgreSQL server: balance, cost and a save of two hundred lines. The floor of each is the same
// statements in the server's own words, prepared in advance and run through ODBC itself on the same server.
#include "bare_odbc.h"
#include "figures.h"
#include "typed_transfer.h"

#include "bills/saving/save.h"
#include "database/odbc_store.h"
#include "database/statement_mapping.h"
#include "handover/open_query.h"
#include "making/generate.h"
#include "stock/balance.h"
#include "stock/unit_cost.h"

#include <QCoreApplication>
#include <QUrl>
#include <set>

namespace {

using benchmark::State;

constexpr double kMostFloors = 1.3;
constexpr qint64 kLines = 200'000;
constexpr int kGoods = 20'000;
constexpr size_t kGoodsAsked = 64;

/// A statement that the program has run.
struct Call
{
    std::string words;
    std::vector<Value> values;
};
using Calls = std::vector<Call>;

/// Keeps what runs while it is asked to.
struct Recorder
{
    bool on = false;
    Calls calls;
};

class RecordingStore : public Store
{
public:
    RecordingStore(Recorder& recorder, std::unique_ptr<Store> store) : m_recorder(recorder), m_store(std::move(store))
    {}

    Recordset Run(const Sql& sql) override
    {
        if (m_recorder.on)
            m_recorder.calls.push_back({MapForPostgres(sql.shape()), sql.values()});
        return m_store->Run(sql);
    }
    void BeginUnit() override
    {
        Keep("begin");
        m_store->BeginUnit();
    }
    void CommitUnit() override
    {
        Keep("commit");
        m_store->CommitUnit();
    }
    void RollbackUnit() override { m_store->RollbackUnit(); }
    bool inUnit() const override { return m_store->inUnit(); }

private:
    void Keep(const char* words)
    {
        if (m_recorder.on)
            m_recorder.calls.push_back({words, {}});
    }

    Recorder& m_recorder;
    std::unique_ptr<Store> m_store;
};

/// An account set on the server that WAREHOUSE_TEST_SERVER names, and a program on it.
struct Desk
{
    Desk() : place(MakeSet()), set(place) {}

    static AccountSetPlace MakeSet()
    {
        const QString folder =
            QString::fromLatin1(QUrl::toPercentEncoding(qEnvironmentVariable("WAREHOUSE_TEST_SERVER")));
        const QString word = "postgresql://tester@" + folder + "/bench";
        GenerateAccountSet(word, {.lines = kLines, .goods = kGoods});
        return ReadPlace(word);
    }

    AccountSetPlace place;
    OpenedAccountSet set;
};

RunParameters Parameters(const Desk& desk)
{
    RunParameters parameters = desk.set.program.parameters;
    parameters.OperateDate = DayText(kToday);
    parameters.OperateType = "同价调拨";
    return parameters;
}

struct Bench
{
    Desk desk;
    RecordingPrompt prompt;
    LastDayClock clock;
    Recorder recorder;
    Program program{desk.set.program.folder, Parameters(desk), prompt, clock, [this](const QString& connection) {
                        return std::make_unique<RecordingStore>(recorder, desk.set.opener(connection));
                    }};
    BareOdbc floor{desk.place.server->address};
};

Bench& TheBench()
{
    static Bench bench;
    return bench;
}

/// Goods by their sales, the best sold first, and where most of them leave from.
std::vector<BenchGood> GoodsByTrade(Program& program)
{
    const Recordset rows = OpenQuery(
        program, Sql("select TabOutBillInf.WareCode as Good,TabOutBill.WarehouseCode as Place,count(*) as Lines "
                     "from TabOutBillInf,TabOutBill where TabOutBill.Code=TabOutBillInf.BillCode "
                     "group by TabOutBillInf.WareCode,TabOutBill.WarehouseCode order by count(*) desc,Good,Place"));
    std::vector<BenchGood> goods;
    std::set<QString> seen;
    for (int row = 0; row < rows.size(); ++row)
        if (seen.insert(rows.Text("Good", row)).second)
            goods.push_back({rows.Text("Good", row), rows.Text("Place", row)});
    return goods;
}

const std::vector<BenchGood>& Goods()
{
    static const std::vector<BenchGood> goods = GoodsByTrade(TheBench().program);
    return goods;
}

using Ask = std::function<void(Program& program, const BenchGood& good)>;

void AskBalance(Program& program, const BenchGood& good)
{
    benchmark::DoNotOptimize(
        GetStockBalance(program, {.warehouse = good.warehouse, .wareCode = good.code, .asOf = {kToday}}));
}

void AskCost(Program& program, const BenchGood& good)
{
    benchmark::DoNotOptimize(GetUnitCost(program, {.moment = {kToday}, .wareCode = good.code}));
}

const BenchGood& GoodOf(size_t pass)
{
    return Goods()[Goods().size() / 2 + pass % kGoodsAsked];
}

std::function<void(State&)> Asking(const Ask& ask)
{
    return [ask](State& state) {
        size_t pass = 0;
        for ([[maybe_unused]] const auto& turn : state)
            ask(TheBench().program, GoodOf(pass++));
    };
}

Calls CallsOf(const std::function<void()>& work)
{
    Recorder& recorder = TheBench().recorder;
    recorder = {true, {}};
    work();
    recorder.on = false;
    return std::exchange(recorder.calls, {});
}

void RunBare(State& state, const Calls& calls)
{
    for (const Call& call : calls)
        if (!TheBench().floor.Run(call.words, call.values))
            state.SkipWithError("a hand-written statement failed");
}

std::function<void(State&)> AskingBare(const Ask& ask)
{
    std::vector<Calls> calls;
    for (size_t pass = 0; pass < kGoodsAsked; ++pass)
        calls.push_back(CallsOf([&] { ask(TheBench().program, GoodOf(pass)); }));
    return [calls](State& state) {
        size_t pass = 0;
        for ([[maybe_unused]] const auto& turn : state)
            RunBare(state, calls[pass++ % kGoodsAsked]);
    };
}

const BillText& Typed()
{
    static const BillText typed = TypedTransfer(TheBench().program, Goods());
    return typed;
}

Posting SaveTyped()
{
    BillText bill = Typed();
    return FSave(TheBench().program, bill);
}

void Save(State& state)
{
    for ([[maybe_unused]] const auto& turn : state) {
        const Posting posting = SaveTyped();
        state.PauseTiming();
        if (!posting.stored)
            state.SkipWithError("the bill was not saved");
        RemoveBill(TheBench().program, "TabSamePriceMove", posting.code);
        state.ResumeTiming();
    }
}

/// The statements of one save under new codes.
std::function<void(State&)> SavingBare()
{
    QString code;
    const Calls calls = CallsOf([&] { code = SaveTyped().code; });
    RemoveBill(TheBench().program, "TabSamePriceMove", code);
    return [calls, code](State& state) {
        for ([[maybe_unused]] const auto& turn : state) {
            RunBare(state, calls);
            state.PauseTiming();
            RemoveBill(TheBench().program, "TabSamePriceMove", code);
            state.ResumeTiming();
        }
    };
}

std::vector<Figure> Figures()
{
    Typed(); // with the goods: what they ask is no part of what is recorded
    return {
        {"Balance of a median good in one warehouse", kMostFloors, true, Asking(AskBalance), AskingBare(AskBalance)},
        {"Last recorded cost of a median good", kMostFloors, true, Asking(AskCost), AskingBare(AskCost)},
        {"Transfer of 200 lines checked and saved", kMostFloors, true, Save, SavingBare()},
    };
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    return MeasureFigures(Figures, argc, argv);
}
