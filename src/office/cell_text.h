#pragma once

// The text of the numbers in a sheet.

#include <QDate>
#include <QString>

/// Plain, with up to 15 digits; a whole number in full.
QString CellNumberText(double value);
/// "2023-02-08", with " 09:05:12" behind it where it has a time of day; a time alone is "09:05:12".
/// @param days  since the first day, with the time of day as a fraction
QString CellDateText(double days, const QDate& firstDay);
