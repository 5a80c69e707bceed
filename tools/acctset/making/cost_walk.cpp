#include "making/cost_walk.h"

#include "base/currency.h"
#include "base/number_text.h"

#include <algorithm>
#include <cmath>

QString CostMethodWord(CostMethod method)
{
    static const QString words[] = {"移动加权平均法", "加权平均法", "个别指定法"};
    return words[static_cast<int>(method)];
}

int CostWalk::AddItem(CostMethod method, double fixedCost)
{
    m_items.push_back({method, method == CostMethod::Fixed ? fixedCost : 0});
    return static_cast<int>(m_items.size()) - 1;
}

void CostWalk::Open(int item, int warehouse, double amount, double money, double cost)
{
    Item& opened = m_items[item];
    Add(opened, warehouse, amount, money);
    opened.cost = cost;
    opened.closeAmount += amount;
    opened.closeMoney += money;
}

double CostWalk::Receive(int item, int warehouse, const QDate& day, double amount, double money)
{
    Item& received = m_items[item];
    BeginDay(received, day);
    received.dayAmount += amount;
    received.dayMoney += money;
    received.periodAmount += amount;
    received.periodMoney += money;
    received.cost = RecordedCost(received);
    Add(received, warehouse, amount, money);
    return received.cost;
}

void CostWalk::Move(int item, int warehouse, const QDate& day, double amount, double money)
{
    BeginDay(m_items[item], day);
    Add(m_items[item], warehouse, amount, money);
}

void CostWalk::Close()
{
    for (Item& item : m_items) {
        item.amount = 0;
        item.money = 0;
        for (Holding& holding : item.holdings) {
            holding.amount = RoundToPlaces(holding.amount, kAmountPlaces);
            holding.money = Currency::FromDouble(holding.money).toDouble();
            item.amount += holding.amount;
            item.money += holding.money;
        }
        item.closeAmount = item.amount;
        item.closeMoney = item.money;
        item.periodAmount = 0;
        item.periodMoney = 0;
    }
}

double CostWalk::OnHand(int item, int warehouse) const
{
    for (const Holding& holding : m_items[item].holdings) {
        if (holding.warehouse == warehouse)
            return holding.amount;
    }
    return 0;
}

void CostWalk::BeginDay(Item& item, const QDate& day)
{
    if (item.day == day)
        return;
    item.day = day;
    item.priorAmount = RoundToPlaces(item.amount, kAmountPlaces);
    item.priorMoney = RoundToPlaces(item.money, kMoneyPlaces);
    item.dayAmount = 0;
    item.dayMoney = 0;
}

void CostWalk::Add(Item& item, int warehouse, double amount, double money)
{
    item.amount += amount;
    item.money += money;
    const auto found = std::find_if(item.holdings.begin(), item.holdings.end(),
                                    [=](const Holding& holding) { return holding.warehouse == warehouse; });
    if (found == item.holdings.end()) {
        item.holdings.push_back({warehouse, amount, money});
        return;
    }
    found->amount += amount;
    found->money += money;
}

double CostWalk::RecordedCost(const Item& item)
{
    if (item.method == CostMethod::Fixed)
        return item.cost;
    if (item.method == CostMethod::Moving) {
        const double total = item.dayAmount + item.priorAmount;
        if (total == 0)
            return item.cost;
        const Currency money = Currency::FromDouble(item.priorMoney) + Currency::FromDouble(item.dayMoney);
        return RoundToPlaces(money.toDouble() / total, kPricePlaces);
    }
    const double total = double(float(item.periodAmount)) + item.closeAmount;
    const Currency money = Currency::FromDouble(item.closeMoney) + Currency::FromDouble(item.periodMoney);
    return total == 0 ? 0 : RoundToPlaces(std::abs(money.toDouble() / total), kPricePlaces);
}
