#pragma once

// A grid goes out into a new workbook, with a bar that shows how far it is.

#include "handover/program.h"
#include "output/grid_table.h"

#include <QDialog>
#include <vector>

class QProgressBar;
class QPushButton;

class frmExport : public QDialog
{
public:
    frmExport(Program& program, const GridTable& grid, QWidget* parent);

    /// Copies what is in sight of the grid and closes when the user has the workbook. After a failure, which has been
    /// said, the window stays open to try again.
    static void ExportGrid(Program& program, const GridTable& grid, QWidget* parent);

    /// Ends the copying, or leaves.
    void reject() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    QPushButton* AddKey(const char* name, const QString& caption);
    void Export();
    bool Copy();

    Program& m_program;
    const std::vector<QStringList> m_rows;
    QProgressBar* m_bar;  // prg
    QPushButton* m_excel; // cmdExcel
    bool m_exporting = false;
};
