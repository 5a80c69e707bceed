#pragma once

// What a bill can hold: figures as far as money and quantities keep them exactly, texts as long as their columns are.
// Asked wherever something comes into a bill, and once more before it is saved.

#include "bills/bill_text.h"
#include "handover/program.h"

#include <optional>

/// Why a text cannot stand in a box of the head, as the user is told; empty where it can.
QString FaultOfBox(const Program& program, const QString& control, const QString& text);

/// A cell that cannot stay as it is.
struct CellFault
{
    int row;
    int column;
    QString text; // why, without the row

    /// As the user is told.
    QString InRow() const;
};
/// The first fault of a row: its cells, and the money that its figures make.
/// @param factor  of that money
std::optional<CellFault> FaultOfRow(const Program& program, const BillKind& kind, const LineGrid& grid, int row,
                                    double factor = 1);

/// Puts a text into the current cell unless it or the money of its row could not be kept, which is said.
bool PutInCell(Program& program, BillText& bill, const QString& text);

/// The check before a save: boxes, rows and the sum of the quantities. On a refusal the current cell is the one at
/// fault.
bool CheckLimits(Program& program, BillText& bill);
