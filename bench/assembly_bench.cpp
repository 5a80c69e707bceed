// Assemblies on the large account set: one of a hundred lines saved with its voucher, taken as a pattern, and found in
// the list of its product.
#include "account_set.h"
#include "figures.h"

#include "assembly/life/assembly_lifecycle.h"
#include "assembly/life/assembly_recall.h"
#include "assembly/piece_head.h"
#include "assembly/saving/assembly_save.h"
#include "assembly/voucher/voucher.h"
#include "bills/life/lifecycle.h"
#include "bills/lines/line_entry.h"
#include "bills/lines/line_totals.h"
#include "data/decimals.h"
#include "handover/open_query.h"
#include "stock/balance.h"

#include <QCoreApplication>

namespace {

using benchmark::State;

constexpr int kLines = 100;
constexpr int kListed = 100;
constexpr size_t kProduct = 300;     // a good of middling trade
constexpr double kEnoughStock = 100; // for all the passes

QStringList GoodsInStock(Program& program, const QString& warehouse)
{
    QStringList codes;
    const std::vector<BenchGood>& goods = GoodsByTrade();
    for (size_t i = 0; i < goods.size() && codes.size() < kLines; ++i) {
        const StockQuestion question{.warehouse = warehouse, .wareCode = goods[i].code, .asOf = {kToday}};
        if (i != kProduct && GetStockBalance(program, question).ShownAmount >= kEnoughStock)
            codes << goods[i].code;
    }
    return codes;
}

/// The assembly as it stands on the screen when its save key is pressed.
GroupPieceText TypedAssembly(Program& program)
{
    GroupPieceText bill;
    LoadDecimalPlaces(program);
    program.parameters.OperateType = "商品组装";
    LoadGroupPiece(program, bill);
    frm_Initialize(program, bill, false);
    bill.TxtWarehouseNameF = bill.TxtWarehouseNameS = "广州仓";
    bill.TxtWarehouseCodeF = bill.TxtWarehouseCodeS = "0201";
    ChooseProduct(program, bill, GoodsByTrade().at(kProduct).code);
    for (const QString& code : GoodsInStock(program, bill.TxtWarehouseCodeF)) {
        bill.MSH.currentRow = bill.MSH.lastRow();
        bill.MSH.currentColumn = ColumnIndex(*bill.kind, u"商品编号");
        TypeInCell(program, bill, code);
        ChooseGood(program, bill, code);
        bill.MSH.currentColumn = ColumnIndex(*bill.kind, u"数量");
        TypeInCell(program, bill, "0.01");
    }
    bill.TxtAmount = "1";
    HeadTextChanged(program, bill, "TxtAmount");
    HeadFocusLost(program, bill, "TxtAmount");
    return bill;
}

struct Desk
{
    BenchProgram signedIn{CopyOfBenchSet("assembled")};
    Program& program = signedIn.program;
    GroupPieceText typed;

    Desk()
    {
        program.parameters.IsJXC = false;
        typed = TypedAssembly(program);
    }
    Posting SaveTyped()
    {
        GroupPieceText bill = typed;
        return FSave(program, bill);
    }
};

Desk& TheDesk()
{
    static Desk desk;
    return desk;
}

bool HasVoucher(Program& program, const QString& code)
{
    return !OpenQuery(program, Sql("select Code from TabWarrant where JXCBillCode=") + code).isEmpty();
}

void Save(State& state)
{
    Desk& desk = TheDesk();
    for ([[maybe_unused]] const auto& pass : state) {
        const Posting posting = desk.SaveTyped();
        state.PauseTiming();
        if (!posting.stored || !HasVoucher(desk.program, posting.code))
            state.SkipWithError("the bill was not saved with its voucher");
        DeleteBillWarrant(desk.program, posting.code);
        RemoveBill(desk.program, "TabWareGroup", posting.code);
        state.ResumeTiming();
    }
}

/// A head, its lines and a voucher's worth of rows, bare and in one durable transaction.
void SaveFloor(State& state)
{
    Desk& desk = TheDesk();
    static const QString code = desk.SaveTyped().code;
    const QString copy = "FLOOR";
    for ([[maybe_unused]] const auto& pass : state) {
        Store& store = desk.program.gConnection.store();
        state.PauseTiming();
        const Recordset head = store.Run(Sql("select * from TabWareGroup where Code=") + code);
        const Recordset lines = store.Run(Sql("select * from TabWareGroupInf where BillCode=") + code);
        const auto insert = [&](const char* table, const Recordset& rows, int row, size_t codeColumn) {
            std::vector<Value> values;
            for (size_t column = 0; column < rows.columns().size(); ++column)
                values.push_back(column == codeColumn ? Value(copy) : rows.at(row, static_cast<int>(column)));
            store.Run(InsertInto(Name(table), values));
        };
        state.ResumeTiming();
        store.BeginUnit();
        insert("TabWareGroup", head, 0, 0);
        for (int row = 0; row < lines.size(); ++row)
            insert("TabWareGroupInf", lines, row, 2);
        store.CommitUnit();
        state.PauseTiming();
        RemoveBill(desk.program, "TabWareGroup", copy);
        state.ResumeTiming();
    }
}

void Pattern(State& state)
{
    Desk& desk = TheDesk();
    const QString code = desk.SaveTyped().code;
    GroupPieceText bill = desk.typed;
    for ([[maybe_unused]] const auto& pass : state)
        TaoYongFillBill(desk.program, bill, "TabWareGroup", code);
    if (bill.MSH.lastRow() != kLines + 1)
        state.SkipWithError("the pattern was not taken over whole");
}

void List(State& state)
{
    Desk& desk = TheDesk();
    static const bool enough = [&desk] {
        for (int bill = 0; bill < kListed; ++bill)
            desk.SaveTyped();
        return true;
    }();
    AssemblyList list;
    for ([[maybe_unused]] const auto& pass : state)
        list = OpenAssemblyList(desk.program, desk.typed, desk.typed.TxtWareCode);
    if (!enough || list.MSH.lastRow() != kListed + 1)
        state.SkipWithError("the list is not whole");
}

std::vector<Figure> Figures()
{
    return {
        {"Assembly of 100 lines saved with its voucher", 150, false, Save, SaveFloor},
        {"The same taken as a pattern", 100, false, Pattern},
        {"List of its product's hundred newest", 50, false, List},
    };
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    return MeasureFigures(Figures, argc, argv);
}
