#include "checking/cost_answers.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

/// The last place that costs are stored with.
double LastPlace(const GoodsRules& rules)
{
    return std::pow(10, -std::max(rules.priceDigits, 0));
}

bool IsAskedFor(const QString& asked, const QString& value)
{
    return asked.trimmed().isEmpty() || asked.compare(value, Qt::CaseInsensitive) == 0;
}

bool IsWithin(const Variant& row, const CostQuestion& question)
{
    const Dimensions& asked = question.dimensions;
    const Dimensions& has = row.dimensions;
    return IsAskedFor(question.moneyName, row.moneyName) && IsAskedFor(asked.AttributeCode, has.AttributeCode) &&
           IsAskedFor(asked.WareSpec, has.WareSpec) && IsAskedFor(asked.Manufacturer, has.Manufacturer) &&
           IsAskedFor(asked.Brand, has.Brand) && IsAskedFor(asked.PCode, has.PCode);
}

} // namespace

VariantKey KeyOf(const CostQuestion& question)
{
    const Dimensions& asked = question.dimensions;
    return {asked.AttributeCode, asked.WareSpec, asked.Manufacturer, asked.Brand, asked.PCode, question.moneyName};
}

bool Counts(const CostedLine& line, const CostQuestion& question)
{
    return line.records && line.inForce && (!question.auditedOnly || !line.auditing.isEmpty()) &&
           IsWithin(line.variant, question);
}

EngineAnswers::EngineAnswers(Program& program, const GoodsRules& rules, const CostedGood& good)
    : m_program(program), m_rules(rules)
{
    for (const CostedLine& line : good.lines) {
        if (line.records && line.inForce && line.day > rules.lastClose())
            m_recordDays.push_back(line.day);
    }
    std::ranges::sort(m_recordDays);
}

/// It changes on days alone that record one, so other days share an answer.
double EngineAnswers::NewestCost(const CostQuestion& question, const QDate& day)
{
    const auto next = std::ranges::upper_bound(m_recordDays, day);
    const QDate recordedOn = next == m_recordDays.begin() ? m_rules.lastClose() : *std::prev(next);
    const auto [answer, isNew] = m_newest.try_emplace({recordedOn, KeyOf(question)});
    if (isNew) {
        CostQuestion onDay = question;
        onDay.moment = {recordedOn, 0};
        answer->second = GetUnitCost(m_program, onDay);
    }
    return answer->second;
}

double EngineAnswers::RecordedCost(const CostQuestion& question)
{
    return GetUnitCost(m_program, question);
}

/// Sums in another order may round to the next figure.
double EngineAnswers::tolerance() const
{
    return 1.01 * LastPlace(m_rules);
}

/// What lies so near to an answer that is not rounded yet lies near enough to the engine's.
double RowAnswers::tolerance() const
{
    return 0.505 * LastPlace(m_rules);
}

bool RowAnswers::CanTell(const CostQuestion& question) const
{
    return m_good.isClear && question.moneyName.trimmed() != kAllCurrencies;
}

double RowAnswers::NewestCost(const CostQuestion& question, const QDate& day)
{
    if (!CanTell(question))
        return kUnknown;
    const std::vector<Recorded>& newest = AccountOf(question).newest;
    const auto next = std::ranges::upper_bound(newest, day, {}, &Recorded::day);
    return next == newest.begin() ? 0 : std::prev(next)->cost;
}

/// The average of the evening before, the inflow of the day and the line itself.
double RowAnswers::RecordedCost(const CostQuestion& question)
{
    if (!CanTell(question))
        return kUnknown;
    if (m_good.costStyle == "个别指定法")
        return m_good.fixedCost;
    const Account& account = AccountOf(question);
    const auto day = std::ranges::lower_bound(account.days, question.moment.day, {}, &Day::day);
    const RunningTotals& before = day == account.days.begin() ? account.opening : std::prev(day)->evening;
    const bool moves = day != account.days.end() && day->day == question.moment.day;
    const double inflow = moves ? double(day->inflowAmount) : 0;
    const Currency inflowMoney = Currency::FromDouble(moves ? double(day->inflowMoney) : 0);
    const double total = inflow + before.amount() + question.lineAmount;
    // Whether nothing is left at all is a matter of the last place of a sum.
    if (std::abs(total) < 1e-6)
        return kUnknown;
    return (before.money() + inflowMoney + question.lineMoney).toDouble() / total;
}

const RowAnswers::Account& RowAnswers::AccountOf(const CostQuestion& question)
{
    const VariantKey key = KeyOf(question);
    const auto known = m_accounts.find(key);
    if (known != m_accounts.end())
        return known->second;
    const RunningTotals opening(OpeningOf(question), m_rules.amountDigits, m_rules.moneyDigits);
    return m_accounts.emplace(key, Account{opening, DaysOf(question, opening), NewestOf(question)}).first->second;
}

/// The last close where the question is for the good as a whole, otherwise the opening of the books.
StockSum RowAnswers::OpeningOf(const CostQuestion& question) const
{
    const bool fromClose = !m_rules.closes.empty() && !question.dimensions.any();
    StockSum sum;
    double money = 0;
    for (const SnapshotRow& row : m_good.snapshots) {
        const bool starts = fromClose ? row.day == m_rules.lastClose() : row.opening;
        if (!starts || !row.inPlace || !IsWithin(row.variant, question))
            continue;
        sum.amount += row.amount;
        money += row.money;
    }
    sum.money = Currency::FromDouble(money);
    return sum;
}

std::vector<RowAnswers::Day> RowAnswers::DaysOf(const CostQuestion& question, const RunningTotals& opening) const
{
    const QDate after = question.dimensions.any() ? kNoDate : m_rules.lastClose();
    std::vector<Day> days;
    for (const StockMove& move : m_good.moves) {
        const QDate day = move.row->day.value_or(kNoDate);
        if (day <= after || !IsWithin(move.line->variant, question))
            continue;
        if (days.empty() || days.back().day != day)
            days.push_back({day, days.empty() ? opening : days.back().evening});
        days.back().evening.Add(move.row->amount, move.row->money);
        if (!move.line->records)
            continue;
        days.back().inflowAmount += move.row->amount;
        days.back().inflowMoney += move.row->money;
    }
    return days;
}

/// Of two costs of one moment any is the newest, so neither is the answer.
std::vector<RowAnswers::Recorded> RowAnswers::NewestOf(const CostQuestion& question) const
{
    std::vector<Recorded> rows;
    for (const CostedLine& line : m_good.lines) {
        if (Counts(line, question))
            rows.push_back({line.day, line.moment(), line.cost});
    }
    for (const SnapshotRow& row : m_good.snapshots) {
        if (IsWithin(row.variant, question))
            rows.push_back({row.day, {row.day, 0}, row.unitCost});
    }
    std::ranges::stable_sort(rows, {}, &Recorded::day);
    for (size_t i = 1; i < rows.size(); ++i) {
        const Recorded& before = rows[i - 1];
        if (rows[i].moment == before.moment && rows[i].cost != before.cost)
            rows[i].cost = kUnknown;
        else if (rows[i].moment < before.moment)
            rows[i] = {rows[i].day, before.moment, before.cost};
    }
    return rows;
}
