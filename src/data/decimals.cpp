#include "data/decimals.h"

#include "handover/open_query.h"

#include <algorithm>
#include <limits>

namespace {
constexpr int kDefaultPlaces = 2;

enum PlacesCode
{
    DefaultGrouped = -1,
    Plain = -2,
};

/// Unset where the kind has no row.
std::optional<int> PlacesOfRow(const Recordset& rows)
{
    if (rows.isEmpty())
        return std::nullopt;
    using Limits = std::numeric_limits<qint16>;
    return static_cast<int>(std::clamp<qint64>(rows.Integer("Num"), Limits::min(), Limits::max()));
}

std::optional<int> PlacesOfKind(Program& program, const QString& name)
{
    return PlacesOfRow(OpenQuery(program, Sql("select * from TabDotSet where Name=") + name + " "));
}

QString NormalizedText(const Value& value)
{
    return TextOf(value).replace(u'。', u'.');
}

double FigureOf(const Value& value)
{
    const QString* const text = std::get_if<QString>(&value);
    return text ? Val(NormalizedText(value)) : NumberOf(value);
}

bool IsBlankValue(const Value& value)
{
    const QString* const text = std::get_if<QString>(&value);
    return IsNull(value) || (text && text->isEmpty());
}

int PlacesOfCode(int digits)
{
    return digits >= 0 ? digits : kDefaultPlaces;
}

/// Decimals of a number's text; an exponent moves the point.
qsizetype DecimalsOfText(const QString& text)
{
    const qsizetype point = text.indexOf('.');
    qsizetype end = point + 1;
    while (point >= 0 && end < text.size() && text[end].isDigit())
        ++end;
    const qsizetype decimals = point < 0 ? 0 : end - point - 1;
    const qsizetype exponent = text.indexOf('e', 0, Qt::CaseInsensitive);
    return exponent < 0 ? decimals : decimals - text.mid(exponent + 1).toInt();
}

/// What a kind without a row in TabDotSet is shown with; unset for a word that names no kind.
std::optional<int> UnsetPlacesOf(const QString& kind)
{
    if (kind == "数值型" || kind == "单价型")
        return 4;
    if (kind == "货币型")
        return 2;
    return std::nullopt;
}
} // namespace

void LoadDecimalPlaces(Program& program)
{
    program.gDot = DotType();
    const Recordset prices = OpenQuery(program, Sql("select * from TabDotSet where Name=") + QString("单价型") + " ");
    if (!prices)
        return; // no database: the box has been shown, and two more of it would say nothing new
    const Recordset amounts = OpenQuery(program, Sql("select * from TabDotSet where Name=") + QString("数值型") + " ");
    const Recordset money = OpenQuery(program, Sql("select * from TabDotSet where Name=") + QString("金额型") +
                                                   " or Name=" + QString("货币型") + " ");
    const DotType missing;
    program.gDot.Price_DotLen = static_cast<qint16>(PlacesOfRow(prices).value_or(missing.Price_DotLen));
    program.gDot.Amount_DotLen = static_cast<qint16>(PlacesOfRow(amounts).value_or(missing.Amount_DotLen));
    program.gDot.Money_DotLen = static_cast<qint16>(PlacesOfRow(money).value_or(missing.Money_DotLen));
}

QString FormatByDigits(const Value& value, int digits)
{
    if (IsBlankValue(value))
        return {};
    const double figure = FigureOf(value);
    if (digits == Plain)
        return PlainNumberText(figure);
    return FormatFixed(figure, PlacesOfCode(digits), digits >= DefaultGrouped);
}

double RoundByDigits(double value, int digits)
{
    return digits == Plain ? Val(PlainNumberText(value)) : RoundToPlaces(value, PlacesOfCode(digits));
}

bool IsExactByDigits(double value, int digits)
{
    return IsExact(value, digits == Plain ? 0 : PlacesOfCode(digits));
}

QString FormatByType(Program& program, const Value& value, const QString& typeName)
{
    if (IsBlankValue(value))
        return {};
    const QString type = typeName.trimmed();
    if (type == "日期型") {
        const std::optional<QDate> day = DayOf(value);
        return day ? DayText(*day) : TextOf(value);
    }
    if (const std::optional<int> places = PlacesOfKind(program, type == "货币型" ? QString("金额型") : type))
        return FormatByDigits(value, *places);

    const double figure = FigureOf(value);
    const std::optional<int> places = UnsetPlacesOf(type);
    if (places && DecimalsOfText(NormalizedText(value)) > *places)
        return FormatFixed(figure, *places, false);
    return PlainNumberText(figure);
}

int GetDigitsByType(Program& program, const QString& typeName)
{
    const QString trimmed = typeName.trimmed();
    const bool isMoney = trimmed == "货币型" || trimmed == "金额型";
    const QString kind = isMoney || trimmed == "单价型" ? trimmed : QString("数值型");
    return PlacesOfKind(program, kind).value_or(isMoney ? 2 : 4);
}

QString YesNoFlagText(bool flag)
{
    return flag ? "是" : "否";
}

bool IsAuditedBillCounted(Program& program)
{
    const Recordset rs = OpenQuery(program, Sql("select IsAllow from TabSysSetNew ") +
                                                " where Name=" + QString("审核单据参与核算") + " ");
    return rs.Number("IsAllow") == 1;
}
