#include "data/bill_kinds.h"

#include <algorithm>

namespace {
std::vector<GridColumn> Columns(std::initializer_list<GridColumn> figures)
{
    std::vector<GridColumn> columns = {{"", 300},      {"商品编号", 1500}, {"商品名称", 2000},
                                       {"规格", 1500}, {"属性", 2000},     {"单位", 1000}};
    columns.insert(columns.end(), figures);
    for (const char* hidden :
         {"生产厂商", "品牌", "批号", "生产日期", "有效日期", "唯一码", "自定义字段1", "自定义字段2", "自定义字段3"})
        columns.push_back({hidden, 0});
    columns.push_back({"备注", 1500});
    return columns;
}

std::vector<BillKind> MakeKinds()
{
    const auto counted = Columns({{"数量", 1000, true}, {"成本价", 0, true}, {"金额", 0, true}});
    const auto priced =
        Columns({{"数量", 1000, true}, {"单价", 1000, true}, {"成本价", 1000, true}, {"金额", 1000, true}});
    const auto revalued = Columns({{"调价金额", 1500, true}});
    const auto pieces = Columns({{"数量", 1000, true}, {"成本价", 1000, true}, {"金额", 1000, true}});
    return {
        {"同价调拨单", "同价调拨", "同价调拨", "TabSamePriceMove", "TabSamePriceMoveInf", "TDD", LineShape::Counted,
         true, true, "发货仓库", "收货仓库", "收货仓库", "SP-TJDB.xls", counted},
        {"异价调拨单", "异价调拨", "异价调拨", "TabDiffPriceMove", "TabDiffPriceMoveInf", "YDD", LineShape::Priced,
         true, true, "发货仓库", "收货仓库", "收货仓库", "SP-TJDB.xls", priced},
        {"盘点报损单", "盘点报损", "盘点报损", "TabCheckLose", "TabCheckLoseInf", "BSD", LineShape::Counted, false,
         false, "发货仓库", "报损仓库", "盘点仓库", "SP-PDBS.xls", counted},
        {"盘点报溢单", "盘点报溢", "盘点报溢", "TabCheckOver", "TabCheckOverInf", "BYD", LineShape::Counted, false,
         false, "发货仓库", "报溢仓库", "盘点仓库", "SP-PDBY.xls", counted},
        {"商品调价单", "商品调价", "商品调价", "TabChangePrice", "TabChangePriceInf", "TJD", LineShape::Revalued, false,
         false, "发货仓库", "调价仓库", "调价仓库", "SP-SPTJ.xls", revalued},
        {"商品组装单", "商品组装", "组装拆卸", "TabWareGroup", "TabWareGroupInf", "ZZD", LineShape::Pieces, true, true,
         "发出仓库", "收存仓库", "收存仓库", "SP-ZZSP.xls", pieces},
        {"商品拆卸单", "商品拆卸", "组装拆卸", "TabWarePiece", "TabWarePieceInf", "CXD", LineShape::Pieces, true, true,
         "发出仓库", "收存仓库", "收存仓库", "SP-CXSP.xls", pieces},
    };
}

template <typename Matches>
const BillKind* FindKind(Matches matches)
{
    const std::vector<BillKind>& kinds = BillKinds();
    const auto found = std::ranges::find_if(kinds, matches);
    return found == kinds.end() ? nullptr : &*found;
}

struct BillName
{
    const char* bill;
    const char* headTable;
};

/// Bills and base data of the siblings.
constexpr BillName kSiblingBills[] = {
    {"采购入库单", "TabInBill"},
    {"购买入库单", "TabInBill"},
    {"采购退货单", "TabInCancleBill"},
    {"购买退货单", "TabInCancleBill"},
    {"采购订单", "TabInOrderBill"},
    {"购买订单", "TabInOrderBill"},
    {"其他入库单", "TabElseInBill"},
    {"商品入库单", "TabElseInBill"},
    {"付款单", "TabPayfundBill"},
    {"收款单", "TabGathefundBill"},
    {"银行存取款单", "TabKeepTake"},
    {"银行存取(取现)单", "TabKeepTake"},
    {"银行存取(存现)单", "TabKeepTake"},
    {"费用开支单", "TabFee"},
    {"其他收入单", "TabElseIncome"},
    {"费用抵冲单", "TabSustain"},
    {"费用抵冲(客户)单", "TabSustain"},
    {"费用抵冲(供应商)单", "TabSustain"},
    {"费用抵冲(客户)", "TabSustain"},
    {"费用抵冲(供应商)", "TabSustain"},
    {"销售出库单", "TabOutBill"},
    {"销售退货单", "TabOutCancleBill"},
    {"销售订单", "TabOutOrderBill"},
    {"其他出库单", "TabElseOutBill"},
    {"商品出库单", "TabElseOutBill"},
    {"现金日记账", "TabDayAccount_Cash"},
    {"银行日记账", "TabDayAccount_Bank"},
    {"银行对账单", "TabDayAccount_BankBill"},
    {"会计凭证", "TabWarrant"},
    {"商品", "TabWare"},
    {"往来单位", "TabClient"},
    {"收录客户", "TabClient_Sale"},
    {"BOM单", "TabBOMSet"},
    {"领料单", "TabLLBill"},
    {"产品入库单", "TabProductInBill"},
    {"委外加工单", "TabWWProduction"},
    {"委外加工入库单", "TabWWProduction_InBill"},
};
} // namespace

const std::vector<BillKind>& BillKinds()
{
    static const std::vector<BillKind> kinds = MakeKinds();
    return kinds;
}

const BillKind* KindOfBill(const QString& billName)
{
    return FindKind([name = billName.trimmed()](const BillKind& kind) { return kind.bill == name; });
}

const BillKind* KindOfOperation(const QString& operationWord)
{
    return FindKind([word = operationWord.trimmed()](const BillKind& kind) { return kind.operation == word; });
}

const BillKind* KindOfHeadTable(const QString& tableName)
{
    return FindKind([name = tableName.trimmed()](const BillKind& kind) {
        return name.compare(QLatin1String(kind.headTable), Qt::CaseInsensitive) == 0;
    });
}

QString HeadTableOfBill(const QString& billName)
{
    if (const BillKind* kind = KindOfBill(billName))
        return kind->headTable;
    const QString name = billName.trimmed();
    for (const BillName& known : kSiblingBills)
        if (name == QString(known.bill))
            return known.headTable;
    return {};
}

int ColumnIndex(const BillKind& kind, QStringView caption)
{
    for (size_t index = 1; index < kind.columns.size(); ++index)
        if (kind.columns[index].caption == caption)
            return static_cast<int>(index);
    return 0;
}
