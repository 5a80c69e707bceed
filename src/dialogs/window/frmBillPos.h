#pragma once

// Fills a bill's lines by barcode scanner: a scan, and where the user wants it quantity and price, make a line.

#include "dialogs/barcode_entry.h"

#include <QDialog>

class QCheckBox;
class QLabel;
class QLineEdit;

class frmBillPos : public QDialog
{
public:
    frmBillPos(Program& program, ScannedBill bill, QWidget* parent);

    /// Opens it over `parent` until it is left; each line goes into the bill as it is entered.
    static void Open(Program& program, const ScannedBill& bill, QWidget* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildFields();
    QLayout* BuildButtons();
    using Step = EntryField (*)(Program&, const ScannedBill&, BarcodeEntry&);
    void Run(Step step);
    void MoveOn(QObject* from);

    Program& m_program;
    const ScannedBill m_bill;
    QLineEdit* m_barcode;
    QLineEdit* m_wareCode;
    QLineEdit* m_wareName;
    QLineEdit* m_amount;
    QLineEdit* m_price;
    QCheckBox* m_zeroPrice;
    QCheckBox* m_autoIn;
    QLabel* m_lastEntered;
};
