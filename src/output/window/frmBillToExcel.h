#pragma once

// The rules of an import from a workbook, before it begins, and a blank workbook to fill in.

#include "handover/program.h"
#include "output/grid_export.h"

#include <QDialog>
#include <functional>

/// The window that the lines go to.
struct ImportCaller
{
    /// Takes the lines in and says how it went.
    /// @param over  the window that stands before the caller
    std::function<void(QWidget* over)> ExcelInBill;
    std::vector<BlankColumn> columns; // of a workbook for it
};

class frmBillToExcel : public QDialog
{
public:
    frmBillToExcel(Program& program, ImportCaller caller, QWidget* parent);

    /// Open until the lines are in or it is left.
    static void Open(Program& program, const ImportCaller& caller, QWidget* parent);

    /// Not while it is at work.
    void reject() override;

private:
    QWidget* BuildRules();
    QLayout* BuildKeys();
    void Work(const std::function<void()>& work);
    void Import();
    void OpenBlank();

    Program& m_program;
    const ImportCaller m_caller;
    QWidget* m_body;
    bool m_isBusy = false;
};
