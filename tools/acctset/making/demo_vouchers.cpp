#include "assembly/voucher/voucher.h"
#include "commands.h"
#include "data/decimals.h"
#include "handover/open_query.h"
#include "making/demo.h"

namespace {

/// Stands on the day of the bill that is being booked.
class BookingClock : public Clock
{
public:
    Moment Now() override { return now; }

    Moment now;
};

/// The vouchers of one kind of bill, in the order that the bills were made.
void WriteVouchers(Program& program, BookingClock& clock, const PieceMode& mode)
{
    GroupPieceText bill;
    bill.kind = KindOfBill(mode.bill);
    const Recordset bills = OpenQuery(program, Sql("select Code,Datee,WareCode,Operator from ") +
                                                   Name(bill.kind->headTable) + " where State='正常' order by Code");
    for (int row = 0; row < bills.size(); ++row) {
        clock.now.day = bills.Day("Datee", row).value_or(kNoDate);
        program.parameters.UserName = bills.Text("Operator", row);
        bill.TxtWareCode = bills.Text("WareCode", row);
        WriteBillWarrant(program, bill, bills.Text("Code", row));
    }
}

} // namespace

void WriteDemoVouchers(const QString& path)
{
    OpenedAccountSet set(path);
    BookingClock clock;
    Program program(set.program.folder, set.program.parameters, set.prompt, clock, set.opener);
    LoadDecimalPlaces(program);
    SaveUnit unit(program);
    for (const PieceMode& mode : PieceModes())
        WriteVouchers(program, clock, mode);
    // The first half year is closed: its vouchers stand in the ledger.
    OpenQuery(program,
              Sql("update TabWarrant set State='已登账',RecordAccountant='何秀英' where Datee<=") + QDate(2023, 6, 30));
    OpenQuery(program, Sql("update TabWriteAccountant set State='已结账' where cint(DateeM)<=6"));
    unit.Commit();
    set.RefuseOnErrors();
}
