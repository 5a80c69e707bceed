#include "demo.h"

#include "base/number_text.h"
#include "base_data.h"
#include "dice.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace {

const QDate kFirstDay(2023, 1, 3);
const QDate kCloseDay(2023, 6, 30);
const QDate kLastDay(2023, 12, 30);
constexpr std::uint64_t kSeed = 20230103;

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

/// A set of goods that is put together from others, one of each, a hundred sets at a time.
struct Kit
{
    const char* product; // name and specification, a blank between them
    std::vector<const char*> parts;
    double fee;
};

const std::vector<Kit> kKits = {
    {"童趣学生文具套装 五件套",
     {"童趣水彩笔 12色", "童趣油画棒 12色", "童趣素描本 A4", "启明不锈钢直尺 20cm", "启明资料册 20页"},
     50},
    {"童趣学生文具套装 八件套",
     {"童趣水彩笔 24色", "童趣油画棒 24色", "童趣素描本 8K", "启明不锈钢直尺 20cm", "启明资料册 40页",
      "锐锋办公剪刀 170mm"},
     80},
    {"启明办公文具套装 六件套",
     {"启明订书机 12号", "锐锋办公剪刀 170mm", "佳印皮面笔记本 A5 100页", "启明不锈钢直尺 30cm", "启明资料册 60页",
      "启明长尾夹 25mm"},
     60},
    {"锐锋螺丝刀套装 6件套",
     {"锐锋十字螺丝刀 3*75mm", "锐锋十字螺丝刀 5*100mm", "锐锋十字螺丝刀 6*150mm", "锐锋一字螺丝刀 3*75mm",
      "锐锋一字螺丝刀 5*100mm", "锐锋一字螺丝刀 6*150mm"},
     40},
};

constexpr double kKitLot = 100;

/// A good with the lots that it is stocked as.
struct Shelf
{
    const Good* good;
    std::vector<const StockLot*> lots;
    double boughtAt; // the last price
    bool inKit = false;
};

class DemoYear
{
public:
    DemoYear(NewAccountSet& accountSet, const std::vector<Good>& goods);
    void Run();

private:
    void OpenStock();
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
    Shelf& ShelfNamed(const QString& nameAndSpec);
    const StockLot& BoughtLot(Shelf& shelf);
    double OnHand(const Shelf& shelf, int place);
    /// A lot of the shelf with something to spare at a place; null when there is none.
    const StockLot* LotToTake(const Shelf& shelf, int place, double* spare);
    std::optional<TradeLine> Take(Shelf& shelf, int place, int most);
    TradeLine LineOf(const StockLot& lot, double amount);
    void SetPrice(TradeLine& line, double price, double discount);
    /// Up to `count` lines of popular goods, each good once.
    void FillByTaking(Bill& bill, int count, int most, bool plainOnly = false);
    int MostPerLine(const Good& good);

