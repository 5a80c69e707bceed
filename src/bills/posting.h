#pragma once

// What a save writes once its checks have passed: one head row and a row for each line, or both anew where the bill
// is there already. Head and lines are stored together or not at all.

#include "bills/bill_text.h"
#include "handover/program.h"

/// What a save has made of the bill.
struct Posting
{
    bool stored = false; // the rows were committed; a statement that failed among them has been shown
    QString code;
    int lines = 0; // rows written
};

/// 同价调拨单 and 异价调拨单.
Posting SaveTransferBill(Program& program, BillText& bill);
/// 商品调价单, 盘点报损单 and 盘点报溢单.
Posting SaveStockBill(Program& program, BillText& bill);
