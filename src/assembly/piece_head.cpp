#include "assembly/piece_head.h"

#include "assembly/allocation.h"
#include "bills/lines/line_totals.h"
#include "data/decimals.h"
#include "data/lookups.h"
#include "data/typed_code.h"
#include "handover/open_query.h"

#include <algorithm>

namespace {

constexpr int kPlainNumber = -2;

/// A box with a figure of the head, and what hangs on it.
struct FigureBox
{
    const char* control;
    QString GroupPieceText::*text;
    void (*recalc)(const Program&, GroupPieceText&);
    bool followsText;        // at every change of the text; otherwise only by key and on leaving
    qint16 DotType::*places; // when it is left; null for a plain number
};
constexpr FigureBox kFigures[] = {
    {"TxtAmount", &GroupPieceText::TxtAmount, RecalcHeadTotals, true, nullptr},
    {"TxtFee", &GroupPieceText::TxtFee, RecalcHeadTotals, true, &DotType::Money_DotLen},
    {"TxtCost", &GroupPieceText::TxtCost, RecalcTotalOfCost, false, &DotType::Price_DotLen},
};

/// Null for a box without a figure.
const FigureBox* FindFigure(const QString& control)
{
    const auto found =
        std::ranges::find_if(kFigures, [&](const FigureBox& box) { return control == QLatin1String(box.control); });
    return found == std::end(kFigures) ? nullptr : found;
}

Sql GoodsThatBegin(const QString& text)
{
    const QString begins = text + "%";
    return Sql("select * from TabWare  where Code like ") + begins + "  or Name like " + begins + "   order by code";
}

std::optional<double> ProductCost(Program& program, const GroupPieceText& bill)
{
    return FetchRowCost(program, bill, bill.TxtWareCode,
                        {PathHead(bill.TxtWareAttribute), bill.TxtWareSpec.trimmed(), bill.TxtManufacturer.trimmed(),
                         bill.TxtBrand.trimmed(), bill.TxtPCode.trimmed()});
}

} // namespace

bool IsFigureKey(QChar key)
{
    return QStringView(u".0123456789").contains(key);
}

bool IsHeadFigure(const QString& control)
{
    return FindFigure(control);
}

void HeadTextChanged(Program& program, GroupPieceText& bill, const QString& control)
{
    const FigureBox* box = FindFigure(control);
    if (box && box->followsText)
        box->recalc(program, bill);
}

void HeadKeyPressed(Program& program, GroupPieceText& bill, const QString& control)
{
    if (const FigureBox* box = FindFigure(control))
        box->recalc(program, bill);
}

void HeadFocusGained(GroupPieceText& bill, const QString& control)
{
    if (const FigureBox* box = FindFigure(control))
        bill.*box->text = CleanNumberText(bill.*box->text);
}

void HeadFocusLost(Program& program, GroupPieceText& bill, const QString& control)
{
    const FigureBox* box = FindFigure(control);
    if (!box)
        return;
    const int places = box->places ? program.gDot.*box->places : kPlainNumber;
    bill.*box->text = FormatByDigits(CleanNumberText(bill.*box->text), places);
    box->recalc(program, bill);
}

std::optional<PickerNeeded> LookUpProduct(Program& program, GroupPieceText& bill)
{
    if (bill.TxtWareName.trimmed().isEmpty())
        return {};
    const Sql query = GoodsThatBegin(bill.TxtWareName);
    const Recordset goods = OpenQuery(program, query);
    if (!goods)
        return {};
    if (!goods.isEmpty()) {
        FillTxtWareName(program, bill, query);
        return {};
    }
    const QString typed = std::exchange(bill.TxtWareName, {});
    bill.TxtWareCode.clear();
    auto picker = ProductPicker(program, bill);
    if (picker) {
        picker->query = {};
        picker->typed = typed;
        picker->note = "没有编号或名称以“" + typed + "”开头的商品，请选择。";
    }
    return picker;
}

void ForgetProduct(GroupPieceText& bill)
{
    bill.TxtWareCode.clear();
}

void ChooseTypedProduct(Program& program, GroupPieceText& bill)
{
    const QString name = bill.TxtWareName.trimmed();
    if (name.isEmpty() || !bill.TxtWareCode.trimmed().isEmpty())
        return;
    const Sql query = Sql("select * from TabWare where Name=") + name + " ";
    if (OpenQuery(program, query).size() != 1)
        return;
    const QString amount = bill.TxtAmount;
    FillTxtWareName(program, bill, query);
    if (CellNumber(amount) == 0)
        return;
    bill.TxtAmount = amount; // typed for this product
    RecalcHeadTotals(program, bill);
}

std::optional<PickerNeeded> ProductPicker(Program& program, const GroupPieceText& bill)
{
    if (bill.TxtWarehouseNameF.trimmed().isEmpty()) {
        program.prompt.Inform("请先选择发出仓库名称！");
        return {};
    }
    return PickerNeeded{"TabWare", "选择商品",
                        Sql("select TabWare.Code,TabWare.Name,TabWare.Spec,TabWare.Unite,TabWare.ZJF  from TabWare  "
                            "order by TabWare.code ")};
}

void ChooseProduct(Program& program, GroupPieceText& bill, const QString& code)
{
    FillTxtWareName(program, bill, Sql("select * from TabWare where ") + CodeIs("Code", code));
}

void FillTxtWareName(Program& program, GroupPieceText& bill, const Sql& query)
{
    const Undertaking choosing(program);
    const GroupPieceText before = bill;
    const Recordset good = OpenQuery(program, query);
    if (good.isEmpty()) {
        Inform(program, "商品名称不存在，请重新选择！");
        return;
    }
    bill.TxtWareCode = good.Text("Code");
    bill.TxtWareName = good.Text("Name");
    bill.TxtWareSpec = good.Text("Spec");
    bill.TxtUnite = good.Text("Unite");
    bill.OfferUnits(good);
    bill.TxtAmount = "1";
    if (!ModeOf(bill).assembles)
        bill.TxtCost = FormatByDigits(ProductCost(program, bill).value_or(0), program.gDot.Price_DotLen);
    RecalcHeadTotals(program, bill);
    if (choosing.failed()) // the cost is not known: the product before stays
        bill = before;
}

std::optional<PickerNeeded> ProductAttributePicker(Program& program, const GroupPieceText& bill)
{
    const QString code = bill.TxtWareCode.trimmed();
    if (code.isEmpty()) {
        program.prompt.Inform("请先选择商品名称！");
        return {};
    }
    const Recordset good = OpenQuery(program, Sql("select AttributeCode from TabWare where Code=") + code + " ");
    const QString root = good.Text("AttributeCode").trimmed();
    if (root.isEmpty()) {
        program.prompt.Inform(bill.TxtWareName.trimmed() + " 没有设置对应属性！");
        return {};
    }
    return PickerNeeded{"TabAttribute", "组装或拆卸商品", Sql(" where Code like ") + (root + "%") + " "};
}
