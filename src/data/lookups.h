#pragma once

// Small questions to the master tables. A missing row gives the empty value; nothing is kept between calls.

#include "handover/program.h"

#include <optional>

struct TreeTypeCode
{
    QString Code;
    QString Name;
};

enum class KeyKind
{
    Code,
    Name,
};

/// The row of a code tree, if it exists and has no children; unset otherwise and for an empty key.
std::optional<TreeTypeCode> CheckLastLevel(Program& program, const QString& key, const char* table, KeyKind kind);
/// Names from the root down to a code, joined by ">"; the code itself where the tree has no such row.
QString GetTreePathText(Program& program, const char* table, const QString& code);
/// What stands before the first ">" of a text, and behind the last one; empty where there is none.
QString PathHead(const QString& text);
QString PathTail(const QString& text);
/// The text of an attribute cell: the code, ">" and its path of names; empty for an empty code.
QString AttributeCell(Program& program, const QString& attributeCode);

/// Path of an account subject, with the code in front if asked for; empty for an unknown one.
QString GetAccountPathName(Program& program, const QString& code, bool withCode);
QString GetAccountName(Program& program, const QString& code);
/// The value, if the subject demands this check (往来核算, 部门核算, 个人核算, 自定义); otherwise empty.
QString GetAccountCheckValue(Program& program, const QString& checkKind, const QString& accountCode,
                             const QString& value);
/// The column sumJE of a statement; null counts as 0.
Currency SumQueryAmount(Program& program, const Sql& sql);

QString GetBaseCurrencyName(Program& program);
float GetBaseCurrencyRate(Program& program);
/// Factor that turns a quantity in a unit into main units, in single precision as the bills multiply with it. 1 for
/// the main unit, an unknown unit or good, and a second unit without a relation.
float GetUnitRatio(Program& program, const QString& wareCode, const QString& unitName);
/// Names of the Excel templates of a bill type, in menu order.
QStringList TemplateNames(Program& program, const QString& tabType);

constexpr int kExcelColumns = 40; // of a sheet, in which titles are looked for
constexpr int kNoExcelColumn = kExcelColumns + 1;
/// The first column, from 1, under a title, blanks around it aside; kNoExcelColumn for none and for a blank caption.
/// @param titles  row 1 of a sheet
int FindExcelColumn(const QStringList& titles, const QString& caption);
