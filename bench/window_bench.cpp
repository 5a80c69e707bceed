// What the clerk waits for: the bill window and its lists on an account set with a hundred thousand goods. Each pass
// counts the program's own time from the key to the painted window.
#include "account_set.h"
#include "figures.h"

#include "bills/life/lifecycle.h"
#include "bills/lines/line_entry.h"
#include "bills/saving/save.h"
#include "bills/window/frmWareManage.h"
#include "bills/window/grid/grid_view.h"
#include "data/decimals.h"
#include "dialogs/window/frmCode.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>

namespace {

using benchmark::State;

constexpr int kLongBill = 1000;
constexpr int kScannedBill = 200;

/// One copy of the set, and the goods that lines are made of.
struct Desk
{
    BenchProgram signedIn{CopyOfBenchSet("windows")};
    Program& program = signedIn.program;

    Desk() { LoadDecimalPlaces(program); }
    QString Code(int index) const { return GoodsByTrade().at(static_cast<size_t>(index)).code; }
};

Desk& TheDesk()
{
    static Desk desk;
    return desk;
}

void Paint()
{
    QCoreApplication::processEvents();
}

void AddLines(Program& program, BillText& bill, int lines)
{
    for (int line = 0; line < lines; ++line)
        PosInBill(program, bill, TheDesk().Code(line), 1, 0);
}

BillText NewOverflow(Program& program)
{
    BillText bill;
    LoadWindow(program, bill);
    program.parameters.OperateType = "盘点报溢";
    frm_Initialize(program, bill, false);
    program.parameters.OperateType = "同价调拨";
    bill.TxtWarehouseNameS = "广州仓";
    bill.TxtWarehouseCodeS = "0201";
    return bill;
}

/// The code of a saved bill with a thousand lines.
const QString& LongBill()
{
    static const QString code = [] {
        Program& program = TheDesk().program;
        BillText bill = NewOverflow(program);
        AddLines(program, bill, kLongBill);
        return FSave(program, bill).code;
    }();
    return code;
}

std::unique_ptr<frmWareManage> OpenBillWindow()
{
    auto window = std::make_unique<frmWareManage>(TheDesk().program);
    window->setAttribute(Qt::WA_DeleteOnClose, false);
    window->resize(1366, 768);
    window->show();
    window->frm_Initialize(false);
    Paint();
    return window;
}

void BillWindowOpens(State& state)
{
    for ([[maybe_unused]] const auto& pass : state) {
        const auto window = OpenBillWindow();
        state.PauseTiming();
        window->hide();
        state.ResumeTiming();
    }
}

/// Types one character into the goods cell: the last of `text`, with the others there.
std::function<void(State&)> CharacterTyped(const QString& text)
{
    return [text](State& state) {
        const auto window = OpenBillWindow();
        auto* const editor = window->findChild<QLineEdit*>("Text2");
        auto* const grid = window->findChild<GridView*>("MSH");
        grid->setFocus();
        QTest::keyClick(grid, Qt::Key_F2);
        for ([[maybe_unused]] const auto& pass : state) {
            state.PauseTiming();
            editor->clear();
            QTest::keyClicks(editor, text.chopped(1));
            Paint();
            state.ResumeTiming();
            QTest::keyClick(editor, text.back().toLatin1());
            Paint();
        }
    };
}

void GoodFillsItsRow(State& state)
{
    Program& program = TheDesk().program;
    BillText bill = NewOverflow(program);
    AddLines(program, bill, kScannedBill);
    int next = 0;
    for ([[maybe_unused]] const auto& pass : state) {
        bill.MSH.currentRow = 1;
        bill.MSH.currentColumn = 1;
        ChooseGood(program, bill, TheDesk().Code(next++ % kLongBill));
    }
}

void ScanBecomesALine(State& state)
{
    Program& program = TheDesk().program;
    const BillText begun = [&program] {
        BillText bill = NewOverflow(program);
        AddLines(program, bill, kScannedBill);
        return bill;
    }();
    int next = 0;
    for ([[maybe_unused]] const auto& pass : state) {
        state.PauseTiming();
        BillText bill = begun;
        const QString code = TheDesk().Code(next++ % kLongBill);
        state.ResumeTiming();
        benchmark::DoNotOptimize(PosInPrice(program, bill, code));
        PosInBill(program, bill, code, 1, 0);
    }
}

void LongBillRecalls(State& state)
{
    const QString code = LongBill();
    const auto window = OpenBillWindow();
    for ([[maybe_unused]] const auto& pass : state) {
        window->FillBill("TabCheckOver", code);
        Paint();
    }
    if (window->bill().MSH.lastRow() != kLongBill + 1)
        state.SkipWithError("the bill was not recalled whole");
}

void LongBillScrolls(State& state)
{
    const auto window = OpenBillWindow();
    window->FillBill("TabCheckOver", LongBill());
    auto* const grid = window->findChild<GridView*>("MSH");
    grid->setFocus();
    Paint();
    bool down = true;
    for ([[maybe_unused]] const auto& pass : state) {
        QTest::keyClick(grid, down ? Qt::Key_PageDown : Qt::Key_PageUp);
        Paint();
        if (grid->currentIndex().row() == 0 || grid->currentIndex().row() == kLongBill)
            down = !down;
    }
}

void GoodsPickerOpens(State& state)
{
    for ([[maybe_unused]] const auto& pass : state) {
        frmCode picker(TheDesk().program, *FindPickerList("TabWare"), {}, {}, nullptr);
        picker.show();
        Paint();
    }
}

std::vector<Figure> Figures()
{
    return {
        {"A character typed, most goods match", 16, false, CharacterTyped("0")},
        {"A character typed, some hundred goods match", 16, false, CharacterTyped("0101")},
        {"A character typed, no good matches", 16, false, CharacterTyped("qxzw")},
        {"A chosen good fills its row", 10, false, GoodFillsItsRow},
        {"A scanned good becomes a line", 20, false, ScanBecomesALine},
        {"A bill of 1,000 lines recalled", 300, false, LongBillRecalls},
        {"A page of it scrolled", 16, false, LongBillScrolls},
        {"A bill window opens", 150, false, BillWindowOpens},
        {"A picker of 100,000 goods opens", 150, false, GoodsPickerOpens},
    };
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    return MeasureFigures(Figures, argc, argv);
}
