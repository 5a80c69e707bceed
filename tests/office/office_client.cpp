// A program with a workbook, for the tests to end in the middle of its work. It has no event loop.
// Usage: office_client [FILE]: with a file 200 lines are saved in it; without one it works until it is ended.

#include "output/spreadsheet_plugin.h"

#include <cstdio>

namespace {

void Save(SpreadsheetApplication& application, const QString& path)
{
    const auto workbook = application.Create();
    workbook->SheetAt(0)->Write(1, 1, SheetRows(200, {QString("001"), 1.5}));
    workbook->SaveAs(path);
}

[[noreturn]] void WorkOn(SpreadsheetApplication& application)
{
    const auto workbook = application.Create();
    const auto sheet = workbook->SheetAt(0);
    std::puts("working");
    std::fflush(stdout);
    while (true)
        sheet->Write(1, 1, SheetRows(2000, std::vector<SheetCell>(19, 1.5)));
}

} // namespace

int main(int argc, char** argv)
{
    try {
        const auto host = LoadSpreadsheet(OFFICE_FOLDER);
        host->Run([&](SpreadsheetApplication& application) {
            if (argc > 1)
                Save(application, QString::fromLocal8Bit(argv[1]));
            else
                WorkOn(application);
        });
        return 0;
    } catch (const SpreadsheetError& error) {
        std::fprintf(stderr, "%s\n", error.description.toUtf8().constData());
        return 1;
    }
}
