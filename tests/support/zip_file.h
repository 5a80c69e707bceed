#pragma once

// Workbooks in memory as other programs write them, spelled out in the test.

#include <QByteArray>

/// A .xlsx workbook with one sheet, nothing in it compressed.
/// @param sheet  the element sheetData and what follows it
/// @param strings  the shared ones: elements si
/// @param formats  the elements numFmts and cellXfs of the styles
QByteArray XlsxOf(const QByteArray& sheetName, const QByteArray& sheet, const QByteArray& strings,
                  const QByteArray& formats);
