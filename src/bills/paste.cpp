#include "bills/paste.h"

#include "bills/line_entry.h"
#include "bills/line_totals.h"
#include "data/lookups.h"
#include "handover/open_query.h"

#include <QRegularExpression>
#include <algorithm>

namespace {

constexpr int kNamedGoods = 5; // of the unknown ones

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
            rows.back() << text.mid(at, end - at).trimmed();
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

/// False for a good that is not known.
bool WriteText(Program& program, BillText& bill, const QString& text)
{
    switch (EditorOfCell(bill)) {
    case CellEditor::None:
        return true;
    case CellEditor::Text:
        return WriteEntered(program, bill, text);
    case CellEditor::Unit:
        ChooseUnit(program, bill, text);
        return true;
    case CellEditor::Attribute:
        WriteAttribute(program, bill, text);
        return true;
    }
    return true;
}

/// The place and text of a cell whose good is not known.
struct UnknownGood
{
    int row;
    int column;
    QString text;
};

void WriteRow(Program& program, BillText& bill, int row, const std::vector<int>& columns, const QStringList& texts,
              std::vector<UnknownGood>& unknown)
{
    LineGrid& grid = bill.MSH;
    while (row >= grid.lastRow())
        grid.AddRow();
    grid.currentRow = row;
    bool goodFound = false;
    std::optional<UnknownGood> missed;
    for (size_t place = 0; place < std::min(columns.size(), size_t(texts.size())); ++place) {
        const QString& text = texts[qsizetype(place)];
        grid.currentColumn = columns[place];
        const bool isGood = IsGoodsColumn(bill);
        if (text.isEmpty() || (isGood && goodFound)) // the name behind a code is the good's own
            continue;
        const bool written = WriteText(program, bill, text);
        goodFound = goodFound || (isGood && written);
        if (!written && !missed)
            missed = {row, columns[place], text};
    }
    if (missed && !goodFound)
        unknown.push_back(*missed);
    RecalcRowAmount(program, bill, row);
}

void SayUnknown(Program& program, const std::vector<UnknownGood>& unknown)
{
    QStringList named;
    for (const UnknownGood& good : unknown) {
        if (named.size() == kNamedGoods)
            break;
        named << "第" + QString::number(good.row) + "行：" + good.text;
    }
    const QString more = unknown.size() > kNamedGoods ? "\n……" : "";
    program.prompt.Inform("粘贴的商品中有" + QString::number(unknown.size()) + "个不存在！\n" + named.join('\n') +
                          more);
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
    QString line = text;
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
    std::vector<UnknownGood> unknown;
    for (const QStringList& texts : RowsOf(text)) {
        const bool isBlank = std::ranges::all_of(texts, [](const QString& cell) { return cell.isEmpty(); });
        if (!isBlank)
            WriteRow(program, bill, row++, columns, texts, unknown);
    }
    if (pasting.failed()) { // a good or a cost that is not known would be stored as none
        grid = before;
        return;
    }
    grid.currentRow = unknown.empty() ? std::max(1, row - 1) : unknown.front().row;
    grid.currentColumn = unknown.empty() ? firstColumn : unknown.front().column;
    SumBillTotals(program, bill);
    bill.LinesChanged(program);
    if (!unknown.empty())
        SayUnknown(program, unknown);
}
