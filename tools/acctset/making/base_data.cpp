#include "making/base_data.h"

#include "data/decimals.h"
#include "making/catalogue.h"

#include <algorithm>

namespace {

const std::vector<TreeRow> kDemoWarehouses = {
    {"01", "总仓"},     {"0101", "主仓"},       {"0102", "备货仓"},     {"0103", "退货仓"}, {"02", "门店"},
    {"0201", "门店仓"}, {"0202", "城东门店仓"}, {"0203", "城西门店仓"}, {"03", "电商仓"},
};

const std::vector<TreeRow> kAttributes = {
    {"01", "颜色"}, {"0101", "黑色"}, {"0102", "红色"}, {"0103", "蓝色"}, {"0104", "白色"},
    {"02", "尺码"}, {"0201", "M码"},  {"0202", "L码"},  {"0203", "XL码"}, {"0204", "XXL码"},
};

const std::vector<TreeRow> kClientTypes = {
    {"01", "客户"},       {"0101", "学校"}, {"0102", "企业"},     {"0103", "零售商"},
    {"0104", "海外客户"}, {"02", "供应商"}, {"0201", "生产厂家"},
};

const std::vector<TreeRow> kDepartments = {
    {"01", "总经办"},   {"02", "采购部"}, {"03", "销售部"}, {"0301", "批发组"},
    {"0302", "门店组"}, {"04", "仓储部"}, {"05", "财务部"},
};

struct Customer
{
    const char* code;
    const char* name;
    const char* type;
    double discount;
};

constexpr Customer kCustomers[] = {
    {"K001", "市第一实验小学", "0101", 0.95},
    {"K002", "育才中学", "0101", 0.95},
    {"K003", "江滨职业技术学院", "0101", 0.96},
    {"K004", "阳光幼儿园", "0101", 0.97},
    {"K005", "宏达机械有限公司", "0102", 0.96},
    {"K006", "东方建筑安装公司", "0102", 0.95},
    {"K007", "新华印务有限公司", "0102", 0.98},
    {"K008", "天成物业管理公司", "0102", 0.97},
    {"K009", "明珠大酒店", "0102", 0.98},
    {"K010", "长河运输有限公司", "0102", 1},
    {"K011", "联合会计师事务所", "0102", 1},
    {"K012", "康宁医院", "0102", 0.97},
    {"K013", "好又多便利店", "0103", 1},
    {"K014", "百姓五金商行", "0103", 0.98},
    {"K015", "小博士文具店", "0103", 0.98},
    {"K016", "利民日杂店", "0103", 1},
    {"K017", "惠民超市", "0103", 0.99},
    {"K018", "学友书店", "0103", 1},
    {"K019", "零散客户", "0103", 1},
    {"K020", "金边贸易行", "0104", 1},
};

struct BaseTable
{
    const char* table;
    const char* columns;
    std::vector<const char*> rows;
};

const std::vector<BaseTable> kBaseTables = {
    {"TabStuff",
     "Code|Name|DepartmentCode",
     {"001|陈国强|01", "002|林晓燕|02", "003|黄志明|02", "004|王建军|0301", "005|李娜|0301", "006|赵伟|0301",
      "007|周敏|0302", "008|吴丽华|0302", "009|郑涛|04", "010|孙浩|04", "011|何秀英|05", "012|徐静|05"}},
    {"TabMoneyType", "Name|Rate|IsBWB", {"美元|6.95|否"}},
    {"TabOutInType",
     "Name|CalCostYN",
     {"其他入库|是", "自产入库|是", "采购赠品|否", "其他出库|是", "样品领用|否", "办公领用|否"}},
    {"TabAccountantType",
     "Code|Name|ParentCode|WLHS|BMHS|GRHS|ZDYHS|FC",
     {"1001|库存现金|0|0|0|0|0|0",      "1002|银行存款|0|0|0|0|0|0",      "100201|工商银行|1002|0|0|0|0|0",
      "1122|应收账款|0|1|0|0|0|0",      "1123|预付账款|0|1|0|0|0|0",      "1405|库存商品|0|0|0|0|0|0",
      "140501|外购商品|1405|0|0|0|0|0", "140502|组装商品|1405|0|0|0|0|0", "1601|固定资产|0|0|0|0|0|0",
      "2202|应付账款|0|1|0|0|0|0",      "2211|应付职工薪酬|0|0|0|0|0|0",  "2221|应交税费|0|0|0|0|0|0",
      "4001|实收资本|0|0|0|0|0|0",      "4103|本年利润|0|0|0|0|0|0",      "5101|制造费用|0|0|0|0|0|0",
      "510101|组装费用|5101|0|1|0|0|0", "510102|拆卸费用|5101|0|1|0|0|0", "6001|主营业务收入|0|0|0|0|0|0",
      "6401|主营业务成本|0|0|0|0|0|0",  "6601|销售费用|0|0|1|0|0|0",      "6602|管理费用|0|0|1|0|0|0"}},
    {"TabAccountantNameSet", "Code|Name|Main", {"1|总账|1", "2|内部账|0"}},
    {"TabWarrantTypeSet", "Name|Zi", {"记账凭证|记", "转账凭证|转"}},
    {"TabJXCAccount",
     "JXCTabName|Item|AccountCode|AccountName|FX|IsFuShu|IsWarrant|AccountBook1|WarrantType",
     {"商品组装单|组装成商品的金额|140502|组装商品|借方|否|1|1|记账凭证",
      "商品组装单|商品组装费用的借方|510101|组装费用|借方|否|1|1|记账凭证",
      "商品组装单|商品组装费用的贷方|1001|库存现金|贷方|否|1|1|记账凭证",
      "商品拆卸单|拆卸成商品我金额|140502|组装商品|贷方|否|1|1|记账凭证",
      "商品拆卸单|商品拆卸费用的借方|510102|拆卸费用|借方|否|1|1|记账凭证",
      "商品拆卸单|商品拆卸费用的贷方|1001|库存现金|贷方|否|1|1|记账凭证"}},
};

/// What the plain operator may do: read, edit, delete, print, audit. The administrator may do everything.
struct Right
{
    const char* function;
    const char* plain;
};

constexpr Right kRights[] = {
    {"同价调拨", "11010"},
    {"异价调拨", "11010"},
    {"商品调价", "10010"},
    {"盘点报损", "11010"},
    {"盘点报溢", "11010"},
    {"组装拆卸", "11110"},
    {"库存商品查询", "10010"},
    {"业务单据查询", "10010"},
    {"商品信息查询", "10000"},
    {"商品信息录入", "10000"},
    {"仓库设置", "10000"},
    {"仓库库存变动汇总表", "10010"},
    {"仓库库存变动明细表", "10010"},
    {"商品入库", "11010"},
    {"商品出库", "11010"},
    {"界面列表格式设置", "11000"},
    {"仓库日结", "11000"},
    {"仓库反日结", "00000"},
    {"仓库期末结转", "00000"},
    {"仓库期末反结转", "00000"},
    {"期初库存设置", "00000"},
    {"自动核算库存成本", "00000"},
    {"自动生成会计凭证对应科目设置", "00000"},
    {"凭证录入", "00000"},
    {"往来单位信息录入", "00000"},
    {"员工信息录入", "00000"},
    {"定义小数位", "00000"},
    {"操作设置", "00000"},
    {"操作用户设置", "00000"},
    {"用户权限设置", "00000"},
    {"备份数据库", "00000"},
    {"恢复数据库", "00000"},
};

/// The inventory account of a good: sets that are put together have their own, services have none.
QString AccountOf(const Good& good)
{
    if (good.trait == Trait::Service)
        return {};
    return good.classCode.startsWith("0105") ? "140502" : "140501";
}

void WriteTree(NewAccountSet& accountSet, const char* table, const std::vector<TreeRow>& rows)
{
    for (const TreeRow& row : rows)
        accountSet.Insert(table, "Code|Name|ParentCode", QStringList{row.code, row.name, ParentOf(row.code)}.join('|'));
}

void WriteRight(NewAccountSet& accountSet, const char* user, const char* function, const QString& allowed)
{
    QStringList texts = {user, function};
    for (const QChar flag : allowed)
        texts += flag;
    accountSet.Insert("TabOperateRight",
                      "UserName|FunctionName|AllowRead|AllowEdit|AllowDelete|AllowPrint|AllowAuditing",
                      texts.join('|'));
}

void WritePartners(NewAccountSet& accountSet)
{
    for (const Customer& customer : kCustomers)
        accountSet.Insert("TabClient", "Code|Name|TypeCode",
                          QStringList{customer.code, customer.name, customer.type}.join('|'));
    std::vector<Good> makers(Brands().size());
    for (size_t i = 0; i < makers.size(); ++i) {
        makers[i].brand = Brands()[i].name;
        makers[i].manufacturer = Brands()[i].manufacturer;
        const Partner supplier = SupplierOf(makers[i]);
        if (!supplier.name.isEmpty())
            accountSet.Insert("TabProvide", "Code|Name|TypeCode",
                              QStringList{supplier.code, supplier.name, "0201"}.join('|'));
    }
}

} // namespace

