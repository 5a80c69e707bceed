#pragma once

// Numbers and their text. No locale takes part: the point is ".", the group sign ",". Rounding works on the 15
// significant decimal digits of a double and goes half away from zero, so 1.005 at two places is 1.01.

#include <QString>
#include <QStringView>

/// The longest leading number of a text, blanks in front allowed: "12abc" is 12, "abc" and "" are 0. Grouping commas
/// end the number; CleanNumberText removes them beforehand. An exponent ("1e-05") belongs to the number. Never NaN
/// and never infinite.
double Val(QStringView text);

/// The shortest text that reads back as the same double: "0.1", "1234.5", "1e-07".
QString NumberText(double value);

/// A double with a fixed number of decimals: 1234.5 at 2 is "1234.50", or "1,234.50" with grouping. Zero has no sign.
QString FormatFixed(double value, int places, bool grouping);

/// Plain decimal text of a number, the way it stands in a sentence: a leading blank where a minus could stand and no
/// zero before the point: 0.5 is " .5", -0.5 is "-.5", 12 is " 12".
QString PlainNumberText(double value);

/// What formatting at this many places makes of a value.
double RoundToPlaces(double value, int places);

/// Whether a double of this size keeps every figure to so many places: it has 15 digits for all of them. No NaN, no
/// infinity.
bool IsExact(double value, int places);

/// A number made ready for reading: without ",", "。" and "￥".
QString CleanNumberText(QString text);

/// CleanNumberText and Val in one: the number that a formatted cell shows.
double CellNumber(const QString& text);
