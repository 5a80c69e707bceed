// The commands of a bill window that are more than a rule on its bill: what comes in by scanner or workbook, what goes
// out, and the layout of the columns.

#include "base/number_text.h"
#include "bills/lines/line_columns.h"
#include "bills/lines/line_import.h"
#include "bills/paper/line_table.h"
#include "bills/window/bill_window.h"
#include "bills/window/grid/grid_view.h"
#include "data/rights.h"
#include "dialogs/bill_images.h"
#include "dialogs/window/frmBillPos.h"
#include "dialogs/window/frmOption_Bill.h"
#include "handover/launcher.h"
#include "output/window/frmBillToExcel.h"
#include "output/window/frmExport.h"
#include "output/window/frmProgress.h"

#include <QScopedValueRollback>

void BillWindow::Scan()
{
    ChooseTypedWarehouses(m_program, m_bill); // the key leaves the focus in the head
    if (!m_commands.isHeadReady(m_program, m_bill))
        return;
    m_editors->Hide();
    const ScannedBill scanned{
        [this](const QString& code) {
            const std::optional<double> price = PosInPrice(m_program, m_bill, code);
            return price ? NumberText(*price) : QString();
        },
        [this](const QString& code, double amount, double price) {
            const bool isIn = PosInBill(m_program, m_bill, code, amount, price);
            m_bill.MSH.currentRow = std::max(1, m_bill.MSH.lastRow() - 1); // in sight behind the window
            ShowBill();
            return isIn;
        },
    };
    frmBillPos::Open(m_program, scanned, this);
}

void BillWindow::OpenImport()
{
    ChooseTypedWarehouses(m_program, m_bill);
    if (!m_commands.isHeadReady(m_program, m_bill))
        return;
    m_editors->Hide();
    const ImportCaller caller{[this](QWidget* over) { ExcelInBill(over); }, ImportColumns(*m_bill.kind)};
    frmBillToExcel::Open(m_program, caller, this);
}

void BillWindow::ExcelInBill(QWidget* over)
{
    const QString path = AskImportFile(m_program, *m_bill.kind);
    if (path.isEmpty())
        return;
    QString outcome;
    {
        const QScopedValueRollback<bool> importing(m_importing, true);
        frmProgress window(m_program, "导入", over);
        outcome =
            ::ExcelInBill(m_program, m_bill, path, [&window](int done, int total) { return window.Step(done, total); });
    }
    ShowBill();
    if (!outcome.isEmpty())
        m_program.prompt.Inform(outcome);
}

void BillWindow::ExportGrid()
{
    if (!CheckOperateRight(m_program, m_program.parameters.UserName, m_bill.kind->rights, Action::Print))
        return;
    m_editors->Hide();
    frmExport::ExportGrid(m_program, TableOf(m_bill.MSH), this);
}

void BillWindow::OpenImages()
{
    OpenBillImages(m_program, m_bill.TxtBillCode, m_bill.LabBillName);
}

void BillWindow::OpenAccountSettings()
{
    const QString function = "自动生成会计凭证对应科目设置";
    if (CheckOperateRight(m_program, m_program.parameters.UserName, function, Action::Edit))
        LaunchFunction(m_program, function, {function, m_bill.LabBillName});
}

void BillWindow::FormatColumns()
{
    if (!MayFormatGrids(m_program))
        return;
    m_editors->Hide();
    frmOption_Bill::Open(
        m_program, m_grid->Format(), m_bill.LayoutKey(),
        [this](int column, const ColumnFormat& changed) { FormatColumn(column, changed); }, this);
}

void BillWindow::FormatColumn(int column, const ColumnFormat& format)
{
    m_grid->FormatColumn(column, format);
    ColumnWidthsChanged(m_bill);
    ShowBill();
}

/// Back to the default columns, with every line still there.
void BillWindow::DeleteFormat()
{
    if (!DeleteGridFormat(m_program, m_bill.LayoutKey()))
        return;
    m_editors->Hide();
    m_drawn.clear();
    LayOutColumnsAgain(m_program, m_bill);
    ShowBill();
}
