#include "making/demo_shelves.h"

#include "base/number_text.h"
#include "making/base_data.h"

#include <algorithm>
#include <cmath>
#include <map>

const std::vector<Kit>& DemoKits()
{
    static const std::vector<Kit> kits = {
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
    return kits;
}

int MostPerLine(const Good& good)
{
    return good.cost < 20 ? 20 : good.cost < 80 ? 10 : 3;
}

DemoShelves::DemoShelves(Trade& trade, Dice& dice, const std::vector<Good>& goods) : m_trade(trade), m_dice(dice)
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
    for (const Kit& kit : DemoKits()) {
        for (const char* part : kit.parts)
            ShelfNamed(part).inKit = true;
    }
}

void DemoShelves::AddLots(Shelf& shelf)
{
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
}

void DemoShelves::OpenStock()
{
    for (std::vector<Shelf>* shelves : {&m_home, &m_abroad}) {
        for (Shelf& shelf : *shelves) {
            const Good& good = *shelf.good;
            AddLots(shelf);
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

Shelf& DemoShelves::ShelfNamed(const QString& nameAndSpec)
{
    const auto found = std::find_if(m_home.begin(), m_home.end(), [&](const Shelf& shelf) {
        return shelf.good->name + ' ' + shelf.good->spec == nameAndSpec;
    });
    Q_ASSERT(found != m_home.end());
    return *found;
}

double DemoShelves::OnHand(const StockLot& lot, int place) const
{
    return m_trade.walk().OnHand(lot.item, place);
}

double DemoShelves::OnHand(const Shelf& shelf, int place) const
{
    double sum = 0;
    for (const StockLot* lot : shelf.lots)
        sum += OnHand(*lot, place);
    return sum;
}

TradeLine LineOf(const StockLot& lot, double amount)
{
    TradeLine line;
    line.good = lot.good;
    line.lot = &lot;
    line.unit = lot.good->unit;
    line.amount = line.unionAmount = amount;
    return line;
}

void SetPrice(TradeLine& line, double price, double discount)
{
    line.price = RoundToPlaces(price, 2);
    line.money = RoundToPlaces(line.price * line.amount, kMoneyPlaces);
    line.discounted = Currency::FromDouble(RoundToPlaces(line.money * discount, kMoneyPlaces));
}

const StockLot& DemoShelves::BoughtLot(Shelf& shelf, const QDate& day)
{
    if (shelf.good->trait == Trait::Batch) {
        const QDate madeOn = day.addDays(-m_dice.Between(8, 40));
        shelf.lots.push_back(&m_trade.AddLot(*shelf.good, {.batch = madeOn.toString("yyyyMMdd"),
                                                           .madeOn = DayText(madeOn),
                                                           .bestBefore = DayText(madeOn.addMonths(18))}));
        return *shelf.lots.back();
    }
    return *m_dice.OneOf(shelf.lots);
}

/// What a lot can spare: a unit stays where parts of units are sold, since parts do not add up to whole ones.
const StockLot* DemoShelves::LotToTake(const Shelf& shelf, int place, double* spare)
{
    const double kept = shelf.good->relation > 0 ? 1 : 0;
    const int start = shelf.good->trait == Trait::Batch ? 0 : m_dice.Below(int(shelf.lots.size()));
    for (size_t i = 0; i < shelf.lots.size(); ++i) {
        const StockLot* lot = shelf.lots[(size_t(start) + i) % shelf.lots.size()];
        *spare = std::floor(OnHand(*lot, place) - kept);
        if (*spare >= 1)
            return lot;
    }
    return nullptr;
}

std::optional<TradeLine> DemoShelves::Take(Shelf& shelf, int place, int most)
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

void DemoShelves::FillByTaking(Bill& bill, int count, int most, bool plainOnly)
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