void WriteSettings(NewAccountSet& accountSet, const QString& company)
{
    const std::pair<const char*, int> places[] = {
        {"单价型", kPricePlaces}, {"数值型", kAmountPlaces}, {"金额型", kMoneyPlaces}, {"货币型", kMoneyPlaces}};
    for (const auto& [name, count] : places)
        accountSet.Insert("TabDotSet", "Name|Num", QString("%1|%2").arg(name).arg(count));
    accountSet.Insert("TabSysSetNew", "Name|IsAllow", "审核单据参与核算|0");
    accountSet.Insert("TabSysSet", "IsZero", "0"); // stock is tested
    accountSet.Insert("TabMoneyType", "Name|Rate|IsBWB", "人民币|1|是");
    accountSet.Insert("TabCompanyInf", {company});
}

void WriteGoods(NewAccountSet& accountSet, const std::vector<Good>& goods)
{
    WriteTree(accountSet, "TabWareType", GoodsClasses());
    for (const Good& good : goods) {
        accountSet.Insert("TabWare",
                          {good.code, good.name, good.spec, good.unit, good.secondUnit, good.relation, good.mnemonic,
                           good.barcode, AttributeRoot(good.trait), CostMethodWord(good.method),
                           YesNoFlagText(good.trait != Trait::Service), good.cost, AccountOf(good), good.classCode});
    }
}

