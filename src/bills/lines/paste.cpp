#include "bills/lines/paste.h"

#include "base/whole_text.h"
#include "bills/lines/entry_limits.h"
#include "bills/lines/line_entry.h"
#include "bills/lines/line_totals.h"
#include "data/lookups.h"
#include "handover/open_query.h"

#include <QRegularExpression>
#include <algorithm>
#include <span>

namespace {

constexpr size_t kNamed = 5; // of what was not taken over

/// Past the quote that closes a cell; -1 for a quote that is part of a plain text. A spreadsheet quotes a cell whose
/// text holds a tab or a line break, and doubles the quotes in it.
qsizetype EndOfQuoted(const QString& text, qsizetype start)
{
    if (start >= text.size() || text[start] != u'"')
        return -1;
    for (qsizetype at = text.indexOf(u'"', start + 1); at >= 0; at = text.indexOf(u'"', at + 1)) {
        const bool doubled = at + 1 < text.size() && text[at + 1] == u'"';
        if (!doubled)
            return at + 1 == text.size() || QStringView(u"\t\r\n").contains(text[at + 1]) ? at + 1 : -1;
        ++at;
    }
    return -1;
}

bool EndsCell(QChar letter)
{
    return letter == u'\t' || letter == u'\r' || letter == u'\n';
}

std::vector<QStringList> RowsOf(const QString& text)
{
    std::vector<QStringList> rows;
    bool opensRow = true;
    for (qsizetype at = 0; at < text.size() || !opensRow;) {
        if (opensRow)
            rows.emplace_back();
        qsizetype end = EndOfQuoted(text, at);
        if (end >= 0) {
            rows.back() << OneLine(text.mid(at + 1, end - at - 2).replace("\"\"", "\""));
        } else {
            end = std::find_if(text.begin() + at, text.end(), EndsCell) - text.begin();
            rows.back() << WholeText(text.mid(at, end - at).trimmed());
        }
        opensRow = end >= text.size() || text[end] != u'\t';
        at = end + (text.mid(end, 2) == u"\r\n" ? 2 : 1);
    }
    return rows;
}

/// Columns in sight from the current one on.
std::vector<int> ColumnsFromCurrent(const LineGrid& grid)
{
    std::vector<int> columns;
    for (int column = std::max(1, grid.currentColumn); column < grid.columns(); ++column) {
        if (grid.column(column).width > 0)
            columns.push_back(column);
    }
    return columns;
}

/// An attribute by its code or as a cell shows it, out of the group of the row's good.
void WriteAttribute(Program& program, BillText& bill, const QString& text)
{
    const QString code = text.contains('>') ? PathHead(text) : text;
    bill.MSH.SetCell(bill.MSH.currentRow, bill.MSH.currentColumn, {});
    const auto picker = AttributeStep(program, bill);
    if (picker &&
        !OpenQuery(program, Sql("select Code from TabAttribute") + picker->query + " and Code=" + code).isEmpty())
        ChooseAttribute(program, bill, code);
}

/// How it went, as for a cell that is entered.
Entered WriteText(Program& program, BillText& bill, const QString& text)
{
    switch (EditorOfCell(bill)) {
    case CellEditor::None:
        break;
    case CellEditor::Text:
        return WriteEntered(program, bill, text);
    case CellEditor::Unit:
        ChooseUnit(program, bill, text);
        break;
    case CellEditor::Attribute:
        WriteAttribute(program, bill, text);
        break;
    }
    return {true, {}};
}

/// What was not taken over as it stands.
struct Missed
{
    std::vector<CellFault> unknown; // goods
    std::vector<CellFault> refused; // texts and figures that their cells cannot hold
};

QString InRow(int row, const QString& text)
{
    return "第" + QString::number(row) + "行：" + text;
}

void WriteRow(Program& program, BillText& bill, int row, const std::vector<int>& columns, const QStringList& texts,
              Missed& missed)
{
    LineGrid& grid = bill.MSH;
    while (row >= grid.lastRow())
        grid.AddRow();
    grid.currentRow = row;
    bool goodFound = false;
    std::optional<CellFault> unknown;
    for (size_t place = 0; place < std::min(columns.size(), size_t(texts.size())); ++place) {
        const QString& text = texts[qsizetype(place)];
        grid.currentColumn = columns[place];
        const bool isGood = IsGoodsColumn(bill);
        if (text.isEmpty() || (isGood && goodFound)) // the name behind a code is the good's own
            continue;
        const Entered entered = WriteText(program, bill, text);
        if (!entered.fault.isEmpty()) {
            missed.refused.push_back({row, columns[place], InRow(row, entered.fault)});
            continue;
        }
        goodFound = goodFound || (isGood && entered.goodFound);
        if (!entered.goodFound && !unknown)
            unknown = {row, columns[place], InRow(row, text)};
    }
    if (unknown && !goodFound)
        missed.unknown.push_back(*unknown);
    RecalcRowAmount(program, bill, row);
}

/// The first of them by name.
void Say(Program& program, const QString& whole, const std::vector<CellFault>& faults)
{
    if (faults.empty())
        return;
    QStringList lines = {whole.arg(faults.size())};
    for (const CellFault& fault : std::span(faults).first(std::min(faults.size(), kNamed)))
        lines << fault.text;
    if (faults.size() > kNamed)
        lines << "……";
    program.prompt.Inform(lines.join('\n'));
}

} // namespace

bool IsTable(const QString& text)
{
    const std::vector<QStringList> rows = RowsOf(text);
    return rows.size() > 1 || (!rows.empty() && rows.front().size() > 1);
}

QString OneLine(const QString& text)
{
    static const QString kBreaks = "[\\t\\r\\n\\v\\f\\x{85}\\x{2028}\\x{2029}]+";
    static const QRegularExpression atEnds("^" + kBreaks + "|" + kBreaks + "$");
    static const QRegularExpression within(kBreaks);
    QString line = WholeText(text);
    return line.remove(atEnds).replace(within, " ");
}

void PasteTable(Program& program, BillText& bill, const QString& text)
{
    LineGrid& grid = bill.MSH;
    if (!bill.entryEnabled || !WarehousePrecheck(program, bill))
        return;
    const Undertaking pasting(program);
    const LineGrid before = grid;
    const std::vector<int> columns = ColumnsFromCurrent(grid);
    const int firstColumn = grid.currentColumn;
    int row = grid.currentRow;
    Missed missed;
    for (const QStringList& texts : RowsOf(text)) {
        const bool isBlank = std::ranges::all_of(texts, [](const QString& cell) { return cell.isEmpty(); });
        if (!isBlank)
            WriteRow(program, bill, row++, columns, texts, missed);
    }
    if (pasting.failed()) { // a good or a cost that is not known would be stored as none
        grid = before;
        return;
    }
    const std::vector<CellFault>& shown = missed.unknown.empty() ? missed.refused : missed.unknown;
    grid.currentRow = shown.empty() ? std::max(1, row - 1) : shown.front().row;
    grid.currentColumn = shown.empty() ? firstColumn : shown.front().column;
    SumBillTotals(program, bill);
    bill.LinesChanged(program);
    Say(program, "粘贴的商品中有%1个不存在！", missed.unknown);
    Say(program, "粘贴的内容中有%1处未录入！", missed.refused);
}
