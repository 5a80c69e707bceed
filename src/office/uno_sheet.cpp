#include "office/uno_sheet.h"

#include "office/cell_text.h"
#include "office/row_heights.h"
#include "office/sheet_bars.h"
#include "office/uno_text.h"

#include <algorithm>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/sheet/CellFlags.hpp>
#include <com/sun/star/sheet/FormulaResult.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XCellRangeData.hpp>
#include <com/sun/star/sheet/XCellRangesQuery.hpp>
#include <com/sun/star/sheet/XSheetCellRanges.hpp>
#include <com/sun/star/sheet/XUniqueCellFormatRangesSupplier.hpp>
#include <com/sun/star/table/CellHoriJustify.hpp>
#include <com/sun/star/table/CellVertJustify2.hpp>
#include <com/sun/star/table/XColumnRowRange.hpp>
#include <com/sun/star/util/Date.hpp>
#include <com/sun/star/util/NumberFormat.hpp>
#include <com/sun/star/util/XNumberFormatTypes.hpp>
#include <com/sun/star/util/XNumberFormatsSupplier.hpp>

using namespace com::sun::star;
using uno::Any;
using uno::Reference;
using uno::Sequence;
using uno::UNO_QUERY_THROW;

namespace {

using Areas = Sequence<table::CellRangeAddress>;

constexpr sal_Int16 kAnyContent =
    sheet::CellFlags::VALUE | sheet::CellFlags::DATETIME | sheet::CellFlags::STRING | sheet::CellFlags::FORMULA;

const SpreadsheetError kRefused{SpreadsheetError::Kind::Stopped, "LibreOffice不能处理这个工作表，操作没有完成！"};

constexpr int kBarcodeRow = 1100; // hundredths of a millimetre
constexpr float kSmallText = 8;   // points

/// A block of cells while it is read.
struct Block
{
    Reference<table::XCellRange> range;
    int firstRow; // from 0, as LibreOffice counts
    int firstColumn;
    Sequence<Sequence<Any>> values;
    std::vector<QStringList> texts;
};

/// Null for what is no number.
const double* NumberIn(const Any& value)
{
    return value.getValueTypeClass() == uno::TypeClass_DOUBLE ? static_cast<const double*>(value.getValue()) : nullptr;
}

QString ValueText(const Any& value)
{
    if (const double* number = NumberIn(value))
        return CellNumberText(*number);
    rtl::OUString text;
    value >>= text;
    return FromUno(text);
}

void FillTexts(Block& block)
{
    block.texts.reserve(block.values.getLength());
    for (const Sequence<Any>& row : std::as_const(block.values)) {
        QStringList& texts = block.texts.emplace_back();
        texts.reserve(row.getLength());
        for (const Any& value : row)
            texts.append(ValueText(value));
    }
}

/// The numbers of these areas are days.
void ShowAsDates(Block& block, const Areas& areas, const QDate& firstDay)
{
    for (const table::CellRangeAddress& area : areas) {
        const int lastRow = std::min(area.EndRow - block.firstRow, block.values.getLength() - 1);
        for (int row = std::max(area.StartRow - block.firstRow, 0); row <= lastRow; ++row) {
            const Sequence<Any>& values = std::as_const(block.values)[row];
            const int lastColumn = std::min(area.EndColumn - block.firstColumn, values.getLength() - 1);
            for (int column = std::max(area.StartColumn - block.firstColumn, 0); column <= lastColumn; ++column)
                if (const double* number = NumberIn(values[column]))
                    block.texts[row][column] = CellDateText(*number, firstDay);
        }
    }
}

Reference<beans::XPropertySet> PropertiesOf(const Reference<uno::XInterface>& object)
{
    return {object, UNO_QUERY_THROW};
}

Any FontOf(const Reference<table::XCell>& cell)
{
    return PropertiesOf(cell)->getPropertyValue("CharFontName");
}

bool IsDateFormat(const Reference<frame::XModel>& document, sal_Int32 key)
{
    const Reference<util::XNumberFormatsSupplier> supplier(document, UNO_QUERY_THROW);
    sal_Int16 type = 0;
    supplier->getNumberFormats()->getByKey(key)->getPropertyValue("Type") >>= type;
    return (type & util::NumberFormat::DATETIME) != 0;
}

/// The areas with a date format, for the formulas among them: their format is not asked cell by cell.
std::vector<Areas> DateFormatAreas(const Block& block, const Reference<frame::XModel>& document)
{
    const Reference<sheet::XUniqueCellFormatRangesSupplier> supplier(block.range, UNO_QUERY_THROW);
    const Reference<container::XIndexAccess> formats = supplier->getUniqueCellFormatRanges();
    std::vector<Areas> areas;
    for (sal_Int32 index = 0; index < formats->getCount(); ++index) {
        const Reference<sheet::XSheetCellRanges> ranges(formats->getByIndex(index), UNO_QUERY_THROW);
        sal_Int32 key = 0;
        PropertiesOf(ranges)->getPropertyValue("NumberFormat") >>= key;
        if (IsDateFormat(document, key))
            areas.push_back(ranges->getRangeAddresses());
    }
    return areas;
}

/// Which numbers are days: asked for the block as a whole, never cell by cell.
void FindDates(Block& block, const Reference<frame::XModel>& document)
{
    util::Date first;
    PropertiesOf(document)->getPropertyValue("NullDate") >>= first;
    const QDate firstDay(first.Year, first.Month, first.Day);

    const Reference<sheet::XCellRangesQuery> query(block.range, UNO_QUERY_THROW);
    ShowAsDates(block, query->queryContentCells(sheet::CellFlags::DATETIME)->getRangeAddresses(), firstDay);
    if (query->queryFormulaCells(sheet::FormulaResult::VALUE)->getRangeAddresses().getLength() == 0)
        return;
    for (const Areas& areas : DateFormatAreas(block, document))
        ShowAsDates(block, areas, firstDay);
}

Sequence<Any> RowValues(const std::vector<SheetCell>& cells)
{
    Sequence<Any> values(sal_Int32(cells.size()));
    Any* value = values.getArray();
    for (const SheetCell& cell : cells) {
        if (const double* number = std::get_if<double>(&cell))
            *value++ <<= *number;
        else
            *value++ <<= ToUno(std::get<QString>(cell));
    }
    return values;
}

} // namespace

