// The real LibreOffice: how long it takes to start, to fill a bill, to read an import and to write an export. Its
// profile is the user's own pool, as in the program.

#include "figures.h"
#include "output/spreadsheet_plugin.h"

#include <QCoreApplication>

namespace {

constexpr int kBillLines = 200;
constexpr int kTableRows = 5000;
constexpr int kColumns = 19;

using Work = std::function<void(SpreadsheetHost&)>;

QString BenchPath(const QString& name)
{
    return QString(BENCH_FOLDER "/") + name;
}

SheetRows Table(int rows)
{
    std::vector<SheetCell> line(kColumns, QString("010101001"));
    std::fill(line.begin() + kColumns / 2, line.end(), SheetCell(1234.5));
    return SheetRows(rows, line);
}

void Export(SpreadsheetHost& host, const QString& name, int rows)
{
    host.Run([&](SpreadsheetApplication& application) {
        const auto workbook = application.Create();
        workbook->SheetAt(0)->Write(1, 1, Table(rows));
        workbook->SaveAs(BenchPath(name));
    });
}

/// A template with tokens in 40 rows, filled as a bill is: read and written once, lines inserted, saved.
void FillBill(SpreadsheetHost& host)
{
    host.Run([](SpreadsheetApplication& application) {
        const auto workbook = application.Open(BenchPath("template.xls"));
        const auto sheet = workbook->SheetAt(0);
        const auto texts = sheet->Read(1, 1, 40, 40);
        for (int row = 1; row <= 40; ++row)
            sheet->Write(row, 1, {{texts[row - 1].front()}});
        sheet->InsertRows(18, kBillLines);
        sheet->Write(18, 1, Table(kBillLines));
        sheet->DeleteRows(17, 1);
        sheet->DeleteRows(17 + kBillLines, 1);
        workbook->SaveAs(BenchPath("filled.xls"));
    });
}

Work Import(const char* name)
{
    return [name](SpreadsheetHost& host) {
        host.Run([&](SpreadsheetApplication& application) {
            const auto workbook = application.Open(BenchPath(name));
            const auto sheet = workbook->SheetAt(0);
            sheet->Read(1, 1, sheet->usedRows(), 40);
        });
    };
}

std::unique_ptr<SpreadsheetHost> StartedHost()
{
    auto host = LoadSpreadsheet(OFFICE_FOLDER);
    host->Run([](SpreadsheetApplication&) {});
    return host;
}

void Measure(benchmark::State& state, const Work& work, bool isRunning)
{
    const auto shared = StartedHost();
    for (auto _ : state) {
        if (isRunning) {
            work(*shared);
            continue;
        }
        auto host = LoadSpreadsheet(OFFICE_FOLDER);
        work(*host);
        state.PauseTiming(); // its end is none of the user's waiting
        host.reset();
        state.ResumeTiming();
    }
}

Figure OfficeFigure(const char* name, double target, const Work& work, bool isRunning)
{
    return {name, target, false, [=](benchmark::State& state) {
                try {
                    Measure(state, work, isRunning);
                } catch (const SpreadsheetError& error) {
                    state.SkipWithError(error.description.toUtf8().constData());
                }
            }};
}

std::vector<Figure> MakeFigures()
{
    const auto host = StartedHost();
    Export(*host, "template.xls", 40);
    Export(*host, "import.xls", kTableRows);
    Export(*host, "import.xlsx", kTableRows);
    const Work exportTable = [](SpreadsheetHost& running) { Export(running, "export.xlsx", kTableRows); };
    const Work nothing = [](SpreadsheetHost& started) { started.Run([](SpreadsheetApplication&) {}); };
    return {
        OfficeFigure("LibreOffice started and reached", 1000, nothing, false),
        OfficeFigure("a 200-line bill into its workbook, LibreOffice not running yet", 1000, FillBill, false),
        OfficeFigure("the same with LibreOffice running", 300, FillBill, true),
        OfficeFigure("5,000 rows read from .xls, the start of LibreOffice included", 2000, Import("import.xls"), false),
        OfficeFigure("5,000 rows read from .xlsx, the start included", 2000, Import("import.xlsx"), false),
        OfficeFigure("5,000 rows of 19 columns written as .xlsx", 2000, exportTable, true),
    };
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    try {
        return MeasureFigures(MakeFigures, argc, argv);
    } catch (const SpreadsheetError& error) {
        std::fprintf(stderr, "%s\n", error.description.toUtf8().constData());
        return 1;
    }
}
