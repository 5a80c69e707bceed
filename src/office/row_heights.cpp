#include "office/row_heights.h"

#include <algorithm>
#include <com/sun/star/awt/Size.hpp>
#include <com/sun/star/beans/XMultiPropertySet.hpp>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/sheet/XCellAddressable.hpp>
#include <com/sun/star/sheet/XCellRangeMovement.hpp>
#include <com/sun/star/sheet/XCellRangesQuery.hpp>
#include <com/sun/star/sheet/XSheetCellCursor.hpp>
#include <com/sun/star/sheet/XSheetCellRanges.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/table/XColumnRowRange.hpp>
#include <com/sun/star/text/XTextRange.hpp>
#include <com/sun/star/util/XMergeable.hpp>
#include <optional>

using namespace com::sun::star;
using uno::Any;
using uno::Reference;
using uno::Sequence;
using uno::UNO_QUERY_THROW;

namespace {

constexpr int kRim = 120; // above and below a text, hundredths of a millimetre

constexpr int kColumns = 40; // that a form can have

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

/// A cell with all that it is merged with.
struct Wrapped
{
    Wrapped(const UnoSpreadsheet& sheet, const table::CellAddress& cell)
    {
        const auto range = sheet->getCellRangeByPosition(cell.Column, cell.Row, cell.Column, cell.Row);
        const rtl::OUString kLook[] = {"CharHeight", "IsTextWrapped"};
        const Sequence<Any> look =
            Reference<beans::XMultiPropertySet>(range, UNO_QUERY_THROW)->getPropertyValues({kLook, std::size(kLook)});
        look[0] >>= points;
        look[1] >>= wraps;
        if (!wraps)
            return;
        text =
            Reference<text::XTextRange>(sheet->getCellByPosition(cell.Column, cell.Row), UNO_QUERY_THROW)->getString();
        const auto whole = sheet->createCursorByRange(Reference<sheet::XSheetCellRange>(range, UNO_QUERY_THROW));
        whole->collapseToMergedArea();
        PropertiesOf(whole)->getPropertyValue("Size") >>= size;
    }

    /// No letter is wider than it is high.
    bool isSurelyOneLine() const
    {
        constexpr double kPoint = 2540.0 / 72;
        return !wraps || (text.getLength() * points * kPoint < size.Width - 2 * kRim && text.indexOf('\n') < 0);
    }

    float points = 0;
    bool wraps = false;
    rtl::OUString text;
    awt::Size size;
};

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

    /// The height that a cell wants in a width.
    int HeightFor(const table::CellAddress& cell, int width)
    {
        const Reference<sheet::XCellRangeMovement> copying(m_sheet, UNO_QUERY_THROW);
        const table::CellAddress first =
            Reference<sheet::XCellAddressable>(m_cell->getCellByPosition(0, 0), UNO_QUERY_THROW)->getCellAddress();
        copying->copyRange(first, {cell.Sheet, cell.Column, cell.Row, cell.Column, cell.Row});
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

/// What stands in hidden columns makes no row higher.
void LetHiddenColumnsBe(const UnoSpreadsheet& sheet, int firstRow, int count)
{
    const int lastRow = firstRow + count - 1;
    const Reference<sheet::XCellRangesQuery> cells(sheet->getCellRangeByPosition(0, firstRow, kColumns - 1, lastRow),
                                                   UNO_QUERY_THROW);
    std::vector<bool> isHidden(kColumns, true);
    for (const table::CellRangeAddress& shown : cells->queryVisibleCells()->getRangeAddresses())
        std::fill(isHidden.begin() + shown.StartColumn, isHidden.begin() + shown.EndColumn + 1, false);
    for (int column = 0; column < kColumns; ++column)
        if (isHidden[column])
            PropertiesOf(sheet->getCellRangeByPosition(column, firstRow, column, lastRow))
                ->setPropertyValue("IsTextWrapped", Any(false));
}

} // namespace

void FitRowHeights(const UnoSpreadsheet& sheet, int firstRow, int count, int least)
{
    if (count <= 0)
        return;
    LetHiddenColumnsBe(sheet, firstRow, count);
    const Reference<table::XTableRows> rows = RowsOf(sheet, firstRow, count);
    const int floor = std::max(least, HeightOf(rows->getByIndex(0)));
    PropertiesOf(rows)->setPropertyValue("OptimalHeight", Any(true));
    std::vector<int> heights(static_cast<size_t>(count));
    for (int row = 0; row < count; ++row)
        heights[row] = std::max(floor, HeightOf(rows->getByIndex(row)) + kRim);
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
        const Wrapped wrapped(sheet, cell);
        if (wrapped.isSurelyOneLine())
            continue;
        if (!measuring)
            measuring.emplace(document);
        const int lacking = measuring->HeightFor(cell, wrapped.size.Width) - wrapped.size.Height;
        if (lacking > 0) {
            const int own = HeightOf(RowsOf(sheet, cell.Row, 1)->getByIndex(0));
            SetHeight(sheet, cell.Row, 1, own + lacking);
        }
    }
}
