#pragma once

// The window of five kinds of bill: 同价调拨单, 异价调拨单, 商品调价单, 盘点报损单 and 盘点报溢单.

#include "bills/window/bill_window.h"

class QGridLayout;

class frmWareManage : public BillWindow
{
    Q_OBJECT

public:
    explicit frmWareManage(Program& program);

    /// Makes the shown window one of the kind that OperateType names.
    /// @param keepLoaded  a recalled bill stays; otherwise a blank one is opened
    void frm_Initialize(bool keepLoaded);

protected:
    void ShowBill() override;
    void FocusFirstField() override;

private:
    QWidget* MakeHead();
    QWidget* MakeProvideFrame();
    void MakeCells();
    void ArrangeCells();

    QGridLayout* m_head = nullptr;
    std::vector<QWidget*> m_cells;        // of the head's second row, in order; some kinds lack one
    const BillKind* m_arranged = nullptr; // that the boxes stand for
};
