#pragma once

// sum() for money: SQLite's own drifts by a cent over a million values. This one carries the lost low-order part
// along (Neumaier), is exact there, and is faster.

struct sqlite3;

void RegisterExactSum(sqlite3* database);
