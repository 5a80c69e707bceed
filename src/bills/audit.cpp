#include "bills/audit.h"

#include "bills/bill_content.h"
#include "bills/lifecycle.h"
#include "bills/recall.h"
#include "data/periods.h"
#include "data/rights.h"
#include "handover/open_query.h"

namespace {

bool Refuse(Program& program, const QString& text)
{
    Inform(program, text);
    return false;
}

bool IsPieces(const BillText& bill)
{
    return bill.kind->lines == LineShape::Pieces;
}

/// What is written takes effect together, with the save that it belongs to where one is under way. False when nothing
/// did; the reason has been shown.
template <typename Write>
bool WriteTogether(Program& program, const Write& write)
{
    if (program.unitOpen) {
        write();
        return !IsOver(program);
    }
    SaveUnit unit(program);
    if (!unit.isOpen())
        return false;
    write();
    return unit.Commit();
}

/// One column of the bill's head and of all its lines set to a text.
void SetOnBill(Program& program, const BillText& bill, const char* column, const QString& text)
{
    const QString code = bill.TxtBillCode.trimmed();
    const auto update = [&](const char* table) {
        return Sql("update  ") + Name(table) + "  set " + Name(column) + "=" + text;
    };
    OpenQuery(program, update(bill.kind->headTable) + "  where Code=" + code + " ");
    OpenQuery(program, update(bill.kind->lineTable) + "  where BillCode=" + code + " ");
}

bool MayMark(Program& program, const BillText& bill, bool audit)
{
    const bool isAudited = !bill.TxtAuditing.isEmpty();
    if (isAudited == audit)
        return Refuse(program, audit ? "已审核单据，禁止重复审核！" : "未审核单据，禁止反审核！");
    if (bill.TxtBillCode.trimmed().isEmpty())
        return Refuse(program, audit ? "请先保存单据后再审核！" : "未保存单据，禁止反审核！");
    return true;
}

bool Mark(Program& program, BillText& bill, bool audit)
{
    if (!CheckOperateRight(program, program.parameters.UserName, bill.kind->rights, Action::Audit))
        return false;
    if (!SetAuditMark(program, bill, audit))
        return false;
    RefreshWindowState(program, bill);
    return true;
}

/// What is marked from now on is what stands in the rows.
void ShowRows(Program& program, BillText& bill)
{
    FillBill(program, bill, bill.kind->headTable, bill.TxtBillCode.trimmed());
}

Recordset VouchersOf(Program& program, const BillText& bill)
{
    return OpenQuery(program, Sql("select Code,State from TabWarrant where JXCBillCode=") + bill.TxtBillCode.trimmed());
}

void DeleteVouchers(Program& program, const Recordset& vouchers)
{
    for (int row = 0; row < vouchers.size(); ++row) {
        const QString code = vouchers.Text("Code", row);
        OpenQuery(program, Sql("delete from TabWarrantInf where BillCode=") + code);
        OpenQuery(program, Sql("delete from TabWarrant where Code =") + code);
    }
}

/// Voiding is for bills on the screen from the database, dated after the last closing.
bool IsVoidable(Program& program, const BillText& bill)
{
    const std::optional<QDate> day = ParseDay(bill.TxtDate);
    if (!day)
        return Refuse(program, "本单据开单日期不详，系统禁止作废！");
    const Recordset turn = OpenQuery(program, Sql("select max(Datee) as Datee from TabTurn"));
    const std::optional<QDate> closing = turn.Day("Datee");
    if (closing && *closing >= *day)
        return Refuse(program,
                      "最后一次结转日期为" + DayText(*closing) + "，本单据开单位于最后一结转日期之前，系统禁止作废！");
    return static_cast<bool>(turn);
}

bool IsPosted(const Recordset& vouchers)
{
    for (int row = 0; row < vouchers.size(); ++row) {
        if (vouchers.Text("State", row).trimmed() == u"已登账")
            return true;
    }
    return false;
}

void ShowVoided(Program& program, BillText& bill)
{
    bill.LabState = "作废";
    RefreshWindowState(program, bill);
    ShowRows(program, bill);
    if (IsPieces(bill))
        bill.SetEnabled(Command::Print, false);
}

/// The vouchers go with the bill, also where it is gone already.
void VoidRows(Program& program, BillText& bill, const Recordset& vouchers)
{
    const Recordset head = OpenQuery(program, Sql("select Code from ") + Name(bill.kind->headTable) +
                                                  " where Code=" + bill.TxtBillCode.trimmed());
    if (!head)
        return;
    const bool written = WriteTogether(program, [&] {
        if (!head.isEmpty())
            SetOnBill(program, bill, "State", "作废");
        DeleteVouchers(program, vouchers);
    });
    if (!written)
        return;
    if (head.isEmpty()) {
        program.prompt.Inform(IsPieces(bill) ? "单据编号不存在，禁止作废！" : "单编号不存在，作废失败！");
        return;
    }
    ShowVoided(program, bill);
    program.prompt.Inform("作废成功！");
}

/// Everything that hangs on a bill. The lines of a 异价调拨单 are looked for in its head table, which has no such
/// column: the error is shown and they stay, out of every sum.
void DeleteBill(Program& program, const BillText& bill)
{
    const QString code = bill.TxtBillCode.trimmed();
    OpenQuery(program, Sql(" delete from  TabWarehouseAmountChange    where BillCode=") + code + " ");
    if (bill.kind->lines == LineShape::Priced)
        OpenQueryAndGoOn(program, Sql("delete from ") + Name(bill.kind->headTable) + " where BillCode=" + code);
    else
        OpenQuery(program, Sql("delete from ") + Name(bill.kind->lineTable) + " where BillCode=" + code);
    OpenQuery(program, Sql("delete from ") + Name(bill.kind->headTable) + " where  Code=" + code);
    OpenQuery(program, Sql(" delete  from TabImg where BillCode=") + code +
                           " and Type=" + (bill.LabBillName.trimmed() + "图片") + " ");
}

} // namespace

