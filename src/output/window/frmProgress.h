#pragma once

// How far a long piece of work is, with a key that ends it. Short work passes without it.

#include "handover/program.h"

#include <QDialog>
#include <QElapsedTimer>

class QLabel;
class QProgressBar;

/// The pointer is busy while it lives.
class BusyPointer
{
public:
    BusyPointer();
    ~BusyPointer();
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
};

class frmProgress : public QDialog
{
public:
    /// @param parent  takes no input while this is open; it is the caller's to lock it before
    frmProgress(Program& program, const QString& caption, QWidget* parent);

    /// Shows itself when the work has taken a while. Call it at every step: it lets the windows paint now and then.
    /// @param total  0 while it is not known
    /// @return false once the user has ended the work
    bool Step(int done, int total);

    void reject() override;

private:
    Program& m_program;
    const BusyPointer m_pointer;
    QLabel* m_rows;
    QProgressBar* m_bar; // prg
    QElapsedTimer m_sincePaint;
    bool m_ended = false;
};
