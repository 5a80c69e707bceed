#include "office/row_heights.h"

#include <algorithm>
#include <com/sun/star/awt/Size.hpp>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/sheet/XCellAddressable.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XCellRangeMovement.hpp>
#include <com/sun/star/sheet/XSheetCellCursor.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/table/XColumnRowRange.hpp>
#include <com/sun/star/util/XMergeable.hpp>
#include <optional>

using namespace com::sun::star;
using uno::Any;
using uno::Reference;
using uno::UNO_QUERY_THROW;

namespace {

constexpr int kRim = 120; // above and below a text, hundredths of a millimetre

const rtl::OUString kMeasuring("~measuring~"); // a sheet that is there only meanwhile

Reference<beans::XPropertySet> PropertiesOf(const Reference<uno::XInterface>& object)
{
    return {object, UNO_QUERY_THROW};
}

Reference<table::XTableRows> RowsOf(const UnoSpreadsheet& sheet, int firstRow, int count)
{
    const auto cells = sheet->getCellRangeByPosition(0, firstRow, 0, firstRow + count - 1);
    return Reference<table::XColumnRowRange>(cells, UNO_QUERY_THROW)->getRows();
}

int HeightOf(const Any& row)
{
    sal_Int32 height = 0;
    Reference<beans::XPropertySet>(row, UNO_QUERY_THROW)->getPropertyValue("Height") >>= height;
    return height;
}

void SetHeight(const UnoSpreadsheet& sheet, int firstRow, int count, int height)
{
    PropertiesOf(RowsOf(sheet, firstRow, count))->setPropertyValue("Height", Any(sal_Int32(height)));
}

/// A sheet with one cell as wide as another one with all that it is merged with.
class Measuring
{
public:
    explicit Measuring(const Reference<frame::XModel>& document)
        : m_sheets(Reference<sheet::XSpreadsheetDocument>(document, UNO_QUERY_THROW)->getSheets())
    {
        m_sheets->insertNewByName(kMeasuring, sal_Int16(m_sheets->getElementNames().getLength()));
        m_sheet.set(m_sheets->getByName(kMeasuring), UNO_QUERY_THROW);
        m_cell = m_sheet->getCellRangeByPosition(0, 0, 0, 0);
    }
    ~Measuring()
    {
        try {
            m_sheets->removeByName(kMeasuring);
        } catch (const uno::Exception&) {
            return; // the office has ended
        }
    }
    Measuring(const Measuring&) = delete;
    Measuring& operator=(const Measuring&) = delete;

    /// The height that the first cell of a range wants in a width.
    int HeightFor(const table::CellRangeAddress& address, int width)
    {
        const Reference<sheet::XCellRangeMovement> copying(m_sheet, UNO_QUERY_THROW);
        const table::CellAddress first =
            Reference<sheet::XCellAddressable>(m_cell->getCellByPosition(0, 0), UNO_QUERY_THROW)->getCellAddress();
        copying->copyRange(
            first, {address.Sheet, address.StartColumn, address.StartRow, address.StartColumn, address.StartRow});
        Reference<util::XMergeable>(m_cell, UNO_QUERY_THROW)->merge(false);
        const Reference<table::XColumnRowRange> grid(m_cell, UNO_QUERY_THROW);
        PropertiesOf(grid->getColumns())->setPropertyValue("Width", Any(sal_Int32(width)));
        PropertiesOf(grid->getRows())->setPropertyValue("OptimalHeight", Any(true));
        return HeightOf(grid->getRows()->getByIndex(0)) + kRim;
    }

private:
    const Reference<sheet::XSpreadsheets> m_sheets;
    UnoSpreadsheet m_sheet;
    Reference<table::XCellRange> m_cell;
};

} // namespace

void FitRowHeights(const UnoSpreadsheet& sheet, int firstRow, int count, int least)
{
    if (count <= 0)
        return;
    const Reference<table::XTableRows> rows = RowsOf(sheet, firstRow, count);
    const int floor = std::max(least, HeightOf(rows->getByIndex(0)));
    PropertiesOf(rows)->setPropertyValue("OptimalHeight", Any(true));
    std::vector<int> heights;
    for (int row = 0; row < count; ++row)
        heights.push_back(std::max(floor, HeightOf(rows->getByIndex(row)) + kRim));
    // Rows side by side of one height take it in one call.
    for (auto first = heights.begin(); first != heights.end();) {
        const auto end = std::find_if(first, heights.end(), [&](int height) { return height != *first; });
        SetHeight(sheet, firstRow + int(first - heights.begin()), int(end - first), *first);
        first = end;
    }
}

void FitRowsToCells(const Reference<frame::XModel>& document, const UnoSpreadsheet& sheet,
                    const std::vector<table::CellAddress>& cells)
{
    std::optional<Measuring> measuring;
    for (const table::CellAddress& cell : cells) {
        const auto range = sheet->getCellRangeByPosition(cell.Column, cell.Row, cell.Column, cell.Row);
        bool wraps = false;
        PropertiesOf(range)->getPropertyValue("IsTextWrapped") >>= wraps;
        if (!wraps)
            continue;
        const auto whole = sheet->createCursorByRange(Reference<sheet::XSheetCellRange>(range, UNO_QUERY_THROW));
        whole->collapseToMergedArea();
        const auto address = Reference<sheet::XCellRangeAddressable>(whole, UNO_QUERY_THROW)->getRangeAddress();
        awt::Size size;
        PropertiesOf(whole)->getPropertyValue("Size") >>= size;
        if (!measuring)
            measuring.emplace(document);
        const int wanted = measuring->HeightFor(address, size.Width);
        if (wanted > size.Height) {
            const int own = HeightOf(RowsOf(sheet, address.StartRow, 1)->getByIndex(0));
            SetHeight(sheet, address.StartRow, 1, own + wanted - size.Height);
        }
    }
}
