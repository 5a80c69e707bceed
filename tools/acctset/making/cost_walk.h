#pragma once

// Stock and cost of made-up trade, kept as a running figure while the bills of an account set are made. It rounds
// where the stock and cost questions round, so the costs that it gives are those that they would answer.

#include <QDate>
#include <QString>
#include <vector>

enum class CostMethod
{
    Moving,   // 移动加权平均法
    Periodic, // 加权平均法
    Fixed,    // 个别指定法
};

QString CostMethodWord(CostMethod method);

/// Decimal places that made-up account sets are given.
constexpr int kPricePlaces = 4;
constexpr int kAmountPlaces = 2;
constexpr int kMoneyPlaces = 2;

/// What is costed apart: a good, or one attribute or batch of it. Items and warehouses are known by number.
class CostWalk
{
public:
    struct Holding
    {
        int warehouse;
        double amount;
        double money;
    };

    int AddItem(CostMethod method, double fixedCost);
    /// Opening stock of the books.
    void Open(int item, int warehouse, double amount, double money, double cost);
    /// Value that comes in at its own money and moves the average; both figures are negative for goods given back,
    /// the amount is 0 for a revaluation.
    /// @return the cost that the line records
    double Receive(int item, int warehouse, const QDate& day, double amount, double money);
    /// Stock that moves without moving the average.
    void Move(int item, int warehouse, const QDate& day, double amount, double money);
    /// Closes the period: holdings are rounded as the close stores them.
    void Close();

    /// The newest recorded cost.
    double CostOf(int item) const { return m_items[item].cost; }
    double OnHand(int item, int warehouse) const;
    const std::vector<Holding>& Holdings(int item) const { return m_items[item].holdings; }

private:
    struct Item
    {
        CostMethod method;
        double cost;
        double amount = 0;
        double money = 0;
        // The evening before, and what has come in since.
        QDate day = {};
        double priorAmount = 0;
        double priorMoney = 0;
        double dayAmount = 0;
        double dayMoney = 0;
        // The last close, and what has come in since.
        double closeAmount = 0;
        double closeMoney = 0;
        double periodAmount = 0;
        double periodMoney = 0;
        std::vector<Holding> holdings = {};
    };

    static void BeginDay(Item& item, const QDate& day);
    static void Add(Item& item, int warehouse, double amount, double money);
    static double RecordedCost(const Item& item);

    std::vector<Item> m_items;
};
