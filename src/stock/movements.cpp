#include "stock/movements.h"

#include "handover/open_query.h"
#include "stock/statement.h"

#include <algorithm>
#include <string_view>

namespace {

enum class Moves
{
    In,
    Out,
    ValueOnly,
};

/// One source. The line is the head itself where the finished good stands in the head.
struct Movement
{
    const char* tables;    // in the order of the statement
    const char* head;      // names the warehouse
    const char* line;      // names the good, its amount and money, day and dimensions
    const char* money;     // column of the line's money; null where money is the amount at a unit cost
    const char* unitCost;  // column of the line's unit cost, likewise
    const char* warehouse; // column of the head
    const char* state;     // table whose row must be in force
    Moves moves;           // ValueOnly: money without an amount
    bool dayInflow;
};

using enum Moves;
constexpr const char* kNone = nullptr;

// clang-format off
constexpr Movement kMovements[] = {
    {"TabInBill,TabInBillInf,TabWare,TabWarehouseType", "TabInBill", "TabInBillInf",
     "Moneyy_Discount", kNone, "WarehouseCode", "TabInBill", In, true},
    {"TabInCancleBillInf,TabInCancleBill,TabWare,TabWarehouseType", "TabInCancleBill", "TabInCancleBillInf",
     "Moneyy_Discount", kNone, "WarehouseCode", "TabInCancleBill", Out, true},
    {"TabElseInBill,TabElseInBillInf,TabWare,TabWarehouseType", "TabElseInBill", "TabElseInBillInf",
     "Moneyy_Discount", kNone, "WarehouseCode", "TabElseInBill", In, true},
    {"TabOutBill,TabOutBillInf,TabWare,TabWarehouseType", "TabOutBill", "TabOutBillInf",
     kNone, "Cost", "WarehouseCode", "TabOutBill", Out, false},
    {"TabOutCancleBill,TabOutCancleBillInf,TabWare,TabWarehouseType", "TabOutCancleBill", "TabOutCancleBillInf",
     kNone, "Cost", "WarehouseCode", "TabOutCancleBill", In, false},
    {"TabElseOutBill,TabElseOutBillInf,TabWare,TabWarehouseType", "TabElseOutBill", "TabElseOutBillInf",
     kNone, "Cost", "WarehouseCode", "TabElseOutBill", Out, false},
    {"TabSamePriceMove,TabSamePriceMoveInf,TabWare,TabWarehouseType", "TabSamePriceMove", "TabSamePriceMoveInf",
     kNone, "AveragePrice", "WarehouseCodeF", "TabSamePriceMoveInf", Out, false},
    {"TabSamePriceMove,TabSamePriceMoveInf,TabWare,TabWarehouseType", "TabSamePriceMove", "TabSamePriceMoveInf",
     kNone, "AveragePrice", "WarehouseCodeS", "TabSamePriceMoveInf", In, false},
    {"TabChangePrice,TabChangePriceInf,TabWare,TabWarehouseType", "TabChangePrice", "TabChangePriceInf",
     "MoneyBanlance", kNone, "WarehouseCode", "TabChangePriceInf", ValueOnly, true},
    {"TabCheckLose,TabCheckLoseInf,TabWare,TabWarehouseType", "TabCheckLose", "TabCheckLoseInf",
     kNone, "AveragePrice", "WarehouseCode", "TabCheckLoseInf", Out, false},
    {"TabCheckOver,TabCheckOverInf,TabWare,TabWarehouseType", "TabCheckOver", "TabCheckOverInf",
     kNone, "AveragePrice", "WarehouseCode", "TabCheckOverInf", In, false},
    {"TabWareGroup,TabWareGroupInf,TabWare,TabWarehouseType", "TabWareGroup", "TabWareGroupInf",
     "Moneyy", kNone, "WarehouseCodeF", "TabWareGroupInf", Out, false},
    {"TabWareGroup,TabWare,TabWarehouseType", "TabWareGroup", "TabWareGroup",
     "SumMoney", kNone, "WarehouseCodeS", "TabWareGroup", In, true},
    {"TabWarePiece,TabWarePieceInf,TabWare,TabWarehouseType", "TabWarePiece", "TabWarePieceInf",
     "Moneyy", kNone, "WarehouseCodeS", "TabWarePieceInf", In, true},
    {"TabWarePiece,TabWare,TabWarehouseType", "TabWarePiece", "TabWarePiece",
     "SumMoney", kNone, "WarehouseCodeF", "TabWarePiece", Out, false},
};
// clang-format on

void AppendRate(Sql& sql, const char* table, const QString& moneyName)
{
    if (moneyName.trimmed() != kAllCurrencies)
        return;
    Append(sql, "*", table, ".MoneyRate");
}

/// What one line moves, with its sign.
void AppendAmount(Sql& sql, const Movement& movement)
{
    if (movement.moves == ValueOnly)
        sql += "0";
    else
        Append(sql, movement.moves == Out ? "-" : "", movement.line, ".UnionAmount");
}

void AppendMoney(Sql& sql, const Movement& movement, const QString& moneyName)
{
    const char* const sign = movement.moves == Out ? "-" : "";
    if (movement.money)
        Append(sql, sign, movement.line, ".", movement.money);
    else
        Append(sql, sign, movement.line, ".UnionAmount*", movement.line, ".", movement.unitCost);
    AppendRate(sql, movement.line, moneyName);
}

void AppendSums(Sql& sql, const Movement& movement, const QString& moneyName)
{
    const bool movesAmount = movement.moves != ValueOnly;
    sql += movesAmount ? "sum(" : "";
    AppendAmount(sql, movement);
    sql += movesAmount ? ") as Amount , sum(" : " as Amount , sum(";
    AppendMoney(sql, movement, moneyName);
    sql += ") as Cost ";
}

/// The columns of ListMovements.
void AppendLine(Sql& sql, const Movement& movement, const QString& moneyName)
{
    const bool isHead = std::string_view(movement.head) == movement.line;
    Append(sql, "'", movement.head, "' as HeadTable,", movement.line, isHead ? ".Code" : ".BillCode", " as BillCode,",
           isHead ? "0" : movement.line, isHead ? "" : ".Num", " as Num,", movement.line, ".Datee as Datee,",
           movement.line, ".DateTimee as DateTimee,", movement.line, ".WareCode as WareCode,", movement.head, ".",
           movement.warehouse, " as WarehouseCode,");
    AppendAmount(sql, movement);
    sql += " as Amount,";
    AppendMoney(sql, movement, moneyName);
    sql += " as Cost ";
}

void AppendDayLimits(Sql& sql, const char* table, std::span<const DayLimit> days)
{
    const char* joint = "    ";
    for (const DayLimit& day : days) {
        Append(sql, joint, table, ".Datee", day.comparison, day.limit);
        joint = " and ";
    }
}

/// The warehouse that the head names, the head of the line, and the row that must be in force.
void AppendLinks(Sql& sql, const Movement& movement)
{
    Append(sql, "  and  ", movement.line, ".WareCode=TabWare.Code  and TabWarehouseType.Code=", movement.head, ".",
           movement.warehouse);
    if (std::string_view(movement.head) != movement.line)
        Append(sql, "  and ", movement.head, ".Code=", movement.line, ".BillCode ");
    Append(sql, "  and ", movement.state, ".State='正常' ");
}

/// One source from its tables on.
void AppendRowsOf(Sql& sql, const Movement& movement, const StockQuestion& question, const Sql& wareCondition,
                  std::span<const DayLimit> days, bool byKindOfEntry)
{
    Append(sql, " from ", movement.tables);
    if (byKindOfEntry)
        sql += ",TabOutInType";
    Append(sql, "   where ", movement.line, ".WareCode<>''   and  ");
    AppendDayLimits(sql, movement.line, days);
    sql += wareCondition;
    AppendLinks(sql, movement);
    if (byKindOfEntry)
        sql += " and TabOutInType.CalCostYN='是'  and TabOutInType.Name=TabElseInBill.InType ";
    sql += DimensionCondition(question, movement.line);
}

} // namespace

