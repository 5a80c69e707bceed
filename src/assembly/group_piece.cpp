#include "assembly/group_piece.h"

#include "bills/head_fields.h"
#include "bills/lines/line_columns.h"
#include "data/decimals.h"
#include "data/lookups.h"
#include "handover/open_query.h"

#include <algorithm>

namespace {

/// The batch data of the product.
struct BatchText
{
    QString GroupPieceText::*text;
    const char* column;
};
constexpr BatchText kBatchTexts[] = {
    {&GroupPieceText::TxtWareCode, "WareCode"}, {&GroupPieceText::TxtWareName, "WareName"},
    {&GroupPieceText::TxtWareSpec, "WareSpec"}, {&GroupPieceText::TxtUnite, "Unite"},
    {&GroupPieceText::TxtAmount, "Amount"},     {&GroupPieceText::TxtManufacturer, "Manufacturer"},
    {&GroupPieceText::TxtBrand, "Brand"},       {&GroupPieceText::TxtPCode, "PCode"},
    {&GroupPieceText::TxtSCDate, "SCDate"},     {&GroupPieceText::TxtYXDate, "YXDate"},
    {&GroupPieceText::TxtOnlyCode, "OnlyCode"}, {&GroupPieceText::TxtCustom1, "Custom1"},
    {&GroupPieceText::TxtCustom2, "Custom2"},   {&GroupPieceText::TxtCustom3, "Custom3"},
};

} // namespace

const std::vector<PieceMode>& PieceModes()
{
    static const std::vector<PieceMode> modes = {
        {"商品组装单", true, "组装商品名", "组装数量", "组装商品清单", "组装商品金额合计：", "组装费用",
         "注意：在组装时，清单中的商品数量是指组成所有商品所需要的其他商品数量。",
         "成本分配不正确，请重新分配！(即合计金额不等于组装费用加组装商品金额合计！)", "单编号重复，请重新执行保存！",
         "组装成商品的金额", "商品组装费用的借方", "商品组装费用的贷方"},
        {"商品拆卸单", false, "拆卸商品名", "拆卸数量", "拆卸商品清单", "拆卸商品金额合计：", "拆卸费用",
         "注意：在拆卸时，清单中的商品数量是指拆卸商品所拆分出来的其他所有商品数量。",
         "成本分配不正确，请重新分配！(即合计金额加拆卸费用不等于拆卸商品金额合计！)", "单编号重复，请重新执保存！",
         "拆卸成商品我金额", "商品拆卸费用的借方", "商品拆卸费用的贷方"},
    };
    return modes;
}

const PieceMode& ModeOf(const BillText& bill)
{
    const auto mode = std::ranges::find(PieceModes(), bill.kind->bill, &PieceMode::bill);
    Q_ASSERT(mode != PieceModes().end());
    return *mode;
}

const std::vector<PieceField>& PieceFields()
{
    static const std::vector<PieceField> fields = {
        {"TxtWareName", &GroupPieceText::TxtWareName, true},
        {"TxtWareCode", &GroupPieceText::TxtWareCode, true},
        {"TxtWareSpec", &GroupPieceText::TxtWareSpec, true},
        {"TxtWareAttribute", &GroupPieceText::TxtWareAttribute, true},
        {"TxtUnite", &GroupPieceText::TxtUnite, true},
        {"TxtAmount", &GroupPieceText::TxtAmount, true, true},
        {"TxtFee", &GroupPieceText::TxtFee, true, true},
        {"TxtCost", &GroupPieceText::TxtCost, true, true},
        {"TxtManufacturer", &GroupPieceText::TxtManufacturer, true},
        {"TxtBrand", &GroupPieceText::TxtBrand, true},
        {"TxtPCode", &GroupPieceText::TxtPCode, true},
        {"TxtSCDate", &GroupPieceText::TxtSCDate, true},
        {"TxtYXDate", &GroupPieceText::TxtYXDate, true},
        {"TxtOnlyCode", &GroupPieceText::TxtOnlyCode, true},
        {"TxtCustom1", &GroupPieceText::TxtCustom1, true},
        {"TxtCustom2", &GroupPieceText::TxtCustom2, true},
        {"TxtCustom3", &GroupPieceText::TxtCustom3, true},
        {"TxtTotalMoney", &GroupPieceText::TxtTotalMoney, false},
        {"LabOperateMoney", &GroupPieceText::LabTotalMoney, false},
    };
    return fields;
}

