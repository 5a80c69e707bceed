#include "bills/lines/line_import.h"

#include "base/number_text.h"
#include "bills/lines/entry_limits.h"
#include "bills/lines/line_columns.h"
#include "bills/lines/line_entry.h"
#include "bills/lines/line_totals.h"
#include "bills/lines/paste.h"
#include "data/decimals.h"
#include "data/lookups.h"
#include "handover/open_query.h"
#include "output/spreadsheet_plugin.h"

#include <QFileInfo>
#include <algorithm>
#include <optional>
#include <span>
#include <utility>

namespace {

const QString kSheetName = QStringLiteral("sheet1");
constexpr int kRowsAtATime = 1000;
constexpr size_t kNamedRows = 10; // of those left out

/// Columns whose texts are taken over as they stand.
constexpr const char* kTextTitles[] = {"生产厂商", "品牌",        "批号",        "生产日期",    "有效日期",
                                       "唯一码",   "自定义字段1", "自定义字段2", "自定义字段3", "备注"};

/// Where the columns stand in the sheet.
struct SheetColumns
{
    explicit SheetColumns(const QStringList& row)
        : titles(row),
          code(FindExcelColumn(titles, "商品编号")),
          name(FindExcelColumn(titles, "商品名称")),
          spec(FindExcelColumn(titles, "规格")),
          attribute(FindExcelColumn(titles, "属性")),
          unit(FindExcelColumn(titles, "单位")),
          amount(FindExcelColumn(titles, "数量")),
          money(FindExcelColumn(titles, "金额")),
          revaluation(FindExcelColumn(titles, "调价金额"))
    {}

    QStringList titles;
    int code;
    int name;
    int spec;
    int attribute;
    int unit;
    int amount;
    int money;
    int revaluation;
};

/// A cell of a row; the text of a column that the sheet lacks is empty.
QString SheetText(const QStringList& row, int column)
{
    return column <= row.size() ? OneLine(row[column - 1]) : QString();
}

/// Whether SheetText has made one line of several.
bool IsJoined(const QStringList& row, int column)
{
    return column <= row.size() && row[column - 1].trimmed().contains('\n');
}

QString CodeOf(const QStringList& row, const SheetColumns& sheet)
{
    return SheetText(row, sheet.code).trimmed();
}

struct ImportSheet
{
    SheetColumns columns;
    std::vector<QStringList> rows; // each with a code, from row 2 on
    int used;                      // the last row that holds anything
};

SpreadsheetError Unfit(const QString& path, const QString& lacking)
{
    return {SpreadsheetError::Kind::CannotOpen,
            "文件“" + QFileInfo(path).fileName() + "”中没有" + lacking + "，不能导入！"};
}

/// An only sheet may bear any name.
std::unique_ptr<Sheet> SheetOfLines(Workbook& workbook, const QString& path)
{
    const QStringList names = workbook.sheetNames();
    std::unique_ptr<Sheet> sheet = names.size() == 1 ? workbook.SheetAt(0) : workbook.SheetNamed(kSheetName);
    if (!sheet)
        throw Unfit(path, "名称为“" + kSheetName + "”的工作表（只有“" + names.join("”、“") + "”）");
    return sheet;
}

/// Runs where the workbook is.
ImportSheet ReadImportSheet(SpreadsheetApplication& application, const QString& path)
{
    const std::unique_ptr<Workbook> workbook = application.Open(path);
    const std::unique_ptr<Sheet> sheet = SheetOfLines(*workbook, path);
    const int used = sheet->usedRows();
    if (used == 0)
        throw Unfit(path, "任何数据，或者文件已损坏");
    ImportSheet read{SheetColumns(sheet->Read(1, 1, 1, kExcelColumns).front()), {}, used};
    if (read.columns.code == kNoExcelColumn)
        throw Unfit(path, "“商品编号”列（工作表的第一行是表头）");
    for (int row = 2; row <= read.used; row += kRowsAtATime) {
        for (QStringList& cells : sheet->Read(row, 1, std::min(kRowsAtATime, read.used - row + 1), kExcelColumns)) {
            if (CodeOf(cells, read.columns).isEmpty())
                return read;
            read.rows.push_back(std::move(cells));
        }
    }
    return read;
}

/// An attribute by its code, or as a cell of the grid shows it.
QString AttributeOf(Program& program, const QString& text)
{
    return AttributeCell(program, text.contains('>') ? PathHead(text) : text);
}

/// Lines on their way into a bill.
class LineWriter
{
public:
    LineWriter(Program& program, const BillText& bill, const SheetColumns& sheet)
        : m_program(program), m_bill(bill), m_from(sheet), m_to(*bill.kind)
    {
        LayOutGrid(program, m_grid, bill.LayoutKey(), bill.kind->columns);
        for (const char* title : kTextTitles)
            m_texts.push_back({FindExcelColumn(sheet.titles, title), ColumnIndex(*bill.kind, QString(title))});
    }

