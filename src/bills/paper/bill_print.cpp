#include "bills/paper/bill_print.h"

#include "bills/paper/line_table.h"
#include "handover/launcher.h"
#include "handover/open_query.h"

namespace {

constexpr int kCodeColumn = 1;
/// As the forms have it: of one currency nothing is said.
const char* const kCurrencyCell = "币种 / 汇率：?币种　?汇率";
const char* const kDayForm = "yyyy年MM月dd日";

constexpr TextToken<BillText> kWareManageTokens[] = {
    {"?备注", &BillText::TxtMemo},
    {"?附加说明", &BillText::TxtExplain},
    {"?发货仓库", &BillText::TxtWarehouseNameF},
    {"?收货仓库", &BillText::TxtWarehouseNameS},
    {"?调价仓库", &BillText::TxtWarehouseNameS},
    {"?盘点仓库", &BillText::TxtWarehouseNameS},
    {"?报损仓库", &BillText::TxtWarehouseNameS},
    {"?报溢仓库", &BillText::TxtWarehouseNameS},
    {"?合计金额", &BillText::LabTotalMoney},
    {"?合计数量", &BillText::LabTotalAmount},
};

constexpr TextToken<BillText> kClosingTokens[] = {
    {"?币种", &BillText::TxtMoneyName}, {"?汇率", &BillText::TxtMoneyRate},  {"?业务员", &BillText::TxtSaleMan},
    {"?制单", &BillText::TxtOperator},  {"?审核人", &BillText::TxtAuditing}, {"?审核标志", &BillText::LabAuditing},
    {"?单据状态", &BillText::LabState},
};

/// A transfer at a set price is looked for among the transfers at cost, and so is never found.
QString WareManageTable(const BillText& bill)
{
    return bill.kind->hasSource ? "TabSamePriceMove" : bill.kind->headTable;
}

std::vector<BillToken> WareManageTokens(Program& program, const BillText& bill)
{
    std::vector<BillToken> own;
    for (const auto& [word, text] : kWareManageTokens)
        own.push_back({word, bill.*text});
    return BillTokens(program, bill, own);
}

QStringList WareManageHead(const BillText& bill)
{
    QStringList head = {"录单日期：" + bill.TxtDate, "单据编号：" + bill.TxtBillCode};
    const QString salesman = "业 务 员：" + bill.TxtSaleMan;
    const QString warehouse = bill.kind->recalledWarehouse + "：" + bill.TxtWarehouseNameS;
    if (bill.kind->hasSource)
        head << bill.kind->sourceWarehouse + "：" + bill.TxtWarehouseNameF << salesman << warehouse;
    else
        head << warehouse << salesman;
    return head << "备    注：" + bill.TxtMemo << "制 单 人：" + bill.TxtOperator;
}

QStringList WareManageFoot(const BillText& bill)
{
    QStringList foot = {"数量合计：" + bill.LabTotalAmount};
    if (bill.kind->lines != LineShape::Counted)
        foot << "金额合计：" + bill.LabTotalMoney;
    return foot;
}

/// Without the column that marks rows, and without the last row as long as no good is in it.
PrintSkips SkipsOf(const LineGrid& grid)
{
    return {.leftCols = 1, .bottomRows = grid.Cell(grid.lastRow(), kCodeColumn).isEmpty() ? 1 : 0};
}

} // namespace

constinit const BillPaper kWareManagePaper{
    .templateGroup = nullptr,
    .templateTable = WareManageTable,
    .tokens = WareManageTokens,
    .head = WareManageHead,
    .foot = WareManageFoot,
};

QString TemplateGroup(const BillText& bill, const BillPaper& paper)
{
    return paper.templateGroup ? QString(paper.templateGroup) : bill.LabBillName.trimmed();
}

QString TemplateRights(const BillText& bill, const BillPaper& paper)
{
    return paper.templateGroup ? QString(paper.templateGroup) : bill.kind->rights;
}

QString FixedTemplate(const BillKind& kind, const QString& form)
{
    return QString(kind.excelTemplate).replace(".xls", form + ".xls");
}

BillSheet SheetOf(Program& program, const BillText& bill, const BillPaper& paper)
{
    BillSheet sheet{bill.TxtBillCode.trimmed(), paper.templateTable(bill), paper.tokens(program, bill), {}, {}};
    const LineGrid& grid = bill.MSH;
    for (int column = kCodeColumn; column < grid.columns(); ++column)
        sheet.isFigure.push_back(grid.column(column).isFigure);
    for (int row = 1; row < grid.rows(); ++row) {
        if (grid.Cell(row, kCodeColumn).trimmed().isEmpty())
            continue;
        QStringList& line = sheet.lines.emplace_back();
        for (int column = kCodeColumn; column < grid.columns(); ++column)
            line << grid.Cell(row, column);
    }
    return sheet;
}

std::vector<BillToken> BillTokens(Program& program, const BillText& bill, const std::vector<BillToken>& own)
{
    // The first word prints as it stands.
    std::vector<BillToken> tokens = {
        {"?单据名称", "?单据名称"},
        {"?本单位名称", GetCompanyToken(program, "?本单位名称")},
        {"?单据编号", bill.TxtBillCode.trimmed()},
        {"?单据日期", bill.DTPDate.toString(kDayForm)},
        {"?电脑日期", program.clock.Now().day.toString(kDayForm)},
    };
    if (!program.parameters.IsLotMoney)
        tokens.push_back({kCurrencyCell, {}});
    tokens.insert(tokens.end(), own.begin(), own.end());
    for (const auto& [word, text] : kClosingTokens)
        tokens.push_back({word, bill.*text});
    return tokens;
}

void PlainBillPrint(Program& program, const BillText& bill, const BillPaper& paper, const QString& action)
{
    const Recordset saved =
        OpenQuery(program, Sql("select * from ") + bill.kind->headTable + " where Code=" + bill.TxtBillCode);
    if (saved.isEmpty()) {
        if (saved)
            program.prompt.Inform("尚未保存数据，请先保存数据后重新执行！");
        return;
    }
    PrintFile file;
    int index = 0;
    for (const QString& text : paper.head(bill))
        file.SetPrintHead(text, ++index);
    index = 0;
    for (const QString& text : paper.foot(bill))
        file.SetPrintFoot(text, ++index);
    const bool isVoid = bill.LabState.trimmed() == u"作废";
    PrintThroughHost(program, std::move(file), bill.MSH, bill.LabBillName + (isVoid ? "（已作废）" : ""), action);
}

void PrintThroughHost(Program& program, PrintFile file, const LineGrid& grid, const QString& tableName,
                      const QString& action)
{
    file.SetPrintGrid(TableOf(grid), SkipsOf(grid));
    if (!WritePrintFile(program, file, tableName, action))
        return;
    if (!LaunchFunction(program, "打印", {"打印", action}))
        program.prompt.Inform("启动打印模块意外失败，请重新操作！");
}

void OpenTemplateReports(Program& program, const BillText& bill, const BillPaper& paper)
{
    const QString function = "外部报表管理";
    if (!LaunchFunction(program, function, {function, TemplateGroup(bill, paper)}))
        program.prompt.Inform("启动外部报表管理模块意外失败，请重新操作！");
}
