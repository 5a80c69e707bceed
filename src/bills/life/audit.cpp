#include "bills/life/audit.h"

#include "bills/life/bill_content.h"
#include "bills/life/lifecycle.h"
#include "bills/life/recall.h"
#include "bills/life/stored_head.h"
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
/// did, be it that `write` would not; the reason has been shown.
/// @param isWritten  whether a stored head shows it
template <typename Write, typename IsWritten>
bool WriteTogether(Program& program, const BillText& bill, const Write& write, const IsWritten& isWritten)
{
    if (program.unitOpen)
        return write() && !IsOver(program);
    SaveUnit unit(program);
    if (!unit.isOpen() || !write())
        return false;
    const std::optional<bool> stored = unit.Commit([&]() -> std::optional<bool> {
        const Recordset head = StoredHead(program, bill);
        return head ? std::optional(isWritten(head)) : std::nullopt;
    });
    if (!stored)
        program.prompt.Inform("与数据库的连接已中断，不能确定单据 " + bill.TxtBillCode.trimmed() +
                              " 的本次操作是否已经完成！请在连接恢复后重新调出该单据查看。");
    return stored.value_or(false);
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

bool RefuseUnsaved(Program& program, bool audit)
{
    return Refuse(program, audit ? "请先保存单据后再审核！" : "未保存单据，禁止反审核！");
}

bool MayMark(Program& program, const BillText& bill, bool audit)
{
    const bool isAudited = !bill.TxtAuditing.isEmpty();
    if (isAudited == audit)
        return Refuse(program, audit ? "已审核单据，禁止重复审核！" : "未审核单据，禁止反审核！");
    return !bill.TxtBillCode.trimmed().isEmpty() || RefuseUnsaved(program, audit);
}

/// The stored bill is the one on the screen.
bool IsThere(Program& program, const BillText& bill, bool audit)
{
    const Found found = LookAgain(program, bill, audit ? "审核" : "反审核");
    return found == Found::AsRead || (found == Found::Gone && RefuseUnsaved(program, audit));
}

bool Mark(Program& program, BillText& bill, bool audit)
{
    const Undertaking marking(program);
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

/// A bill has one voucher.
void DropVoucher(Program& program, const Recordset& vouchers)
{
    const QString code = vouchers.Text("Code");
    if (code.trimmed().isEmpty())
        return;
    OpenQuery(program, Sql("delete from TabWarrantInf where BillCode=") + code);
    OpenQuery(program, Sql("delete from TabWarrant where Code =") + code);
}

/// Voiding is for bills on the screen from the database, dated after the last closing.
bool IsVoidable(Program& program, const BillText& bill)
{
    const std::optional<QDate> day = ParseDay(bill.TxtDate);
    if (!day || bill.TxtBillCode.trimmed().isEmpty())
        return Refuse(program, "本单据开单日期不详，系统禁止作废！");
    const Recordset turn = OpenQuery(program, Sql("select max(Datee) as Datee from TabTurn"));
    const std::optional<QDate> closing = turn.Day("Datee");
    if (closing && *closing >= *day)
        return Refuse(program,
                      "最后一次结转日期为" + DayText(*closing) + "，本单据开单位于最后一结转日期之前，系统禁止作废！");
    return static_cast<bool>(turn);
}

/// A posted voucher keeps its bill in force.
bool RefusePosted(Program& program, const Recordset& vouchers)
{
    for (int row = 0; row < vouchers.size(); ++row) {
        if (vouchers.Text("State", row).trimmed() == u"已登账")
            return !Refuse(program, "该张单据已经登账，禁止作废！");
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

/// The voucher goes with the bill, also where that is gone already.
void VoidRows(Program& program, BillText& bill)
{
    Found found = Found::Unknown;
    const auto write = [&] {
        found = LookAgain(program, bill, "作废");
        const Recordset vouchers = VouchersOf(program, bill);
        if (found == Found::Changed || RefusePosted(program, vouchers))
            return false;
        if (found == Found::AsRead)
            SetOnBill(program, bill, "State", "作废");
        DropVoucher(program, vouchers);
        return true;
    };
    if (!WriteTogether(program, bill, write, [&](const Recordset& head) {
            return head.isEmpty() || head.Text("State").trimmed() == u"作废";
        }))
        return;
    if (found == Found::Gone) {
        Inform(program, IsPieces(bill) ? "单据编号不存在，禁止作废！" : "单编号不存在，作废失败！");
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
    const auto write = [&] {
        if (!IsThere(program, bill, audit))
            return false;
        SetOnBill(program, bill, "Auditing", auditor);
        return true;
    };
    if (!WriteTogether(program, bill, write,
                       [&](const Recordset& head) { return head.Text("Auditing").trimmed() == auditor.trimmed(); }))
        return false;
    bill.TxtAuditing = auditor;
    bill.LabAuditing = audit ? "已审核" : "未审核";
    return true;
}

void VoidBill(Program& program, BillText& bill)
{
    const Undertaking voiding(program);
    if (!CheckOperateRight(program, program.parameters.UserName, bill.kind->operation, Action::Edit))
        return;
    if (!IsVoidable(program, bill) || RefusePosted(program, VouchersOf(program, bill)))
        return;
    if (Ask(program, "确定作废该单据吗？"))
        VoidRows(program, bill);
}

void FDelete(Program& program, BillText& bill)
{
    const Undertaking deleting(program);
    if (!CheckOperateRight(program, program.parameters.UserName, bill.kind->rights, Action::Delete))
        return;
    if (IsDayClosed(program, bill.DTPDate, true))
        return;
    if (bill.TxtBillCode.trimmed().isEmpty()) {
        Inform(program, "单据编号不存在，禁止当前操作！");
        return;
    }
    if (!Ask(program, "删除当前单据吗？"))
        return;
    const auto write = [&] {
        if (!MayChange(program, bill, "删除"))
            return false;
        DropVoucher(program, VouchersOf(program, bill));
        DeleteBill(program, bill);
        return true;
    };
    if (!WriteTogether(program, bill, write, [&](const Recordset& head) {
            return head.isEmpty() || !IsAsRead(bill, head); // another bill may have taken its number
        }))
        return;
    program.prompt.Inform("单据已删除！");
    ClearBill(program, bill);
    MarkUnchanged(bill);
}