    Trade m_trade;
    Dice m_dice{kSeed};
    std::vector<Partner> m_customers = DemoCustomers();
    std::vector<Shelf> m_home;   // traded in the base currency
    std::vector<Shelf> m_abroad; // bought and sold in dollars
    std::vector<std::vector<Shelf*>> m_bySupplier;
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
    : m_trade(accountSet, LeavesOf(DemoWarehouses()))
{
    for (const Good& good : goods) {
        if (good.trait != Trait::Service)
            (good.moneyName == "人民币" ? m_home : m_abroad).push_back({&good, {}, good.cost});
    }
    std::map<QString, std::vector<Shelf*>> bySupplier;
    for (std::vector<Shelf>* shelves : {&m_home, &m_abroad}) {
        for (Shelf& shelf : *shelves)
            bySupplier[SupplierOf(*shelf.good).code].push_back(&shelf);
    }
    for (auto& [code, shelves] : bySupplier)
        m_bySupplier.push_back(shelves);
    for (const Kit& kit : kKits) {
        for (const char* part : kit.parts)
            ShelfNamed(part).inKit = true;
    }
}

void DemoYear::Run()
{
    OpenStock();
    int workday = 0;
    for (QDate day = kFirstDay; day <= kLastDay; day = day.addDays(1)) {
        if (IsWorkday(day))
            RunDay(day, workday++);
        if (day == kCloseDay)
            m_trade.Close(day, "系统管理员");
    }
}

/// Cheap goods lie there in numbers, dear ones in a few pieces.
int DemoYear::MostPerLine(const Good& good)
{
    return good.cost < 20 ? 20 : good.cost < 80 ? 10 : 3;
}

void DemoYear::OpenStock()
{
    for (std::vector<Shelf>* shelves : {&m_home, &m_abroad}) {
        for (Shelf& shelf : *shelves) {
            const Good& good = *shelf.good;
            if (good.trait == Trait::Colour || good.trait == Trait::Size) {
                for (const TreeRow& attribute : DemoAttributes(AttributeRoot(good.trait)))
                    shelf.lots.push_back(
                        &m_trade.AddLot(good, {.attributeCode = attribute.code, .attributeName = attribute.name}));
            } else if (good.trait == Trait::Batch) {
                shelf.lots.push_back(
                    &m_trade.AddLot(good, {.batch = "20221108", .madeOn = "2022-11-08", .bestBefore = "2024-05-07"}));
            } else {
                shelf.lots.push_back(&m_trade.AddLot(good, {}));
            }
            const int most = MostPerLine(good);
            for (const StockLot* lot : shelf.lots) {
                m_trade.Open(*lot, kMain, shelf.inKit ? 200 : most * m_dice.Between(2, 6));
                if (shelves == &m_abroad)
                    continue;
                for (const int shop : kShops) {
                    if (m_dice.Chance(70))
                        m_trade.Open(*lot, shop, m_dice.Between(2, most));
                }
            }
        }
    }
}

void DemoYear::RunDay(const QDate& day, int workday)
{
    m_now = {day, (8 * 60 + 35) * 60 * 1000};
    // What moves the average comes in the morning: whatever leaves that day leaves at the day's cost.
    Buy(workday % int(m_bySupplier.size()));
    if (workday % 9 == 4)
        GiveBack();
    if (workday % 13 == 6)
        ReceiveElse();
    if (workday % 45 == 20)
        Revalue();
    if (workday % 12 == 8)
        Assemble(kKits[size_t(workday / 12) % kKits.size()]);
    if (workday % 40 == 30)
        Disassemble(kKits[size_t(workday / 40) % kKits.size()]);

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

Shelf& DemoYear::ShelfNamed(const QString& nameAndSpec)
{
    const auto found = std::find_if(m_home.begin(), m_home.end(), [&](const Shelf& shelf) {
        return shelf.good->name + ' ' + shelf.good->spec == nameAndSpec;
    });
    Q_ASSERT(found != m_home.end());
    return *found;
}

double DemoYear::OnHand(const Shelf& shelf, int place)
{
    double sum = 0;
    for (const StockLot* lot : shelf.lots)
        sum += m_trade.walk().OnHand(lot->item, place);
    return sum;
}

TradeLine DemoYear::LineOf(const StockLot& lot, double amount)
{
    TradeLine line;
    line.good = lot.good;
    line.lot = &lot;
    line.unit = lot.good->unit;
    line.amount = line.unionAmount = amount;
    return line;
}

void DemoYear::SetPrice(TradeLine& line, double price, double discount)
{
    line.price = RoundToPlaces(price, 2);
    line.money = RoundToPlaces(line.price * line.amount, kMoneyPlaces);
    line.discounted = Currency::FromDouble(RoundToPlaces(line.money * discount, kMoneyPlaces));
}

/// A batch comes with every delivery; an attribute is one of those that there are.
const StockLot& DemoYear::BoughtLot(Shelf& shelf)
{
    if (shelf.good->trait == Trait::Batch) {
        const QDate madeOn = m_now.day.addDays(-m_dice.Between(8, 40));
        shelf.lots.push_back(&m_trade.AddLot(*shelf.good, {.batch = madeOn.toString("yyyyMMdd"),
                                                           .madeOn = DayText(madeOn),
                                                           .bestBefore = DayText(madeOn.addMonths(18))}));
        return *shelf.lots.back();
    }
    return *m_dice.OneOf(shelf.lots);
}

void DemoYear::Buy(int supplier)
{
    const std::vector<Shelf*>& shelves = m_bySupplier[size_t(supplier)];
    Bill bill = NewBill(BillWord::PurchaseIn, kMain, kMain);
    bill.saleMan = m_dice.Chance(50) ? "林晓燕" : "黄志明";
    const Partner partner = SupplierOf(*shelves.front()->good);
    bill.partnerCode = partner.code;
    bill.partnerName = partner.name;
    for (Shelf* shelf : shelves) {
        const int most = MostPerLine(*shelf->good);
        const double level = shelf->inKit ? 180 : most * 3.0 * double(shelf->lots.size() > 3 ? 3 : 1);
        if (bill.lines.size() >= 12 || OnHand(*shelf, kMain) >= level)
            continue;
        const int amount = shelf->inKit ? 200 : most * m_dice.Between(2, 6);
        TradeLine line = LineOf(BoughtLot(*shelf), amount);
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
    Shelf& shelf = m_dice.OneOf(m_home);
    const Partner partner = SupplierOf(*shelf.good);
    bill.partnerCode = partner.code;
    bill.partnerName = partner.name;
    if (std::optional<TradeLine> line = Take(shelf, kMain, 2)) {
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
        Shelf& shelf = m_dice.OneOf(m_home);
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
        const Shelf& shelf = m_dice.OneOf(m_home);
        const double onHand = OnHand(shelf, kMain);
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
        const StockLot& lot = *ShelfNamed(part).lots.front();
        if (m_trade.walk().OnHand(lot.item, kMain) < kKitLot + 1)
            return;
        bill.lines.push_back(LineOf(lot, kKitLot));
    }
    const Moment moment = bill.head.moment;
    bill.head = LineOf(*ShelfNamed(kit.product).lots.front(), kKitLot);
    bill.head.moment = moment;
    bill.fee = kit.fee;
    Finish(bill);
}

void DemoYear::Disassemble(const Kit& kit)
{
    Bill bill = NewBill(BillWord::Disassembly, kMain, kMain);
    const StockLot& product = *ShelfNamed(kit.product).lots.front();
    if (m_trade.walk().OnHand(product.item, kMain) < kKitLot + 1)
        return;
    for (const char* part : kit.parts)
        bill.lines.push_back(LineOf(*ShelfNamed(part).lots.front(), kKitLot));
    const Moment moment = bill.head.moment;
    bill.head = LineOf(product, kKitLot);
    bill.head.moment = moment;
    bill.fee = kit.fee / 2;
    Finish(bill);
}

/// What a lot can spare: a unit stays where parts of units are sold, since parts do not add up to whole ones.
const StockLot* DemoYear::LotToTake(const Shelf& shelf, int place, double* spare)
{
    const double kept = shelf.good->relation > 0 ? 1 : 0;
    const int start = shelf.good->trait == Trait::Batch ? 0 : m_dice.Below(int(shelf.lots.size()));
    for (size_t i = 0; i < shelf.lots.size(); ++i) {
        const StockLot* lot = shelf.lots[(size_t(start) + i) % shelf.lots.size()];
        *spare = std::floor(m_trade.walk().OnHand(lot->item, place) - kept);
        if (*spare >= 1)
            return lot;
    }
    return nullptr;
}

std::optional<TradeLine> DemoYear::Take(Shelf& shelf, int place, int most)
{
    double spare = 0;
    const StockLot* lot = LotToTake(shelf, place, &spare);
    if (!lot)
        return std::nullopt;
    TradeLine line = LineOf(*lot, std::min<double>(m_dice.Between(1, most), spare));
    const Good& good = *shelf.good;
    if (int(good.relation) % 2 == 0 && good.relation > 0 && m_dice.Chance(15)) {
        // A half of the last unit stays: sold in the second unit, converted in single precision as bills do.
        line.unit = good.secondUnit;
        line.amount = (line.unionAmount - 0.5) * good.relation;
        line.unionAmount = line.amount * float(1 / good.relation);
    }
    return line;
}

void DemoYear::FillByTaking(Bill& bill, int count, int most, bool plainOnly)
{
    for (int tries = count * 4; tries > 0 && int(bill.lines.size()) < count; --tries) {
        // A few goods make most of the trade.
        const double chance = m_dice.Unit();
        const auto rank = size_t(chance * chance * double(m_home.size()));
        Shelf& shelf = m_home[rank * 131 % m_home.size()];
        const bool taken = std::any_of(bill.lines.begin(), bill.lines.end(),
                                       [&](const TradeLine& line) { return line.good == shelf.good; });
        if (taken || (plainOnly && shelf.good->trait != Trait::Plain))
            continue;
        if (std::optional<TradeLine> line = Take(shelf, bill.from, std::min(most, MostPerLine(*shelf.good))))
            bill.lines.push_back(*line);
    }
}

void DemoYear::Replenish(int shop)
{
    Bill bill = NewBill(BillWord::Transfer, kMain, shop);
    bill.saleMan = "郑涛";
    bill.head.remark = "门店补货";
    FillByTaking(bill, m_dice.Between(4, 9), 12);
    if (m_dice.Chance(4))
        bill.state = "作废";
    Finish(bill);
}

void DemoYear::TransferPriced()
{
    Bill bill = NewBill(BillWord::PricedTransfer, kMain, kOnline);
    bill.explain = "内部结算";
    FillByTaking(bill, m_dice.Between(2, 4), 5);
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
    FillByTaking(bill, m_dice.Between(1, 7), 20);
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
    for (Shelf& shelf : m_abroad) {
        std::optional<TradeLine> line = m_dice.Chance(60) ? Take(shelf, kMain, 3) : std::nullopt;
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
        const Shelf& shelf = m_dice.OneOf(m_home);
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
    for (const Shelf& shelf : m_home) {
        const StockLot& lot = *shelf.lots.front();
        if (const double onHand = m_trade.walk().OnHand(lot.item, kReturns); onHand >= 1)
            bill.lines.push_back(LineOf(lot, onHand));
    }
    Finish(bill);
}

void DemoYear::IssueElse()
{
    Bill bill = NewBill(BillWord::OtherOut, kMain, kMain);
    bill.kindWord = m_dice.Chance(50) ? "样品领用" : "办公领用";
    FillByTaking(bill, m_dice.Between(1, 3), 2);
    Finish(bill);
}

void DemoYear::Count(BillWord word, int place)
{
    Bill bill = NewBill(word, place, place);
    bill.saleMan = "孙浩";
    bill.head.remark = QString("%1月盘点").arg(m_now.day.month());
    FillByTaking(bill, m_dice.Between(1, 4), 2);
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