    /// Fills the last row of the grid, and adds a blank one.
    /// @return what the row cannot hold, empty for nothing; otherwise it stays as it was
    QString Write(const QStringList& row, const Recordset& good)
    {
        const auto own = [&row](int column, const QString& otherwise) {
            const QString text = SheetText(row, column).trimmed();
            return text.isEmpty() ? otherwise : text;
        };
        Set(m_to.code, good.Text("Code"));
        Set(m_to.name, own(m_from.name, good.Text("Name")));
        Set(m_to.spec, own(m_from.spec, good.Text("Spec")));
        Set(m_to.attribute, AttributeOf(m_program, own(m_from.attribute, {})));
        Set(m_to.unit, own(m_from.unit, good.Text("Unite")));
        WriteFigures(row, good.Text("Code"));
        for (const auto& [from, to] : m_texts)
            Set(to, SheetText(row, from));
        const auto fault = FaultOfRow(m_program, *m_bill.kind, m_grid, m_grid.lastRow());
        if (fault)
            m_grid.RemoveRow(m_grid.lastRow());
        m_grid.AddRow();
        return fault ? fault->text : QString();
    }

    /// Whether a text of the row has lost a line break.
    bool Joins(const QStringList& row) const
    {
        return IsJoined(row, m_from.name) || IsJoined(row, m_from.spec) ||
               std::ranges::any_of(m_texts, [&](const auto& text) { return IsJoined(row, text.first); });
    }

    LineGrid& grid() { return m_grid; }

private:
    void WriteFigures(const QStringList& row, const QString& code)
    {
        const auto number = [&row](int column) { return CellNumber(SheetText(row, column)); };
        const DotType& places = m_program.gDot;
        Set(m_to.amount, FormatByDigits(number(m_from.amount), places.Amount_DotLen));
        if (m_to.cost != 0)
            Set(m_to.cost, FormatByDigits(FetchRowCost(m_program, m_bill, code).value_or(0), places.Price_DotLen));
        Set(m_to.money, NumberText(number(m_from.money)));
        Set(m_to.revaluation, NumberText(number(m_from.revaluation)));
    }

    void Set(int column, const QString& text)
    {
        if (column != 0)
            m_grid.SetCell(m_grid.lastRow(), column, text);
    }

    Program& m_program;
    const BillText& m_bill;
    const SheetColumns& m_from;
    const LineColumns m_to;
    std::vector<std::pair<int, int>> m_texts; // their columns in the sheet and in the grid
    LineGrid m_grid;
};

/// How an import went.
struct Outcome
{
    int lines = 0;
    std::vector<std::pair<int, QString>> leftOut; // rows of the sheet, and why
    QStringList joined;                           // rows in whose texts a line break has become a blank
    int endRow = 0;                               // the one without a code, where rows stand below it; 0 for none

