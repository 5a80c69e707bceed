#pragma once

// The demonstration account set: a wholesaler with its goods, places and people, and its trade of 2023 with a close
// at the end of June. It comes out the same every time.

#include "making/new_account_set.h"

void FillDemo(NewAccountSet& accountSet);
/// The vouchers of the year's assemblies in the finished file, those before the close posted.
void WriteDemoVouchers(const QString& path);
