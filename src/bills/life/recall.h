#pragma once

// A saved bill back on the screen.

#include "bills/bill_text.h"
#include "handover/program.h"

class Recordset;

enum class LineDetail
{
    All,
    Pattern, // what an assembly takes over from an earlier one: goods, figures and remarks
};
/// Adds stored lines to the grid, with their totals.
void ShowLines(Program& program, BillText& bill, const Recordset& lines, LineDetail detail);
/// The warehouses of a stored head.
void ShowWarehouses(BillText& bill, const Recordset& head);
/// What LabState says of a bill that is not voided.
QString InForceLabel(const BillKind& kind);

/// Shows a bill of a head table, locked as its state demands. False when there is none, or of a kind that the window
/// does not show: that has been said, and the bill stays as it was.
bool FillBill(Program& program, BillText& bill, const QString& tableName, const QString& billCode);
