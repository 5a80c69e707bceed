#pragma once

// One sheet of a workbook that LibreOffice holds. A block is read or written in one call, whatever its size: it is the
// number of calls that takes time.

#include "base/spreadsheet.h"
#include "office/call_watch.h"

#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/sheet/XSpreadsheet.hpp>
#include <com/sun/star/table/CellRangeAddress.hpp>
#include <span>

class UnoSheet final : public Sheet
{
public:
    UnoSheet(CallWatch& watch, const com::sun::star::uno::Reference<com::sun::star::sheet::XSpreadsheet>& sheet,
             const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& document);

    std::vector<QStringList> Read(int row, int column, int rows, int columns) override;
    int usedRows() override;
    void Write(int row, int column, const SheetRows& cells) override;
    void InsertRows(int row, int count) override;
    void DeleteRows(int row, int count) override;
    void FitRows(int row, int count) override;
    void FitCells(const std::vector<std::pair<int, int>>& cells) override;
    bool HasOwnFont(int row, int column) override;
    void DrawBarcodes(int row, int column, const QStringList& texts) override;
    void ShowPlaces(int row, int column, int rows, int places, bool grouping) override;
    void KeepAsTexts(int column, int columns) override;
    void FitColumns(int columns) override;

    /// The last column that holds anything, 0 for an empty sheet.
    int usedColumns();
    const com::sun::star::uno::Reference<com::sun::star::sheet::XSpreadsheet>& uno() const { return m_sheet; }

private:
    com::sun::star::uno::Sequence<com::sun::star::table::CellRangeAddress> UsedAreas();
    void ShowSmallTexts(const com::sun::star::uno::Reference<com::sun::star::table::XCellRange>& cells,
                        const com::sun::star::uno::Any& font);
    com::sun::star::uno::Any TextFormat() const;
    sal_Int16 SheetIndex() const;
    void WriteBlock(int row, int column, std::span<const std::vector<SheetCell>> cells);

    CallWatch& m_watch;
    com::sun::star::uno::Reference<com::sun::star::sheet::XSpreadsheet> m_sheet;
    com::sun::star::uno::Reference<com::sun::star::frame::XModel> m_document;
};
