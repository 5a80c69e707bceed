// Lines out of a workbook into a bill, and a grid into a workbook, through LibreOffice itself.
#include "account_set.h"
#include "figures.h"

#include "bills/life/lifecycle.h"
#include "bills/lines/line_import.h"
#include "bills/paper/line_table.h"
#include "data/decimals.h"
#include "output/grid_export.h"
#include "output/spreadsheet_plugin.h"

#include <QCoreApplication>
#include <QTemporaryDir>

namespace {

using benchmark::State;

constexpr int kLines = 5000;

struct Desk
{
    BenchProgram signedIn{CopyOfBenchSet("imported")};
    Program& program = signedIn.program;
    BillText bill;
    QTemporaryDir folder;
    QString path = folder.filePath("lines.xlsx");

    Desk()
    {
        LoadDecimalPlaces(program);
        program.parameters.OperateType = "盘点报溢";
        LoadWindow(program, bill);
        frm_Initialize(program, bill, false);
        StartOffice();
        program.spreadsheet->Run([this](SpreadsheetApplication& office) { WriteLines(office); });
    }

    void StartOffice()
    {
        program.spreadsheet.reset();
        program.spreadsheet = LoadSpreadsheet(OFFICE_FOLDER);
    }

    void Import(State& state)
    {
        const QString said = ExcelInBill(program, bill, path, [](int, int) { return true; });
        if (bill.MSH.lastRow() != kLines + 1)
            state.SkipWithError(said.toUtf8().constData());
    }

private:
    void WriteLines(SpreadsheetApplication& office) const
    {
        SheetRows rows = {
            {QString("商品编号"), QString("数量"), QString("批号"), QString("生产日期"), QString("备注")}};
        const std::vector<BenchGood>& goods = GoodsByTrade();
        for (size_t line = 0; line < kLines; ++line)
            rows.push_back({goods[line % goods.size()].code, double(line), QString("B001"), QString("2025-12-01"),
                            QString("remark")});
        const auto workbook = office.Create();
        workbook->SheetAt(0)->Write(1, 1, rows);
        workbook->SaveAs(path);
    }
};

Desk& TheDesk()
{
    static Desk desk;
    return desk;
}

void Import(State& state)
{
    for ([[maybe_unused]] const auto& pass : state)
        TheDesk().Import(state);
}

void StartAndImport(State& state)
{
    for ([[maybe_unused]] const auto& pass : state) {
        TheDesk().StartOffice();
        TheDesk().Import(state);
    }
}

/// Up to the window, which needs a display.
void Export(State& state)
{
    Desk& desk = TheDesk();
    desk.Import(state);
    for ([[maybe_unused]] const auto& pass : state) {
        GridTable table = TableOf(desk.bill.MSH);
        table.widths.assign(table.widths.size(), 1000); // all in sight
        try {
            OpenNewWorkbook(*desk.program.spreadsheet, TextsInSight(table), "bench");
        } catch (const SpreadsheetError& error) {
            if (error.kind != SpreadsheetError::Kind::NoDisplay)
                state.SkipWithError(error.description.toUtf8().constData());
        }
    }
}

std::vector<Figure> Figures()
{
    return {
        {"5,000 lines out of a workbook, LibreOffice started for it", 2000, false, StartAndImport},
        {"The same while it runs", 1500, false, Import},
        {"5,000 lines of 19 columns into a workbook", 2000, false, Export},
    };
}

} // namespace

int main(int argc, char** argv)
{
    qunsetenv("DISPLAY"); // no window to be left behind
    const QCoreApplication application(argc, argv);
    return MeasureFigures(Figures, argc, argv);
}
