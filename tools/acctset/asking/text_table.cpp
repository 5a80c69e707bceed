#include "asking/text_table.h"

#include <algorithm>

namespace {

/// Signs two places wide: the ideographs with their punctuation, and the full-width forms.
struct Range
{
    char32_t first;
    char32_t last;
};

constexpr Range kWide[] = {
    {0x1100, 0x115F}, {0x2E80, 0xA4CF}, {0xAC00, 0xD7A3}, {0xF900, 0xFAFF},
    {0xFE30, 0xFE6F}, {0xFF00, 0xFF60}, {0xFFE0, 0xFFE6}, {0x20000, 0x3FFFD},
};

bool IsWide(char32_t sign)
{
    return std::ranges::any_of(kWide, [=](const Range& range) { return range.first <= sign && sign <= range.last; });
}

constexpr int kGap = 2;

} // namespace

int WidthOf(const QString& text)
{
    int width = 0;
    for (const char32_t sign : text.toStdU32String())
        width += IsWide(sign) ? 2 : 1;
    return width;
}

TextTable::TextTable(std::vector<Column> columns) : m_columns(std::move(columns))
{
    QStringList captions;
    for (const Column& column : m_columns)
        captions << column.caption;
    AddRow(captions);
}

QStringList TextTable::Lines() const
{
    std::vector<int> widths(m_columns.size());
    for (const QStringList& row : m_rows) {
        for (qsizetype column = 0; column < row.size(); ++column)
            widths[size_t(column)] = std::max(widths[size_t(column)], WidthOf(row[column]));
    }
    QStringList lines;
    for (const QStringList& row : m_rows)
        lines << LineOf(row, widths);
    int total = -kGap;
    for (const int width : widths)
        total += width + kGap;
    lines.insert(1, QString(total, '-'));
    return lines;
}

QString TextTable::LineOf(const QStringList& cells, const std::vector<int>& widths) const
{
    QString line;
    for (qsizetype column = 0; column < cells.size(); ++column) {
        const QString blanks(widths[size_t(column)] - WidthOf(cells[column]), ' ');
        const bool toTheRight = m_columns[size_t(column)].align == Align::Right;
        line += (column > 0 ? QString(kGap, ' ') : QString()) +
                (toTheRight ? blanks + cells[column] : cells[column] + blanks);
    }
    while (line.endsWith(' '))
        line.chop(1);
    return line;
}
