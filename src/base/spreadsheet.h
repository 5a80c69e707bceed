#pragma once

// The spreadsheet application as a seam: the program fills and reads workbooks through these operations alone. The
// office plug-in stands behind them, a test puts a workbook in memory there. Rows, columns count from 1. Every
// operation throws SpreadsheetError.

#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <utility>
#include <variant>
#include <vector>

struct SpreadsheetError
{
    enum class Kind
    {
        NotInstalled, // the application, or the part of it that is needed
        CannotOpen,   // missing, damaged, locked, protected with a password, or no workbook at all
        CannotSave,   // no place, no right, or more than the format holds
        NoDisplay,    // a window was asked for where none can be shown
        Busy,         // it works on another workbook of this program
        Cancelled,    // by the user
        Stopped,      // it ended, or did not answer in time
    };
    Kind kind;
    QString description; // for the user, in full sentences
};

/// A text is stored as text, "001" stays "001"; a number as a number. An empty text empties the cell.
using SheetCell = std::variant<QString, double>;
using SheetRows = std::vector<std::vector<SheetCell>>;

class Sheet // goes before its workbook
{
public:
    virtual ~Sheet() = default;
    /// The texts of a block, in one call. A number is its plain text with up to 15 digits, whole numbers in full; a
    /// date is YYYY-MM-DD, with a time behind it where it has one; a formula gives its result; of a merged block the
    /// first cell has the text.
    virtual std::vector<QStringList> Read(int row, int column, int rows, int columns) = 0;
    /// The last row that holds anything, 0 for an empty sheet.
    virtual int usedRows() = 0;
    /// In one call. Formats of the cells stay.
    virtual void Write(int row, int column, const SheetRows& cells) = 0;
    /// In front of a row; the new rows take format and height of the row above.
    virtual void InsertRows(int row, int count) = 0;
    virtual void DeleteRows(int row, int count) = 0;
    /// Makes rows as high as the texts that wrap in them. Rows of one height become no lower than they were.
    virtual void FitRows(int row, int count) = 0;
    /// Makes rows high enough for single cells whose text wraps, merged ones too.
    /// @param cells  their rows and columns
    virtual void FitCells(const std::vector<std::pair<int, int>>& cells) = 0;
    /// Whether a cell has a font of its own, other than the cell to its right, that is there: a barcode font may be.
    virtual bool HasOwnFont(int row, int column) = 0;
    /// Draws texts as barcodes into the cells of a column, from a row on, above their text, which becomes small, and
    /// fits the rows. A text that no bars can show stands alone.
    virtual void DrawBarcodes(int row, int column, const QStringList& texts) = 0;
    /// Numbers of a column show this many decimals, unless they have a format of their own.
    virtual void ShowPlaces(int row, int column, int rows, int places, bool grouping) = 0;
    /// What is typed into these columns is kept as a text: 001 stays 001.
    virtual void KeepAsTexts(int column, int columns) = 0;
    /// Makes the first columns as wide as their texts.
    virtual void FitColumns(int columns) = 0;
};

/// Closes without saving when it goes.
class Workbook
{
public:
    virtual ~Workbook() = default;
    virtual QStringList sheetNames() = 0;
    /// By its place from 0.
    virtual std::unique_ptr<Sheet> SheetAt(int index) = 0;
    /// By its name whatever the case; null when there is none.
    virtual std::unique_ptr<Sheet> SheetNamed(const QString& name) = 0;
    /// As .xls or .xlsx, by the ending of the name.
    virtual void SaveAs(const QString& path) = 0;
    /// The pages of one sheet.
    virtual void ExportPdf(Sheet& sheet, const QString& path) = 0;
};

class SpreadsheetApplication
{
public:
    virtual ~SpreadsheetApplication() = default;
    /// Opens a private copy of a .xls or .xlsx workbook; the file itself is not held.
    virtual std::unique_ptr<Workbook> Open(const QString& path) = 0;
    /// With one sheet, Sheet1.
    virtual std::unique_ptr<Workbook> Create() = 0;
};

class SpreadsheetHost
{
public:
    using Job = std::function<void(SpreadsheetApplication&)>;

    /// Whether the user can act while a job runs.
    enum class Input
    {
        Waits,  // keys and clicks are kept until the end
        Passes, // the caller shows a modal window with a key that calls Cancel
    };

    virtual ~SpreadsheetHost() = default;
    /// Runs a job, starting the application if it does not run yet, and returns when the job is done. Windows are
    /// painted meanwhile; the job itself must touch none, nor the database. Throws what the job throws.
    virtual void Run(const Job& job, Input input = Input::Waits) = 0;
    /// Ends the running job: Run throws Cancelled. Nothing to do when none runs.
    virtual void Cancel() = 0;
    /// Opens a workbook in a window of the user's own, which outlives the program.
    /// @param caption  of the window
    /// @param isNew    the window shows an unnamed copy and the file may go when this returns; otherwise the file
    /// itself
    virtual void HandOver(const QString& path, const QString& caption, bool isNew) = 0;
};
