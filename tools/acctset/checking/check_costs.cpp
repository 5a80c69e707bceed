#include "checking/check_goods.h"

#include "asking/stock_bills.h"
#include "checking/cost_answers.h"
#include "data/decimals.h"

#include <cmath>

namespace {

/// The stored costs of one good against what they should be.
class CostComparison
{
public:
    CostComparison(const GoodsRules& rules, const CostedGood& good, CostAnswers& answers)
        : m_rules(rules), m_good(good), m_answers(answers)
    {}

    /// The answer that a line should hold, where it holds none that would do.
    std::optional<double> Unlike(const CostedLine& line)
    {
        return line.records ? UnlikeRecorded(line) : UnlikeTaken(line);
    }

private:
    std::optional<double> UnlikeRecorded(const CostedLine& line);
    std::optional<double> UnlikeTaken(const CostedLine& line);

    CostQuestion QuestionOf(const CostedLine& line) const
    {
        return {.moment = line.moment(),
                .wareCode = m_good.code,
                .dimensions = line.variant.dimensions,
                .moneyName = m_rules.byCurrency ? line.variant.moneyName : QString(),
                .auditedOnly = m_rules.auditedOnly};
    }
    bool Holds(const CostedLine& line, double cost) const
    {
        return std::abs(line.cost - cost) <= m_answers.tolerance() &&
               std::abs(line.otherCost - cost) <= m_answers.tolerance();
    }
    bool HoldsNewest(const CostedLine& line, const CostQuestion& question)
    {
        return Holds(line, m_answers.NewestCost(question, line.day)) || Holds(line, CostAtMoment(line, question));
    }
    double CostAtMoment(const CostedLine& line, const CostQuestion& question);

    const GoodsRules& m_rules;
    const CostedGood& m_good;
    CostAnswers& m_answers;
};

/// The cost that was the newest when the line was written, if the day's bills were written in the order of their
/// moments.
double CostComparison::CostAtMoment(const CostedLine& line, const CostQuestion& question)
{
    const CostedLine* newest = nullptr;
    for (const CostedLine& other : m_good.lines) {
        if (other.day == line.day && other.moment() < line.moment() && Counts(other, question))
            newest = &other;
    }
    return newest ? newest->cost : m_answers.NewestCost(question, line.day.addDays(-1));
}

/// A line that takes the newest cost holds that of its moment or, written later, that of its whole day; a rewrite has
/// left the good's own cost there, whatever attribute or batch the line is of.
std::optional<double> CostComparison::UnlikeTaken(const CostedLine& line)
{
    const CostQuestion question = QuestionOf(line);
    CostQuestion ofGood = question;
    ofGood.dimensions = {};
    if (HoldsNewest(line, question) || HoldsNewest(line, ofGood))
        return std::nullopt;
    return m_answers.NewestCost(question, line.day);
}

/// The total of an assembly as its save hands it to the engine: a grouped one counts up to its first separator.
Currency TotalAsRead(const CostedLine& line, int moneyDigits)
{
    return line.table == "TabWareGroup" ? Currency::FromDouble(Val(FormatByDigits(line.money, moneyDigits)))
                                        : line.money;
}

/// A line that records a cost holds the average up to itself, or that of its whole day. The engine counts whole days,
/// so what came later on the day is taken off again.
std::optional<double> CostComparison::UnlikeRecorded(const CostedLine& line)
{
    if (m_good.costStyle == "加权平均法")
        return std::nullopt;
    CostQuestion question = QuestionOf(line);
    question.addsValue = true;
    question.linePrice = line.cost;
    const double ofDay = m_answers.RecordedCost(question);
    if (Holds(line, ofDay))
        return std::nullopt;
    bool isLater = false;
    for (const CostedLine& other : m_good.lines) {
        if (isLater && other.day == line.day && Counts(other, question)) {
            question.lineAmount -= other.amount;
            question.lineMoney -= other.money;
        }
        isLater = isLater || &other == &line;
    }
    const double upToLine = m_answers.RecordedCost(question);
    question.lineMoney -= line.money - TotalAsRead(line, m_rules.moneyDigits);
    if (Holds(line, upToLine) || Holds(line, m_answers.RecordedCost(question)))
        return std::nullopt;
    return upToLine;
}

Finding FindingOf(const CostedGood& good, const CostedLine& line, double expected, double tolerance)
{
    const double stored = std::abs(line.cost - expected) > tolerance ? line.cost : line.otherCost;
    return {"cost", BillOfTable(line.table), line.code,
            QString("%1 of %2, good %3: stored %4, the engine gives %5")
                .arg(line.num == 0 ? QString("head") : QString("line %1").arg(line.num), DayText(line.day), good.code,
                     NumberText(stored), NumberText(expected))};
}

void CompareGood(Program& program, const GoodsRules& rules, const CostedGood& good, const Report& report)
{
    RowAnswers rows(rules, good);
    EngineAnswers engine(program, rules, good);
    CostComparison withRows(rules, good, rows);
    CostComparison withEngine(rules, good, engine);
    for (const CostedLine& line : good.lines) {
        if (!line.inForce || line.day <= rules.lastClose() || !withRows.Unlike(line))
            continue;
        if (const std::optional<double> expected = withEngine.Unlike(line))
            report(FindingOf(good, line, *expected, engine.tolerance()));
    }
}

} // namespace

void CheckCosts(Program& program, const GoodsRules& rules, const GoodsRange& range, const StockRows& rows,
                const Report& report)
{
    for (const CostedGood& good : CostedGoods(program, range, rows))
        CompareGood(program, rules, good, report);
}
