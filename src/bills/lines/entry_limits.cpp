#include "bills/lines/entry_limits.h"

#include "bills/head_fields.h"
#include "bills/lines/line_totals.h"
#include "data/decimals.h"
#include "data/text_limits.h"

#include <algorithm>
#include <iterator>

namespace {

/// What the places of a figure are.
enum class Figure
{
    None, // a text
    Amount,
    Price,
    Money,
};

bool IsHeld(const DotType& places, Figure kind, double figure)
{
    switch (kind) {
    case Figure::Amount:
        return IsExactByDigits(figure, places.Amount_DotLen);
    case Figure::Price:
        return IsExactByDigits(figure, places.Price_DotLen);
    case Figure::Money:
        return Currency::IsMoney(figure);
    case Figure::None:
        break;
    }
    return true;
}

QString BeyondRange(const QString& what)
{
    return what + " 超出系统所能保存的范围，请修改后再保存！";
}

/// Empty for a text that its column takes, and that reads as a figure which is held.
QString FaultOf(const DotType& places, const QString& what, const QString& column, Figure kind, const QString& text)
{
    if (!IsHeld(places, kind, CellNumber(text)))
        return BeyondRange(what);
    const int limit = kind == Figure::None ? TextLimit(column) : 0;
    if (limit == 0 || text.trimmed().size() <= limit)
        return {};
    return what + " 超过 " + QString::number(limit) + " 个字，请修改后再保存！";
}

struct Box
{
    const char* control;
    const char* word;
    const char* column;
    Figure kind = Figure::None;
};
constexpr Box kBoxes[] = {
    {"TxtWarehouseCodeF", "仓库编号", "WarehouseCodeF"},
    {"TxtWarehouseNameF", "仓库名称", "WarehouseNameF"},
    {"TxtWarehouseCodeS", "仓库编号", "WarehouseCodeS"},
    {"TxtWarehouseNameS", "仓库名称", "WarehouseNameS"},
    {"TxtSaleMan", "业务员", "SaleMan"},
    {"TxtMemo", "备注", "Remark"},
    {"TxtExplain", "附加说明", "Explain"},
    {"TxtMoneyName", "币种", "MoneyName"},
    {"TxtMoneyRate", "汇率", "MoneyRate", Figure::Price},
    {"TxtWareCode", "商品编号", "WareCode"},
    {"TxtWareName", "商品名称", "WareName"},
    {"TxtWareSpec", "规格", "WareSpec"},
    {"TxtUnite", "计量单位", "Unite"},
    {"TxtAmount", "数量", "Amount", Figure::Amount},
    {"TxtCost", "单件成本", "Cost", Figure::Price},
    {"TxtFee", "费用", "Fee", Figure::Money},
    {"TxtManufacturer", "生产厂商", "Manufacturer"},
    {"TxtBrand", "品牌", "Brand"},
    {"TxtPCode", "批号", "PCode"},
    {"TxtSCDate", "生产日期", "SCDate"},
    {"TxtYXDate", "有效日期", "YXDate"},
    {"TxtOnlyCode", "唯一码", "OnlyCode"},
};

struct Cell
{
    int LineColumns::*at;
    const char* column;
    Figure kind = Figure::None;
};
constexpr Cell kCells[] = {
    {&LineColumns::code, "WareCode"},
    {&LineColumns::name, "WareName"},
    {&LineColumns::spec, "WareSpec"},
    {&LineColumns::unit, "Unite"},
    {&LineColumns::amount, "Amount", Figure::Amount},
    {&LineColumns::price, "Price", Figure::Price},
    {&LineColumns::cost, "AveragePrice", Figure::Price},
    {&LineColumns::money, "Moneyy", Figure::Money},
    {&LineColumns::revaluation, "Moneyy", Figure::Money},
    {&LineColumns::manufacturer, "Manufacturer"},
    {&LineColumns::brand, "Brand"},
    {&LineColumns::batch, "PCode"},
    {&LineColumns::madeOn, "SCDate"},
    {&LineColumns::validUntil, "YXDate"},
    {&LineColumns::onlyCode, "OnlyCode"},
};

bool Refuse(Program& program, const QString& fault)
{
    if (!fault.isEmpty())
        program.prompt.Inform(fault);
    return fault.isEmpty();
}

} // namespace

QString CellFault::InRow() const
{
    return "第 " + QString::number(row) + " 行 " + text;
}

QString FaultOfBox(const Program& program, const QString& control, const QString& text)
{
    const auto box =
        std::ranges::find_if(kBoxes, [&](const Box& known) { return control == QLatin1String(known.control); });
    return box == std::end(kBoxes) ? QString() : FaultOf(program.gDot, box->word, box->column, box->kind, text);
}

std::optional<CellFault> FaultOfRow(const Program& program, const BillKind& kind, const LineGrid& grid, int row,
                                    double factor)
{
    const LineColumns at(kind);
    for (const Cell& cell : kCells) {
        const int column = at.*cell.at;
        if (column == 0)
            continue;
        const QString fault =
            FaultOf(program.gDot, kind.columns[column].caption, cell.column, cell.kind, grid.Cell(row, column));
        if (!fault.isEmpty())
            return CellFault{row, column, fault};
    }
    // Priced by hand, a line has a value at cost as well.
    const double value = CellFigure(grid, row, at.amount) * CellFigure(grid, row, at.cost);
    if (Currency::IsMoney(factor * RowMoney(grid, at, row)) && Currency::IsMoney(value))
        return {};
    return CellFault{row, at.amount, BeyondRange(kind.columns[at.money].caption)};
}

bool PutInCell(Program& program, BillText& bill, const QString& text)
{
    LineGrid& grid = bill.MSH;
    const int row = grid.currentRow;
    const QString before = grid.Cell(row, grid.currentColumn);
    if (FaultOfRow(program, *bill.kind, grid, row, bill.MoneyFactor(row))) {
        grid.SetCell(row, grid.currentColumn, text); // whatever mends a row may be typed
        return true;
    }
    grid.SetCell(row, grid.currentColumn, text);
    const auto fault = FaultOfRow(program, *bill.kind, grid, row, bill.MoneyFactor(row));
    if (!fault)
        return true;
    grid.SetCell(row, grid.currentColumn, before);
    return Refuse(program, fault->InRow());
}

bool CheckLimits(Program& program, BillText& bill)
{
    for (const std::vector<HeadField>& fields : {HeadFields(), bill.OwnFields()}) {
        for (const HeadField& field : fields) {
            if (!Refuse(program, FaultOfBox(program, field.control, bill.*field.text)))
                return false;
        }
    }
    LineGrid& grid = bill.MSH;
    const LineColumns at(*bill.kind);
    double amount = 0;
    for (int row = 1; row <= grid.lastRow(); ++row) {
        amount += CellFigure(grid, row, at.amount);
        const auto fault = FaultOfRow(program, *bill.kind, grid, row);
        if (!fault)
            continue;
        grid.currentRow = fault->row;
        grid.currentColumn = fault->column;
        return Refuse(program, fault->InRow());
    }
    return IsHeld(program.gDot, Figure::Amount, amount) || Refuse(program, BeyondRange("合计数量"));
}
