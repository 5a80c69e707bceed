#include "dialogs/bill_images.h"

#include "data/bill_kinds.h"
#include "handover/launcher.h"
#include "handover/open_query.h"

namespace {
/// The word for a bill's images, in TabImg and to the image program.
QString ImageWord(const QString& billName)
{
    return billName.trimmed() + "图片";
}
} // namespace

void OpenBillImages(Program& program, const QString& billCode, const QString& billName)
{
    const QString table = HeadTableOfBill(billName);
    if (table.isEmpty()) {
        program.prompt.Inform("不能确定单据对应的表名，图文管理失败！");
        return;
    }
    const QString code = billCode.trimmed();
    if (OpenQuery(program, Sql("select Code from ") + Name(table) + " where Code=" + code).isEmpty()) {
        program.prompt.Inform("尚未保存数据，请先保存数据后重新操作图文功能！");
        return;
    }
    const BillKind* const kind = KindOfBill(billName);
    const QString word = ImageWord(billName);
    LaunchFunction(program, word, {word, kind ? kind->operation : QString(), table, code});
}

void DeleteBillImages(Program& program, const QString& billCode, const QString& billName)
{
    OpenQuery(program,
              Sql(" delete  from TabImg where BillCode=") + billCode + "  and Type=" + ImageWord(billName) + " ");
}
