#include "output/print_file.h"

#include "base/code_page.h"
#include "base/program_folder.h"
#include "base/replace_file.h"

#include <algorithm>

namespace {

/// Lines of the file, each with its end.
class Lines
{
public:
    void Section(const QString& word) { m_text += word + ":\r\n"; }
    void Value(const QString& key, const QString& value) { m_text += key + "=" + value + "\r\n"; }
    void Value(const QString& key, int value) { Value(key, QString::number(value)); }
    QByteArray bytes() const { return ToCodePage(m_text); }

private:
    QString m_text;
};

/// The number of texts says how many of the first ones are written: behind a gap the last ones fall away.
void AddStrings(Lines& lines, const QString& part, const PrintFile::Strings& strings)
{
    const auto count =
        std::ranges::count_if(strings.begin() + 1, strings.end(), [](const QString& text) { return !text.isEmpty(); });
    lines.Section(part + "count");
    lines.Value("count", int(count));
    if (count > 0)
        lines.Section(part + "content");
    for (int index = 1; index <= count; ++index)
        lines.Value("string", strings.at(index));
}

QString OnOneLine(QString text)
{
    return text.replace('\r', '|').replace('\n', '|');
}

/// Whether a row is in sight is asked of the row itself; its height and texts are those `topRows` further down.
void AddCells(Lines& lines, const PrintFile& file)
{
    const GridTable& grid = file.PrintGrid;
    const PrintSkips& skipped = file.skipped;
    const auto shifted = [&](int row) { return row + skipped.topRows; };
    int shownRow = -1;
    for (int row = 0; shifted(row) < int(grid.rows.size()) - skipped.bottomRows; ++row) {
        if (grid.heights[row] < 1)
            continue;
        ++shownRow;
        int shownColumn = -1;
        for (int column = skipped.leftCols; column < int(grid.widths.size()); ++column) {
            if (grid.widths[column] < 1)
                continue;
            lines.Section("cell");
            lines.Value("row", shownRow);
            lines.Value("col", ++shownColumn);
            lines.Value("rowheight", grid.heights[shifted(row)]);
            lines.Value("colwidth", grid.widths[column]);
            lines.Value("string", OnOneLine(grid.rows[shifted(row)][column]));
        }
    }
}

} // namespace

void PrintFile::SetPrintGrid(GridTable grid, const PrintSkips& skips)
{
    PrintGrid = std::move(grid);
    skipped = skips;
    const auto inSight = [](const std::vector<int>& sizes) {
        return int(std::ranges::count_if(sizes, [](int size) { return size >= 1; }));
    };
    PrintGridCols = inSight(PrintGrid.widths) - skips.rightCols - skips.leftCols;
    PrintGridRows = inSight(PrintGrid.heights) - skips.bottomRows - skips.topRows;
}

QByteArray PrintFileBytes(const PrintFile& file, const QString& tableName, const QString& printType,
                          const QString& batchSign)
{
    Lines lines;
    lines.Section("打印表表名");
    lines.Value("printtablename", tableName.trimmed());
    lines.Section("打印类别");
    lines.Value("printtype", printType.trimmed());
    AddStrings(lines, "head", file.PrintHeadStrings);
    AddStrings(lines, "foot", file.PrintFootStrings);
    lines.Section("msh");
    lines.Value("mshrows", file.PrintGridRows);
    lines.Value("mshcols", file.PrintGridCols);
    if (file.PrintGridRows != 0 && file.PrintGridCols != 0) {
        lines.Section("mshcontent");
        AddCells(lines, file);
    }
    lines.Section("批量连续打印");
    lines.Value("accountantprintsign", batchSign.trimmed());
    return lines.bytes();
}

bool WritePrintFile(Program& program, const PrintFile& file, const QString& tableName, const QString& printType,
                    const QString& batchSign)
{
    const QString path = PathInFolder(program.folder, "printfile.txt");
    if (ReplaceFile(path, PrintFileBytes(file, tableName, printType, batchSign)))
        return true;
    program.prompt.Inform("不能写入打印文件" + path + "，请确定磁盘空间和程序文件夹的写权限后重新操作！");
    return false;
}
