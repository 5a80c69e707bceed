#include "office/workbook_file.h"

#include "base/spreadsheet.h"

#include <QFile>
#include <QFileInfo>

namespace {

constexpr QByteArrayView kCompoundFile("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1");
constexpr QByteArrayView kZipFile("PK\x03\x04");

/// A name as the folder of a compound file holds it.
QByteArray StreamName(const char16_t* name)
{
    const QString text = QString::fromUtf16(name) + QChar(0);
    return {reinterpret_cast<const char*>(text.utf16()), text.size() * 2};
}

bool HasStream(const QByteArray& content, const char16_t* name)
{
    return content.contains(StreamName(name));
}

} // namespace

WorkbookFile ReadWorkbookFile(const QString& path)
{
    const auto refuse = [&](const QString& why) -> SpreadsheetError {
        return {SpreadsheetError::Kind::CannotOpen, CannotOpenText(path, why)};
    };
    if (!QFileInfo::exists(path))
        throw refuse("文件不存在！");
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        throw refuse("文件不能读取，可能没有权限，或者正被其它程序占用！");
    const QByteArray content = file.readAll();
    if (file.error() != QFile::NoError)
        throw refuse("文件不能读取，可能没有权限，或者正被其它程序占用！");

    if (content.startsWith(kCompoundFile)) {
        if (HasStream(content, u"EncryptedPackage"))
            throw refuse("文件设有密码，请先取消密码后重新操作！");
        if (HasStream(content, u"Workbook") || HasStream(content, u"Book"))
            return {kXls, content};
    }
    if (content.startsWith(kZipFile) && content.contains("xl/workbook.xml"))
        return {kXlsx, content};
    throw refuse("文件不是Excel工作簿（.xls 或 .xlsx）！");
}

QString CannotOpenText(const QString& path, const QString& why)
{
    return QString("不能打开文件“%1”：").arg(QFileInfo(path).fileName()) + why;
}