UnoSheet::UnoSheet(CallWatch& watch, const Reference<sheet::XSpreadsheet>& sheet,
                   const Reference<frame::XModel>& document)
    : m_watch(watch), m_sheet(sheet), m_document(document)
{}

std::vector<QStringList> UnoSheet::Read(int row, int column, int rows, int columns)
{
    if (rows <= 0 || columns <= 0)
        return {};
    return m_watch.Call(kRefused, [&] {
        Block block{m_sheet->getCellRangeByPosition(column - 1, row - 1, column + columns - 2, row + rows - 2),
                    row - 1,
                    column - 1,
                    {},
                    {}};
        block.values = Reference<sheet::XCellRangeData>(block.range, UNO_QUERY_THROW)->getDataArray();
        FillTexts(block);
        FindDates(block, m_document);
        return block.texts;
    });
}

Areas UnoSheet::UsedAreas()
{
    return m_watch.Call(kRefused, [&] {
        const Reference<sheet::XCellRangesQuery> query(m_sheet, UNO_QUERY_THROW);
        return query->queryContentCells(kAnyContent)->getRangeAddresses();
    });
}

int UnoSheet::usedRows()
{
    int last = 0;
    for (const table::CellRangeAddress& area : UsedAreas())
        last = std::max(last, area.EndRow + 1);
    return last;
}

int UnoSheet::usedColumns()
{
    int last = 0;
    for (const table::CellRangeAddress& area : UsedAreas())
        last = std::max(last, area.EndColumn + 1);
    return last;
}

void UnoSheet::Write(int row, int column, const SheetRows& cells)
{
    // Rows of one length are one block; beyond its own last cell a row is left as it is.
    for (size_t first = 0, next = 0; first < cells.size(); first = next) {
        const size_t columns = cells[first].size();
        while (next < cells.size() && cells[next].size() == columns)
            ++next;
        if (columns > 0)
            WriteBlock(row + int(first), column, std::span(cells).subspan(first, next - first));
    }
}

void UnoSheet::WriteBlock(int row, int column, std::span<const std::vector<SheetCell>> cells)
{
    Sequence<Sequence<Any>> values(sal_Int32(cells.size()));
    std::ranges::transform(cells, values.getArray(), RowValues);
    m_watch.Call(kRefused, [&] {
        const int lastColumn = column + int(cells.front().size()) - 2;
        const int lastRow = row + int(cells.size()) - 2;
        const Reference<sheet::XCellRangeData> range(
            m_sheet->getCellRangeByPosition(column - 1, row - 1, lastColumn, lastRow), UNO_QUERY_THROW);
        range->setDataArray(values);
    });
}

void UnoSheet::InsertRows(int row, int count)
{
    m_watch.Call(kRefused, [&] {
        Reference<table::XColumnRowRange>(m_sheet, UNO_QUERY_THROW)->getRows()->insertByIndex(row - 1, count);
    });
}

void UnoSheet::DeleteRows(int row, int count)
{
    m_watch.Call(kRefused, [&] {
        Reference<table::XColumnRowRange>(m_sheet, UNO_QUERY_THROW)->getRows()->removeByIndex(row - 1, count);
    });
}

void UnoSheet::FitRows(int row, int count)
{
    m_watch.Call(kRefused, [&] { FitRowHeights(m_sheet, row - 1, count, 0); });
}

