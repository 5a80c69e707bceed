#include "database/statement_mapping.h"

#include <gtest/gtest.h>
#include <regex>

namespace {
std::string Squeezed(const std::string& words)
{
    return std::regex_replace(std::regex_replace(words, std::regex("\\s+"), " "), std::regex("^ | $"), "");
}

struct Case
{
    const char* ours;
    const char* sqlite;
};
} // namespace

TEST(StatementMapping, SaysTheThreeFormsInSqlitesWords)
{
    const Case cases[] = {
        {"select a from T where b=?", "select a from T where b=?"},
        {"select top 1 Datee from TabTurn   where Datee<=?  order by Datee desc ",
         "select Datee from TabTurn where Datee<=? order by Datee desc limit 1"},
        {"select a from ( select top 2 a from T order by a ) x",
         "select a from ( select a from T order by a limit 2 ) x"},
        {"select top 1 p from ( select top 1 p from T order by d  union all  select  top 1 p from U ) x order by d",
         "select p from ( select * from (select p from T order by d limit 1) union all "
         "select * from (select p from U limit 1) ) x order by d limit 1"},
        {"update T set State='作废' where Code=?", "update T set State='作废' where Code=?"},
        {" update T ,U set T.a=?,T.b=f(T.c,U.d)  where T.x=U.x", "update T set a=?,b=f(T.c,U.d) from U where T.x=U.x"},
        {"update T  set T.a=?  from T,U  where T.x=U.x", "update T set a=? from U where T.x=U.x"},
        {"order by cint(DateeY) desc,cint(DateeM) desc",
         "order by cast(DateeY as integer) desc,cast(DateeM as integer) desc"},
        {"order by convert(int,DateeY) desc", "order by cast(DateeY as integer) desc"},
        {"select 'top 1 (' , \"select top 1\" from T", "select 'top 1 (' , \"select top 1\" from T"},
        {"", ""},
        {"select ((", "select (("},
        {"update", "update"},
        {"select top", "select top"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Squeezed(MapForSqlite(c.ours)), c.sqlite) << c.ours;
}
