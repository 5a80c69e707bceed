#include "frame/functions.h"

#include "data/periods.h"
#include "data/rights.h"
#include "handover/launcher.h"
#include "handover/report_names.h"

#include <algorithm>
#include <vector>

namespace {

QStringList Joined(const std::vector<QStringList>& groups)
{
    QStringList nodes;
    for (const QStringList& group : groups) {
        if (!nodes.isEmpty())
            nodes << kTreeSeparator;
        nodes << group;
    }
    return nodes;
}

const QStringList kStockTaking = SummaryAndDetail({"盘点报损", "盘点报溢"});
const QStringList kMoves = SummaryAndDetail({"同价调入", "同价调出"});
const QStringList kAssembly = SummaryAndDetail({"组装入库", "组装出库"});

/// Tree of the goods that come in (入库) or go out (出库); it ends in a separator.
QStringList FlowTree(const QString& flow)
{
    return Joined({FlowReports(flow), {"综合" + flow + "汇总表"}, {"按商品" + flow + "类别汇总表"}, {}});
}

QStringList WarehouseTree()
{
    return Joined({{"自动核算库存成本", "仓库日结", "仓库期末结转", "仓库期末反结转", "仓库反日结"},
                   SummaryAndDetail({"仓库库存变动"}),
                   kMoves,
                   kStockTaking,
                   kAssembly,
                   // Written with 折 as the suite has them here; the working ones stand under 汇总管理.
                   SummaryAndDetail({"折卸入库", "折卸出库"}),
                   {"业务单据查询"}});
}

QStringList SummaryTree()
{
    return Joined({SummaryAndDetail({"仓库库存变动"}) + QStringList{"商品仓库分布表"},
                   FlowReports("出库"),
                   FlowReports("入库"),
                   {"综合出库汇总表", "综合入库汇总表"},
                   {"按商品出库类别汇总表", "按商品入库类别汇总表"},
                   kMoves + kStockTaking + kAssembly + SummaryAndDetail({"拆卸入库", "拆卸出库"})});
}

/// Every report that runs.
QStringList Reports()
{
    QStringList reports = SummaryTree();
    reports.removeAll(kTreeSeparator);
    return reports;
}

const std::vector<FunctionCategory>& Categories()
{
    static const std::vector<FunctionCategory> categories = {
        {"基础管理",
         {"往来单位信息录入", "员工信息录入", "商品信息录入", "仓库设置", "往来单位分类设置", "商品分类设置"},
         {"往来单位信息录入", "员工信息录入", "商品信息录入", "往来单位分类设置", "商品分类设置", "部门设置",
          "仓库设置", "商品/物料属性设置", "商品出库入库类别设置", "定义小数位", "操作设置", "期初库存设置"},
         Joined({{"部门设置", "商品出库入库类别设置", "商品/物料属性设置"},
                 {"定义小数位", "操作设置"},
                 {"期初库存设置"}})},
        {"入库管理",
         {"商品入库", "往来单位信息录入", "业务单据查询"},
         {"商品入库", "往来单位信息录入"},
         FlowTree("入库")},
        {"出库管理", {"商品出库", "往来单位信息录入"}, {"商品出库"}, FlowTree("出库")},
        {"仓库管理",
         {"同价调拨", "商品调价", "盘点报损", "盘点报溢", "组装拆卸", "库存商品查询"},
         {"同价调拨", "商品调价", "盘点报损", "盘点报溢", "组装拆卸", "仓库日结", "仓库期末结转", "仓库期末反结转",
          "仓库反日结"},
         WarehouseTree()},
        {"汇总管理", {"库存商品查询", "仓库库存变动汇总表", "业务单据查询"}, Reports(), SummaryTree()},
        {"数据查询",
         {"库存商品查询", "业务单据查询"},
         {"期初库存设置数据查询", "员工信息查询", "往来单位信息查询", "商品信息查询", "库存商品查询", "业务单据查询",
          "低于最低库存商品查询", "高于最高库存商品查询", "库存期末结转查询"},
         Joined({{"期初库存设置数据查询"},
                 {"员工信息查询", "往来单位信息查询", "商品信息查询"},
                 {"库存商品查询"},
                 {"业务单据查询"},
                 {"低于最低库存商品查询", "高于最高库存商品查询"},
                 {"库存期末结转查询"}})},
        {"系统维护",
         {"操作用户设置", "用户权限设置", "备份数据库", "恢复数据库", "更换账套", "更换操作员"},
         {"操作用户设置", "用户权限设置", "备份数据库", "恢复数据库", "设置自动备份路径", "基础数据导入",
          "基础数据导出", "更换账套", "更换操作员", "查看本机MAC值"},
         Joined({{"基础数据导入", "基础数据导出"}, {"设置自动备份路径"}, {"计算器"}, {"查看本机MAC值"}})},
    };
    return categories;
}

enum class Deed
{
    Launch,            // with right
    LaunchOpening,     // with right, and only while no real closing exists
    LaunchAsOperation, // with right; the receiver finds the word as its operation as well
    LaunchFreely,      // no right is asked
    OpenBill,
    OpenAssembly,
    Calculator,
    Exit,
    Nothing,
};

struct DeedRow
{
    Deed deed;
    QStringList words;
};

const std::vector<DeedRow>& DeedTable()
{
    static const std::vector<DeedRow> table = {
        {Deed::Launch,
         {"往来单位信息录入", "员工信息录入", "商品信息录入", "往来单位分类设置", "商品分类设置", "部门设置",
          "仓库设置", "操作设置", "定义小数位", "商品出库入库类别设置", "商品/物料属性设置", "币种设置"}},
        {Deed::LaunchOpening, {"期初库存设置"}},
        {Deed::Launch, {"商品入库", "商品出库"}},
        {Deed::OpenBill, {"同价调拨", "商品调价", "盘点报损", "盘点报溢"}},
        {Deed::OpenAssembly, {"组装拆卸"}},
        {Deed::LaunchAsOperation, {"自动核算库存成本", "仓库日结", "仓库期末结转", "仓库期末反结转", "仓库反日结"}},
        {Deed::Launch, Reports()},
        {Deed::Launch,
         {"期初库存设置数据查询", "月末结转库存成本查询", "库存商品查询", "员工信息查询", "往来单位信息查询",
          "商品信息查询", "业务单据查询", "低于最低库存商品查询", "高于最高库存商品查询", "库存期末结转查询",
          "IP地址授权", "操作用户设置", "用户权限设置", "备份数据库", "恢复数据库", "清除历史数据", "基础数据导入",
          "基础数据导出", "设置自动备份路径"}},
        {Deed::LaunchFreely, {"更换账套", "更换操作员", "查看本机MAC值"}},
        {Deed::Calculator, {"计算器"}},
        {Deed::Exit, {"退出"}},
        {Deed::Nothing, {kTreeSeparator, ""}},
    };
    return table;
}

bool AsksRight(Deed deed)
{
    return deed != Deed::LaunchFreely && deed != Deed::Calculator && deed != Deed::Exit && deed != Deed::Nothing;
}

WindowStep Launch(Program& program, const QString& word)
{
    LaunchByWord(program, word);
    return WindowStep::None;
}

WindowStep Do(Program& program, Deed deed, const QString& word, QStringView moduleRunMode)
{
    switch (deed) {
    case Deed::LaunchOpening:
        return HasWarehouseClosing(program) ? WindowStep::None : Launch(program, word);
    case Deed::LaunchAsOperation:
        program.parameters.OperateType = word;
        return Launch(program, word);
    case Deed::Launch:
    case Deed::LaunchFreely:
        return Launch(program, word);
    case Deed::OpenBill:
        program.parameters.OperateType = word;
        return WindowStep::OpenBill;
    case Deed::OpenAssembly:
        program.parameters.OperateType = "商品组装";
        return WindowStep::OpenAssembly;
    case Deed::Calculator:
        StartCalculator(program);
        return WindowStep::None;
    case Deed::Exit:
        return moduleRunMode == kStandAloneMode ? WindowStep::EndProcess : WindowStep::AskExit;
    case Deed::Nothing:
        break;
    }
    return WindowStep::None;
}

} // namespace

