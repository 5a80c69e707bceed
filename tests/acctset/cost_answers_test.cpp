// The costs that rows in memory tell are those of the engine, whatever is asked of whatever books.

#include "checking/cost_answers.h"

#include "stock/random_books.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

GoodsRules RulesOf(RandomBooks& books, Program& program)
{
    return {.auditedOnly = books.OneIn(3),
            .closes = books.closes,
            .amountDigits = GetDigitsByType(program, "数值型"),
            .moneyDigits = GetDigitsByType(program, "金额型"),
            .priceDigits = GetDigitsByType(program, "单价型")};
}

CostQuestion AnyQuestion(RandomBooks& books, const GoodsRules& rules, const CostedGood& good)
{
    return {.moment = {rules.lastClose().addDays(1 + books.Below(30)), 0},
            .wareCode = good.code,
            .addsValue = true,
            .lineAmount = -double(books.Below(3)),
            .linePrice = 77,
            .lineMoney = Currency::FromDouble(-books.Below(3)),
            .dimensions = books.AskedDimensions(),
            .moneyName = books.OneOf({"", "", "人民币", "美元", "综合本位币"}),
            .auditedOnly = rules.auditedOnly};
}

/// 1 where the rows tell a cost, which must be the engine's.
int Compare(double told, double expected, double tolerance)
{
    if (std::isnan(told))
        return 0;
    EXPECT_NEAR(told, expected, tolerance);
    return 1;
}

} // namespace

TEST(CostAnswers, RowsTellWhatTheEngineDoes)
{
    for (const unsigned seed : {21U, 22U, 23U}) {
        RandomBooks books(seed);
        TestProgram test;
        books.WriteTo(test);
        const GoodsRules rules = RulesOf(books, test.program);
        const GoodsRange range = GoodsInPortions(test.program).front();
        const StockRows stock = ReadStockRows(test.program, range, rules.auditedOnly);
        int told = 0;
        for (const CostedGood& good : CostedGoods(test.program, range, stock)) {
            RowAnswers rows(rules, good);
            EngineAnswers engine(test.program, rules, good);
            for (int i = 0; i < 100; ++i) {
                SCOPED_TRACE(QString("%1 %2 %3").arg(seed).arg(good.code).arg(i).toStdString());
                CostQuestion question = AnyQuestion(books, rules, good);
                if (good.costStyle != "加权平均法")
                    told += Compare(rows.RecordedCost(question), engine.RecordedCost(question), rows.tolerance());
                question.addsValue = false;
                const QDate& day = question.moment.day;
                told += Compare(rows.NewestCost(question, day), engine.NewestCost(question, day), rows.tolerance());
            }
        }
        EXPECT_GT(told, 500) << "of the answers most are the rows' own";
        EXPECT_TRUE(test.prompt.boxes.empty());
    }
}
