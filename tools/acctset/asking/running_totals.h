#pragma once

// Sums as the engine sums: what is added up is rounded as a whole, not line by line.

#include "data/decimals.h"
#include "stock/balance.h"

class RunningTotals
{
public:
    RunningTotals(const StockSum& opening, int amountDigits, int moneyDigits)
        : m_opening(opening), m_amountDigits(amountDigits), m_moneyDigits(moneyDigits)
    {}

    void Add(double amount, double money)
    {
        m_amount += amount;
        m_money += money;
    }
    double amount() const { return RoundByDigits(double(m_amount) + m_opening.amount, m_amountDigits); }
    Currency money() const
    {
        const Currency exact = Currency::FromDouble(double(m_money)) + m_opening.money;
        return Currency::FromDouble(RoundByDigits(exact.toDouble(), m_moneyDigits));
    }

private:
    StockSum m_opening;
    int m_amountDigits;
    int m_moneyDigits;
    // A longer mantissa than a line has: thousands of lines leave no trace in the last place.
    long double m_amount = 0;
    long double m_money = 0;
};
