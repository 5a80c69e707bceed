#pragma once

// A print that takes long, with a key that gives it up. The windows beside it go on.

#include "output/paper.h"

#include <QDialog>
#include <QPointer>

class frmPrinting : public QDialog
{
public:
    /// Sends the pages of a PDF to the printer and shows itself over a window where that takes a while. The print goes
    /// on when that window is closed.
    /// @param ended  not told once the window is gone
    static void Print(Program& program, const QString& pdf, const QString& title, QWidget* over,
                      PrintJob::Ended ended = {});

    /// Gives the print up.
    void reject() override;

private:
    frmPrinting(PrintJob& job, const QString& title, QWidget* over);

    const QPointer<PrintJob> m_job;
};
