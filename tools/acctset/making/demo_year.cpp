#include "making/demo.h"

#include "base/number_text.h"
#include "making/base_data.h"
#include "making/demo_shelves.h"

#include <algorithm>
#include <optional>

namespace {

const QDate kFirstDay(2023, 1, 3);
const QDate kCloseDay(2023, 6, 30);
const QDate kLastDay(2023, 12, 30);
constexpr std::uint64_t kSeed = 20230103;

/// Days of rest: a first and a last one.
struct Holiday
{
    QDate first;
    QDate last;
};

const Holiday kHolidays[] = {
    {{2023, 1, 21}, {2023, 1, 28}},
    {{2023, 4, 5}, {2023, 4, 5}},
    {{2023, 4, 29}, {2023, 5, 2}},
    {{2023, 9, 29}, {2023, 10, 5}},
};

class DemoYear
{
public:
    DemoYear(NewAccountSet& accountSet, const std::vector<Good>& goods);
    void Run();

private:
    void RunDay(const QDate& day, int workday);
    void RunMonthEnd();
    void Buy(int supplier);
    void GiveBack();
    void ReceiveElse();
    void Revalue();
    void Assemble(const Kit& kit);
    void Disassemble(const Kit& kit);
    void Replenish(int shop);
    void TransferPriced();
    void Sell();
    void SellAbroad();
    void TakeBack();
    void BringBackReturns();
    void IssueElse();
    void Count(BillWord word, int place);

    Bill NewBill(BillWord word, int from, int to);
    void Finish(Bill& bill);

