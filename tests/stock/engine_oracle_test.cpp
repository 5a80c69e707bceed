// The engine against a walk over the same rows in memory: random account sets, random questions, both dialects.

#include "oracle.h"
#include "stock/cost_rewrite.h"

#include <gtest/gtest.h>

namespace {

struct Setting
{
    const char* databaseType;
    unsigned seed;
};

class EngineAgainstOracle : public testing::TestWithParam<Setting>
{
protected:
    EngineAgainstOracle() : books(GetParam().seed), oracle(books), test(GetParam().databaseType)
    {
        books.WriteTo(test);
    }

    QString AnyMoneyName() { return books.OneOf({"", "", "人民币", "美元", "综合本位币"}); }
    QString AnyWare() { return books.OneIn(30) ? QString("unknown") : books.OneOf(kAnyWare); }
    CostQuestion AnyCostQuestion()
    {
        CostQuestion question{.moment = {books.AnyDay(), books.Below(kMillisecondsPerDay)}, .wareCode = AnyWare()};
        question.addsValue = books.OneIn(2);
        question.lineAmount = books.Below(40) - 10;
        question.linePrice = books.Below(1000) / 100.0;
        question.lineMoney = Currency::FromUnits(books.Below(3000000));
        question.dimensions = books.AskedDimensions();
        question.moneyName = AnyMoneyName();
        question.auditedOnly = books.OneIn(3);
        question.useMoving = books.OneIn(2);
        question.attributeExact = books.OneIn(2);
        return question;
    }
    void ExpectStored(const BillRow& row)
    {
        Sql sql = Sql("select * from ") + Name(row.table);
        sql +=
            row.head < 0 ? Sql(" where Code=") + row.code : Sql(" where BillCode=") + row.code + " and Num=" + row.num;
        const Recordset stored = test.Run(sql);
        for (const Field& field : FieldsOf(row))
            if (stored.ColumnOf(field.column) >= 0) {
                EXPECT_EQ(stored.Text(field.column), TextOf(field.value))
                    << row.table.toStdString() << " " << row.code.toStdString() << " " << field.column;
            }
    }

    RandomBooks books;
    Oracle oracle;
    TestProgram test;
};

TEST_P(EngineAgainstOracle, Balance)
{
    for (int i = 0; i < 150; ++i) {
        const StockQuestion question{.warehouse = books.OneOf({"", "01", "02", "gone"}),
                                     .wareCode = AnyWare(),
                                     .asOf = {books.OneIn(8) ? books.closes.back() : books.AnyDay(), 0},
                                     .dimensions = books.AskedDimensions(),
                                     .attributeExact = books.OneIn(2),
                                     .moneyName = AnyMoneyName(),
                                     .auditedOnly = books.OneIn(3)};
        const Oracle::Stock expected = oracle.Balance(question);
        const TogatherData stock = GetStockBalance(test.program, question);
        EXPECT_EQ(stock.ShownAmount, expected.amount) << i;
        EXPECT_EQ(stock.ShownMoney.toDouble(), expected.money) << i;
        EXPECT_EQ(stock.UnitCost, expected.unitCost) << i;
    }
    EXPECT_TRUE(test.prompt.boxes.empty());
}

TEST_P(EngineAgainstOracle, Costs)
{
    for (int i = 0; i < 150; ++i) {
        const CostQuestion question = AnyCostQuestion();
        EXPECT_EQ(GetUnitCost(test.program, question), oracle.UnitCost(question)) << i;
        EXPECT_EQ(GetDisplayCost(test.program, question), oracle.DisplayCost(question)) << i;
    }
    EXPECT_TRUE(test.prompt.boxes.empty());
}

TEST_P(EngineAgainstOracle, Rewrite)
{
    for (int i = 0; i < 4; ++i) {
        const QString ware = books.OneOf({"moving", "moving", "moving", "service", "period"});
        const QDate endDay = books.AnyDay();
        const QString moneyName = AnyMoneyName();
        const bool auditedOnly = books.OneIn(3);
        SaveUnit unit(test.program);
        RewriteCostOverBills(test.program, ware, "01", endDay, moneyName, auditedOnly);
        ASSERT_TRUE(unit.Commit());
        oracle.Rewrite(ware, endDay, moneyName, auditedOnly);
    }
    for (const BillRow* row : books.AllRows())
        ExpectStored(*row);
    EXPECT_TRUE(test.prompt.boxes.empty());
}

INSTANTIATE_TEST_SUITE_P(Books, EngineAgainstOracle,
                         testing::Values(Setting{"Access", 1}, Setting{"Access2", 2}, Setting{"Access", 3},
                                         Setting{"Access2", 4}),
                         [](const auto& setting) {
                             return std::string(setting.param.databaseType) + "_" + std::to_string(setting.param.seed);
                         });

} // namespace
