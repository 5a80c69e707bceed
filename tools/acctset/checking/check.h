#pragma once

// The faults that an account set can carry without any program saying so. Each check reads the set as a whole, a
// statement for a table or for some hundreds of goods, and reports one finding after the other.

#include "handover/program.h"

#include <functional>

struct Finding
{
    const char* kind; // one word, the same for ever
    QString bill;     // 同价调拨单, or 商品 where a good is at fault
    QString code;     // of the bill, the voucher or the good
    QString what;
};

using Report = std::function<void(const Finding& finding)>;

/// Codes that a server takes for one, lines without a head, heads without lines, and codes and voucher numbers that
/// stand twice.
void CheckRows(Program& program, const Report& report);
/// State and audit mark of heads against those of their lines; vouchers whose two sides differ.
void CheckAgreement(Program& program, const Report& report);
/// Moments: on their bill's day, rising from the head to the last line, one line of a good at a time.
void CheckMoments(Program& program, const Report& report);
/// Goods below zero at the end of a day, as the balance of one warehouse counts them. Then unit costs on lines behind
/// the last close that the engine would not give today; an average of a period is settled by its close, so what brings
/// goods of that method in is left out.
/// @param byCurrency  each line's cost is that of its own currency
void CheckGoods(Program& program, bool byCurrency, const Report& report);
