#pragma once

// What the posting of every bill is made of: the rows of its lines, the question before an older version is replaced,
// and the tests around the write.

#include "bills/lines/line_totals.h"
#include "bills/moments.h"
#include "bills/saving/save_outcome.h"
#include "handover/open_query.h"
#include "stock/unit_cost.h"

using Row = std::vector<Value>;

/// What all rows of one save share.
struct Save
{
    Program& program;
    const BillText& bill;
    const LineColumns at;
    const bool auditedOnly;
    const QString moneyName; // of the cost questions
    RisingMoments moments;
    Moment headMoment{}; // the bill is told from others of its number by it

    Save(Program& p, const BillText& b);

    QString Cell(int row, int column) const { return bill.MSH.Cell(row, column).trimmed(); }
    double Figure(int row, int column) const { return CellFigure(bill.MSH, row, column); }
    /// Rows of the Access dialect alone rewrite costs of later bills.
    bool rewritesCosts() const { return program.parameters.DatabaseType == u"Access"; }
};

/// What is known of a line only when it is written.
struct LineFigures
{
    double unionAmount = 0;
    double cost = 0;
    double difference = 0; // of a set price to the cost, or the money of a revaluation
    double lastCost = 0;   // after the revaluation
    double stockIn = 0;    // what a disassembly brings in
};

void Append(Row& row, const Row& more);
/// The cost question of a line, which adds no value until told so.
CostQuestion LineCostQuestion(const Save& save, int row, const Moment& moment);
/// A row of the line table.
Row LineRow(const Save& save, int row, const Moment& moment, const LineFigures& figures);

/// How a save has ended. What went wrong has been said.
enum class Outcome
{
    NotStored,
    Stored,
    Declined, // the user would rather not replace the stored bill
    CodeTaken,
    NoMoney, // a figure came out too large for money
    Unknown, // the database was lost before it answered
};
/// Stores the rows; a commit that is not answered is looked for.
Outcome CommitBill(SaveUnit& unit, const Save& save);
Posting PostingOf(Outcome outcome, const BillText& bill);

/// Deletes the stored bill that a save replaces; one that is gone is stored afresh. False when it may not be replaced
/// any more, which has been said.
bool DeleteReplaced(Program& program, const BillText& bill);
/// What keeps a bill from being written under its code; unset for nothing. Lines that no head bears go: what a deleted
/// or a half failed bill has left under the code would become part of this one.
std::optional<Outcome> FindHindrance(Program& program, const BillText& bill);
/// Whether the save replaces a stored bill. Unset when the user would rather not, which has been acknowledged.
std::optional<bool> AskRewrite(Program& program, const BillText& bill);