void AuditBill(Program& program, BillText& bill)
{
    if (Mark(program, bill, true))
        ShowRows(program, bill);
}

void AuditSaved(Program& program, BillText& bill)
{
    Mark(program, bill, true);
}

void UnAuditBill(Program& program, BillText& bill)
{
    if (Mark(program, bill, false))
        ShowRows(program, bill);
}

bool SetAuditMark(Program& program, BillText& bill, bool audit)
{
    if (!MayMark(program, bill, audit))
        return false;
    const QString auditor = audit ? program.parameters.UserName : QString();
    if (!WriteTogether(program, [&] { SetOnBill(program, bill, "Auditing", auditor); }))
        return false;
    bill.TxtAuditing = auditor;
    bill.LabAuditing = audit ? "已审核" : "未审核";
    return true;
}

void VoidBill(Program& program, BillText& bill)
{
    if (!CheckOperateRight(program, program.parameters.UserName, bill.kind->operation, Action::Edit))
        return;
    if (!IsVoidable(program, bill))
        return;
    const Recordset vouchers = VouchersOf(program, bill);
    if (IsPosted(vouchers)) {
        program.prompt.Inform("该张单据已经登账，禁止作废！");
        return;
    }
    if (!vouchers || !program.prompt.Ask("确定作废该单据吗？"))
        return;
    VoidRows(program, bill, vouchers);
}

void FDelete(Program& program, BillText& bill)
{
    if (!CheckOperateRight(program, program.parameters.UserName, bill.kind->rights, Action::Delete))
        return;
    if (IsDayClosed(program, bill.DTPDate, true))
        return;
    if (bill.TxtBillCode.trimmed().isEmpty()) {
        program.prompt.Inform("单据编号不存在，禁止当前操作！");
        return;
    }
    if (!program.prompt.Ask("删除当前单据吗？"))
        return;
    const Recordset vouchers = VouchersOf(program, bill);
    if (!vouchers)
        return;
    const bool deleted = WriteTogether(program, [&] {
        DeleteVouchers(program, vouchers);
        DeleteBill(program, bill);
    });
    if (!deleted)
        return;
    program.prompt.Inform("单据已删除！");
    ClearBill(program, bill);
    MarkUnchanged(bill);
}
