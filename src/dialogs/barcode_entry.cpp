#include "dialogs/barcode_entry.h"

#include "base/number_text.h"
#include "data/typed_code.h"
#include "handover/open_query.h"

EntryField ReadBarcode(Program& program, const ScannedBill& bill, BarcodeEntry& entry)
{
    const QString barcode = entry.TxtTiaoXingCode.trimmed();
    if (barcode.isEmpty()) {
        program.prompt.Inform("请先输入条形码！");
        return EntryField::TiaoXingCode;
    }
    const Recordset rs =
        OpenQuery(program, Sql("select Code ,Name from TabWare  where ") + CodeIs("TiaoXingCode", barcode));
    // The good of an earlier scan must not go into the bill under a barcode that is not its own.
    entry.TxtWareCode = rs.Text("Code");
    entry.TxtWareName = rs.Text("Name");
    entry.TxtPrice.clear();
    if (rs.isEmpty()) {
        entry.lastEntered = "没有这个条形码的商品：" + barcode;
        return EntryField::TiaoXingCode;
    }
    entry.lastEntered.clear();
    entry.TxtPrice = bill.PosInPrice(entry.TxtWareCode.trimmed());
    return entry.ChAutoIn ? EnterLine(program, bill, entry) : EntryField::Amount;
}

EntryField EnterLine(Program& program, const ScannedBill& bill, BarcodeEntry& entry)
{
    if (entry.TxtWareCode.isEmpty()) {
        program.prompt.Inform("条形码对应的商品编号不存在，请重新录入条形码！");
        return EntryField::TiaoXingCode;
    }
    const double amount = CellNumber(entry.TxtAmount);
    if (amount == 0) {
        program.prompt.Inform("商品数量不能为零！请输入商品数量！");
        return EntryField::Amount;
    }
    const double price = CellNumber(entry.TxtPrice);
    if (price == 0 && entry.ChZeroPrice && !program.prompt.Ask("商品单价为零吗？"))
        return EntryField::Price;

    if (!bill.PosInBill(entry.TxtWareCode, amount, price))
        return EntryField::Amount;
    entry.lastEntered = "已录入：" + entry.TxtWareCode + " " + entry.TxtWareName + " × " + NumberText(amount);
    entry.TxtWareCode.clear();
    entry.TxtWareName.clear();
    entry.TxtTiaoXingCode.clear();
    entry.TxtPrice.clear();
    entry.TxtAmount = "1";
    return EntryField::TiaoXingCode;
}
