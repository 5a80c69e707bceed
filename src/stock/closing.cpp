#include "stock/closing.h"

#include "handover/open_query.h"

std::optional<QDate> LastClosing(Program& program, const QDate& asOf)
{
    const Sql sql = Sql("select top 1 Datee from TabTurn   where Datee<=") + asOf + "  order by Datee desc ";
    return OpenQuery(program, sql).Day("Datee");
}

std::optional<QDate> NewestClosing(Program& program)
{
    return OpenQuery(program, Sql("select top 1 Datee from TabTurn order by Datee desc ")).Day("Datee");
}
