#pragma once

// Asks which earlier assembly is to be the pattern of the open bill: one by number, the latest of a product, or one
// from the list of the product's bills.

#include "assembly/group_piece.h"
#include "handover/program.h"

#include <QDialog>

class QGridLayout;
class QLineEdit;
class QPushButton;

class frmReadGroupPiece : public QDialog
{
public:
    /// Accepted once the pattern has been copied into the bill.
    frmReadGroupPiece(Program& program, GroupPieceText& bill, QWidget* parent);

private:
    QLineEdit* AddBox(QGridLayout& grid, int row, const char* control, const QString& caption);
    QPushButton* NewButton(const char* control, const QString& caption, void (frmReadGroupPiece::*run)());
    void ByCode();
    void Latest();
    void OpenList();
    void PickWare();

    Program& m_program;
    GroupPieceText& m_bill;
    QLineEdit* m_code = nullptr;     // TxtGroupPieceCode
    QLineEdit* m_wareCode = nullptr; // TxtWareCode
    QLineEdit* m_wareName = nullptr; // TxtWareName
};
