#pragma once

// The spreadsheet application in memory: tests put workbooks in, look at what was written, and make any operation
// fail. A job runs at once, on the caller's own thread.

#include "base/spreadsheet.h"

#include <map>
#include <optional>
#include <set>

struct MemorySheet
{
    QString name;
    SheetRows rows; // row 1 is rows[0]; rows may be of different lengths
    bool hasOwnFonts = false;
    QStringList barcodes = {};      // as drawn, from row 1 on
    std::map<int, int> places = {}; // decimals that the numbers of a column show
    std::set<int> textColumns = {}; // that keep what is typed as a text

    /// The text as Sheet::Read gives it, empty outside. Counted from 1.
    QString Text(int row, int column) const;
    /// All cells as texts.
    std::vector<QStringList> Texts() const;
};

using MemoryBook = std::vector<MemorySheet>;

/// A sheet of texts.
MemorySheet SheetOfTexts(const QString& name, const std::vector<QStringList>& rows);

class MemorySpreadsheet : public SpreadsheetHost
{
public:
    void Run(const Job& job, Input input = Input::Waits) override;
    void Cancel() override;
    void HandOver(const QString& path, const QString& caption, bool isNew) override;

    /// What opens by a path. A saved workbook comes in here, and a file with its key for bytes to the path, so that a
    /// copy of that file, or one out of the database, opens as the same workbook. Any other file cannot be opened.
    std::map<QString, MemoryBook> books;
    /// By the operation's name: Run, Open, Create, Read, Write, InsertRows, DeleteRows, KeepAsTexts,
    /// FitColumns, SaveAs, ExportPdf,
    /// HandOver.
    std::map<QString, SpreadsheetError> failures;
    /// What the user does while a job runs.
    std::function<void()> whileRunning;

    struct Pdf
    {
        QString path; // of a file with the sheet's texts
        MemorySheet sheet;
    };
    std::vector<Pdf> pdfs;

    struct HandedOver
    {
        QString path;
        QString caption;
        bool isNew;
        MemoryBook book;
    };
    std::vector<HandedOver> handedOver;

    /// How often each operation was called.
    std::map<QString, int> calls;
    /// The answer to user input of the last Run.
    Input input = Input::Waits;

    /// Counts the call, and throws where it is to fail.
    void Enter(const QString& operation);
    /// The workbook that opens by a path. Throws CannotOpen.
    const MemoryBook& BookAt(const QString& path);

private:
    bool m_cancelled = false;
};

struct Program;
/// Puts it into a program, which owns it from then on.
MemorySpreadsheet& UseMemorySpreadsheet(Program& program);
