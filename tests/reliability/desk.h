#pragma once

// A desk that all seven kinds of bill are typed at, by a test or by a process of its own: what a user does between an
// empty screen and the save key.

#include "assembly/group_piece.h"
#include "bills/saving/posting.h"

#include <memory>
#include <vector>

class TestProgram;

struct WishedLine
{
    QString good;
    double quantity = 1; // the money of a revaluation
    double price = 10;   // of a set-price transfer, or of a part
};

struct WishedBill
{
    const BillKind* kind = nullptr;
    std::vector<WishedLine> lines;
    QString from = "101";
    QString to = "102";
    QString product = "P001"; // of an assembly, one piece
    double fee = 5;           // of an assembly
};

/// Two warehouses under a main one, goods with opening stock and accounts, settings of the vouchers, and a delivery
/// whose costs later bills rewrite.
void FillAccountSet(TestProgram& test, int goods = 2);
/// The code of the nth good, from 1.
QString GoodCode(int number);

/// The bill typed on a screen of its own, not saved.
std::unique_ptr<BillText> TypeBill(Program& program, const WishedBill& wish);
void AddLine(Program& program, BillText& bill, const WishedLine& line);
std::unique_ptr<BillText> Recall(Program& program, const BillKind& kind, const QString& code);
std::unique_ptr<BillText> CopyOf(const BillText& bill);
/// The save key.
Posting Save(Program& program, BillText& bill);

/// Tables that a bill of this module writes, the vouchers included.
const QStringList& WrittenTables();
/// Their rows, each with its table in front, sorted.
QStringList RowsOf(Store& store);

/// A whole file; a database with its side files, which belong to the bytes that were there before.
QByteArray BytesOf(const QString& path);
void WriteBytes(const QString& path, const QByteArray& bytes);