    QString Text() const;
};

QString Outcome::Text() const
{
    QStringList text = {"共导入" + QString::number(lines) + " 条数据！"};
    if (!leftOut.empty())
        text << "以下" + QString::number(leftOut.size()) + "行没有导入：";
    for (const auto& [row, why] : std::span(leftOut).first(std::min(leftOut.size(), kNamedRows)))
        text << "第" + QString::number(row) + "行：" + why;
    if (leftOut.size() > kNamedRows)
        text << "……";
    if (!joined.isEmpty())
        text << "第" + joined.mid(0, kNamedRows).join("、") + (joined.size() > qsizetype(kNamedRows) ? "……" : "") +
                    "行的文字中有换行，已改为空格。";
    if (endRow != 0)
        text << "第" + QString::number(endRow) + "行没有商品编号，从这一行起没有导入。";
    if (lines == 0)
        text << "原有的明细没有改变。";
    return text.join('\n');
}

/// Unset where the user has ended it or has been told.
std::optional<Outcome> Import(Program& program, BillText& bill, const QString& path, const ImportProgress& progress)
{
    progress(0, 0);
    std::optional<ImportSheet> sheet;
    SpreadsheetOf(program).Run([&](SpreadsheetApplication& office) { sheet = ReadImportSheet(office, path); },
                               SpreadsheetHost::Input::Passes);
    const Undertaking importing(program); // an unknown cost is no 0
    LineWriter lines(program, bill, sheet->columns);
    const auto total = static_cast<int>(sheet->rows.size());
    Outcome outcome;
    if (const int blank = total + 2; blank <= sheet->used)
        outcome.endRow = blank;
    for (int row = 0; row < total; ++row) {
        const QString code = CodeOf(sheet->rows[row], sheet->columns);
        const Recordset good = GoodForLine(program, code);
        if (!good || !progress(row, total))
            return {};
        const QString why = good.isEmpty() ? "没有编号为“" + code + "”的商品" : lines.Write(sheet->rows[row], good);
        if (!why.isEmpty())
            outcome.leftOut.emplace_back(row + 2, why);
        else if (lines.Joins(sheet->rows[row]))
            outcome.joined << QString::number(row + 2);
    }
    if (importing.failed())
        return {};
    outcome.lines = lines.grid().lastRow() - 1;
    if (outcome.lines == 0)
        return outcome;
    bill.MSH = std::move(lines.grid());
    ColumnWidthsChanged(bill);
    RecalcAllAmounts(program, bill);
    return outcome;
}

} // namespace

QString AskImportFile(Program& program, const BillKind& kind)
{
    const QString workbooks = "Microsoft Excel 工作簿 (*.XLS *.xlsx)";
    const bool isPiece = kind.lines == LineShape::Pieces;
    const QString path = program.prompt.AskFile("选择导入数据", isPiece ? workbooks : workbooks + ";;All Files (*.*)");
    if (path.isEmpty())
        program.prompt.Inform("不能确定导入文件路径，请重新选择导入文件！");
    return path;
}

QString ExcelInBill(Program& program, BillText& bill, const QString& path, const ImportProgress& progress)
{
    try {
        const std::optional<Outcome> outcome = Import(program, bill, path, progress);
        return outcome ? outcome->Text() : QString();
    } catch (const SpreadsheetError& error) {
        return error.kind == SpreadsheetError::Kind::Cancelled ? QString() : error.description;
    }
}

std::vector<BlankColumn> ImportColumns(const BillKind& kind)
{
    std::vector<BlankColumn> columns;
    for (const char* title : {"商品编号", "商品名称", "规格", "属性", "单位"})
        columns.push_back({title, true});
    // The rules on the screen ask for it in the third column.
    if (kind.lines == LineShape::Revalued)
        columns.insert(columns.begin() + 2, {"调价金额", false});
    else
        columns.push_back({"数量", false});
    // A day is recognized as one when it is typed, in whatever form.
    for (const char* title : kTextTitles)
        columns.push_back({title, !QString(title).contains("日期")});
    return columns;
}
