#include "bills/lines/only_code.h"

#include "handover/open_query.h"

#include <cstring>
#include <span>

namespace {

/// One source of pieces.
struct Source
{
    const char* table;
    enum
    {
        InForce,    // voided rows do not count
        OnHeadOnly, // voided rows do not count for the product of an assembly
        All,
    } counted = InForce;
};

constexpr Source kAnywhere[] = {
    {"TabOutBillInf"},
    {"TabOutCancleBillInf"},
    {"TabElseOutBillInf"},
    {"TabInBillInf"},
    {"TabInCancleBillInf"},
    {"TabElseInBillInf"},
    {"TabWareGroup"},
    {"TabWareGroupInf"},
    {"TabWarePiece"},
    {"TabWarePieceInf"},
    {"TabCheckOverInf", Source::OnHeadOnly},
    {"TabCheckLoseInf"},
    {"TabWarehouseTurn", Source::All},
};
constexpr Source kComeIn[] = {
    {"TabOutCancleBillInf"},
    {"TabInBillInf"},
    {"TabElseInBillInf"},
    {"TabWareGroup"},
    {"TabWarePieceInf"},
    {"TabCheckOverInf", Source::OnHeadOnly},
    {"TabWarehouseTurn", Source::All},
};
constexpr Source kGoneOut[] = {
    {"TabOutBillInf"}, {"TabElseOutBillInf"}, {"TabWareGroupInf"}, {"TabWarePiece"}, {"TabCheckLoseInf"},
};

/// The column that names the bill: a head table has it as its key.
const char* BillColumnOf(const char* table)
{
    return QLatin1String(table).endsWith(QLatin1String("Inf")) ? "BillCode" : "Code";
}

Recordset FindPiece(Program& program, std::span<const Source> sources, const OnlyCodeQuestion& question)
{
    Sql query;
    for (const Source& source : sources) {
        if (!query.isEmpty())
            query += " union all ";
        query += Sql(" select OnlyCode from ") + Name(source.table) + " where OnlyCode=" + question.onlyCode +
                 "  and WareCode=" + question.wareCode + " ";
        if (source.counted == Source::InForce || (source.counted == Source::OnHeadOnly && question.onHead))
            query += " and State='正常' ";
        if (std::strcmp(source.table, question.ownTable) == 0)
            query += Sql(" and ") + BillColumnOf(source.table) + "<>" + question.billCode + " ";
    }
    return OpenQuery(program, query);
}

} // namespace

bool IsAnywhere(Program& program, const OnlyCodeQuestion& question)
{
    return !FindPiece(program, kAnywhere, question).isEmpty();
}

bool HasComeIn(Program& program, const OnlyCodeQuestion& question)
{
    return !FindPiece(program, kComeIn, question).IsNull("OnlyCode");
}

bool HasGoneOut(Program& program, const OnlyCodeQuestion& question)
{
    return !FindPiece(program, kGoneOut, question).isEmpty();
}
