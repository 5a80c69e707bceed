#pragma once

// The rows of an assembly's voucher: the product against its goods and the fee.

#include "assembly/group_piece.h"
#include "handover/program.h"

#include <array>

/// The three books and the voucher's number in each; 0 in one that it is not in.
struct VoucherBooks
{
    std::array<qint64, 3> isIn{};
    std::array<qint64, 3> numbers{};
};

/// What the rows share with their head.
struct Voucher
{
    QString code;
    QDate day;
    QString year; // of the accounting calendar
    QString month;
    VoucherBooks books;
    QString type;
};

/// Replaces the rows of a voucher by those of the stored bill. The product is the one on the screen.
void WriteWarrantRows(Program& program, const GroupPieceText& bill, const QString& billCode, const Voucher& voucher);
