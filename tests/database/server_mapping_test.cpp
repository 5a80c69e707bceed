#include "database/statement_mapping.h"

#include <gtest/gtest.h>

TEST(ServerMapping, SaysEachFormInTheServersWords)
{
    struct Case
    {
        const char* ours;
        const char* postgres;
        const char* sqlServer;
    };
    const Case cases[] = {
        {"select a from T where b=? order by a", "select a from T where b=? order by a nulls first",
         "select a from T where b=? order by a"},
        {"select top 2 a from T order by a desc , b asc,c",
         "select  a from T order by a desc nulls last , b asc nulls first,c nulls first limit 2 ",
         "select top 2 a from T order by a desc , b asc,c "},
        {"select a from (select top 1 a from T order by f(a,b) desc union all select top 1 a from U) x order by a",
         "select a from (select * from (select  a from T order by f(a,b) desc nulls last  limit 1) as t1 union all "
         "select * from (select  a from U limit 1) as t1 ) x order by a nulls first",
         "select a from (select * from (select top 1 a from T order by f(a,b) desc ) as t1 union all "
         "select * from (select top 1 a from U) as t1 ) x order by a"},
        {"select a from T where (a like ? or b LIKE '%x') and c=?",
         "select a from T where (a ilike ? escape '' or b ilike '%x' escape '') and c=?",
         "select a from T where (a like replace(?,'[','[[]') or b LIKE '%x') and c=?"},
        {"select a from T where State='正常' and \"b\"='x'", nullptr,
         "select a from T where State=N'正常' and \"b\"='x'"},
        {"order by convert(int,Y) desc", "order by cast(Y as integer) desc nulls last",
         "order by cast(Y as integer) desc"},
        {"update T  set T.a=?  from T,U  where T.x=U.x", "update T set  a=?   from U where T.x=U.x",
         "update T set  a=?   from U where T.x=U.x"},
        {"select 'order by a like ?'", nullptr, nullptr},
        {"order by", nullptr, nullptr},
        {"like", "ilike", nullptr},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(MapForPostgres(c.ours), c.postgres ? c.postgres : c.ours);
        EXPECT_EQ(MapForSqlServer(c.ours), c.sqlServer ? c.sqlServer : c.ours);
    }
}