void UnoSheet::FitCells(const std::vector<std::pair<int, int>>& cells)
{
    m_watch.Call(kRefused, [&] {
        std::vector<table::CellAddress> addresses;
        addresses.reserve(cells.size());
        for (const sal_Int16 sheet = SheetIndex(); const auto& [row, column] : cells)
            addresses.emplace_back(sheet, column - 1, row - 1);
        FitRowsToCells(m_document, m_sheet, addresses);
    });
}

bool UnoSheet::HasOwnFont(int row, int column)
{
    return m_watch.Call(kRefused, [&] {
        const Any font = FontOf(m_sheet->getCellByPosition(column - 1, row - 1));
        return font != FontOf(m_sheet->getCellByPosition(column, row - 1)) &&
               HasFont(m_document, font.get<rtl::OUString>());
    });
}

void UnoSheet::DrawBarcodes(int row, int column, const QStringList& texts)
{
    const auto count = int(texts.size());
    if (count == 0)
        return;
    m_watch.Call(kRefused, [&] {
        const Any textFont = FontOf(m_sheet->getCellByPosition(column, row - 1));
        ShowSmallTexts(m_sheet->getCellRangeByPosition(column - 1, row - 1, column - 1, row + count - 2), textFont);
        FitRowHeights(m_sheet, row - 1, count, kBarcodeRow);
        const auto page = ShapesOf(m_document, SheetIndex());
        for (int line = 0; line < count; ++line)
            DrawBars(m_document, page, m_sheet->getCellByPosition(column - 1, row + line - 1), Code128(texts[line]));
    });
}

/// At the foot of the cells, whatever they looked like.
void UnoSheet::ShowSmallTexts(const Reference<table::XCellRange>& cells, const Any& font)
{
    const Any height(kSmallText);
    SetProperties(cells,
                  {Property("CharFontName", font), Property("CharFontNameAsian", font), Property("CharHeight", height),
                   Property("CharHeightAsian", height), Property("HoriJustify", Any(table::CellHoriJustify_CENTER)),
                   Property("IsTextWrapped", Any(false)), Property("NumberFormat", TextFormat()),
                   Property("ShrinkToFit", Any(true)),
                   Property("VertJustify", Any(sal_Int32(table::CellVertJustify2::BOTTOM)))});
}

sal_Int16 UnoSheet::SheetIndex() const
{
    return Reference<sheet::XCellRangeAddressable>(m_sheet, UNO_QUERY_THROW)->getRangeAddress().Sheet;
}

Any UnoSheet::TextFormat() const
{
    const Reference<util::XNumberFormatsSupplier> supplier(m_document, UNO_QUERY_THROW);
    const Reference<util::XNumberFormatTypes> formats(supplier->getNumberFormats(), UNO_QUERY_THROW);
    return Any(formats->getStandardFormat(util::NumberFormat::TEXT, lang::Locale()));
}

void UnoSheet::ShowPlaces(int row, int column, int rows, int places, bool grouping)
{
    m_watch.Call(kRefused, [&] {
        const Reference<beans::XPropertySet> cells =
            PropertiesOf(m_sheet->getCellRangeByPosition(column - 1, row - 1, column - 1, row + rows - 2));
        const Reference<util::XNumberFormatsSupplier> supplier(m_document, UNO_QUERY_THROW);
        const Reference<util::XNumberFormats> formats = supplier->getNumberFormats();
        sal_Int32 own = 0;
        if (!(cells->getPropertyValue("NumberFormat") >>= own)) // one here, another there
            return;
        lang::Locale locale;
        formats->getByKey(own)->getPropertyValue("Locale") >>= locale;
        if (own != Reference<util::XNumberFormatTypes>(formats, UNO_QUERY_THROW)->getStandardIndex(locale))
            return;
        const rtl::OUString code =
            ToUno((grouping ? QString("#,##0") : QString("0")) + (places > 0 ? "." + QString(places, '0') : QString()));
        const lang::Locale english("en", "US", {});
        const sal_Int32 known = formats->queryKey(code, english, false);
        cells->setPropertyValue("NumberFormat", Any(known >= 0 ? known : formats->addNew(code, english)));
    });
}

void UnoSheet::KeepAsTexts(int column, int columns)
{
    m_watch.Call(kRefused, [&] {
        const auto whole = Reference<table::XColumnRowRange>(m_sheet, UNO_QUERY_THROW)->getColumns();
        for (int each = column - 1; each < column + columns - 1; ++each)
            Reference<beans::XPropertySet>(whole->getByIndex(each), UNO_QUERY_THROW)
                ->setPropertyValue("NumberFormat", TextFormat());
    });
}

void UnoSheet::FitColumns(int columns)
{
    m_watch.Call(kRefused, [&] {
        const Reference<table::XCellRange> cells = m_sheet->getCellRangeByPosition(0, 0, columns - 1, 0);
        const auto fitted = Reference<table::XColumnRowRange>(cells, UNO_QUERY_THROW)->getColumns();
        Reference<beans::XPropertySet>(fitted, UNO_QUERY_THROW)->setPropertyValue("OptimalWidth", Any(true));
    });
}
