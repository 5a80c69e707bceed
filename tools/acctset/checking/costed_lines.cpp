#include "checking/costed_lines.h"

#include "handover/open_query.h"
#include "stock/statement.h"

#include <QHash>
#include <map>

namespace {

struct CostedTable
{
    const char* table;
    const char* cost;
    const char* otherCost; // the same as `cost` where there is one column
    const char* amount;    // what a recording line brings in; null for a line that takes the newest cost
    const char* money;
    const char* otherTables = ""; // with the comma in front
    const char* conditions = "";
    const char* inForce = "case when L.State<>'作废' then 1 else 0 end";
};

constexpr const char* kNone = nullptr;

// The priced transfer keeps the cost that it was saved with, so it is no part of this.
constexpr CostedTable kCostedTables[] = {
    {"TabInBillInf", "AveragePrice", "AveragePrice", "UnionAmount", "Moneyy_Discount"},
    {"TabInCancleBillInf", "AveragePrice", "AveragePrice", "-UnionAmount", "-Moneyy_Discount"},
    {"TabElseInBillInf", "AveragePrice", "AveragePrice", "UnionAmount", "Moneyy_Discount",
     ",TabElseInBill,TabOutInType",
     " and L.BillCode=TabElseInBill.Code and TabOutInType.CalCostYN='是'"
     " and TabOutInType.Name=TabElseInBill.InType"},
    // A kind of entry that takes no part in costing moves stock nevertheless.
    {"TabElseInBillInf", "AveragePrice", "AveragePrice", kNone, kNone, "",
     " and not exists (select TabElseInBill.Code from TabElseInBill,TabOutInType where L.BillCode=TabElseInBill.Code"
     " and TabOutInType.CalCostYN='是' and TabOutInType.Name=TabElseInBill.InType)",
     "0"},
    {"TabChangePriceInf", "lastAveragePrice", "lastAveragePrice", "0", "MoneyBanlance"},
    {"TabWareGroup", "AveragePrice", "AveragePrice", "UnionAmount", "SumMoney"},
    {"TabWarePieceInf", "AveragePrice", "AveragePrice", "UnionAmount", "Moneyy"},
    {"TabOutBillInf", "Cost", "AveragePrice", kNone, kNone},
    {"TabOutCancleBillInf", "Cost", "AveragePrice", kNone, kNone},
    {"TabElseOutBillInf", "Cost", "AveragePrice", kNone, kNone},
    {"TabSamePriceMoveInf", "AveragePrice", "AveragePrice", kNone, kNone},
    {"TabCheckLoseInf", "AveragePrice", "AveragePrice", kNone, kNone},
    {"TabCheckOverInf", "AveragePrice", "AveragePrice", kNone, kNone},
    {"TabWareGroupInf", "AveragePrice", "AveragePrice", kNone, kNone},
    {"TabWarePiece", "AveragePrice", "AveragePrice", kNone, kNone},
};

/// "-Moneyy" stands for the column with the other sign.
void AppendColumn(Sql& sql, const char* column, const char* as)
{
    if (!column || *column == '0')
        sql += "0";
    else if (*column == '-')
        Append(sql, "-L.", column + 1);
    else
        Append(sql, "L.", column);
    Append(sql, " as ", as, ",");
}

/// The columns in the order that GoodsOf and LineOf read them in.
void AppendLines(Sql& sql, const CostedTable& source, const GoodsRange& range)
{
    const bool isHead = !QByteArrayView(source.table).endsWith("Inf");
    Append(sql, "select L.WareCode as WareCode,TabWare.CostStyle as CostStyle,TabWare.AveragePrice as FixedCost,'",
           source.table, "' as LineTable,", isHead ? "L.Code" : "L.BillCode", " as BillCode,", isHead ? "0" : "L.Num",
           " as Num,L.Datee as Datee,L.DateTimee as DateTimee,L.AttributeCode as AttributeCode,L.WareSpec as WareSpec,"
           "L.Manufacturer as Manufacturer,L.Brand as Brand,L.PCode as PCode,L.MoneyName as MoneyName,"
           "L.Auditing as Auditing,");
    AppendColumn(sql, source.cost, "UnitCost");
    AppendColumn(sql, source.otherCost, "OtherCost");
    AppendColumn(sql, source.amount, "Amount");
    AppendColumn(sql, source.money, "Moneyy");
    Append(sql, source.amount ? "1" : "0", " as Records,", source.inForce, " as InForce from ", source.table,
           " L,TabWare", source.otherTables, " where L.WareCode=TabWare.Code", source.conditions, WithinRange(range));
}

CostedLine LineOf(RowReader& reader)
{
    CostedLine line;
    line.table = reader.Text();
    line.code = reader.Text();
    line.num = reader.Integer();
    line.day = reader.Day().value_or(kNoDate);
    line.ownMoment = reader.MomentAt();
    line.variant = VariantOf(reader);
    line.auditing = reader.Text();
    line.cost = reader.Number();
    line.otherCost = reader.Number();
    line.amount = reader.Number();
    line.money = reader.Money();
    line.records = reader.Integer() != 0;
    line.inForce = reader.Integer() != 0;
    return line;
}

std::vector<CostedGood> GoodsOf(const Recordset& rows)
{
    RowReader reader(rows);
    std::vector<CostedGood> goods;
    while (reader.Next()) {
        const QString code = reader.Text();
        const QString costStyle = reader.Text().trimmed();
        const double fixedCost = reader.Number();
        if (goods.empty() || goods.back().code.compare(code, Qt::CaseInsensitive) != 0)
            goods.push_back({.code = code, .costStyle = costStyle, .fixedCost = fixedCost});
        goods.back().lines.push_back(LineOf(reader));
    }
    return goods;
}

/// The lines of a good as its movements name them.
class NamedLines
{
public:
    explicit NamedLines(CostedGood& good) : m_good(good)
    {
        for (const CostedLine& line : good.lines) {
            const qsizetype headLength = line.table.endsWith("Inf") ? line.table.size() - 3 : line.table.size();
            const auto [at, isNew] = m_lines.try_emplace({line.code, line.num, line.table.left(headLength)}, &line);
            good.isClear = good.isClear && isNew && (line.ownMoment || !line.records);
        }
    }
    void Add(const MovementRow& row)
    {
        const auto line = m_lines.find({row.code, row.num, row.headTable});
        if (line == m_lines.end())
            m_good.isClear = false;
        else
            m_good.moves.push_back({&row, line->second});
    }

private:
    CostedGood& m_good;
    std::map<std::tuple<QString, int, QString>, const CostedLine*> m_lines;
};

/// Goods by their codes, whatever the case.
class GoodsByCode
{
public:
    explicit GoodsByCode(std::vector<CostedGood>& goods)
    {
        for (CostedGood& good : goods)
            m_goods[good.code.toCaseFolded()] = &good;
    }
    /// Null for one without lines.
    CostedGood* Find(const QString& code) const { return m_goods.value(code.toCaseFolded()); }

private:
    QHash<QString, CostedGood*> m_goods;
};

/// The rows of one good after the other.
template <typename Row, typename Take>
void ForEachGood(const std::vector<Row>& rows, const GoodsByCode& goods, Take take)
{
    for (size_t first = 0, last = 0; first < rows.size(); first = last) {
        while (last < rows.size() && rows[last].wareCode.compare(rows[first].wareCode, Qt::CaseInsensitive) == 0)
            ++last;
        if (CostedGood* const good = goods.Find(rows[first].wareCode))
            take(*good, std::span(rows).subspan(first, last - first));
    }
}

} // namespace

std::vector<CostedGood> CostedGoods(Program& program, const GoodsRange& range, const StockRows& stock)
{
    Sql sql("select * from (");
    AppendUnion(sql, kCostedTables, [&](const CostedTable& source) { AppendLines(sql, source, range); });
    sql += ") tmpTab order by WareCode,DateTimee,BillCode,Num";
    std::vector<CostedGood> goods = GoodsOf(OpenQuery(program, sql));
    const GoodsByCode byCode(goods);
    ForEachGood(stock.movements, byCode, [](CostedGood& good, std::span<const MovementRow> rows) {
        NamedLines lines(good);
        for (const MovementRow& row : rows)
            lines.Add(row);
    });
    ForEachGood(stock.snapshots, byCode,
                [](CostedGood& good, std::span<const SnapshotRow> rows) { good.snapshots = rows; });
    return goods;
}
