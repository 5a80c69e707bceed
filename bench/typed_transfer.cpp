#include "typed_transfer.h"

#include "bills/life/lifecycle.h"
#include "bills/lines/line_entry.h"
#include "bills/lines/line_totals.h"
#include "data/decimals.h"
#include "stock/balance.h"

namespace {

constexpr int kHotLines = 10;
constexpr double kEnoughStock = 20; // for all the passes

/// Ten of the goods that everybody buys, the others from all over the list; of each the warehouse has enough.
QStringList GoodsToTransfer(Program& program, const QString& warehouse, const std::vector<BenchGood>& goods)
{
    const auto hasEnough = [&](const BenchGood& good) {
        const StockQuestion question{.warehouse = warehouse, .wareCode = good.code, .asOf = {kToday}};
        return GetStockBalance(program, question).ShownAmount >= kEnoughStock;
    };
    QStringList codes;
    for (size_t i = 0; codes.size() < kHotLines; ++i) {
        if (hasEnough(goods.at(i)))
            codes << goods[i].code;
    }
    constexpr size_t kStep = 3; // a prime to the number of warehouses
    for (size_t i = 200; codes.size() < kTransferLines; i += kStep) {
        if (goods.at(i).warehouse == warehouse && hasEnough(goods[i]))
            codes << goods[i].code;
    }
    return codes;
}

} // namespace

BillText TypedTransfer(Program& program, const std::vector<BenchGood>& goods)
{
    BillText bill;
    LoadDecimalPlaces(program);
    LoadWindow(program, bill);
    frm_Initialize(program, bill, false);
    bill.TxtWarehouseNameF = "广州仓";
    bill.TxtWarehouseCodeF = "0201";
    bill.TxtWarehouseNameS = "北京仓";
    bill.TxtWarehouseCodeS = "0301";
    for (const QString& code : GoodsToTransfer(program, bill.TxtWarehouseCodeF, goods)) {
        const int row = bill.MSH.lastRow();
        bill.MSH.currentRow = row;
        bill.MSH.currentColumn = ColumnIndex(*bill.kind, u"商品编号");
        TypeInCell(program, bill, code);
        ChooseGood(program, bill, code);
        bill.MSH.currentColumn = ColumnIndex(*bill.kind, u"数量");
        TypeInCell(program, bill, "0.01");
    }
    SumBillTotals(program, bill);
    return bill;
}
