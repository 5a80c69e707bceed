#pragma once

// A zip file in memory, nothing in it compressed: workbooks and documents as other programs write them, spelled out in
// the test.

#include <QByteArray>
#include <vector>

struct ZipEntry
{
    QByteArray name;
    QByteArray content;
};

QByteArray ZipOf(const std::vector<ZipEntry>& entries);

/// A .xlsx workbook with one sheet.
/// @param sheet  the element sheetData and what follows it
/// @param strings  the shared ones: elements si
/// @param formats  the elements numFmts and cellXfs of the styles
QByteArray XlsxOf(const QByteArray& sheetName, const QByteArray& sheet, const QByteArray& strings,
                  const QByteArray& formats);
