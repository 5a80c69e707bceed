#include "dialogs/lazy_rows.h"

#include "support/test_program.h"

#include <gtest/gtest.h>

namespace {

class LazyRowsTest : public testing::Test
{
protected:
    /// Goods 00001 to `last`, every other one of type 02, the rest of type 01.
    void AddGoods(int last)
    {
        SaveUnit unit(test.program);
        for (int number = 1; number <= last; ++number)
            test.Insert("TabWare", {{"Code", QString::number(number).rightJustified(5, '0')},
                                    {"Name", "名" + QString::number(number)},
                                    {"TypeCode", number % 2 == 0 ? "02" : "01"}});
        ASSERT_TRUE(unit.Commit());
    }
    /// Codes and names of all rows, fetched to the end.
    QStringList AllRows()
    {
        while (rows.canFetchMore())
            rows.fetchMore();
        QStringList texts;
        for (int row = 0; row < rows.size(); ++row)
            texts += rows.Text(row, 1) + "|" + rows.Text(row, 2);
        return texts;
    }

    TestProgram test;
    LazyRows rows{test.program, {"序号", "编号", "名称"}};
};

TEST_F(LazyRowsTest, PagesAddUpToTheWholeList)
{
    AddGoods(1000);
    test.Run(Sql("update TabWare set TypeCode=null where Code<'00405' and Code>'00100'"));
    const std::pair<Sql, const char*> lists[] = {
        {Sql(" select Code,Name from TabWare  order by Code "), nullptr},
        {Sql(" select Code,Name from TabWare where Code like ") + QString("00%") + " or Name like " + QString("%7%") +
             " order by Code ",
         nullptr},
        {Sql("select Code,Name from TabWare order by TypeCode,Code "), "TypeCode"},
        {Sql("select Code ,Name from TabWare where Name like ") + QString("%1%") + " or Name like " + QString("%2%") +
             " order by TypeCode,Code ",
         "TypeCode"},
        {Sql("select Code,Name from TabWare where Code like ") + QString("x%") + " order by Code", nullptr},
    };
    for (const auto& [list, before] : lists) {
        SCOPED_TRACE(list.shape());
        rows.Open(list, {"TabWare", before});
        EXPECT_LE(rows.size(), 200);
        EXPECT_EQ(AllRows(), test.Rows(list));
    }
}

TEST_F(LazyRowsTest, ARowDeletedMeanwhileShiftsNothingAndAFullLastPageEndsTheList)
{
    AddGoods(400);
    rows.Open(Sql("select Code,Name from TabWare order by Code"), {"TabWare"});
    test.Run(Sql("delete from TabWare where Code<'00100'"));
    EXPECT_EQ(AllRows().size(), 400);
    EXPECT_EQ(AllRows().at(200), "00201|名201");
    EXPECT_EQ(rows.Text(399, 0), "400");
}

TEST_F(LazyRowsTest, AFailedStatementIsShownOnceAndGivesAnEmptyList)
{
    rows.Open(Sql("select Code from TabNowhere order by Code"), {"TabNowhere"});
    EXPECT_EQ(rows.size(), 0);
    EXPECT_FALSE(rows.canFetchMore());
    EXPECT_EQ(test.prompt.TakeTexts().size(), 1);
}

} // namespace
