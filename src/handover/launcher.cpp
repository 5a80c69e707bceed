#include "handover/launcher.h"

#include "base/program_folder.h"
#include "handover/report_names.h"

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <algorithm>

namespace {

enum class StartKind
{
    WriteAndStart,
    WriteStartLeave, // leaves for the words of kLeavingWords only
    Starter,
};

struct LaunchRow
{
    QStringList words;
    QString fileName; // the same on every platform
    QString title;    // of the program, as its messages name it
    StartKind kind;
};

QStringList SummaryReports()
{
    return SummaryAndDetail({"仓库库存变动"}) + FlowReports("出库") + FlowReports("入库") +
           QStringList{"综合入库汇总表", "综合出库汇总表", "按商品入库类别汇总表", "按商品出库类别汇总表"} +
           SummaryAndDetail({"同价调入", "同价调出", "异价调入", "异价调出", "盘点报溢", "盘点报损", "组装入库",
                             "组装出库", "拆卸入库", "拆卸出库"}) +
           QStringList{"商品仓库分布表"};
}

/// In test order: the first row that holds a word decides.
const std::vector<LaunchRow>& LaunchTable()
{
    using enum StartKind;
    static const std::vector<LaunchRow> table = {
        {{"打印"}, "PRMO.exe", "打印管理", WriteAndStart},
        {{"外部报表管理"}, "XRMO.exe", "外部报表管理", WriteAndStart},
        {{"商品入库"}, "INMO.exe", "入库管理", WriteAndStart},
        {{"商品出库"}, "OTMO.exe", "出库管理", WriteAndStart},
        {{"同价调拨原单查看", "异价调拨原单查看", "商品调价原单查看", "盘点报损原单查看", "盘点报溢原单查看",
          "商品组装原单查看", "商品拆卸原单查看", "商品出库原单查看", "商品入库原单查看"},
         "WHMO.exe",
         "仓库管理",
         WriteAndStart},
        {{"往来单位信息录入", "员工信息录入",
          "商品信息录入",     "往来单位分类设置",
          "商品分类设置",     "部门设置",
          "仓库设置",         "操作设置",
          "期初库存设置",     "期初库存设置数据查询",
          "定义小数位",       "商品出库入库类别设置",
          "往来单位信息查询", "员工信息查询",
          "商品信息查询",     "自动生成会计凭证对应科目设置",
          "供应商资料",       "客户资料",
          "往来单位资料",     "员工资料",
          "商品资料",         "现金银行资料",
          "仓库资料",         "币种设置",
          "商品/物料属性设置"},
         "BAMO.exe",
         "基础管理",
         WriteAndStart},
        {SummaryReports(), "SUMO.exe", "汇总管理", WriteAndStart},
        {{"月末结转库存成本查询", "库存商品查询", "业务单据查询", "低于最低库存商品查询", "高于最高库存商品查询",
          "库存期末结转查询"},
         "QRMO.exe",
         "查询管理",
         WriteAndStart},
        {{"IP地址授权", "操作用户设置", "用户权限设置", "备份数据库", "恢复数据库", "清除历史数据", "基础数据导入",
          "基础数据导出", "设置自动备份路径", "查看本机MAC值"},
         "SYMO.exe",
         "系统维护",
         WriteStartLeave},
        {{"查看会计凭证"}, "ACMO.exe", "会计事务", WriteAndStart},
        {{"更换账套", "更换操作员"}, "Lnch.exe", "", Starter},
        {{"同价调拨单图片", "异价调拨单图片", "商品调价单图片", "盘点报损单图片", "盘点报溢单图片", "商品组装单图片",
          "商品拆卸单图片"},
         "IMMO.exe",
         "图片管理",
         WriteAndStart},
        {{"自动核算库存成本", "仓库日结", "仓库期末结转", "仓库期末反结转", "仓库反日结"},
         "SYMO.exe",
         "系统维护",
         WriteAndStart},
    };
    return table;
}

/// The database file must not be held open while it is copied or replaced.
bool LeavesAfterStart(const LaunchRow& row, const QString& word)
{
    if (row.kind == StartKind::Starter)
        return true;
    return row.kind == StartKind::WriteStartLeave && (word == "备份数据库" || word == "恢复数据库");
}

/// Leaves what the started program is to read.
bool HandOver(Program& program, const LaunchRow& row, const QString& word, const Directives& directives)
{
    if (row.kind != StartKind::Starter)
        return WriteRunParameters(program.folder, program.parameters, directives);
    if (WriteStarterDirective(program.folder, word))
        return true;
    program.prompt.Warn("传递操作指令失败！");
    return false;
}

bool StartProgram(Program& program, const LaunchRow& row)
{
    const QString path = PathInFolder(program.folder, row.fileName);
    if (!QFileInfo::exists(path)) {
        program.prompt.Warn((row.title.isEmpty() ? "启动" : row.title) + "程序不存在，请确定您程序安装是否完整！");
        return false;
    }
    if (!QProcess::startDetached(path, {}, program.folder)) {
        program.prompt.Warn("启动" + row.title + "程序意外终止！");
        return false;
    }
    return true;
}

} // namespace

bool LaunchFunction(Program& program, const QString& functionWord, const Directives& directives)
{
    const QString word = functionWord.trimmed();
    const std::vector<LaunchRow>& table = LaunchTable();
    const auto row =
        std::find_if(table.begin(), table.end(), [&](const LaunchRow& each) { return each.words.contains(word); });
    if (row == table.end()) {
        program.prompt.Inform("未传递操作指令，操作中断！");
        return false;
    }
    const bool leaves = LeavesAfterStart(*row, word);
    if (leaves && !program.mayLeave())
        return false;
    if (!HandOver(program, *row, word, directives) || !StartProgram(program, *row))
        return false;
    if (leaves)
        program.leave();
    return true;
}

bool LaunchByWord(Program& program, const QString& functionWord)
{
    return LaunchFunction(program, functionWord, {functionWord});
}

bool StartCalculator(Program& program)
{
    // Each desktop has its own; the first one found is started.
    for (const char* name : {"calc.exe", "gnome-calculator", "kcalc", "mate-calc", "galculator", "xcalc"}) {
        const QString path = QStandardPaths::findExecutable(name);
        if (!path.isEmpty() && QProcess::startDetached(path, {}))
            return true;
    }
    program.prompt.Warn("启动计算器时失败，请确定您的系统组件安装是否完整！");
    return false;
}
