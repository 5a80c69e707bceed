#pragma once

// Rows as high as what stands in them.

#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/sheet/XSpreadsheet.hpp>
#include <com/sun/star/table/CellAddress.hpp>
#include <vector>

using UnoSpreadsheet = com::sun::star::uno::Reference<com::sun::star::sheet::XSpreadsheet>;

/// Rows that had one height become as high as the texts that wrap in them, and none lower than it was or than a least
/// height in hundredths of a millimetre. What is merged does not count.
void FitRowHeights(const UnoSpreadsheet& sheet, int firstRow, int count, int least);
/// The rows of these cells become as high as their texts need, where they wrap, be they merged with others or not.
void FitRowsToCells(const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& document,
                    const UnoSpreadsheet& sheet, const std::vector<com::sun::star::table::CellAddress>& cells);
