#pragma once

// Figures of the lines: the cost of a good, the money of a row, the totals of the bill.

#include "bills/lines/line_columns.h"
#include "data/dimensions.h"

#include <optional>

/// Cost of a good on the bill's day at the clock's time, whatever the warehouse. Unset where the database did not
/// answer: that is no 0, which would be stored.
std::optional<double> FetchRowCost(Program& program, const BillText& bill, const QString& code,
                                   const Dimensions& dimensions = {});
/// The dimensions that the cells of a row limit its good to.
Dimensions RowDimensions(const LineGrid& grid, const LineColumns& at, int row);
/// 金额 of one row from its quantity and price or cost. A revaluation has none.
void RecalcRowAmount(const Program& program, BillText& bill, int row);
/// The same for every row with a code, and the totals. No factor of an assembly's line here.
void RecalcAllAmounts(const Program& program, BillText& bill);
/// The money of all lines as their cells show it; keeps a blank row at the end.
Currency SumLineMoney(BillText& bill);
/// Totals from the cells; keeps a blank row at the end.
void SumBillTotals(const Program& program, BillText& bill);

/// The number in a cell; a column that the kind lacks reads as 0.
double CellFigure(const LineGrid& grid, int row, int column);
/// The money of a row as its other cells make it: quantity by price or cost, or what is typed as 调价金额. Not rounded.
double RowMoney(const LineGrid& grid, const LineColumns& at, int row);
/// The currency of a cost question: TxtMoneyName where the account set keeps several, otherwise none.
QString CostCurrency(const Program& program, const BillText& bill);
