#include "database/value.h"

#include "base/number_text.h"

#include <cmath>

namespace {
template <typename... Cases>
struct Overloaded : Cases...
{
    using Cases::operator()...;
};
template <typename... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;
} // namespace

bool IsNull(const Value& value)
{
    return std::holds_alternative<std::monostate>(value);
}

QString TextOf(const Value& value)
{
    return std::visit(Overloaded{
                          [](std::monostate) { return QString(); },
                          [](qint64 number) { return QString::number(number); },
                          [](double number) { return NumberText(number); },
                          [](Currency money) { return money.text(); },
                          [](const QString& text) { return text; },
                          [](const QDate& day) { return DayText(day); },
                          [](const Moment& moment) { return MomentText(moment); },
                          [](const QByteArray& bytes) { return QString::fromUtf8(bytes); },
                      },
                      value);
}

double NumberOf(const Value& value)
{
    if (const auto* number = std::get_if<double>(&value))
        return *number;
    if (const auto* number = std::get_if<qint64>(&value))
        return static_cast<double>(*number);
    if (const auto* money = std::get_if<Currency>(&value))
        return money->toDouble();
    if (const auto* text = std::get_if<QString>(&value))
        return Val(*text);
    return 0;
}

qint64 IntegerOf(const Value& value)
{
    if (const auto* number = std::get_if<qint64>(&value))
        return *number;
    constexpr double kLargest = 9e18;
    return std::llround(std::fmax(-kLargest, std::fmin(kLargest, NumberOf(value))));
}

Currency MoneyOf(const Value& value)
{
    if (const auto* money = std::get_if<Currency>(&value))
        return *money;
    return Currency::FromDouble(NumberOf(value));
}

std::optional<QDate> DayOf(const Value& value)
{
    const std::optional<Moment> moment = MomentOf(value);
    if (!moment)
        return std::nullopt;
    return moment->day;
}

std::optional<Moment> MomentOf(const Value& value)
{
    if (const auto* day = std::get_if<QDate>(&value))
        return day->isValid() ? std::optional(Moment{*day}) : std::nullopt;
    if (const auto* moment = std::get_if<Moment>(&value))
        return *moment;
    if (const auto* text = std::get_if<QString>(&value))
        return ParseMoment(*text);
    return std::nullopt;
}
