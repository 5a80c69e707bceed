#pragma once

// Decimal places of prices, quantities and money, the formatters that follow them, and the audit switch.

#include "base/number_text.h"
#include "handover/program.h"

/// Fills gDot from TabDotSet; its first statement opens the connection. A missing row gives -3.
void LoadDecimalPlaces(Program& program);

/// A number by a places code (see DotType). Null and the empty text stay empty; a text counts by its leading number,
/// "。" standing for the point; a text that is no number is 0.
QString FormatByDigits(const Value& value, int digits);
/// The number that FormatByDigits shows.
double RoundByDigits(double value, int digits);
/// Whether a figure is kept exactly with the places that FormatByDigits shows.
bool IsExactByDigits(double value, int digits);
/// Formats by a kind word: 日期型, or the places of the kind's row in TabDotSet.
QString FormatByType(Program& program, const Value& value, const QString& typeName);
/// Places code of 数值型, 单价型, 金额型 or 货币型; 4, 4, 2, 2 where TabDotSet has no row. Any other word counts as
/// 数值型.
int GetDigitsByType(Program& program, const QString& typeName);
/// "是" or "否".
QString YesNoFlagText(bool flag);
/// The switch 审核单据参与核算: only audited bills take part in stock and cost.
bool IsAuditedBillCounted(Program& program);
