// The explanation of a figure ends where the engine does, whatever is asked of whatever books; and it reads as a table.

#include "asking/explain.h"

#include "acctset/books.h"
#include "asking/text_table.h"
#include "data/decimals.h"
#include "stock/random_books.h"
#include "stock/unit_cost.h"

#include <gtest/gtest.h>

namespace {

StockQuestion AnyQuestion(RandomBooks& books)
{
    return {.warehouse = books.OneOf({"", "01", "02", "gone"}),
            .wareCode = books.OneOf(kAnyWare),
            .asOf = {books.OneIn(8) ? books.closes.back() : books.AnyDay(), 0},
            .dimensions = books.AskedDimensions(),
            .attributeExact = books.OneIn(2),
            .moneyName = books.OneOf({"", "", "人民币", "美元", "综合本位币"}),
            .auditedOnly = books.OneIn(3)};
}

} // namespace

TEST(Explain, EndsWhereTheEngineDoes)
{
    for (const unsigned seed : {11U, 12U, 13U}) {
        RandomBooks books(seed);
        TestProgram test;
        books.WriteTo(test);
        size_t lines = 0;
        for (int i = 0; i < 100; ++i) {
            const StockQuestion question = AnyQuestion(books);
            const TogatherData stock = GetStockBalance(test.program, question);
            const StockAccount account = ExplainStock(test.program, question);
            EXPECT_EQ(account.amount, stock.ShownAmount) << seed << ' ' << i;
            EXPECT_EQ(account.money, stock.ShownMoney) << seed << ' ' << i;
            lines += account.lines.size();
            for (size_t n = 1; n < account.lines.size(); ++n)
                EXPECT_FALSE(account.lines[n].day < account.lines[n - 1].day) << seed << ' ' << i;
            const double cost = GetUnitCost(test.program, {.moment = question.asOf,
                                                           .wareCode = question.wareCode,
                                                           .dimensions = question.dimensions,
                                                           .moneyName = question.moneyName,
                                                           .auditedOnly = question.auditedOnly});
            EXPECT_EQ(ExplainUnitCost(test.program, question).value(1),
                      "单位成本：" + FormatByType(test.program, cost, "单价型"));
        }
        EXPECT_GT(lines, 100U);
        EXPECT_TRUE(test.prompt.boxes.empty());
    }
}

TEST(Explain, TellsLineByLineAndByWhichRule)
{
    const Outcome outcome =
        RunAcctset({"explain", DemoFile(), "--ware", "010101001", "--warehouse", "0101", "--date", "2023-07-13"});
    EXPECT_EQ(outcome.exitCode, 0) << outcome.error.toStdString();
    const QStringList lines = outcome.out.split('\n');
    EXPECT_EQ(lines[0], "商品 010101001 墨香按动中性笔  规格 0.5mm 黑  单位 盒  仓库 0101 主仓  截至 2023-07-13");
    for (const char* line : {"2023-06-30                期末结存                                                       "
                             "     63.00    721.91",
                             "2023-07-13  08:47:58.651  采购入库单  CGR202307130001  主仓    120.00            "
                             "1,406.40    159.00  1,852.82",
                             "库存：    143.00，金额 1,666.70，单价 11.6552", "计价方法：移动加权平均法",
                             "单位成本：11.6328", "取自：    采购入库单 CGR202307130001，2023-07-13 08:47:58.651",
                             "          (780.56 + 1,406.40) ÷ (68.00 + 120.00) = 11.6328"})
        EXPECT_TRUE(lines.contains(line)) << line << '\n' << outcome.out.toStdString();
    EXPECT_EQ(RunAcctset({"explain", DemoFile(), "--ware", "none"}).exitCode, 1);
    EXPECT_EQ(RunAcctset({"explain", DemoFile()}).exitCode, 2);
}

TEST(TextTable, ChineseSignsAreTwoPlacesWide)
{
    EXPECT_EQ(WidthOf("入库 1。"), 8);
    TextTable table({{"单据"}, {"数量", TextTable::Align::Right}});
    table.AddRow({"A", "1,000"});
    table.AddRow({"入库单", "5"});
    EXPECT_EQ(table.Lines(), QStringList({"单据     数量", "-------------", "A       1,000", "入库单      5"}));
}
