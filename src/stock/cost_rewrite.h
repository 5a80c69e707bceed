#pragma once

// A late entry changes the moving average of everything dated after it: costs stored on later lines are rewritten.

#include "handover/program.h"

/// Rewrites the stored costs of one good from the last close up to a day. Goods of other costing methods stay.
/// @param moneyName  limits the lines to one currency; empty for all
/// @param auditedOnly  only audited bills count and are rewritten
void RewriteCostOverBills(Program& program, const QString& wareCode, const QString& warehouseCode,
                          const QDate& billDate, const QString& moneyName, bool auditedOnly);