StockSum SumMovements(Program& program, const StockQuestion& question, MovementSet set, std::span<const DayLimit> days)
{
    const Sql wareCondition = WareCondition(question);
    Sql sql("select sum(tmpTab.Amount) as Amount , sum(tmpTab.Cost) as Cost   from ( ");
    const bool onlyInflow = set == MovementSet::DayInflow;
    std::vector<Movement> sources;
    std::ranges::copy_if(kMovements, std::back_inserter(sources),
                         [=](const Movement& movement) { return movement.dayInflow || !onlyInflow; });
    AppendUnion(sql, sources, [&](const Movement& movement) {
        // Of the other entries only the kinds that take part in costing are an inflow of value.
        const bool byKindOfEntry = onlyInflow && std::string_view(movement.head) == "TabElseInBill";
        sql += "select ";
        AppendSums(sql, movement, question.moneyName);
        AppendRowsOf(sql, movement, question, wareCondition, days, byKindOfEntry);
    });
    sql += " ) tmpTab";
    const Recordset sum = OpenQuery(program, sql);
    return {sum.Number("Amount"), sum.Money("Cost")};
}

Recordset ListMovements(Program& program, const StockQuestion& question, const Sql& wareCondition,
                        std::span<const DayLimit> days)
{
    Sql sql("select * from ( ");
    AppendUnion(sql, kMovements, [&](const Movement& movement) {
        sql += "select ";
        AppendLine(sql, movement, question.moneyName);
        AppendRowsOf(sql, movement, question, wareCondition, days, false);
    });
    sql += " ) tmpTab order by WareCode,Datee,DateTimee,BillCode,Num,Amount";
    return OpenQuery(program, sql);
}

Sql WareCondition(const StockQuestion& question)
{
    const Sql ware = Sql(" and TabWare.Code=") + question.wareCode.trimmed();
    if (question.warehouse.isEmpty())
        return ware + " ";
    return ware + "  and  TabWarehouseType.Code=" + question.warehouse + " ";
}

Sql DimensionCondition(const StockQuestion& question, const char* table)
{
    return BuildDimensionFilter(table, question.dimensions, !question.attributeExact, question.auditedOnly,
                                question.moneyName);
}

void AppendMoneySum(Sql& sql, const char* sign, const char* table, const char* column, const QString& moneyName)
{
    Append(sql, "sum(", sign, table, ".", column);
    AppendRate(sql, table, moneyName);
    sql += ")";
}
