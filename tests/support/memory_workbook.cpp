#include "support/memory_workbook.h"

#include "base/number_text.h"
#include "handover/program.h"

#include <QFile>
#include <algorithm>

namespace {

QString TextOf(const SheetCell& cell)
{
    const QString* const text = std::get_if<QString>(&cell);
    return text ? *text : NumberText(std::get<double>(cell));
}

void WriteFile(const QString& path, const QString& text)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0)
        throw SpreadsheetError{SpreadsheetError::Kind::CannotSave, "不能保存" + path};
}

class SheetInMemory : public Sheet
{
public:
    SheetInMemory(MemorySpreadsheet& host, MemorySheet& shown) : sheet(shown), m_host(host) {}

    std::vector<QStringList> Read(int row, int column, int rows, int columns) override
    {
        m_host.Enter("Read");
        std::vector<QStringList> texts(static_cast<size_t>(rows));
        for (int down = 0; down < rows; ++down) {
            for (int across = 0; across < columns; ++across)
                texts[down] << sheet.Text(row + down, column + across);
        }
        return texts;
    }

    int usedRows() override
    {
        const auto holdsText = [](const SheetCell& cell) { return !TextOf(cell).isEmpty(); };
        size_t used = sheet.rows.size();
        while (used > 0 && std::ranges::none_of(sheet.rows[used - 1], holdsText))
            --used;
        return static_cast<int>(used);
    }

    void Write(int row, int column, const SheetRows& cells) override
    {
        m_host.Enter("Write");
        sheet.rows.resize(std::max(sheet.rows.size(), row - 1 + cells.size()));
        for (size_t down = 0; down < cells.size(); ++down) {
            auto& line = sheet.rows[row - 1 + down];
            line.resize(std::max(line.size(), column - 1 + cells[down].size()));
            std::ranges::copy(cells[down], line.begin() + (column - 1));
        }
    }

    void InsertRows(int row, int count) override
    {
        m_host.Enter("InsertRows");
        sheet.rows.resize(std::max(sheet.rows.size(), size_t(row - 1)));
        sheet.rows.insert(sheet.rows.begin() + (row - 1), size_t(count), {});
    }

    void DeleteRows(int row, int count) override
    {
        m_host.Enter("DeleteRows");
        const auto end = static_cast<int>(sheet.rows.size());
        sheet.rows.erase(sheet.rows.begin() + std::min(row - 1, end),
                         sheet.rows.begin() + std::min(row - 1 + count, end));
    }

    void FitRows(int, int) override { m_host.Enter("FitRows"); }
    void FitCells(const std::vector<std::pair<int, int>>&) override { m_host.Enter("FitCells"); }
    bool HasOwnFont(int, int) override { return sheet.hasOwnFonts; }
    void DrawBarcodes(int row, int, const QStringList& texts) override
    {
        m_host.Enter("DrawBarcodes");
        sheet.barcodes = QStringList(row - 1) + texts;
    }

    void ShowPlaces(int, int column, int, int places, bool) override
    {
        m_host.Enter("ShowPlaces");
        sheet.places[column] = places;
    }
    void KeepAsTexts(int column, int columns) override
    {
        m_host.Enter("KeepAsTexts");
        for (int end = column + columns; column < end; ++column)
            sheet.textColumns.insert(column);
    }

    void FitColumns(int) override { m_host.Enter("FitColumns"); }

    MemorySheet& sheet;

private:
    MemorySpreadsheet& m_host;
};

class WorkbookInMemory : public Workbook
{
public:
    WorkbookInMemory(MemorySpreadsheet& host, MemoryBook book) : m_host(host), m_book(std::move(book)) {}

    QStringList sheetNames() override
    {
        QStringList names;
        for (const MemorySheet& sheet : m_book)
            names << sheet.name;
        return names;
    }

    std::unique_ptr<Sheet> SheetAt(int index) override
    {
        return std::make_unique<SheetInMemory>(m_host, m_book.at(size_t(index)));
    }

