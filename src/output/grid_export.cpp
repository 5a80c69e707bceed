#include "output/grid_export.h"

#include <QTemporaryDir>
#include <algorithm>

namespace {

constexpr int kRowsAtATime = 500;

QStringList ColumnsInSight(const GridTable& grid, const QStringList& row)
{
    QStringList texts;
    for (qsizetype column = 0; column < row.size(); ++column) {
        if (grid.widths[size_t(column)] != 0)
            texts << row[column];
    }
    return texts;
}

void WriteRows(Sheet& sheet, const std::vector<QStringList>& rows, const RowsWritten& written)
{
    const auto total = static_cast<int>(rows.size());
    for (int first = 0; first < total; first += kRowsAtATime) {
        const int end = std::min(first + kRowsAtATime, total);
        SheetRows cells;
        for (int row = first; row < end; ++row)
            cells.emplace_back(rows[row].begin(), rows[row].end());
        const auto columns = static_cast<int>(cells.front().size());
        if (columns > 0)
            sheet.Write(first + 1, 1, cells);
        if (columns > 0 && first == 0)
            sheet.FitColumns(columns); // by all rows it would take as long as writing them
        if (written)
            written(end, total);
    }
}

void OpenFilled(SpreadsheetHost& host, const QString& caption, const std::function<void(Sheet&)>& fill)
{
    const QTemporaryDir folder;
    // A sheet of the older format ends at 65,536 rows.
    const QString path = folder.filePath("Book1.xlsx");
    host.Run(
        [&](SpreadsheetApplication& office) {
            const std::unique_ptr<Workbook> workbook = office.Create();
            fill(*workbook->SheetAt(0));
            workbook->SaveAs(path);
        },
        SpreadsheetHost::Input::Passes);
    host.HandOver(path, caption, true);
}

} // namespace

std::vector<QStringList> TextsInSight(const GridTable& grid)
{
    std::vector<QStringList> rows;
    for (size_t row = 0; row < grid.rows.size(); ++row) {
        if (grid.heights[row] != 0)
            rows.push_back(ColumnsInSight(grid, grid.rows[row]));
    }
    return rows;
}

void OpenBlankWorkbook(SpreadsheetHost& host, const std::vector<BlankColumn>& columns, const QString& caption)
{
    OpenFilled(host, caption, [&columns](Sheet& sheet) {
        QStringList titles;
        for (const BlankColumn& column : columns) {
            titles << column.title;
            if (column.isText)
                sheet.KeepAsTexts(int(titles.size()), 1);
        }
        // Columns become as wide as their texts: the second row makes room for what will be typed.
        WriteRows(sheet, {titles, QStringList(titles.size(), "2023-12-31 ")}, {});
        sheet.DeleteRows(2, 1);
    });
}

void OpenNewWorkbook(SpreadsheetHost& host, const std::vector<QStringList>& rows, const QString& caption,
                     const RowsWritten& written)
{
    OpenFilled(host, caption, [&](Sheet& sheet) { WriteRows(sheet, rows, written); });
}
