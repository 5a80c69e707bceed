#include "making/trade.h"

#include "base/number_text.h"

#include <algorithm>

namespace {

constexpr BillForm kForms[] = {
    {Effect::Receive, "TabInBill", "TabInBillInf", "CGR", "采购入库"},
    {Effect::GiveBack, "TabInCancleBill", "TabInCancleBillInf", "CGT", "采购退货"},
    {Effect::ReceiveElse, "TabElseInBill", "TabElseInBillInf", "QTR", "其他入库"},
    {Effect::Issue, "TabOutBill", "TabOutBillInf", "XSC", "销售出库"},
    {Effect::TakeBack, "TabOutCancleBill", "TabOutCancleBillInf", "XST", "销售退货"},
    {Effect::Issue, "TabElseOutBill", "TabElseOutBillInf", "QTC", "其他出库"},
    {Effect::Transfer, "TabSamePriceMove", "TabSamePriceMoveInf", "TDD", "同价调拨"},
    {Effect::PricedTransfer, "TabDiffPriceMove", "TabDiffPriceMoveInf", "YDD", "异价调拨"},
    {Effect::Revalue, "TabChangePrice", "TabChangePriceInf", "TJD", "商品调价"},
    {Effect::Lose, "TabCheckLose", "TabCheckLoseInf", "BSD", "盘点报损"},
    {Effect::Find, "TabCheckOver", "TabCheckOverInf", "BYD", "盘点报溢"},
    {Effect::Assemble, "TabWareGroup", "TabWareGroupInf", "ZZD", "商品组装"},
    {Effect::Disassemble, "TabWarePiece", "TabWarePieceInf", "CXD", "商品拆卸"},
};

double RoundMoney(double money)
{
    return RoundToPlaces(money, kMoneyPlaces);
}

double RoundPrice(double price)
{
    return RoundToPlaces(price, kPricePlaces);
}

Moment Later(Moment moment, int milliseconds)
{
    moment.millisecondOfDay += milliseconds;
    return moment;
}

double SumOfMoney(const Bill& bill)
{
    double sum = 0;
    for (const TradeLine& line : bill.lines)
        sum += line.money;
    return RoundMoney(sum);
}

/// What the head shows as its total: money of trade after discount, money of the lines otherwise.
double TotalOf(const Bill& bill)
{
    double total = 0;
    for (const TradeLine& line : bill.lines) {
        switch (bill.form->effect) {
        case Effect::Transfer:
            total += line.amount * line.averagePrice;
            break;
        case Effect::PricedTransfer:
        case Effect::Revalue:
            total += line.money;
            break;
        case Effect::Lose:
        case Effect::Find:
            break;
        default:
            total += line.discounted.toDouble();
        }
    }
    return RoundMoney(total);
}

} // namespace

const BillForm& FormOf(BillWord word)
{
    return kForms[static_cast<size_t>(word)];
}

Trade::Trade(NewAccountSet& accountSet, std::vector<Warehouse> warehouses)
    : m_accountSet(accountSet), m_warehouses(std::move(warehouses))
{}

const StockLot& Trade::AddLot(const Good& good, StockLot lot)
{
    lot.good = &good;
    lot.item = m_walk.AddItem(good.method, good.cost);
    return m_lots.emplace_back(std::move(lot));
}

void Trade::Open(const StockLot& lot, int warehouse, double amount)
{
    const double cost = lot.good->cost;
    m_walk.Open(lot.item, warehouse, amount, RoundMoney(amount * cost), cost);
    // Opening rows bear no date: they precede every period.
    WriteTurnRow(1, kNoDate, lot, m_walk.Holdings(lot.item).back());
}

QString Trade::NextCode(const BillForm& form, const QDate& day)
{
    std::pair<QDate, int>& last = m_lastNumbers[&form];
    last = {day, last.first == day ? last.second + 1 : 1};
    return QString("%1%2%3").arg(form.prefix, day.toString("yyyyMMdd")).arg(last.second, 4, 10, QLatin1Char('0'));
}

void Trade::Post(Bill& bill)
{
    Moment moment = bill.head.moment;
    for (TradeLine& line : bill.lines)
        line.moment = moment = Later(moment, 4);
    const bool voided = bill.state != "正常";
    if (bill.form->effect == Effect::Assemble) {
        PostAssembly(bill);
    } else if (bill.form->effect == Effect::Disassemble) {
        PostDisassembly(bill);
    } else {
        for (TradeLine& line : bill.lines) {
            line.cost = line.averagePrice = m_walk.CostOf(line.lot->item);
            if (!voided)
                PostLine(bill, line);
        }
        bill.sumMoney = TotalOf(bill);
    }
    WriteRow(bill.form->headTable, bill, bill.head, 0);
    int num = 0;
    for (const TradeLine& line : bill.lines)
        WriteRow(bill.form->lineTable, bill, line, ++num);
}

