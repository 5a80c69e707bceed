#pragma once

// Filling the lines of a bill with a barcode scanner, which types a code and Enter.

#include "handover/program.h"

#include <functional>

/// What scanning needs of the bill.
struct ScannedBill
{
    /// The price that the bill would use for a good; empty for none.
    std::function<QString(const QString& wareCode)> PosInPrice;
    /// Adds a line. False for one that the bill cannot hold, which has been said.
    std::function<bool(const QString& wareCode, double amount, double price)> PosInBill;
};

/// The fields of the window, named as its controls.
struct BarcodeEntry
{
    QString TxtTiaoXingCode;
    QString TxtWareCode;
    QString TxtWareName;
    QString TxtAmount = "1";
    QString TxtPrice;
    bool ChZeroPrice = false; // ask before a price of 0 goes into the bill
    bool ChAutoIn = false;    // a scan goes into the bill at once
    QString lastEntered;      // says what became of the last scan
};

/// Where the focus goes.
enum class EntryField
{
    TiaoXingCode,
    Amount,
    Price,
};

/// Enter in TxtTiaoXingCode: finds the good and its price. An unknown barcode leaves no good behind.
EntryField ReadBarcode(Program& program, const ScannedBill& bill, BarcodeEntry& entry);
/// CmdOk: hands the line to the bill and makes ready for the next scan. A refusal has been said.
EntryField EnterLine(Program& program, const ScannedBill& bill, BarcodeEntry& entry);
