#pragma once

// A typed value, on its way into a statement or out of a row.

#include "base/currency.h"
#include "base/dates.h"

#include <QByteArray>
#include <QString>
#include <optional>
#include <variant>

/// monostate is the database's null, which is not the empty text.
using Value = std::variant<std::monostate, qint64, double, Currency, QString, QDate, Moment, QByteArray>;

bool IsNull(const Value& value);
/// Null reads as the empty text, numbers in their shortest form, dates in their canonical form.
QString TextOf(const Value& value);
/// Null reads as 0, a text by its longest leading number.
double NumberOf(const Value& value);
/// A number with a fraction is rounded to the nearest integer.
qint64 IntegerOf(const Value& value);
Currency MoneyOf(const Value& value);
/// Unset for null and for a text that is no date.
std::optional<QDate> DayOf(const Value& value);
std::optional<Moment> MomentOf(const Value& value);
