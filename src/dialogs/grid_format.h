#pragma once

// The layout that a user gives a grid: which columns show, how wide, under which caption, aligned how. It is kept for
// each grid of the account set under its layout key, one row for each column, by position.

#include "handover/program.h"

#include <vector>

/// How the cells of a column look. Fonts and colours are stored for the siblings and not read back.
struct CellFormat
{
    int align = 9; // 1 left, 4 centre, 7 right, 9 default
    QString fontName = "宋体";
    float fontSize = 9;
    bool fontBold = false;
    bool fontItalic = false;
    bool fontUnderline = false;
    int foreColor = 0; // blue, green and red, a byte each from the highest
};

struct ColumnFormat
{
    QString elseName; // the caption
    int width = 0;    // twips; 0 is hidden
    CellFormat head;
    CellFormat content;
};

struct GridFormat
{
    std::vector<ColumnFormat> columns;
    int rows = 2; // of the grid, captions included; with the captions alone, contents are stored as they look
};

constexpr int kShownColumnWidth = 1500; // of a hidden column that is shown again

/// Width as the user reads it: millimetres with at most two decimals.
QString MillimetresText(int twips);
/// The width that such a text asks for; at most two metres.
int TwipsOf(const QString& millimetres);
/// 1, 4, 7 or 9 of any stored alignment.
int AlignmentOf(int stored);

/// Key of a bill's layout.
QString LayoutKeyOf(const QString& billName);
/// Whether the operator may change layouts; a refusal has been said.
bool MayFormatGrids(Program& program);
/// Width, caption and alignment of each column as stored; empty where nothing is stored.
std::vector<ColumnFormat> ReadGridFormat(Program& program, const QString& layoutKey);
/// Replaces the stored layout, and says so. False when it stays as it was, which has been said.
bool SaveGridFormat(Program& program, const QString& layoutKey, const GridFormat& format);
/// The command of the windows: by right and after a question, back to the default layout. True when it was deleted.
bool DeleteGridFormat(Program& program, const QString& layoutKey);
