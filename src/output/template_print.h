#pragma once

// A bill printed through a workbook that the user has designed: its tokens are replaced, the lines go in between two
// placeholder rows, and the sheet is printed, shown as pages, or handed to the user as a workbook.

#include "handover/program.h"

#include <QHash>
#include <functional>
#include <vector>

/// A word of a template and what stands in its place.
struct BillToken
{
    QString word;
    QString value;
};

/// What a bill brings into a template.
struct BillSheet
{
    QString valBillCode; // empty for a bill without a number, which is not looked for
    QString headTable;   // that the bill must stand in
    /// In the order of replacement, since one word may be the beginning of another one.
    std::vector<BillToken> tokens;
    std::vector<bool> isFigure;     // of the columns of the lines
    std::vector<QStringList> lines; // the goods code is the first column
};

enum class SheetGoal
{
    Print,
    Preview,
    IntoExcel, // the filled workbook is left to the user
};

/// Prints or shows the pages of a PDF, which goes when this returns.
using TakePages = std::function<void(const QString& pdf)>;

/// Fills a stored template with a bill. Every refusal and failure has been said.
void PrintBill_Excel(Program& program, const BillSheet& bill, const QString& valPrintModleName, SheetGoal goal,
                     const TakePages& takePages);
/// Opens a stored template for the user. What is changed there does not go back into the account set.
void SetPrintTemplate(Program& program, const QString& valPrintModleName);

/// The text of a cell with all tokens replaced.
QString ReplaceBillTokens(const std::vector<BillToken>& tokens, QString cellText);
/// The company's name for ?本单位名称, empty where it is not known; any other word as it is.
QString GetCompanyToken(Program& program, const QString& token);
/// TiaoXingCode of goods by their code, whatever its case; unknown goods are left out.
class GoodsBarcodes
{
public:
    GoodsBarcodes(Program& program, const std::vector<QStringList>& lines);
    QString GetGoodsBarcode(const QString& goodsCode) const;

private:
    QHash<QString, QString> m_barcodes;
};
