#include "check_goods.h"

#include "handover/open_query.h"

#include <algorithm>

namespace {

constexpr int kPortion = 500;

} // namespace

std::vector<GoodsRange> GoodsInPortions(Program& program)
{
    const Recordset goods = OpenQuery(program, Sql("select Code from TabWare order by Code"));
    std::vector<GoodsRange> ranges;
    for (int row = 0; row < goods.size(); row += kPortion)
        ranges.push_back({goods.Text("Code", row), goods.Text("Code", std::min(row + kPortion, goods.size()) - 1)});
    return ranges;
}

Sql WithinRange(const GoodsRange& range)
{
    return Sql(" and TabWare.Code>=") + range.first + " and TabWare.Code<=" + range.last +
           " and coalesce(TabWare.AmountQueryYN,'')<>'否' ";
}
