#pragma once

// A bill on the screen: head fields and line cells as texts, with the flags that decide what a save does. Rules read
// and write it; a window moves text between it and the widgets and shows what changed.

#include "base/dates.h"
#include "bills/line_grid.h"
#include "data/bill_kinds.h"

#include <QString>
#include <QStringList>
#include <bitset>

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
    Count,
};

struct BillText
{
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
    QString LabState;    // 作废 when shown, empty when hidden
    QString LabTotalAmount;
    QString LabTotalMoney;
    bool ChAutoAdd = false;
    bool ChAutoAuditing = false;

    LineGrid MSH;
    bool totalMoneyShown = true; // hidden together with the column 金额

    bool BillSavedFlag = false; // the bill exists in the database
    bool entryEnabled = true;   // head fields and grid take input
    std::bitset<static_cast<size_t>(Command::Count)> enabled;

    QString NavTableName;
    QStringList navigation; // codes of the month's bills, by day and code
    int navigationIndex = 0;

    bool isEnabled(Command command) const { return enabled.test(static_cast<size_t>(command)); }
    void SetEnabled(Command command, bool on) { enabled.set(static_cast<size_t>(command), on); }
};
