#pragma once

// Made-up trade: bills of all programs of the suite with their lines, posted to the cost walk as they would be saved,
// and written as rows. What a bill does to stock and value is a row of one table, not a branch on its name.

#include "making/cost_walk.h"
#include "making/goods.h"
#include "making/new_account_set.h"

#include <deque>
#include <map>

/// What the lines of a bill do to stock.
enum class Effect
{
    Receive,     // bring goods in at their own money
    GiveBack,    // take goods out at their own money
    ReceiveElse, // bring goods in, at their own money where the kind word counts
    Issue,       // take goods out at cost
    TakeBack,    // bring goods in at cost
    Transfer,
    PricedTransfer, // moves no stock
    Revalue,
    Lose,
    Find,
    Assemble,
    Disassemble,
};

struct BillForm
{
    Effect effect;
    const char* headTable;
    const char* lineTable;
    const char* prefix;
    const char* billType;
};

/// The bills of the suite that stock knows.
enum class BillWord
{
    PurchaseIn,
    PurchaseReturn,
    OtherIn,
    SaleOut,
    SaleReturn,
    OtherOut,
    Transfer,
    PricedTransfer,
    Revaluation,
    CountLoss,
    CountOver,
    Assembly,
    Disassembly,
};

const BillForm& FormOf(BillWord word);

/// A line, or the goods side of a head.
struct TradeLine
{
    const Good* good = nullptr;
    const StockLot* lot = nullptr;
    QString unit;
    double amount = 0;      // in `unit`
    double unionAmount = 0; // in base units
    double price = 0;
    double money = 0;
    Currency discounted;
    double cost = 0;
    double averagePrice = 0;
    double costAfter = 0; // of a revaluation
    Currency difference;
    double stockIn = 0;
    QString remark;
    Moment moment;
};

struct Bill
{
    const BillForm* form = nullptr;
    QString code;
    int from = 0; // numbers of warehouses; a bill with one warehouse has it here
    int to = 0;
    QString partnerCode;
    QString partnerName;
    QString kindWord; // of an other inbound or outbound bill
    bool kindCounts = true;
    QString saleMan;
    QString operatorName;
    QString auditor;
    QString explain;
    QString state = "正常";
    double sumMoney = 0;
    double fee = 0;
    QString moneyName = "人民币";
    double moneyRate = 1;
    TradeLine head; // its goods, remark and moment
    std::vector<TradeLine> lines;
};

struct Warehouse
{
    QString code;
    QString name;
};

/// Rows of bills: for each table what fills its columns, found once.
class BillRows
{
public:
    /// The row of a line, or of a head, which is numbered 0.
    std::vector<Value> Row(const char* table, const Bill& bill, const TradeLine& line, int num,
                           const std::vector<Warehouse>& warehouses);

private:
    struct Source;
    using Filler = Value (*)(const Source& source);
    static Filler FillerOf(const SchemaColumn& column);

    std::map<const char*, std::vector<Filler>> m_fillers;
};

class Trade
{
public:
    Trade(NewAccountSet& accountSet, std::vector<Warehouse> warehouses);

    /// What a good is stocked as: itself, an attribute or a batch. Lots stay where they are.
    const StockLot& AddLot(const Good& good, StockLot lot);
    /// Opening stock of the books.
    void Open(const StockLot& lot, int warehouse, double amount);
    /// Next code of the day, in the form that the programs give.
    QString NextCode(const BillForm& form, const QDate& day);
    /// Costs the bill, moves its stock unless it is voided, and writes it.
    void Post(Bill& bill);
    /// A period close with its snapshot.
    void Close(const QDate& day, const QString& operatorName);

    CostWalk& walk() { return m_walk; }
    const std::vector<Warehouse>& warehouses() const { return m_warehouses; }

private:
    void PostLine(Bill& bill, TradeLine& line);
    void Receive(TradeLine& line, int warehouse, double amount, double money);
    void MoveAtCost(TradeLine& line, int warehouse, double sign);
    void PostAssembly(Bill& bill);
    void PostDisassembly(Bill& bill);
    void WriteRow(const char* table, const Bill& bill, const TradeLine& line, int num);
    void WriteTurnRow(int num, const QDate& day, const StockLot& lot, const CostWalk::Holding& holding);

    NewAccountSet& m_accountSet;
    std::vector<Warehouse> m_warehouses;
    CostWalk m_walk;
    std::deque<StockLot> m_lots;
    std::map<const BillForm*, std::pair<QDate, int>> m_lastNumbers;
    BillRows m_rows;
};