void Trade::PostLine(Bill& bill, TradeLine& line)
{
    switch (bill.form->effect) {
    case Effect::ReceiveElse:
        if (!bill.kindCounts) {
            line.discounted = Currency::FromDouble(RoundMoney(line.unionAmount * line.averagePrice));
            m_walk.Move(line.lot->item, bill.from, line.moment.day, line.unionAmount, line.discounted.toDouble());
            break;
        }
        [[fallthrough]];
    case Effect::Receive:
        Receive(line, bill.from, line.unionAmount, line.discounted.toDouble());
        break;
    case Effect::GiveBack:
        Receive(line, bill.from, -line.unionAmount, -line.discounted.toDouble());
        break;
    case Effect::Revalue:
        line.difference = Currency::FromDouble(line.money);
        line.costAfter = m_walk.Receive(line.lot->item, bill.from, line.moment.day, 0, line.money);
        break;
    case Effect::Transfer:
        MoveAtCost(line, bill.from, -1);
        MoveAtCost(line, bill.to, 1);
        break;
    case Effect::PricedTransfer:
        line.difference = Currency::FromDouble((line.price - line.averagePrice) * line.amount);
        bill.head.difference -= line.difference;
        break;
    case Effect::TakeBack:
    case Effect::Find:
        MoveAtCost(line, bill.from, 1);
        break;
    default:
        MoveAtCost(line, bill.from, -1);
    }
}

void Trade::Receive(TradeLine& line, int warehouse, double amount, double money)
{
    line.averagePrice = m_walk.Receive(line.lot->item, warehouse, line.moment.day, amount, money);
}

void Trade::MoveAtCost(TradeLine& line, int warehouse, double sign)
{
    const double amount = sign * line.unionAmount;
    m_walk.Move(line.lot->item, warehouse, line.moment.day, amount, amount * line.averagePrice);
}

/// The parts leave at cost; the product takes their money and the fee.
void Trade::PostAssembly(Bill& bill)
{
    for (TradeLine& line : bill.lines) {
        line.price = line.averagePrice = m_walk.CostOf(line.lot->item);
        line.money = RoundPrice(line.amount * line.price);
        m_walk.Move(line.lot->item, bill.from, line.moment.day, -line.unionAmount, -line.money);
    }
    TradeLine& product = bill.head;
    bill.sumMoney = RoundMoney(SumOfMoney(bill) + bill.fee);
    product.cost = RoundPrice(bill.sumMoney / product.amount);
    product.stockIn = product.amount;
    Receive(product, bill.to, product.unionAmount, bill.sumMoney);
}

/// The product leaves at cost; its money and the fee are split over the parts by what they cost, the last one taking
/// the rest.
void Trade::PostDisassembly(Bill& bill)
{
    TradeLine& product = bill.head;
    product.cost = product.averagePrice = m_walk.CostOf(product.lot->item);
    bill.sumMoney = RoundMoney(product.amount * product.cost);
    m_walk.Move(product.lot->item, bill.from, product.moment.day, -product.unionAmount, -bill.sumMoney);

    double weight = 0;
    for (const TradeLine& line : bill.lines)
        weight += line.amount * line.good->cost;
    const double total = RoundMoney(bill.sumMoney + bill.fee);
    double rest = total;
    for (TradeLine& line : bill.lines) {
        const bool last = &line == &bill.lines.back();
        line.money = last ? rest : RoundMoney(total * line.amount * line.good->cost / weight);
        line.price = RoundPrice(line.money / line.amount);
        line.stockIn = line.amount;
        rest = RoundMoney(rest - line.money);
        Receive(line, bill.to, line.unionAmount, line.money);
    }
}

void Trade::Close(const QDate& day, const QString& operatorName)
{
    m_walk.Close();
    m_accountSet.Insert("TabTurn", std::vector<Value>{day, operatorName});
    for (const StockLot& lot : m_lots) {
        for (const CostWalk::Holding& holding : m_walk.Holdings(lot.item)) {
            if (holding.amount != 0 || holding.money != 0)
                WriteTurnRow(2, day, lot, holding);
        }
    }
}

void Trade::WriteRow(const char* table, const Bill& bill, const TradeLine& line, int num)
{
    m_accountSet.Insert(table, m_rows.Row(table, bill, line, num, m_warehouses));
}

void Trade::WriteTurnRow(int num, const QDate& day, const StockLot& lot, const CostWalk::Holding& holding)
{
    const Good& good = *lot.good;
    m_accountSet.Insert("TabWarehouseTurn",
                        {qint64(num), day, good.code, m_warehouses[holding.warehouse].code, holding.amount,
                         holding.money, m_walk.CostOf(lot.item), good.moneyRate, good.moneyName, QString(""),
                         lot.attributeCode, good.spec, good.manufacturer, good.brand, lot.batch});
}