QString* HeadText(BillText& bill, const QString& control, bool typedOnly)
{
    const auto isNamed = [&](const auto& field) {
        return control == QLatin1String(field.control) && (field.typed || !typedOnly);
    };
    if (auto* const piece = dynamic_cast<GroupPieceText*>(&bill)) {
        const auto own = std::ranges::find_if(PieceFields(), isNamed);
        if (own != PieceFields().end())
            return &(piece->*own->text);
    }
    const HeadField* shared = FindHeadField(control);
    return shared && isNamed(*shared) ? &(bill.*shared->text) : nullptr;
}

bool* HeadFlag(BillText& bill, const QString& control)
{
    auto* const piece = dynamic_cast<GroupPieceText*>(&bill);
    if (piece && control == u"ChAutoChen")
        return &piece->ChAutoChen;
    if (piece && control == u"ChSpecJE")
        return &piece->ChSpecJE;
    const HeadCheck* shared = FindHeadCheck(control);
    return shared ? &(bill.*shared->flag) : nullptr;
}

std::vector<HeadField> GroupPieceText::OwnFields() const
{
    // What one product costs is typed for a disassembly only; that of an assembly follows from its lines.
    const bool isCostTyped = !ModeOf(*this).assembles;
    std::vector<HeadField> fields;
    for (const PieceField& field : PieceFields()) {
        const bool isTyped = field.typed && (isCostTyped || field.text != &GroupPieceText::TxtCost);
        fields.push_back({field.control, static_cast<QString BillText::*>(field.text), isTyped, field.isFigure});
    }
    return fields;
}

void GroupPieceText::ClearOwn()
{
    for (const PieceField& field : PieceFields())
        (this->*field.text).clear();
    unitChoices.clear();
}

void GroupPieceText::OfferUnits(const Recordset& good)
{
    unitChoices = {TxtUnite, good.Text("Unite"), good.Text("SecondUnite")};
    unitChoices.removeAll(QString());
    unitChoices.removeDuplicates();
}

void GroupPieceText::OfferUnits(Program& program)
{
    OfferUnits(OpenQuery(program, Sql("select Unite,SecondUnite from TabWare where Code=") + TxtWareCode + " "));
}

void GroupPieceText::ContentShown(Program& program)
{
    OfferUnits(program);
    LinesChanged(program);
}

void GroupPieceText::ShowProduct(Program& program, const Recordset& head)
{
    TxtWareCode = head.Text("WareCode");
    TxtWareName = head.Text("WareName");
    TxtWareSpec = head.Text("WareSpec");
    TxtWareAttribute = AttributeCell(program, head.Text("AttributeCode"));
    TxtUnite = head.Text("Unite");
    OfferUnits(program);
    TxtAmount = head.Text("Amount");
    const DotType& places = program.gDot;
    TxtCost = FormatByDigits(head.at(0, "Cost"), places.Price_DotLen);
    TxtFee = FormatByDigits(head.at(0, "Fee"), places.Money_DotLen);
    TxtTotalMoney = FormatByDigits(head.at(0, "SumMoney"), places.Money_DotLen);
}

void GroupPieceText::ShowOwn(Program& program, const Recordset& head)
{
    ChSpecJE = false;
    ShowProduct(program, head);
    for (const BatchText& batch : kBatchTexts)
        this->*batch.text = head.Text(batch.column);
}

bool GroupPieceText::MayEnterGoods(Program& program) const
{
    const bool hasSource = !TxtWarehouseNameF.trimmed().isEmpty();
    if (hasSource && CellNumber(TxtAmount) != 0)
        return true;
    program.prompt.Inform(hasSource ? "请先确定数量！" : "请先选择发出仓库名称！");
    return false;
}

double GroupPieceText::MoneyFactor(int row) const
{
    if (!ChSpecJE)
        return 1;
    const QString spec = MSH.Cell(row, LineColumns(*kind).spec);
    if (!spec.contains('*')) {
        const double factor = CellNumber(spec);
        return factor > 0 ? factor : 1;
    }
    double product = 1;
    for (const QString& measure : spec.split('*'))
        product *= CellNumber(measure);
    return product;
}