    Trade m_trade;
    Dice m_dice{kSeed};
    DemoShelves m_shelves;
    std::vector<Partner> m_customers = DemoCustomers();
    Moment m_now;
};

bool IsWorkday(const QDate& day)
{
    const bool holiday = std::any_of(std::begin(kHolidays), std::end(kHolidays),
                                     [&](const Holiday& rest) { return rest.first <= day && day <= rest.last; });
    return !holiday && day.dayOfWeek() != Qt::Sunday;
}

QDate LastWorkdayOfMonth(QDate day)
{
    day.setDate(day.year(), day.month(), day.daysInMonth());
    while (!IsWorkday(day))
        day = day.addDays(-1);
    return day;
}

DemoYear::DemoYear(NewAccountSet& accountSet, const std::vector<Good>& goods)
    : m_trade(accountSet, LeavesOf(DemoWarehouses())), m_shelves(m_trade, m_dice, goods)
{}

void DemoYear::Run()
{
    m_shelves.OpenStock();
    int workday = 0;
    for (QDate day = kFirstDay; day <= kLastDay; day = day.addDays(1)) {
        if (IsWorkday(day))
            RunDay(day, workday++);
        if (day == kCloseDay)
            m_trade.Close(day, "系统管理员");
    }
}

void DemoYear::RunDay(const QDate& day, int workday)
{
    m_now = {day, (8 * 60 + 35) * 60 * 1000};
    // What moves the average comes in the morning: whatever leaves that day leaves at the day's cost.
    Buy(workday % int(m_shelves.bySupplier().size()));
    if (workday % 9 == 4)
        GiveBack();
    if (workday % 13 == 6)
        ReceiveElse();
    if (workday % 45 == 20)
        Revalue();
    if (workday % 12 == 8)
        Assemble(DemoKits()[size_t(workday / 12) % DemoKits().size()]);
    if (workday % 40 == 30)
        Disassemble(DemoKits()[size_t(workday / 40) % DemoKits().size()]);

    if (workday % 3 == 1)
        Replenish(kShops[(workday / 3) % 4]);
    if (workday % 22 == 10)
        TransferPriced();
    for (int bills = m_dice.Between(1, 2); bills > 0; --bills)
        Sell();
    if (workday % 17 == 9)
        SellAbroad();
    if (workday % 8 == 5)
        TakeBack();
    if (workday % 15 == 11)
        IssueElse();
    if (day == LastWorkdayOfMonth(day))
        RunMonthEnd();
}

void DemoYear::RunMonthEnd()
{
    BringBackReturns();
    for (const int place : {int(kMain), kShops[m_now.day.month() % 4]}) {
        Count(BillWord::CountLoss, place);
        Count(BillWord::CountOver, place);
    }
}

Bill DemoYear::NewBill(BillWord word, int from, int to)
{
    static const char* const sellers[] = {"王建军", "李娜", "赵伟", "周敏", "吴丽华"};
    Bill bill;
    bill.form = &FormOf(word);
    bill.from = from;
    bill.to = to;
    bill.saleMan = m_dice.OneOf(sellers);
    bill.operatorName = m_dice.Chance(70) ? "仓管员" : "系统管理员";
    bill.auditor = m_dice.Chance(75) ? "系统管理员" : "";
    m_now.millisecondOfDay += m_dice.Between(3 * 60, 20 * 60) * 1000 + m_dice.Below(1000);
    bill.head.moment = m_now;
    return bill;
}

/// A bill without lines was no bill.
void DemoYear::Finish(Bill& bill)
{
    if (bill.lines.empty())
        return;
    const Good& good = *bill.lines.front().good;
    bill.moneyName = good.moneyName;
    bill.moneyRate = good.moneyRate;
    bill.code = m_trade.NextCode(*bill.form, m_now.day);
    m_trade.Post(bill);
}

void DemoYear::Buy(int supplier)
{
    const std::vector<Shelf*>& shelves = m_shelves.bySupplier()[size_t(supplier)];
    Bill bill = NewBill(BillWord::PurchaseIn, kMain, kMain);
    bill.saleMan = m_dice.Chance(50) ? "林晓燕" : "黄志明";
    const Partner partner = SupplierOf(*shelves.front()->good);
    bill.partnerCode = partner.code;
    bill.partnerName = partner.name;
    for (Shelf* shelf : shelves) {
        const int most = MostPerLine(*shelf->good);
        const double level = shelf->inKit ? 180 : most * 3.0 * double(shelf->lots.size() > 3 ? 3 : 1);
        if (bill.lines.size() >= 12 || m_shelves.OnHand(*shelf, kMain) >= level)
            continue;
        const int amount = shelf->inKit ? 200 : most * m_dice.Between(2, 6);
        TradeLine line = LineOf(m_shelves.BoughtLot(*shelf, m_now.day), amount);
        // Prices creep up over the year and waver from one delivery to the next; a fixed cost is paid as fixed.
        const double drift = 1 + (m_now.day.month() - 3) * 0.004 + m_dice.Between(-20, 20) / 1000.0;
        shelf->boughtAt = shelf->good->method == CostMethod::Fixed ? shelf->good->cost : shelf->good->cost * drift;
        SetPrice(line, shelf->boughtAt, 1);
        bill.lines.push_back(line);
    }
    Finish(bill);
}

void DemoYear::GiveBack()
{
    Bill bill = NewBill(BillWord::PurchaseReturn, kMain, kMain);
    bill.head.remark = "质量问题退回";
    Shelf& shelf = m_dice.OneOf(m_shelves.home());
    const Partner partner = SupplierOf(*shelf.good);
    bill.partnerCode = partner.code;
    bill.partnerName = partner.name;
    if (std::optional<TradeLine> line = m_shelves.Take(shelf, kMain, 2)) {
        SetPrice(*line, shelf.boughtAt * line->unionAmount / line->amount, 1);
        bill.lines.push_back(*line);
    }
    Finish(bill);
}

void DemoYear::ReceiveElse()
{
    Bill bill = NewBill(BillWord::OtherIn, kMain, kMain);
    bill.kindCounts = m_dice.Chance(60);
    bill.kindWord = bill.kindCounts ? "其他入库" : "采购赠品";
    for (int count = m_dice.Between(1, 3); count > 0; --count) {
        Shelf& shelf = m_dice.OneOf(m_shelves.home());
        if (shelf.good->trait == Trait::Batch)
            continue;
        TradeLine line = LineOf(*m_dice.OneOf(shelf.lots), m_dice.Between(1, 5));
        SetPrice(line, bill.kindCounts ? shelf.good->cost : 0, 1);
        bill.lines.push_back(line);
    }
    Finish(bill);
}

/// Goods of the moving average only: no other cost follows a revaluation at once.
void DemoYear::Revalue()
{
    Bill bill = NewBill(BillWord::Revaluation, kMain, kMain);
    bill.head.remark = "市价变动";
    for (int count = m_dice.Between(3, 6); count > 0; --count) {
        const Shelf& shelf = m_dice.OneOf(m_shelves.home());
        const double onHand = m_shelves.OnHand(shelf, kMain);
        if (shelf.good->method != CostMethod::Moving || shelf.good->trait != Trait::Plain || onHand < 5)
            continue;
        TradeLine line = LineOf(*shelf.lots.front(), 0);
        line.money = RoundToPlaces(onHand * shelf.good->cost * m_dice.Between(-30, 30) / 1000.0, kMoneyPlaces);
        if (line.money != 0)
            bill.lines.push_back(line);
    }
    Finish(bill);
}

void DemoYear::Assemble(const Kit& kit)
{
    Bill bill = NewBill(BillWord::Assembly, kMain, kMain);
    for (const char* part : kit.parts) {
        const StockLot& lot = *m_shelves.ShelfNamed(part).lots.front();
        if (m_shelves.OnHand(lot, kMain) < kKitLot + 1)
            return;
        bill.lines.push_back(LineOf(lot, kKitLot));
    }
    const Moment moment = bill.head.moment;
    bill.head = LineOf(*m_shelves.ShelfNamed(kit.product).lots.front(), kKitLot);
    bill.head.moment = moment;
    bill.fee = kit.fee;
    Finish(bill);
}

void DemoYear::Disassemble(const Kit& kit)
{
    Bill bill = NewBill(BillWord::Disassembly, kMain, kMain);
    const StockLot& product = *m_shelves.ShelfNamed(kit.product).lots.front();
    if (m_shelves.OnHand(product, kMain) < kKitLot + 1)
        return;
    for (const char* part : kit.parts)
        bill.lines.push_back(LineOf(*m_shelves.ShelfNamed(part).lots.front(), kKitLot));
    const Moment moment = bill.head.moment;
    bill.head = LineOf(product, kKitLot);
    bill.head.moment = moment;
    bill.fee = kit.fee / 2;
    Finish(bill);
}

void DemoYear::Replenish(int shop)
{
    Bill bill = NewBill(BillWord::Transfer, kMain, shop);
    bill.saleMan = "郑涛";
    bill.head.remark = "门店补货";
    m_shelves.FillByTaking(bill, m_dice.Between(4, 9), 12);
    if (m_dice.Chance(4))
        bill.state = "作废";
    Finish(bill);
}

void DemoYear::TransferPriced()
{
    Bill bill = NewBill(BillWord::PricedTransfer, kMain, kOnline);
    bill.explain = "内部结算";
    m_shelves.FillByTaking(bill, m_dice.Between(2, 4), 5);
    for (TradeLine& line : bill.lines)
        SetPrice(line, line.good->cost * 1.1 * line.unionAmount / line.amount, 1);
    Finish(bill);
}

void DemoYear::Sell()
{
    const int place = m_dice.Chance(45) ? kMain : m_dice.OneOf(kShops);
    Bill bill = NewBill(BillWord::SaleOut, place, place);
    // The last two are no trade buyers: cash in a shop, and abroad.
    const bool cash = place != kMain && m_dice.Chance(60);
    const Partner& customer =
        cash ? m_customers[m_customers.size() - 2] : m_customers[size_t(m_dice.Below(int(m_customers.size()) - 2))];
    bill.partnerCode = customer.code;
    bill.partnerName = customer.name;
    m_shelves.FillByTaking(bill, m_dice.Between(1, 7), 20);
    for (TradeLine& line : bill.lines)
        SetPrice(line, line.good->cost * 1.35 * line.unionAmount / line.amount, customer.discount);
    if (m_dice.Chance(2))
        bill.state = "作废";
    Finish(bill);
}

void DemoYear::SellAbroad()
{
    Bill bill = NewBill(BillWord::SaleOut, kMain, kMain);
    bill.partnerCode = m_customers.back().code;
    bill.partnerName = m_customers.back().name;
    for (Shelf& shelf : m_shelves.abroad()) {
        std::optional<TradeLine> line = m_dice.Chance(60) ? m_shelves.Take(shelf, kMain, 3) : std::nullopt;
        if (!line)
            continue;
        SetPrice(*line, shelf.good->cost * 1.4, 1);
        bill.lines.push_back(*line);
    }
    Finish(bill);
}

void DemoYear::TakeBack()
{
    Bill bill = NewBill(BillWord::SaleReturn, kReturns, kReturns);
    const Partner& customer = m_customers[size_t(m_dice.Below(int(m_customers.size()) - 2))];
    bill.partnerCode = customer.code;
    bill.partnerName = customer.name;
    for (int count = m_dice.Between(1, 2); count > 0; --count) {
        const Shelf& shelf = m_dice.OneOf(m_shelves.home());
        if (shelf.good->trait != Trait::Plain)
            continue;
        TradeLine line = LineOf(*shelf.lots.front(), m_dice.Between(1, 2));
        SetPrice(line, shelf.good->cost * 1.35, customer.discount);
        bill.lines.push_back(line);
    }
    Finish(bill);
}

void DemoYear::BringBackReturns()
{
    Bill bill = NewBill(BillWord::Transfer, kReturns, kMain);
    bill.saleMan = "孙浩";
    bill.head.remark = "退货整理入库";
    for (const Shelf& shelf : m_shelves.home()) {
        const StockLot& lot = *shelf.lots.front();
        if (const double onHand = m_shelves.OnHand(lot, kReturns); onHand >= 1)
            bill.lines.push_back(LineOf(lot, onHand));
    }
    Finish(bill);
}

void DemoYear::IssueElse()
{
    Bill bill = NewBill(BillWord::OtherOut, kMain, kMain);
    bill.kindWord = m_dice.Chance(50) ? "样品领用" : "办公领用";
    m_shelves.FillByTaking(bill, m_dice.Between(1, 3), 2);
    Finish(bill);
}

void DemoYear::Count(BillWord word, int place)
{
    Bill bill = NewBill(word, place, place);
    bill.saleMan = "孙浩";
    bill.head.remark = QString("%1月盘点").arg(m_now.day.month());
    m_shelves.FillByTaking(bill, m_dice.Between(1, 4), 2);
    Finish(bill);
}

} // namespace

void FillDemo(NewAccountSet& accountSet)
{
    const std::vector<Good> goods = CatalogueGoods();
    WriteBase(accountSet, DemoWarehouses());
    WriteGoods(accountSet, goods);
    DemoYear(accountSet, goods).Run();
}
