#pragma once

// Entering lines: what opens over a cell, what typing and committing do, choosing a good, inserting and deleting
// rows. "The current cell" is MSH.currentRow and MSH.currentColumn, which the window sets before it calls.

#include "bills/bill_text.h"
#include "bills/picker_needed.h"
#include "database/recordset.h"
#include "handover/program.h"

#include <optional>

/// What opens over a cell.
enum class CellEditor
{
    None,
    Text,      // Text2
    Unit,      // Combol2
    Attribute, // AttributeStep
};

/// The editor of the current cell; none while the bill is locked.
CellEditor EditorOfCell(const BillText& bill);
/// The text that Text2 opens with: the cell's, without separators where it is a figure.
QString EditorText(const BillText& bill);

/// Whether the current column is 商品编号 or 商品名称, where typing searches for a good.
bool IsGoodsColumn(const BillText& bill);
/// A change of Text2. In a goods column the text goes to the cell and a blank row follows the last one; the caller
/// then shows DropListQuery. Elsewhere the cell is committed.
/// @return false for a text that the cell cannot hold, which has been said; the cell stays as it was
bool TypeInCell(Program& program, BillText& bill, const QString& text);
/// Goods whose code begins with the text or whose name, spec or mnemonic holds it; columns 商品编号, 商品名称, 规格,
/// 单位, 助记符.
Sql DropListQuery(const QString& text);

struct EnterOutcome
{
    bool stopped = false; // the warehouses are missing, which has been said; the cursor stays
    std::optional<PickerNeeded> picker;
};
/// Enter in Text2: commits the cell; in a goods column the good of this code, or of this name or mnemonic, is chosen.
EnterOutcome EnterCell(Program& program, BillText& bill, const QString& text);
/// Whether code and name of the current row are those of one good: Enter on them, unchanged, only moves on.
bool HoldsGood(Program& program, const BillText& bill);
struct Entered
{
    bool goodFound = false; // true outside the goods columns
    QString fault;          // why the cell cannot hold the text and stays as it was
};
/// What Enter writes into the current cell, without the money of the row and the totals. In a goods column it stays a
/// text where no good is meant.
Entered WriteEntered(Program& program, BillText& bill, const QString& text);
/// Double click in Text2: the goods picker. Unset outside the goods columns and while the warehouses are missing.
std::optional<PickerNeeded> GoodsPicker(Program& program, const BillText& bill, const QString& text);

/// A good chosen from the drop list or a picker goes to the current row. A revaluation moves on to 调价金额.
void ChooseGood(Program& program, BillText& bill, const QString& code);
/// Commits the current cell by the caption over it.
/// @param text  of the editor
/// @param query  of a goods column: the row of TabWare to take; empty elsewhere
/// @return the goods picker where the query found none
std::optional<PickerNeeded> Txt2ToMSH(Program& program, BillText& bill, const QString& text, const Sql& query);

/// A unit chosen or typed for the current row goes to its cell; an assembly asks for the price anew.
void ChooseUnit(Program& program, BillText& bill, const QString& unit);
/// Main and second unit of the current row's good; none outside the column 单位.
QStringList LoadUnitChoices(Program& program, const BillText& bill);
/// Click on an attribute cell: the picker of the good's attribute group, unset for a good without one. An attribute
/// that the good may not have is taken out if the user agrees. The choice goes to the cell as AttributeCell makes it.
std::optional<PickerNeeded> AttributeStep(Program& program, BillText& bill);

/// The attribute that was picked goes to the current cell.
void ChooseAttribute(Program& program, BillText& bill, const QString& code);

/// Whether the warehouses are chosen and differ; otherwise the user has been told. Asked before a good is entered by
/// Enter or double click, before an import and before scanning.
bool WarehousePrecheck(Program& program, const BillText& bill);

void InsertGridRow(Program& program, BillText& bill);
void DeleteGridRow(Program& program, BillText& bill);

/// A good with its code, name, spec and unit, for lines from elsewhere.
Recordset GoodForLine(Program& program, const QString& code);
/// For scanning: the price the bill would use. Unset without warehouses and where the bill has no cost of its own.
std::optional<double> PosInPrice(Program& program, const BillText& bill, const QString& code);
/// For scanning: adds a line with its quantity and cost. The price goes where one is typed on this bill: to 单价, or on
/// an assembly, unless it is 0, to 成本价. An unknown good adds none.
/// @return false for figures that the line cannot hold, which has been said; no line is added
bool PosInBill(Program& program, BillText& bill, const QString& code, double quantity, double price);
