#pragma once

// The seven kinds of bill as one table, and the map from any bill's name to its tables. What sets one kind apart from
// another stands here; the rules ask the row, they do not compare names.

#include <QString>
#include <vector>

/// What a line of the bill carries.
enum class LineShape
{
    Counted,  // a quantity at cost: 同价调拨单, 盘点报损单, 盘点报溢单
    Priced,   // a quantity at a set price: 异价调拨单
    Revalued, // money without a quantity: 商品调价单
    Pieces,   // the parts of an assembly or disassembly
};

struct GridColumn
{
    QString caption;
    int width; // twips; 0 is hidden
    bool isFigure = false;
};

struct BillKind
{
    QString bill;      // 同价调拨单
    QString operation; // 同价调拨: the operation word, BillType of the head
    QString rights;    // the function that the rights to it are kept under
    const char* headTable;
    const char* lineTable; // the head table's name and Inf
    QString prefix;        // three letters that open its codes
    LineShape lines;
    bool hasSource;            // goods leave one warehouse (F) and arrive in another (S); otherwise S is the only one
    bool stockTested;          // refused when the source has too little
    QString sourceWarehouse;   // 发货仓库: the word for F
    QString warehouse;         // 收货仓库: the word for S on a new bill and in messages
    QString recalledWarehouse; // the same on a recalled bill
    QString excelTemplate;     // SP-TJDB.xls
    std::vector<GridColumn> columns; // of the line grid, column 0 included
};

/// All seven, in the order of the bill words of the hand-over.
const std::vector<BillKind>& BillKinds();
/// Null for a name that is none of the seven. Blanks around the name do not matter.
const BillKind* KindOfBill(const QString& billName);
const BillKind* KindOfOperation(const QString& operationWord);
const BillKind* KindOfHeadTable(const QString& tableName);
/// Head table of any bill of the suite, by any of its names; empty for an unknown one.
QString HeadTableOfBill(const QString& billName);

/// Position of a column by its canonical caption, 0 for a caption that the kind lacks.
int ColumnIndex(const BillKind& kind, QStringView caption);
