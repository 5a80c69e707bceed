#pragma once

// An earlier assembly as the pattern of a new one: by its number, as the latest of its product, or from a list with a
// filter, which opens originals as well.

#include "assembly/group_piece.h"

/// Copies a saved bill of the window's mode into the open bill: warehouses, product, figures and lines, and nothing
/// that identifies it. One that does not exist is said, and the bill stays.
void TaoYongFillBill(Program& program, GroupPieceText& bill, const QString& tableName, const QString& billCode);

// frmReadGroupPiece. Each answers whether the dialog is done; a refusal has been said.

/// The title of its box for a number.
QString PatternTitle(const GroupPieceText& bill);
/// CmdOk: the bill of this number.
bool RecallByCode(Program& program, GroupPieceText& bill, const QString& billCode);
/// CmdWare: a bill of the latest day on which the product, by code or name, was made.
bool RecallLatest(Program& program, GroupPieceText& bill, const QString& wareCode, const QString& wareName);

// frmReadGroupPieceQuery.

/// What TxtBillCode, TxtDateeFrom and TxtDateeTo limit the list to; empty for no limit.
struct AssemblyFilter
{
    QString billCode;
    QString from;
    QString to;
};

/// The list of a product's bills, and what it shows.
struct AssemblyList
{
    const BillKind* kind = nullptr; // of LabTabName
    QString wareCode;
    LineGrid MSH; // the last row is blank
};

/// CmdQuery of frmReadGroupPiece: the hundred newest bills of the product.
AssemblyList OpenAssemblyList(Program& program, const GroupPieceText& bill, const QString& wareCode);
/// CmdQuery and ToolFiltre: all that the filter lets through. False for a text that is no date, which has been said.
bool FilterAssemblyList(Program& program, AssemblyList& list, const AssemblyFilter& filter);
/// Its columns laid out anew, the rows stay.
void LayOutListAgain(Program& program, AssemblyList& list);
/// The number in a row of the list; empty where there is none.
QString CodeInList(const AssemblyList& list, int row);
/// ToolOldBill: the original in another copy of this program. A row without a number does nothing.
bool OpenOriginal(Program& program, const AssemblyList& list, int row);
