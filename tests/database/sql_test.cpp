#include "database/sql.h"

#include <gtest/gtest.h>

TEST(Sql, ShowsItselfInBothDialects)
{
    const Sql sql = Sql("select '?' from ") + Name("TabTurn") + " where Datee<=" + QDate(2023, 2, 8) + " and T>" +
                    Moment{QDate(2023, 2, 8), 34200000} + " and Name=" + QString("O'Neil") + " and Num=" + 0.1 +
                    " and Money=" + Currency::FromUnits(25000) + Sql(" and x=") + 3;
    EXPECT_EQ(sql.ProgramText(true), "select '?' from TabTurn where Datee<=#2023-02-08# and T>#2023-02-08 09:30:00# "
                                     "and Name='O''Neil' and Num=0.1 and Money=2.5 and x=3");
    EXPECT_TRUE(sql.ProgramText(false).contains("Datee<='2023-02-08' and T>'2023-02-08 09:30:00'"));
    EXPECT_EQ(sql.shape(), "select '?' from TabTurn where Datee<=? and T>? and Name=? and Num=? and Money=? and x=?");
}

TEST(Sql, ANameIsNeverMoreThanAName)
{
    EXPECT_EQ((Sql("select * from ") + Name("TabTurn; drop table x\"")).shape(),
              "select * from \"TabTurn; drop table x\"\"\"");
}
