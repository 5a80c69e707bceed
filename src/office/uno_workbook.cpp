#include "office/uno_workbook.h"

#include "office/password_watch.h"
#include "office/uno_sheet.h"
#include "office/uno_text.h"
#include "office/workbook_file.h"

#include <QFileInfo>
#include <QSaveFile>
#include <QUuid>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/document/MacroExecMode.hpp>
#include <com/sun/star/document/UpdateDocMode.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <rtl/ref.hxx>

using namespace com::sun::star;
using uno::Any;
using uno::Reference;
using uno::UNO_QUERY;
using uno::UNO_QUERY_THROW;

namespace {

constexpr int kXlsRows = 65536;
constexpr int kXlsColumns = 256;

const SpreadsheetError kNoSuchSheet{SpreadsheetError::Kind::CannotOpen, "Excel文件中没有所需的工作表！"};

SpreadsheetError CannotSave(const QString& path, const QString& why)
{
    return {SpreadsheetError::Kind::CannotSave, QString("不能保存文件“%1”：").arg(QFileInfo(path).fileName()) + why};
}

const WorkbookFormat& FormatOf(const QString& path)
{
    for (const WorkbookFormat* format : {&kXls, &kXlsx})
        if (path.endsWith(QLatin1StringView(format->suffix), Qt::CaseInsensitive))
            return *format;
    throw CannotSave(path, "文件名必须以 .xls 或 .xlsx 结尾！");
}

/// Puts a file in place of another: whole, or not at all.
void Replace(const QString& path, const QString& source)
{
    QFile from(source);
    QSaveFile to(path);
    const bool isOpen = from.open(QIODevice::ReadOnly) && to.open(QIODevice::WriteOnly);
    const QByteArray content = isOpen ? from.readAll() : QByteArray();
    if (!isOpen || to.write(content) != content.size() || !to.commit())
        throw CannotSave(path, "文件夹不存在、没有写入的权限，或者磁盘已满！");
}

} // namespace

PrivateFile::PrivateFile(const QString& folder, const QString& suffix)
    : m_path(folder + '/' + QUuid::createUuid().toString(QUuid::Id128) + suffix)
{}

PrivateFile::~PrivateFile()
{
    QFile::remove(m_path);
}

UnoWorkbook::UnoWorkbook(CallWatch& watch, const Reference<sheet::XSpreadsheetDocument>& document,
                         std::unique_ptr<PrivateFile> copy, QString temporaryFolder)
    : m_watch(watch), m_document(document), m_copy(std::move(copy)), m_temporaryFolder(std::move(temporaryFolder))
{}

UnoWorkbook::~UnoWorkbook()
{
    try {
        m_watch.Call({SpreadsheetError::Kind::Stopped, {}},
                     [&] { Reference<util::XCloseable>(m_document, UNO_QUERY_THROW)->close(true); });
    } catch (const SpreadsheetError&) {
        return; // the office has ended, and the workbook with it
    }
}

QStringList UnoWorkbook::sheetNames()
{
    return m_watch.Call(kNoSuchSheet, [&] {
        QStringList names;
        for (const rtl::OUString& name : m_document->getSheets()->getElementNames())
            names.append(FromUno(name));
        return names;
    });
}

std::unique_ptr<UnoSheet> UnoWorkbook::UnoSheetAt(int index)
{
    return m_watch.Call(kNoSuchSheet, [&] {
        const Reference<container::XIndexAccess> sheets(m_document->getSheets(), UNO_QUERY_THROW);
        return std::make_unique<UnoSheet>(m_watch,
                                          Reference<sheet::XSpreadsheet>(sheets->getByIndex(index), UNO_QUERY_THROW),
                                          Reference<frame::XModel>(m_document, UNO_QUERY_THROW));
    });
}

std::unique_ptr<Sheet> UnoWorkbook::SheetAt(int index)
{
    return UnoSheetAt(index);
}

std::unique_ptr<Sheet> UnoWorkbook::SheetNamed(const QString& name)
{
    const QStringList names = sheetNames();
    for (qsizetype index = 0; index < names.size(); ++index)
        if (names[index].compare(name, Qt::CaseInsensitive) == 0)
            return SheetAt(int(index));
    return nullptr;
}

