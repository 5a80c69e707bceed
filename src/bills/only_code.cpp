#include "bills/only_code.h"

#include "handover/open_query.h"

#include <cstring>

namespace {

/// One source of pieces.
struct Source
{
    const char* table;
    bool inForceOnly = true;       // voided rows do not count
    const char* ownBill = nullptr; // head table of the bill whose own rows are left out
};

constexpr Source kComeIn[] = {
    {"TabOutCancleBillInf"},     {"TabInBillInf"},
    {"TabElseInBillInf"},        {"TabWareGroup"},
    {"TabWarePieceInf"},         {"TabCheckOverInf", false, "TabCheckOver"},
    {"TabWarehouseTurn", false},
};
constexpr Source kGoneOut[] = {
    {"TabOutBillInf"},
    {"TabElseOutBillInf"},
    {"TabWareGroupInf"},
    {"TabWarePiece"},
    {"TabCheckLoseInf", true, "TabCheckLose"},
};

template <size_t count>
Recordset FindPiece(Program& program, const Source (&sources)[count], const OnlyCodeQuestion& question)
{
    Sql query;
    for (const Source& source : sources) {
        if (!query.isEmpty())
            query += " union all ";
        query += Sql(" select OnlyCode from ") + Name(source.table) + " where OnlyCode=" + question.onlyCode +
                 "  and WareCode=" + question.wareCode + " ";
        if (source.inForceOnly)
            query += " and State='正常' ";
        if (source.ownBill && std::strcmp(source.ownBill, question.headTable) == 0)
            query += Sql(" and BillCode<>") + question.billCode + " ";
    }
    return OpenQuery(program, query);
}

} // namespace

bool HasComeIn(Program& program, const OnlyCodeQuestion& question)
{
    return !FindPiece(program, kComeIn, question).IsNull("OnlyCode");
}

bool HasGoneOut(Program& program, const OnlyCodeQuestion& question)
{
    return !FindPiece(program, kGoneOut, question).isEmpty();
}
