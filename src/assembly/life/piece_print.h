#pragma once

// How assemblies and disassemblies, and the list of them, are printed.

#include "assembly/life/assembly_recall.h"
#include "bills/paper/bill_print.h"

extern const BillPaper kPiecePaper;

/// Prints the list through the print host, by the right to print assemblies.
/// @param action  直接打印, 打印预览 or 打印设置
void PrintAssemblyList(Program& program, const AssemblyList& list, const QString& action);
