#include "bills/life/stored_head.h"

#include "bills/moments.h"
#include "data/periods.h"
#include "handover/open_query.h"

namespace {

/// What another user has made of the bill; empty for nothing.
QString DoneMeanwhile(const BillText& bill, const Recordset& head)
{
    if (!IsAsRead(bill, head))
        return "修改";
    if (head.Text("State").trimmed() == u"作废" && bill.LabState.trimmed() != u"作废")
        return "作废";
    const bool isAudited = !head.Text("Auditing").trimmed().isEmpty();
    return isAudited && bill.TxtAuditing.trimmed().isEmpty() ? "审核" : QString();
}

Found Compare(Program& program, const BillText& bill, const Recordset& head, const QString& command)
{
    if (!head)
        return Found::Unknown;
    if (head.isEmpty())
        return Found::Gone;
    const QString done = DoneMeanwhile(bill, head);
    if (done.isEmpty())
        return Found::AsRead;
    Inform(program, "该单据已被其他用户" + done + "，禁止" + command + "！");
    return Found::Changed;
}

} // namespace

Recordset StoredHead(Program& program, const BillText& bill)
{
    return OpenQuery(program, Sql("select Datee,State,Auditing,DateTimee from ") + Name(bill.kind->headTable) +
                                  " where Code=" + bill.TxtBillCode.trimmed());
}

bool IsAsRead(const BillText& bill, const Recordset& head)
{
    const std::optional<Moment> stored = head.MomentAt("DateTimee");
    return stored && bill.DateTimee ? IsSameMoment(*stored, *bill.DateTimee) : stored == bill.DateTimee;
}

Found LookAgain(Program& program, const BillText& bill, const QString& command)
{
    return Compare(program, bill, StoredHead(program, bill), command);
}

bool MayChange(Program& program, const BillText& bill, const QString& command)
{
    const Recordset head = StoredHead(program, bill);
    const Found found = Compare(program, bill, head, command);
    if (found != Found::AsRead)
        return found == Found::Gone;
    const std::optional<QDate> day = head.Day("Datee");
    return !day || !IsDayClosed(program, *day, true);
}
