#pragma once

// Barcodes drawn as shapes into the cells of a sheet.

#include "office/barcode.h"

#include <com/sun/star/drawing/XShapes.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/table/XCell.hpp>

/// Whether LibreOffice has a font of this name itself, not one that stands for it.
bool HasFont(const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& document, const rtl::OUString& name);

/// The page that the shapes of a sheet, by its place, are drawn on.
com::sun::star::uno::Reference<com::sun::star::drawing::XShapes>
ShapesOf(const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& document, int sheet);
/// Draws bars into a cell above a line of small text. Nothing where they would be too narrow to be read.
void DrawBars(const com::sun::star::uno::Reference<com::sun::star::frame::XModel>& document,
              const com::sun::star::uno::Reference<com::sun::star::drawing::XShapes>& page,
              const com::sun::star::uno::Reference<com::sun::star::table::XCell>& cell, const BarWidths& bars);
