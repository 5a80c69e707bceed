#pragma once

// Who tells what a unit cost should be: the rows of the good that are in memory, at once, or the engine, statement by
// statement. The rows answer as the engine does, but for its rounding; they are asked first, and where a line has not
// what they say, the engine has the last word.

#include "asking/running_totals.h"
#include "checking/check_goods.h"
#include "checking/costed_lines.h"
#include "stock/unit_cost.h"

#include <array>
#include <map>

class CostAnswers
{
public:
    CostAnswers() = default;
    CostAnswers(const CostAnswers&) = delete;
    CostAnswers& operator=(const CostAnswers&) = delete;
    virtual ~CostAnswers() = default;

    /// The newest cost up to a day.
    virtual double NewestCost(const CostQuestion& question, const QDate& day) = 0;
    /// What a line that brings value in records.
    virtual double RecordedCost(const CostQuestion& question) = 0;
    /// How far a stored cost may lie from an answer.
    virtual double tolerance() const = 0;
};

/// By which variant a question asks.
using VariantKey = std::array<QString, 6>;
VariantKey KeyOf(const CostQuestion& question);
/// Whether a line that records a cost counts for a question.
bool Counts(const CostedLine& line, const CostQuestion& question);

class EngineAnswers : public CostAnswers
{
public:
    EngineAnswers(Program& program, const GoodsRules& rules, const CostedGood& good);
    double NewestCost(const CostQuestion& question, const QDate& day) override;
    double RecordedCost(const CostQuestion& question) override;
    double tolerance() const override;

private:
    Program& m_program;
    const GoodsRules& m_rules;
    std::vector<QDate> m_recordDays;
    std::map<std::pair<QDate, VariantKey>, double> m_newest;
};

/// Answers with no number (NaN), which no cost is near to, where the rows cannot tell.
class RowAnswers : public CostAnswers
{
public:
    RowAnswers(const GoodsRules& rules, const CostedGood& good) : m_rules(rules), m_good(good) {}
    double NewestCost(const CostQuestion& question, const QDate& day) override;
    double RecordedCost(const CostQuestion& question) override;
    double tolerance() const override;

private:
    /// A day that moves stock.
    struct Day
    {
        QDate day;
        RunningTotals evening;
        long double inflowAmount = 0;
        long double inflowMoney = 0;
    };
    struct Recorded
    {
        QDate day;
        Moment moment;
        double cost = 0;
    };
    /// All days of one variant.
    struct Account
    {
        RunningTotals opening;
        std::vector<Day> days;
        std::vector<Recorded> newest; // by day, each with the newest cost up to it
    };

    bool CanTell(const CostQuestion& question) const;
    const Account& AccountOf(const CostQuestion& question);
    StockSum OpeningOf(const CostQuestion& question) const;
    std::vector<Day> DaysOf(const CostQuestion& question, const RunningTotals& opening) const;
    std::vector<Recorded> NewestOf(const CostQuestion& question) const;

    const GoodsRules& m_rules;
    const CostedGood& m_good;
    std::map<VariantKey, Account> m_accounts;
};
