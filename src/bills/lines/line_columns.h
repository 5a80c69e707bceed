#pragma once

// The columns of the line grid: where each one stands by its canonical caption, and the layout that is shown.

#include "bills/bill_text.h"
#include "handover/program.h"

/// Positions of a kind's columns, resolved once for an operation. 0, the unnamed column, for one that the kind lacks.
struct LineColumns
{
    explicit LineColumns(const BillKind& kind);

    int code;         // 商品编号
    int name;         // 商品名称
    int spec;         // 规格
    int attribute;    // 属性
    int unit;         // 单位
    int amount;       // 数量
    int price;        // 单价
    int cost;         // 成本价
    int money;        // 金额
    int revaluation;  // 调价金额
    int manufacturer; // 生产厂商
    int brand;        // 品牌
    int batch;        // 批号
    int madeOn;       // 生产日期
    int validUntil;   // 有效日期
    int onlyCode;     // 唯一码
    int custom1;
    int custom2;
    int custom3;
    int remark; // 备注
};

/// Empties a grid and lays its columns out: as saved by the user under a key, otherwise by default.
void LayOutGrid(Program& program, LineGrid& grid, const QString& layoutKey, const std::vector<GridColumn>& columns);
/// The same for a bill: empties the grid and lays its columns out: as saved by the user for this bill, otherwise by
/// default. A saved layout changes captions, widths and alignments, never positions; columns that it lacks keep their
/// default.
void BuildGridColumns(Program& program, BillText& bill);
/// The same columns laid out anew, the lines stay.
void LayOutGridAgain(Program& program, LineGrid& grid, const QString& layoutKey,
                     const std::vector<GridColumn>& columns);
void LayOutColumnsAgain(Program& program, BillText& bill);
/// To be told when the width of a column has changed: what hangs on the column's being in sight.
void ColumnWidthsChanged(BillText& bill);
