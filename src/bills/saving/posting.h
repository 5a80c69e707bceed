#pragma once

// What a save writes once its checks have passed: one head row and a row for each line, or both anew where the bill
// is there already. Head and lines are stored together or not at all.

#include "bills/saving/save_outcome.h"

/// 同价调拨单 and 异价调拨单.
Posting SaveTransferBill(Program& program, BillText& bill);
/// 商品调价单, 盘点报损单 and 盘点报溢单.
Posting SaveStockBill(Program& program, BillText& bill);

/// A stored bill on its screen, audited if so wished.
void ShowAsSaved(Program& program, BillText& bill);
