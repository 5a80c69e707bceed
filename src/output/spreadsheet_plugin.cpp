#include "output/spreadsheet_plugin.h"

#include "handover/program.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibrary>

std::unique_ptr<SpreadsheetHost> LoadSpreadsheet(const QString& folder)
{
    using Make = SpreadsheetHost* (*)();
    QLibrary plugin(folder + "/warehouse_office.so");
    const auto make = reinterpret_cast<Make>(plugin.resolve("NewSpreadsheetHost"));
    if (!make)
        throw SpreadsheetError{
            SpreadsheetError::Kind::NotInstalled,
            QFileInfo::exists(plugin.fileName())
                ? "没有安装LibreOffice，不能使用Excel文件！请安装软件包 libreoffice-calc 后重新操作。"
                : "程序文件夹中没有 warehouse_office.so，不能使用Excel文件！请重新安装程序。"};
    return std::unique_ptr<SpreadsheetHost>(make());
}

SpreadsheetHost& SpreadsheetOf(Program& program)
{
    if (!program.spreadsheet)
        program.spreadsheet = LoadSpreadsheet(QCoreApplication::applicationDirPath());
    return *program.spreadsheet;
}
