#pragma once

// A transfer of two hundred lines between two warehouses, as it stands on the screen when its save key is pressed.

#include "account_set.h"
#include "bills/bill_text.h"

constexpr int kTransferLines = 200;

/// @param goods  by trade, the best sold first
BillText TypedTransfer(Program& program, const std::vector<BenchGood>& goods);
