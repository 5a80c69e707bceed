#include "assembly/life/piece_print.h"

#include "data/rights.h"

namespace {

using Piece = GroupPieceText;

/// The words for a disassembled product's attribute and spec give the warehouses; templates rely on it.
constexpr TextToken<Piece> kPieceTokens[] = {
    {"?发出仓库", &Piece::TxtWarehouseNameF},
    {"?收存仓库", &Piece::TxtWarehouseNameS},
    {"?单件成本", &Piece::TxtCost},
    {"?计量单位", &Piece::TxtUnite},
    {"?组装数量", &Piece::TxtAmount},
    {"?拆卸数量", &Piece::TxtAmount},
    {"?组装费用", &Piece::TxtFee},
    {"?拆卸费用", &Piece::TxtFee},
    {"?合计金额", &Piece::TxtTotalMoney},
    {"?组装商品金额合计", &Piece::LabTotalMoney},
    {"?拆卸商品金额合计", &Piece::LabTotalMoney},
    {"?组装的商品的属性", &Piece::TxtWareAttribute},
    {"?组装的商品的规格", &Piece::TxtWareSpec},
    {"?组装的商品的生产厂商", &Piece::TxtManufacturer},
    {"?组装的商品的品牌", &Piece::TxtBrand},
    {"?组装的商品的批号", &Piece::TxtPCode},
    {"?组装的商品的生产日期", &Piece::TxtSCDate},
    {"?组装的商品的有效日期", &Piece::TxtYXDate},
    {"?组装的商品的唯一码", &Piece::TxtOnlyCode},
    {"?组装的商品的自定义1", &Piece::TxtCustom1},
    {"?组装的商品的自定义2", &Piece::TxtCustom2},
    {"?组装的商品的自定义3", &Piece::TxtCustom3},
    {"?拆卸的商品的生产厂商", &Piece::TxtManufacturer},
    {"?拆卸的商品的品牌", &Piece::TxtBrand},
    {"?拆卸的商品的批号", &Piece::TxtPCode},
    {"?拆卸的商品的生产日期", &Piece::TxtSCDate},
    {"?拆卸的商品的有效日期", &Piece::TxtYXDate},
    {"?拆卸的商品的唯一码", &Piece::TxtOnlyCode},
    {"?拆卸的商品的自定义1", &Piece::TxtCustom1},
    {"?拆卸的商品的自定义2", &Piece::TxtCustom2},
    {"?拆卸的商品的自定义3", &Piece::TxtCustom3},
    {"?拆卸的商品的属性", &Piece::TxtWarehouseNameF},
    {"?拆卸的商品的规格", &Piece::TxtWarehouseNameS},
    {"?组装商品", &Piece::TxtWareName},
    {"?拆卸商品", &Piece::TxtWareName},
};

const Piece& PieceOf(const BillText& bill)
{
    return static_cast<const Piece&>(bill);
}

std::vector<BillToken> PieceTokens(Program& program, const BillText& bill)
{
    std::vector<BillToken> own;
    for (const auto& [word, text] : kPieceTokens)
        own.push_back({word, PieceOf(bill).*text});
    return BillTokens(program, bill, own);
}

QStringList PieceHead(const BillText& bill)
{
    const Piece& piece = PieceOf(bill);
    const PieceMode& mode = ModeOf(bill);
    return {
        "录单日期：" + piece.TxtDate,
        "单据编号：" + piece.TxtBillCode,
        piece.kind->sourceWarehouse + "：" + piece.TxtWarehouseNameF,
        mode.LabWareName + "：" + piece.TxtWareName,
        "业 务 员：" + piece.TxtSaleMan,
        "单位成本：" + piece.TxtCost,
        mode.LabAmount + "：" + piece.TxtAmount,
        piece.kind->warehouse + "：" + piece.TxtWarehouseNameS,
        "计量单位：" + piece.TxtUnite,
        mode.LabFee + "：" + piece.TxtFee,
        "合计金额：" + piece.TxtTotalMoney,
        "制 单 人：" + piece.TxtOperator,
    };
}

QStringList PieceFoot(const BillText& bill)
{
    return {ModeOf(bill).LabOperateMoneyName + bill.LabTotalMoney};
}

} // namespace

constinit const BillPaper kPiecePaper{
    .templateGroup = "组装拆卸单",
    .templateTable = [](const BillText& bill) { return QString(bill.kind->headTable); },
    .tokens = PieceTokens,
    .head = PieceHead,
    .foot = PieceFoot,
};

void PrintAssemblyList(Program& program, const AssemblyList& list, const QString& action)
{
    if (CheckOperateRight(program, program.parameters.UserName, list.kind->rights, Action::Print))
        PrintThroughHost(program, {}, list.MSH, list.kind->bill, action);
}
