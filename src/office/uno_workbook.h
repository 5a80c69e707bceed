#pragma once

// The workbooks of a running LibreOffice.

#include "base/spreadsheet.h"
#include "office/office_process.h"
#include "office/uno_sheet.h"
#include "office/uno_text.h"

#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>

/// A file among the temporary ones, removed with this.
class PrivateFile
{
public:
    PrivateFile(const QString& folder, const QString& suffix);
    ~PrivateFile();
    PrivateFile(const PrivateFile&) = delete;
    PrivateFile& operator=(const PrivateFile&) = delete;

    const QString& path() const { return m_path; }

private:
    QString m_path;
};

class UnoWorkbook final : public Workbook
{
public:
    /// @param copy  that it was opened from, null for a new one
    UnoWorkbook(CallWatch& watch,
                const com::sun::star::uno::Reference<com::sun::star::sheet::XSpreadsheetDocument>& document,
                std::unique_ptr<PrivateFile> copy, QString temporaryFolder);
    ~UnoWorkbook() override;

    QStringList sheetNames() override;
    std::unique_ptr<Sheet> SheetAt(int index) override;
    std::unique_ptr<Sheet> SheetNamed(const QString& name) override;
    void SaveAs(const QString& path) override;
    void ExportPdf(Sheet& sheet, const QString& path) override;

private:
    std::unique_ptr<UnoSheet> UnoSheetAt(int index);
    void RefuseWhatXlsCuts(const QString& path);
    void Store(const QString& path, const QString& filter, const com::sun::star::uno::Any& filterData);

    CallWatch& m_watch;
    com::sun::star::uno::Reference<com::sun::star::sheet::XSpreadsheetDocument> m_document;
    std::unique_ptr<PrivateFile> m_copy;
    QString m_temporaryFolder;
};

class OfficeApplication final : public SpreadsheetApplication
{
public:
    OfficeApplication(CallWatch& watch, const OfficeProcess& office) : m_watch(watch), m_office(office) {}

    std::unique_ptr<Workbook> Open(const QString& path) override;
    std::unique_ptr<Workbook> Create() override;

private:
    std::unique_ptr<Workbook> Load(const rtl::OUString& url, const UnoProperties& options,
                                   std::unique_ptr<PrivateFile> copy, const QString& failure);

    CallWatch& m_watch;
    const OfficeProcess& m_office;
};
