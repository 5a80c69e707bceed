#pragma once

// A bill on the screen: head fields and line cells as texts, with the flags that decide what a save does. Rules read
// and write it; a window moves text between it and the widgets and shows what changed.

#include "base/dates.h"
#include "bills/line_grid.h"
#include "data/bill_kinds.h"

#include <QMap>
#include <QString>
#include <QStringList>
#include <bitset>
#include <optional>
#include <vector>

/// The commands whose keys a bill's state can lock. What is never locked is not listed.
enum class Command
{
    Save,
    Audit,
    UnAudit,
    Delete,
    InsertRow,
    DeleteRow,
    Void,
    Print,
    Import,
    Scan,
    Pattern,    // an earlier assembly called in
    SwitchMode, // assembly or disassembly
    Count,
};

class Recordset;
struct HeadField;
struct Program;

/// What a user has put into a bill.
struct BillContent
{
    QDate day;
    QMap<QString, QString> head;    // by control, what is typed
    std::vector<QStringList> lines; // cells by column; the blank rows behind the last line left out
};

struct BillText
{
    BillText() = default;
    BillText(const BillText&) = default;
    BillText& operator=(const BillText&) = default;
    virtual ~BillText() = default;

    // What a bill with more on its head does on its own at the shared steps.

    /// Whether its window shows bills of a kind.
    virtual bool TakesKind(const BillKind& shown) const { return shown.lines != LineShape::Pieces; }
    /// Its own head fields. What is typed there is the bill's content.
    virtual std::vector<HeadField> OwnFields() const;
    /// Empties its own head fields.
    virtual void ClearOwn() {}
    /// Shows its own head fields from the row of a saved bill, and what is set whenever one is shown.
    virtual void ShowOwn(Program&, const Recordset&) {}
    /// Whether the head is ready for its lines; otherwise the user has been told.
    virtual bool MayEnterGoods(Program& program) const;
    /// Its head follows the figures of its lines.
    virtual void LinesChanged(const Program&) {}
    /// After typed content has been put onto the bill as a whole.
    virtual void ContentShown(Program& program) { LinesChanged(program); }
    /// What the money of a line is multiplied by when one of its cells is committed.
    virtual double MoneyFactor(int) const { return 1; }

    const BillKind* kind = nullptr; // of LabBillName

    QString LabBillName;
    QString TxtBillCode;
    QDate DTPDate;   // the bill's day
    QString TxtDate; // its text twin: empty while the bill was neither saved nor recalled
    QString TxtWarehouseCodeF;
    QString TxtWarehouseNameF;
    QString TxtWarehouseCodeS;
    QString TxtWarehouseNameS;
    QString LabWarehouseNameS; // caption of the second warehouse
    QString TxtSaleMan;
    QString TxtMemo;
    QString TxtExplain;
    QString TxtMoneyName;
    QString TxtMoneyRate = "1";
    QString TxtOperator;
    QString TxtAuditing;
    QString LabAuditing; // 已审核, 未审核, empty when hidden
    QString LabState;    // 作废, on an assembly 正常 as well, empty when hidden
    QString LabTotalAmount;
    QString LabTotalMoney; // LabOperateMoney of an assembly
    bool ChAutoAdd = false;
    bool ChAutoAuditing = false;

    LineGrid MSH;
    bool totalMoneyShown = true; // hidden together with the column 金额

    bool BillSavedFlag = false;      // the bill exists in the database
    std::optional<Moment> DateTimee; // of the stored head, as it was read or written; unset where it has none
    BillContent unchanged;           // as last blanked, loaded or stored
    bool entryEnabled = true;        // head fields and grid take input
    std::bitset<static_cast<size_t>(Command::Count)> enabled;

    QString NavTableName;
    QStringList navigation;   // codes of the month's bills, by day and code
    int navigationIndex = -1; // of the one stood on; -1 for none

    /// The layout of the line grid is kept under this key.
    QString LayoutKey() const;

    bool isEnabled(Command command) const { return enabled.test(static_cast<size_t>(command)); }
    void SetEnabled(Command command, bool on) { enabled.set(static_cast<size_t>(command), on); }
};