void WriteBase(NewAccountSet& accountSet, const std::vector<TreeRow>& warehouses)
{
    WriteSettings(accountSet, "浙江恒信商贸有限公司");
    WriteTree(accountSet, "TabWarehouseType", warehouses);
    WriteTree(accountSet, "TabAttribute", kAttributes);
    WriteTree(accountSet, "TabClientType", kClientTypes);
    WriteTree(accountSet, "TabDepartmentType", kDepartments);
    for (const BaseTable& table : kBaseTables) {
        for (const char* row : table.rows)
            accountSet.Insert(table.table, table.columns, row);
    }
    WritePartners(accountSet);
    for (const Right& right : kRights) {
        WriteRight(accountSet, "系统管理员", right.function, "11111");
        WriteRight(accountSet, "仓管员", right.function, right.plain);
    }
}

const std::vector<TreeRow>& DemoWarehouses()
{
    return kDemoWarehouses;
}

std::vector<Warehouse> LeavesOf(const std::vector<TreeRow>& tree)
{
    std::vector<Warehouse> leaves;
    for (const TreeRow& row : tree) {
        const bool hasChild = std::any_of(tree.begin(), tree.end(),
                                          [&](const TreeRow& other) { return ParentOf(other.code) == row.code; });
        if (!hasChild)
            leaves.push_back({row.code, row.name});
    }
    return leaves;
}

std::vector<Partner> DemoCustomers()
{
    std::vector<Partner> customers;
    for (const Customer& customer : kCustomers)
        customers.push_back({customer.code, customer.name, customer.discount});
    return customers;
}

Partner SupplierOf(const Good& good)
{
    int number = 0;
    for (const Brand& brand : Brands()) {
        ++number;
        if (good.brand == brand.name)
            break;
    }
    return {QString("G%1").arg(number, 3, 10, QLatin1Char('0')), good.manufacturer};
}

std::vector<TreeRow> DemoAttributes(const QString& root)
{
    std::vector<TreeRow> attributes;
    for (const TreeRow& row : kAttributes) {
        if (ParentOf(row.code) == root)
            attributes.push_back(row);
    }
    return attributes;
}
