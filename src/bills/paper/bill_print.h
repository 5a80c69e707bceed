#pragma once

// What a bill brings to paper: the words of its templates, the texts and the grid of its print file. What one window's
// bills have of their own is passed in.

#include "bills/bill_text.h"
#include "handover/program.h"
#include "output/print_file.h"
#include "output/template_print.h"

/// How the bills of a window are printed.
struct BillPaper
{
    /// Group of the templates in TabExcelTable, shared by all kinds of the window, and function of the right to print
    /// by them. Null where each kind has a group and a right of its own.
    const char* templateGroup;
    /// The table that a bill must stand in to be printed by a template.
    QString (*templateTable)(const BillText& bill);
    /// The words of the templates, in the order of replacement.
    std::vector<BillToken> (*tokens)(Program& program, const BillText& bill);
    /// Texts of the print file: caption and value in one.
    QStringList (*head)(const BillText& bill);
    QStringList (*foot)(const BillText& bill);
};
extern const BillPaper kWareManagePaper;

QString TemplateGroup(const BillText& bill, const BillPaper& paper);
/// The function that the right to print by the templates of the group is kept under.
QString TemplateRights(const BillText& bill, const BillPaper& paper);
/// The file name of a kind's own template.
/// @param form  empty, "-TXM-S" for barcodes in digits, "-TXM-T" for barcodes in pictures
QString FixedTemplate(const BillKind& kind, const QString& form);

/// The bill as it stands on the screen, for a template.
BillSheet SheetOf(Program& program, const BillText& bill, const BillPaper& paper);
/// A text of the bill under a word.
template <typename Bill>
struct TextToken
{
    const char* word;
    QString Bill::*text;
};
/// The words that all bills have, around those of the bill's own.
std::vector<BillToken> BillTokens(Program& program, const BillText& bill, const std::vector<BillToken>& own);

/// Prints a saved bill through the print host.
/// @param action  直接打印, 打印预览 or 打印设置
void PlainBillPrint(Program& program, const BillText& bill, const BillPaper& paper, const QString& action);
/// Hands a grid with its texts to the print host. A failure has been said.
void PrintThroughHost(Program& program, PrintFile file, const LineGrid& grid, const QString& tableName,
                      const QString& action);
/// Starts the program for the templates of the bill's group. A failure has been said.
void OpenTemplateReports(Program& program, const BillText& bill, const BillPaper& paper);
