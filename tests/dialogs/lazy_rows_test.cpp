#include "dialogs/lazy_rows.h"

#include "support/test_program.h"

#include <gtest/gtest.h>

namespace {

QString CodeNumber(int number)
{
    return QString::number(number).rightJustified(5, '0');
}

/// Goods 00001 to `last`, every other one of type 02, the rest of type 01.
void AddGoods(TestProgram& test, int last)
{
    SaveUnit unit(test.program);
    for (int number = 1; number <= last; ++number)
        test.Insert("TabWare", {{"Code", CodeNumber(number)},
                                {"Name", "名" + QString::number(number)},
                                {"TypeCode", number % 2 == 0 ? "02" : "01"}});
    ASSERT_TRUE(unit.Commit());
}

/// The codes of all rows, fetched to the end.
QStringList AllCodes(LazyRows& rows)
{
    while (rows.canFetchMore())
        rows.fetchMore();
    QStringList codes;
    for (int row = 0; row < rows.size(); ++row)
        codes += rows.Text(row, 1);
    return codes;
}

/// What the statement gives in one go.
QStringList CodesOf(TestProgram& test, const Sql& list)
{
    const Recordset rs = test.Run(list);
    QStringList codes;
    for (int row = 0; row < rs.size(); ++row)
        codes += rs.Text("Code", row);
    return codes;
}

const QStringList kCaptions = {"序号", "编号", "名称"};

} // namespace

TEST(LazyRows, PagesAddUpToTheWholeList)
{
    TestProgram test;
    AddGoods(test, 1000);
    test.Run(Sql("update TabWare set TypeCode=null where Code<'00405' and Code>'00100'"));
    const struct
    {
        Sql list;
        const char* before;
    } lists[] = {
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
    for (const auto& each : lists) {
        SCOPED_TRACE(each.list.shape());
        LazyRows rows(test.program, kCaptions);
        rows.Open(each.list, {"TabWare", each.before});
        EXPECT_LE(rows.size(), 200);
        EXPECT_EQ(AllCodes(rows), CodesOf(test, each.list));
    }
}

TEST(LazyRows, AFullLastPageEndsTheList)
{
    TestProgram test;
    AddGoods(test, 400);
    LazyRows rows(test.program, kCaptions);
    rows.Open(Sql("select Code,Name from TabWare order by Code"), {"TabWare"});
    EXPECT_EQ(AllCodes(rows).size(), 400);
    EXPECT_FALSE(rows.canFetchMore());
    EXPECT_EQ(rows.Text(399, 0), "400");
    EXPECT_EQ(rows.Text(200, 2), "名201");
}

TEST(LazyRows, ARowDeletedMeanwhileShiftsNothing)
{
    TestProgram test;
    AddGoods(test, 300);
    LazyRows rows(test.program, kCaptions);
    rows.Open(Sql("select Code,Name from TabWare order by Code"), {"TabWare"});
    test.Run(Sql("delete from TabWare where Code<'00100'"));
    EXPECT_EQ(AllCodes(rows).size(), 300);
    EXPECT_EQ(rows.Text(200, 1), "00201");
}

TEST(LazyRows, AFailedStatementIsShownOnceAndGivesAnEmptyList)
{
    TestProgram test;
    LazyRows rows(test.program, kCaptions);
    rows.Open(Sql("select Code from TabNowhere order by Code"), {"TabNowhere"});
    EXPECT_EQ(rows.size(), 0);
    EXPECT_FALSE(rows.canFetchMore());
    EXPECT_EQ(test.prompt.TakeTexts().size(), 1);
}
