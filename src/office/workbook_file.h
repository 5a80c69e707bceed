#pragma once

// What a file is, told by its first bytes: LibreOffice itself would take anything for a table of text.

#include <QByteArray>
#include <QString>

struct WorkbookFormat
{
    const char* suffix; // ".xls"
    const char* filter; // by which LibreOffice reads and writes it
};

inline constexpr WorkbookFormat kXls{".xls", "MS Excel 97"};
inline constexpr WorkbookFormat kXlsx{".xlsx", "Calc MS Excel 2007 XML"};

struct WorkbookFile
{
    WorkbookFormat format;
    QByteArray content;
};

/// Throws SpreadsheetError when it cannot be read or is no workbook.
WorkbookFile ReadWorkbookFile(const QString& path);
/// "不能打开文件“book.xls”：" and why.
QString CannotOpenText(const QString& path, const QString& why);
