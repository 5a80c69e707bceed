#pragma once

// The shelves of the demonstration wholesaler: which goods lie where in how many lots, what can be taken from them,
// and the lines that bills make of it.

#include "making/dice.h"
#include "making/trade.h"

#include <optional>

/// Numbers of the warehouses.
enum Place
{
    kMain,
    kReserve,
    kReturns,
    kShop,
    kEastShop,
    kWestShop,
    kOnline,
};

constexpr int kShops[] = {kShop, kEastShop, kWestShop, kOnline};

/// A set of goods that is put together from others, one of each, a hundred sets at a time.
struct Kit
{
    const char* product; // name and specification, a blank between them
    std::vector<const char*> parts;
    double fee;
};

const std::vector<Kit>& DemoKits();
constexpr double kKitLot = 100;

/// A good with the lots that it is stocked as.
struct Shelf
{
    const Good* good;
    std::vector<const StockLot*> lots;
    double boughtAt; // the last price
    bool inKit = false;
};

/// Cheap goods lie there in numbers, dear ones in a few pieces.
int MostPerLine(const Good& good);
TradeLine LineOf(const StockLot& lot, double amount);
void SetPrice(TradeLine& line, double price, double discount);

class DemoShelves
{
public:
    /// All goods but services; nothing lies on the shelves yet.
    DemoShelves(Trade& trade, Dice& dice, const std::vector<Good>& goods);
    void OpenStock();

    std::vector<Shelf>& home() { return m_home; }
    std::vector<Shelf>& abroad() { return m_abroad; }
    /// The shelves of each supplier.
    const std::vector<std::vector<Shelf*>>& bySupplier() const { return m_bySupplier; }

    Shelf& ShelfNamed(const QString& nameAndSpec);
    double OnHand(const Shelf& shelf, int place) const;
    double OnHand(const StockLot& lot, int place) const;
    /// A batch comes with every delivery; an attribute is one of those that there are.
    const StockLot& BoughtLot(Shelf& shelf, const QDate& day);
    std::optional<TradeLine> Take(Shelf& shelf, int place, int most);
    /// Up to `count` lines of popular goods, each good once.
    void FillByTaking(Bill& bill, int count, int most, bool plainOnly = false);

private:
    void AddLots(Shelf& shelf);
    const StockLot* LotToTake(const Shelf& shelf, int place, double* spare);

    Trade& m_trade;
    Dice& m_dice;
    std::vector<Shelf> m_home;   // traded in the base currency
    std::vector<Shelf> m_abroad; // bought and sold in dollars
    std::vector<std::vector<Shelf*>> m_bySupplier;
};
