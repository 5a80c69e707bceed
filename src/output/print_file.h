#pragma once

// The file by which a bill or a list is handed to the print host: head and foot texts, the visible part of a grid, and
// what to do with them. It lies beside the program in the code page of the systems served and is written anew for
// each print.

#include "handover/program.h"
#include "output/grid_table.h"

#include <array>

/// What of a grid is left out, in rows and columns.
struct PrintSkips
{
    int topRows = 0;
    int leftCols = 0;
    int rightCols = 0;
    int bottomRows = 0;
};

struct PrintFile
{
    static constexpr int kTexts = 20;
    using Strings = std::array<QString, kTexts + 1>; // the first one is never used

    /// An index outside 0 to kTexts throws.
    void SetPrintHead(const QString& text, int index) { PrintHeadStrings.at(index) = text; }
    void SetPrintFoot(const QString& text, int index) { PrintFootStrings.at(index) = text; }
    /// Takes the grid and counts what of it is in sight.
    void SetPrintGrid(GridTable grid, const PrintSkips& skips);

    Strings PrintHeadStrings;
    Strings PrintFootStrings;
    GridTable PrintGrid;
    PrintSkips skipped;
    int PrintGridRows = 0; // in sight and printed
    int PrintGridCols = 0;
};

/// The bytes of the file.
/// @param printType  打印预览, 直接打印 or 打印设置
/// @param batchSign  of prints that follow one another; empty for one alone
QByteArray PrintFileBytes(const PrintFile& file, const QString& tableName, const QString& printType,
                          const QString& batchSign);
/// Writes it into the program's folder in place of the last one. False when that failed, which has been said.
bool WritePrintFile(Program& program, const PrintFile& file, const QString& tableName, const QString& printType,
                    const QString& batchSign = {});
