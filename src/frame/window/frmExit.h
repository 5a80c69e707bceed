#pragma once

// The last question before the process ends, with the backup of the account sets on the way out.

#include "handover/program.h"

#include <QDialog>

class QCheckBox;

/// Accepted: the process is to end, the backup has been made. Rejected: back to the main window.
class frmExit : public QDialog
{
    Q_OBJECT

public:
    explicit frmExit(Program& program, QWidget* parent = nullptr);

private:
    void CmdOk();

    Program& m_program;
    QCheckBox* m_backup = nullptr;
};
