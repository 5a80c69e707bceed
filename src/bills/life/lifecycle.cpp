#include "bills/life/lifecycle.h"

#include "bills/life/bill_content.h"
#include "bills/lines/line_columns.h"
#include "data/periods.h"
#include "handover/open_query.h"

namespace {

constexpr Command kLockable[] = {Command::Save,      Command::Delete,    Command::Void,
                                 Command::InsertRow, Command::DeleteRow, Command::Import,
                                 Command::Scan,      Command::Audit,     Command::UnAudit};

} // namespace

QDate WorkingDate(const Program& program)
{
    return ParseDay(program.parameters.OperateDate).value_or(program.clock.Now().day);
}

void LoadWindow(Program& program, BillText& bill)
{
    bill.kind = &BillKinds().front();
    bill.DTPDate = WorkingDate(program);
    bill.TxtOperator = program.parameters.UserName;
    bill.TxtMoneyName = program.parameters.IsLotMoney ? MoneyNames(program).value(0) : QString();
}

void frm_Initialize(Program& program, BillText& bill, bool keepLoaded)
{
    const QString& operation = program.parameters.OperateType;
    if (const BillKind* kind = KindOfOperation(operation))
        bill.kind = kind;
    bill.LabBillName = operation + "单";
    StartWindow(program, bill, keepLoaded);
}

void StartWindow(Program& program, BillText& bill, bool keepLoaded)
{
    bill.LabWarehouseNameS = bill.kind->warehouse;
    bill.NavTableName = bill.kind->headTable;
    OpenNavigation(program, bill);
    if (keepLoaded)
        return;
    BuildGridColumns(program, bill);
    NewBill(program, bill);
}

void OpenBlank(Program& program, BillText& bill, const QString& tableName)
{
    const BillKind* const kind = KindOfHeadTable(tableName);
    if (kind && bill.TakesKind(*kind))
        bill.kind = kind;
    bill.LabBillName = bill.kind->bill;
    StartWindow(program, bill, false);
}

QStringList MoneyNames(Program& program)
{
    const Recordset rows = OpenQuery(program, Sql("select Name from TabMoneyType order by  IsBWB desc "));
    QStringList names;
    for (int row = 0; row < rows.size(); ++row)
        names << rows.Text("Name", row);
    return names;
}

void NewBill(Program& program, BillText& bill)
{
    ClearBill(program, bill);
    bill.BillSavedFlag = false;
    SetWindowEnabled(bill, true);
    bill.SetEnabled(Command::Print, false);
    MarkUnchanged(bill);
}

void ClearBill(Program& program, BillText& bill)
{
    for (QString* text :
         {&bill.TxtDate, &bill.TxtBillCode, &bill.TxtMemo, &bill.TxtExplain, &bill.LabTotalMoney, &bill.LabTotalAmount,
          &bill.TxtWarehouseCodeF, &bill.TxtWarehouseNameF, &bill.TxtWarehouseCodeS, &bill.TxtWarehouseNameS,
          &bill.TxtSaleMan, &bill.LabState, &bill.LabAuditing, &bill.TxtAuditing})
        text->clear();
    bill.DateTimee.reset();
    bill.ClearOwn();
    BuildGridColumns(program, bill);
    bill.TxtOperator = program.parameters.UserName;
}

void SetWindowEnabled(BillText& bill, bool on)
{
    bill.entryEnabled = on;
    for (const Command command : kLockable)
        bill.SetEnabled(command, on);
    bill.SetEnabled(Command::Print, true);
    // What makes a bill another one is for bills that are not there yet.
    bill.SetEnabled(Command::Pattern, on && !bill.BillSavedFlag);
    bill.SetEnabled(Command::SwitchMode, on && !bill.BillSavedFlag);
}

void RefreshWindowState(Program& program, BillText& bill)
{
    if (IsDayClosed(program, bill.DTPDate, false)) {
        SetWindowEnabled(bill, false);
        return;
    }
    const bool isAudited = !bill.TxtAuditing.trimmed().isEmpty();
    SetWindowEnabled(bill, !isAudited);
    bill.SetEnabled(Command::UnAudit, true);
    if (bill.LabState.trimmed() == u"作废") {
        SetWindowEnabled(bill, false);
        bill.SetEnabled(Command::Delete, true);
    }
}

void OpenNavigation(Program& program, BillText& bill)
{
    const QDate first(bill.DTPDate.year(), bill.DTPDate.month(), 1);
    const QDate last = first.addDays(first.daysInMonth() - 1);
    const Recordset rows =
        OpenQuery(program, Sql("select  Code from ") + Name(bill.NavTableName) + "  where Datee>=" + first +
                               "    and  Datee<=" + last + "  order by Datee,Code ");
    bill.navigation.clear();
    for (int row = 0; row < rows.size(); ++row)
        bill.navigation << rows.Text("Code", row);
    bill.navigationIndex = static_cast<int>(bill.navigation.indexOf(bill.TxtBillCode.trimmed()));
}
