#include "check.h"

#include "costed_lines.h"
#include "data/decimals.h"
#include "stock/closing.h"
#include "stock/unit_cost.h"
#include "stock_bills.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>

namespace {

/// How costs are asked for, and how far two figures of one cost may lie apart.
struct Asking
{
    bool auditedOnly;
    bool byCurrency;
    QDate lastClose;
    double tolerance;
};

bool IsWithin(const QString& asked, const QString& value)
{
    return asked.trimmed().isEmpty() || asked.compare(value, Qt::CaseInsensitive) == 0;
}

/// The stored costs of one good against what the engine answers.
class CostComparison
{
public:
    CostComparison(Program& program, const Asking& asking, const CostedGood& good, const Report& report)
        : m_program(program), m_asking(asking), m_good(good), m_report(report)
    {
        for (const CostedLine& line : good.lines) {
            if (line.records)
                m_recordDays.push_back(line.day);
        }
        std::ranges::sort(m_recordDays);
    }

    void Run()
    {
        for (const CostedLine& line : m_good.lines) {
            const std::optional<double> expected = line.records ? UnlikeRecorded(line) : UnlikeTaken(line);
            if (expected)
                ReportOther(line, *expected);
        }
    }

private:
    using DimensionTexts = std::array<QString, 6>;

    /// The answer that a line should hold, where it holds none that would do.
    std::optional<double> UnlikeRecorded(const CostedLine& line);
    std::optional<double> UnlikeTaken(const CostedLine& line);

    CostQuestion QuestionOf(const CostedLine& line) const
    {
        return {.moment = line.moment,
                .wareCode = m_good.code,
                .dimensions = line.dimensions,
                .moneyName = m_asking.byCurrency ? line.moneyName : QString(),
                .auditedOnly = m_asking.auditedOnly};
    }
    bool Holds(const CostedLine& line, double cost) const
    {
        return std::abs(line.cost - cost) <= m_asking.tolerance &&
               std::abs(line.otherCost - cost) <= m_asking.tolerance;
    }
    /// Whether a line that records a cost counts for a question.
    bool Counts(const CostedLine& recorded, const CostQuestion& question) const
    {
        const Dimensions& asked = question.dimensions;
        const Dimensions& has = recorded.dimensions;
        return recorded.records && (!question.auditedOnly || !recorded.auditing.isEmpty()) &&
               IsWithin(question.moneyName, recorded.moneyName) && IsWithin(asked.AttributeCode, has.AttributeCode) &&
               IsWithin(asked.WareSpec, has.WareSpec) && IsWithin(asked.Manufacturer, has.Manufacturer) &&
               IsWithin(asked.Brand, has.Brand) && IsWithin(asked.PCode, has.PCode);
    }
    double NewestCost(CostQuestion question, const QDate& day);
    double CostAtMoment(const CostedLine& line, const CostQuestion& question);
    void ReportOther(const CostedLine& line, double expected);

    Program& m_program;
    const Asking& m_asking;
    const CostedGood& m_good;
    const Report& m_report;
    std::vector<QDate> m_recordDays;
    std::map<std::pair<QDate, DimensionTexts>, double> m_answers;
};

/// The newest cost up to a day. It changes on days alone that record one, so other days share an answer.
double CostComparison::NewestCost(CostQuestion question, const QDate& day)
{
    const auto next = std::ranges::upper_bound(m_recordDays, day);
    const QDate recordedOn = next == m_recordDays.begin() ? m_asking.lastClose : *std::prev(next);
    const Dimensions& asked = question.dimensions;
    const std::pair<QDate, DimensionTexts> key{
        recordedOn,
        {asked.AttributeCode, asked.WareSpec, asked.Manufacturer, asked.Brand, asked.PCode, question.moneyName}};
    const auto known = m_answers.find(key);
    if (known != m_answers.end())
        return known->second;
    question.moment = {recordedOn, 0};
    return m_answers[key] = GetUnitCost(m_program, question);
}

/// The cost that was the newest when the line was written, if the day's bills were written in the order of their
/// moments.
double CostComparison::CostAtMoment(const CostedLine& line, const CostQuestion& question)
{
    const CostedLine* newest = nullptr;
    for (const CostedLine& other : m_good.lines) {
        if (other.day == line.day && other.moment < line.moment && Counts(other, question))
            newest = &other;
    }
    return newest ? newest->cost : NewestCost(question, line.day.addDays(-1));
}

/// A line that takes the newest cost holds that of its moment or, written later, that of its whole day; a rewrite has
/// left the good's own cost there, whatever attribute or batch the line is of.
std::optional<double> CostComparison::UnlikeTaken(const CostedLine& line)
{
    CostQuestion question = QuestionOf(line);
    const double ofDay = NewestCost(question, line.day);
    if (Holds(line, ofDay) || Holds(line, CostAtMoment(line, question)))
        return std::nullopt;
    question.dimensions = {};
    if (Holds(line, NewestCost(question, line.day)) || Holds(line, CostAtMoment(line, question)))
        return std::nullopt;
    return ofDay;
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
    const double ofDay = GetUnitCost(m_program, question);
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
    if (question.lineAmount == 0 && question.lineMoney == Currency())
        return ofDay;
    const double upToLine = GetUnitCost(m_program, question);
    return Holds(line, upToLine) ? std::nullopt : std::optional(upToLine);
}

void CostComparison::ReportOther(const CostedLine& line, double expected)
{
    const double stored = std::abs(line.cost - expected) > m_asking.tolerance ? line.cost : line.otherCost;
    m_report({"cost", BillOfTable(line.table), line.code,
              QString("%1 of %2, good %3: stored %4, the engine gives %5")
                  .arg(line.num == 0 ? QString("head") : QString("line %1").arg(line.num), DayText(line.day),
                       m_good.code, NumberText(stored), NumberText(expected))});
}

} // namespace

void CheckCosts(Program& program, bool byCurrency, const Report& report)
{
    const int places = std::max(GetDigitsByType(program, "单价型"), 0);
    // Sums in another order may round to the next figure.
    const Asking asking{.auditedOnly = IsAuditedBillCounted(program),
                        .byCurrency = byCurrency,
                        .lastClose = NewestClosing(program).value_or(kNoDate),
                        .tolerance = 1.01 * std::pow(10, -places)};
    for (const GoodsRange& range : GoodsInPortions(program)) {
        for (const CostedGood& good : CostedGoods(program, range, asking.lastClose))
            CostComparison(program, asking, good, report).Run();
    }
}