    std::unique_ptr<Sheet> SheetNamed(const QString& name) override
    {
        const auto found = std::ranges::find_if(
            m_book, [&](const MemorySheet& sheet) { return sheet.name.compare(name, Qt::CaseInsensitive) == 0; });
        return found == m_book.end() ? nullptr : std::make_unique<SheetInMemory>(m_host, *found);
    }

    void SaveAs(const QString& path) override
    {
        m_host.Enter("SaveAs");
        WriteFile(path, path);
        m_host.books[path] = m_book;
    }

    void ExportPdf(Sheet& sheet, const QString& path) override
    {
        m_host.Enter("ExportPdf");
        const MemorySheet& shown = static_cast<SheetInMemory&>(sheet).sheet;
        QStringList lines;
        for (const QStringList& row : shown.Texts())
            lines << row.join('\t');
        WriteFile(path, lines.join('\n'));
        m_host.pdfs.push_back({path, shown});
    }

private:
    MemorySpreadsheet& m_host;
    MemoryBook m_book;
};

class ApplicationInMemory : public SpreadsheetApplication
{
public:
    explicit ApplicationInMemory(MemorySpreadsheet& host) : m_host(host) {}

    std::unique_ptr<Workbook> Open(const QString& path) override
    {
        m_host.Enter("Open");
        return std::make_unique<WorkbookInMemory>(m_host, m_host.BookAt(path));
    }

    std::unique_ptr<Workbook> Create() override
    {
        m_host.Enter("Create");
        return std::make_unique<WorkbookInMemory>(m_host, MemoryBook{{"Sheet1", {}}});
    }

private:
    MemorySpreadsheet& m_host;
};

} // namespace

QString MemorySheet::Text(int row, int column) const
{
    const bool isThere = row > 0 && size_t(row) <= rows.size() && column > 0 && size_t(column) <= rows[row - 1].size();
    return isThere ? TextOf(rows[row - 1][column - 1]) : QString();
}

std::vector<QStringList> MemorySheet::Texts() const
{
    std::vector<QStringList> texts;
    for (const auto& row : rows) {
        texts.emplace_back();
        for (const SheetCell& cell : row)
            texts.back() << TextOf(cell);
    }
    return texts;
}

MemorySheet SheetOfTexts(const QString& name, const std::vector<QStringList>& rows)
{
    MemorySheet sheet{name, {}};
    for (const QStringList& row : rows)
        sheet.rows.emplace_back(row.begin(), row.end());
    return sheet;
}

void MemorySpreadsheet::Run(const Job& job, Input userInput)
{
    input = userInput;
    m_cancelled = false;
    Enter("Run");
    if (whileRunning)
        whileRunning();
    if (m_cancelled)
        throw SpreadsheetError{SpreadsheetError::Kind::Cancelled, "已取消"};
    ApplicationInMemory application(*this);
    job(application);
}

void MemorySpreadsheet::Cancel()
{
    m_cancelled = true;
}

void MemorySpreadsheet::HandOver(const QString& path, const QString& caption, bool isNew)
{
    Enter("HandOver");
    handedOver.push_back({path, caption, isNew, BookAt(path)});
}

void MemorySpreadsheet::Enter(const QString& operation)
{
    ++calls[operation];
    const auto failure = failures.find(operation);
    if (failure != failures.end())
        throw SpreadsheetError(failure->second);
}

const MemoryBook& MemorySpreadsheet::BookAt(const QString& path)
{
    QFile file(path);
    const bool isNamed = books.contains(path);
    const QString name = !isNamed && file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : path;
    const auto found = books.find(name);
    if (found == books.end())
        throw SpreadsheetError{SpreadsheetError::Kind::CannotOpen, "打不开文件" + path};
    return found->second;
}

MemorySpreadsheet& UseMemorySpreadsheet(Program& program)
{
    auto host = std::make_unique<MemorySpreadsheet>();
    MemorySpreadsheet& memory = *host;
    program.spreadsheet = std::move(host);
    return memory;
}