void UnoWorkbook::RefuseWhatXlsCuts(const QString& path)
{
    const int count = int(sheetNames().size());
    for (int index = 0; index < count; ++index) {
        const std::unique_ptr<UnoSheet> sheet = UnoSheetAt(index);
        if (sheet->usedRows() > kXlsRows || sheet->usedColumns() > kXlsColumns)
            throw CannotSave(path, ".xls 文件最多 65536 行、256 列，请另存为 .xlsx 文件！");
    }
}

void UnoWorkbook::Store(const QString& path, const QString& filter, const Any& filterData)
{
    // Among its own files first: so nothing of the office's stays beside the file.
    const PrivateFile stored(m_temporaryFolder, '.' + QFileInfo(path).suffix());
    m_watch.Call(CannotSave(path, "LibreOffice不能写入这种内容，或者磁盘已满！"), [&] {
        Reference<frame::XStorable>(m_document, UNO_QUERY_THROW)
            ->storeToURL(FileUrl(stored.path()),
                         Properties({Property("FilterName", Any(ToUno(filter))), Property("FilterData", filterData)}));
    });
    Replace(path, stored.path());
}

void UnoWorkbook::SaveAs(const QString& path)
{
    const WorkbookFormat& format = FormatOf(path);
    if (&format == &kXls)
        RefuseWhatXlsCuts(path);
    Store(path, format.filter, Any(UnoProperties()));
}

void UnoWorkbook::ExportPdf(Sheet& sheet, const QString& path)
{
    const Reference<uno::XInterface> selection(dynamic_cast<UnoSheet&>(sheet).uno());
    Store(path, "calc_pdf_Export", Any(Properties({Property("Selection", Any(selection))})));
}

std::unique_ptr<Workbook> OfficeApplication::Open(const QString& path)
{
    const WorkbookFile file = ReadWorkbookFile(path);
    auto copy = std::make_unique<PrivateFile>(m_office.temporaryFolder(), file.format.suffix);
    QFile copied(copy->path());
    if (!copied.open(QIODevice::WriteOnly) || copied.write(file.content) != file.content.size() || !copied.flush())
        throw SpreadsheetError{SpreadsheetError::Kind::CannotOpen, CannotOpenText(path, "磁盘已满！")};

    const rtl::OUString url = FileUrl(copy->path());
    const rtl::Reference<PasswordWatch> password(new PasswordWatch);
    const Reference<task::XInteractionHandler> handler(password.get());
    try {
        return Load(url,
                    Properties({Property("Hidden", Any(true)), Property("FilterName", Any(ToUno(file.format.filter))),
                                Property("InteractionHandler", Any(handler)),
                                Property("MacroExecutionMode", Any(document::MacroExecMode::NEVER_EXECUTE)),
                                Property("UpdateDocMode", Any(document::UpdateDocMode::NO_UPDATE))}),
                    std::move(copy), CannotOpenText(path, "文件已损坏，或者不是Excel工作簿！"));
    } catch (SpreadsheetError& error) {
        if (error.kind == SpreadsheetError::Kind::CannotOpen && password->wasAsked())
            error.description = CannotOpenText(path, "文件设有密码，请先取消密码后重新操作！");
        throw;
    }
}

std::unique_ptr<Workbook> OfficeApplication::Create()
{
    std::unique_ptr<Workbook> workbook = Load("private:factory/scalc", Properties({Property("Hidden", Any(true))}),
                                              nullptr, "不能新建Excel文件，请重新操作！");
    const std::unique_ptr<Sheet> sheet = workbook->SheetAt(0);
    m_watch.Call(kNoSuchSheet, [&] {
        Reference<container::XNamed>(dynamic_cast<UnoSheet&>(*sheet).uno(), UNO_QUERY_THROW)->setName("Sheet1");
    });
    return workbook;
}

std::unique_ptr<Workbook> OfficeApplication::Load(const rtl::OUString& url, const UnoProperties& options,
                                                  std::unique_ptr<PrivateFile> copy, const QString& failure)
{
    const SpreadsheetError cannotOpen{SpreadsheetError::Kind::CannotOpen, failure};
    const auto loaded =
        m_watch.Call(cannotOpen, [&] { return m_office.desktop()->loadComponentFromURL(url, "_blank", 0, options); });
    const Reference<sheet::XSpreadsheetDocument> document(loaded, UNO_QUERY);
    if (!document.is())
        throw cannotOpen;
    return std::make_unique<UnoWorkbook>(m_watch, document, std::move(copy), m_office.temporaryFolder());
}
