#include "database/statement_mapping.h"

#include <gtest/gtest.h>
#include <regex>

namespace {
std::string Squeezed(const std::string& words)
{
    return std::regex_replace(std::regex_replace(words, std::regex("\\s+"), " "), std::regex("^ | $"), "");
}
} // namespace

TEST(StatementMapping, SaysItsFormsInSqlitesWords)
{
    const std::pair<const char*, const char*> cases[] = {
        {"select a from T where b=?", "select a from T where b=?"},
        {"select top 1 Datee from TabTurn   where Datee<=?  order by Datee desc ",
         "select Datee from TabTurn where Datee<=? order by Datee desc limit 1"},
        {"select a from ( select top 2 a from T order by a ) x",
         "select a from ( select a from T order by a limit 2 ) x"},
        {"select top 1 p from ( select top 1 p from T order by d  union all  select  top 1 p from U ) x order by d",
         "select p from ( select * from (select p from T order by d limit 1) as t1 union all "
         "select * from (select p from U limit 1) as t1 ) x order by d limit 1"},
        {"update T set State='作废' where Code=?", "update T set State='作废' where Code=?"},
        {" update T ,U set T.a=?,T.b=f(T.c,U.d)  where T.x=U.x", "update T set a=?,b=f(T.c,U.d) from U where T.x=U.x"},
        {"update T  set T.a=?  from T,U  where T.x=U.x", "update T set a=? from U where T.x=U.x"},
        {"order by cint(DateeY) desc,cint(DateeM) desc",
         "order by cast(DateeY as integer) desc,cast(DateeM as integer) desc"},
        {"order by convert(int,DateeY) desc", "order by cast(DateeY as integer) desc"},
        {"select 'top 1 (' , \"select top 1\" from T", "select 'top 1 (' , \"select top 1\" from T"},
        {"select top 2 a from T where Code like ? or  Name like ?  or T.Spec like ? order by b",
         "select a from T where any_like(Code,?,Name,?,T.Spec,?) order by b limit 2"},
        {"select a from T where (( Code like ? or Name like ? )) and b>?",
         "select a from T where (( any_like(Code,?,Name,?) )) and b>?"},
        {"select a from T where b=? or Code like ? or Name like ?",
         "select a from T where b=? or any_like(Code,?,Name,?)"},
        {"select a from T where Code like ? or Name like ? or Spec like ? and b=?",
         "select a from T where any_like(Code,?,Name,?) or Spec like ? and b=?"},
        {"select a from T where b=? and Code like ? or Name like ?",
         "select a from T where b=? and Code like ? or Name like ?"},
        {"select a from T where not Code like ? or Name not like ? or Spec like ?",
         "select a from T where not Code like ? or Name not like ? or Spec like ?"},
        {"select max(Code) from T where Code like ?", "select max(Code) from T where Code like ?"},
        {"select a from T where (Code like ? or Code like ?)", "select a from T where (Code like ? or Code like ?)"},
        {"", ""},
        {"select ((", "select (("},
        {"update", "update"},
        {"select top", "select top"},
    };
    for (const auto& [ours, sqlite] : cases)
        EXPECT_EQ(Squeezed(MapForSqlite(ours)), sqlite) << ours;
}
