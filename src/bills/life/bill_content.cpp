#include "bills/life/bill_content.h"

#include "bills/head_fields.h"
#include "bills/lines/line_columns.h"
#include "bills/lines/line_totals.h"
#include "data/decimals.h"

#include <algorithm>

namespace {

std::vector<HeadField> TypedFields(const BillText& bill)
{
    std::vector<HeadField> fields = HeadFields();
    const std::vector<HeadField> own = bill.OwnFields();
    fields.insert(fields.end(), own.begin(), own.end());
    std::erase_if(fields, [](const HeadField& field) { return !field.typed; });
    return fields;
}

bool SameFigure(const QString& a, const QString& b)
{
    return a == b || CellNumber(a) == CellNumber(b);
}

bool SameHead(const BillText& bill, const BillContent& now)
{
    const QMap<QString, QString>& then = bill.unchanged.head;
    return std::ranges::all_of(TypedFields(bill), [&](const HeadField& field) {
        const QString control = field.control;
        return (field.isFigure ? SameFigure(now.head[control], then[control]) : now.head[control] == then[control]);
    });
}

/// Rows that were not touched are the same text in memory, so a long bill is compared in no time.
bool SameLine(const LineColumns& at, const QStringList& now, const QStringList& then)
{
    if (now == then)
        return true;
    for (qsizetype column = 0; column < now.size(); ++column) {
        if (column != at.money && now[column] != then.value(column))
            return false;
    }
    return now.size() == then.size();
}

bool IsBlank(const QStringList& line)
{
    return std::ranges::all_of(line, [](const QString& cell) { return cell.trimmed().isEmpty(); });
}

} // namespace

BillContent ContentOf(const BillText& bill)
{
    BillContent content{bill.DTPDate, {}, {}};
    for (const HeadField& field : TypedFields(bill))
        content.head[field.control] = bill.*field.text;
    for (int row = 1; row < bill.MSH.rows(); ++row)
        content.lines.push_back(bill.MSH.Row(row));
    while (!content.lines.empty() && IsBlank(content.lines.back()))
        content.lines.pop_back();
    return content;
}

bool IsChanged(const BillText& bill)
{
    const BillContent now = ContentOf(bill);
    const BillContent& then = bill.unchanged;
    const LineColumns at(*bill.kind);
    return now.day != then.day || !SameHead(bill, now) ||
           !std::ranges::equal(now.lines, then.lines,
                               [&at](const QStringList& a, const QStringList& b) { return SameLine(at, a, b); });
}

void MarkUnchanged(BillText& bill)
{
    bill.unchanged = ContentOf(bill);
}

void ShowContent(Program& program, BillText& bill, const BillContent& content)
{
    bill.DTPDate = content.day;
    for (const HeadField& field : TypedFields(bill))
        bill.*field.text = content.head[field.control];
    LineGrid& grid = bill.MSH;
    while (grid.rows() > 2)
        grid.RemoveRow(1);
    for (const QStringList& line : content.lines) {
        const int row = grid.lastRow();
        for (int column = 1; column < grid.columns(); ++column)
            grid.SetCell(row, column, line.value(column));
        grid.AddRow();
    }
    SumBillTotals(program, bill);
    bill.ContentShown(program);
}

Choice AskUnsaved(Program& program, const BillText& bill)
{
    const QString number = bill.BillSavedFlag ? bill.TxtBillCode.trimmed() : QString();
    return program.prompt.Choose(bill.LabBillName + (number.isEmpty() ? QString() : " " + number) +
                                     " 有尚未保存的内容，需要保存吗？",
                                 "保存(&S)", "放弃(&D)");
}