QStringList CategoryCaptions(QStringView moduleRunMode)
{
    if (moduleRunMode == kStandAloneMode)
        return {"基础管理", "仓库管理", "汇总管理", "数据查询", "退出"};
    return {"基础管理", "入库管理", "出库管理", "仓库管理", "汇总管理", "数据查询", "系统维护", "退出"};
}

const FunctionCategory* FindCategory(const QString& caption)
{
    const std::vector<FunctionCategory>& categories = Categories();
    const auto found = std::find_if(categories.begin(), categories.end(),
                                    [&](const FunctionCategory& each) { return each.caption == caption; });
    return found == categories.end() ? nullptr : &*found;
}

WindowStep RunFunction(Program& program, const QString& functionWord, QStringView moduleRunMode)
{
    const QString word = functionWord.trimmed();
    const std::vector<DeedRow>& table = DeedTable();
    const auto row =
        std::find_if(table.begin(), table.end(), [&](const DeedRow& each) { return each.words.contains(word); });
    if (row == table.end()) {
        program.prompt.Inform("传递操作功能参数出错，请重新操作！");
        return WindowStep::None;
    }
    if (AsksRight(row->deed) && !CheckOperateRight(program, program.parameters.UserName, word, Action::Read))
        return WindowStep::None;
    return Do(program, row->deed, word, moduleRunMode);
}
