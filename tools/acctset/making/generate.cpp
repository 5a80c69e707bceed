#include "making/generate.h"

#include "base/number_text.h"
#include "commands.h"
#include "making/base_data.h"
#include "making/dice.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

const QDate kFirstDay(2023, 1, 1);
const QDate kLastDay(2025, 12, 31);

const std::vector<TreeRow> kRegions = {
    {"01", "华东"}, {"0101", "上海仓"}, {"0102", "杭州仓"}, {"0103", "南京仓"}, {"0104", "合肥仓"},
    {"02", "华南"}, {"0201", "广州仓"}, {"0202", "深圳仓"}, {"0203", "厦门仓"}, {"0204", "南宁仓"},
    {"03", "华北"}, {"0301", "北京仓"}, {"0302", "天津仓"}, {"0303", "济南仓"}, {"0304", "太原仓"},
    {"04", "华中"}, {"0401", "武汉仓"}, {"0402", "长沙仓"}, {"0403", "郑州仓"}, {"0404", "南昌仓"},
    {"05", "西南"}, {"0501", "成都仓"}, {"0502", "重庆仓"}, {"0503", "昆明仓"}, {"0504", "贵阳仓"},
};

/// The most lines that a kind of bill has, and its share in all lines. In the order of a day: what moves the
/// average comes first.
struct Share
{
    BillWord word;
    int mostLines;
    double percent;
};

constexpr Share kShares[] = {
    {BillWord::PurchaseIn, 12, 24}, {BillWord::PurchaseReturn, 3, 2}, {BillWord::OtherIn, 5, 4},
    {BillWord::Revaluation, 5, 1},  {BillWord::Assembly, 6, 1.5},     {BillWord::Disassembly, 6, 0.5},
    {BillWord::SaleOut, 10, 46},    {BillWord::SaleReturn, 3, 3},     {BillWord::OtherOut, 5, 4},
    {BillWord::Transfer, 15, 10},   {BillWord::PricedTransfer, 5, 1}, {BillWord::CountLoss, 8, 1.5},
    {BillWord::CountOver, 8, 1.5},
};

constexpr int kShareCount = int(std::size(kShares));

/// The more popular of two goods sells more by this power of their ranks; the first few ranks differ little.
constexpr double kSkew = 0.7;
constexpr double kFlatTop = 3;
/// Goods of this rank and above lie in all warehouses, the others in one.
constexpr int kEverywhere = 100;

/// Goods of one warehouse, drawn by their popularity.
struct Assortment
{
    std::vector<int> goods;
    std::vector<double> weights; // summed up

    void Add(int good, double weight)
    {
        goods.push_back(good);
        weights.push_back((weights.empty() ? 0 : weights.back()) + weight);
    }
    int Draw(Dice& dice) const
    {
        const auto found = std::upper_bound(weights.begin(), weights.end(), dice.Unit() * weights.back());
        return goods[size_t(std::min(found - weights.begin(), std::ptrdiff_t(goods.size()) - 1))];
    }
};

class Generator
{
public:
    Generator(NewAccountSet& accountSet, const GenerateQuestion& question, std::vector<Good> goods);
    void Run();
    /// With the costing methods that the trade follows.
    const std::vector<Good>& goods() const { return m_goods; }

private:
    void RankGoods();
    void OpenStock();
    void RunDay(const QDate& day, double share);
    void Advance(int share, qint64 target);
    qint64 MakeBill(const Share& share, int lines);
    bool AddLine(Bill& bill);
    void Price(Bill& bill, TradeLine& line);
    TradeLine LineOf(int good, double amount);

    GenerateQuestion m_question;
    std::vector<Good> m_goods;
    Trade m_trade;
    Dice m_dice;
    std::vector<Partner> m_customers = DemoCustomers();
    std::vector<const StockLot*> m_lots; // by good
    std::vector<Assortment> m_assortments;
    qint64 m_done[kShareCount] = {};
    int m_millisecondsPerLine = 0;
    Moment m_now;
};

std::vector<QDate> Workdays()
{
    std::vector<QDate> days;
    for (QDate day = kFirstDay; day <= kLastDay; day = day.addDays(1)) {
        if (day.dayOfWeek() != Qt::Sunday)
            days.push_back(day);
    }
    return days;
}

Generator::Generator(NewAccountSet& accountSet, const GenerateQuestion& question, std::vector<Good> goods)
    : m_question(question),
      m_goods(std::move(goods)),
      m_trade(accountSet, LeavesOf(kRegions)),
      m_dice(question.seed),
      m_assortments(m_trade.warehouses().size())
{
    RankGoods();
}

/// Popularity has nothing to do with the order of the codes. The most popular good follows the moving average.
void Generator::RankGoods()
{
    std::vector<int> ranked(m_goods.size());
    std::iota(ranked.begin(), ranked.end(), 0);
    for (int i = int(ranked.size()) - 1; i > 0; --i)
        std::swap(ranked[size_t(i)], ranked[size_t(m_dice.Below(i + 1))]);
    m_goods[size_t(ranked.front())].method = CostMethod::Moving;

    const int places = int(m_assortments.size());
    for (int rank = 0; rank < int(ranked.size()); ++rank) {
        const double weight = std::pow(rank + 1 + kFlatTop, -kSkew);
        if (rank >= kEverywhere) {
            m_assortments[size_t(rank % places)].Add(ranked[size_t(rank)], weight);
            continue;
        }
        for (Assortment& assortment : m_assortments)
            assortment.Add(ranked[size_t(rank)], weight / places);
    }
}

void Generator::OpenStock()
{
    for (const Good& good : m_goods)
        m_lots.push_back(&m_trade.AddLot(good, {}));
    for (int place = 0; place < int(m_assortments.size()); ++place) {
        for (const int good : m_assortments[size_t(place)].goods)
            m_trade.Open(*m_lots[size_t(good)], place, m_dice.Between(50, 200));
    }
}

void Generator::Run()
{
    OpenStock();
    const std::vector<QDate> days = Workdays();
    // Ten hours a day, at least the milliseconds that the lines of a bill lie apart.
    const double linesPerDay = double(m_question.lines) / double(days.size());
    m_millisecondsPerLine = int(std::clamp(10 * 3600 * 1000 / (1.5 * linesPerDay + 1), 8.0, 60000.0));
    for (size_t i = 0; i < days.size(); ++i) {
        const bool lastOfYear = i + 1 < days.size() && days[i + 1].year() != days[i].year();
        RunDay(days[i], double(i + 1) / double(days.size()));
        if (lastOfYear)
            m_trade.Close(QDate(days[i].year(), 12, 31), "系统管理员");
    }
    const qint64 missing = m_question.lines - std::accumulate(std::begin(m_done), std::end(m_done), qint64(0));
    Advance(0, m_done[0] + missing);
}

void Generator::RunDay(const QDate& day, double share)
{
    m_now = {day, 8 * 3600 * 1000};
    for (int i = 0; i < kShareCount; ++i)
        Advance(i, qint64(double(m_question.lines) * kShares[i].percent / 100 * share));
}

/// Makes bills until so many lines of the kind are there. What the stock does not yield today is made up for later.
void Generator::Advance(int share, qint64 target)
{
    for (int failures = 0; m_done[share] < target && failures < 20;) {
        const qint64 wanted = std::min<qint64>(target - m_done[share], m_dice.Between(1, kShares[share].mostLines));
        const qint64 made = MakeBill(kShares[share], int(wanted));
        m_done[share] += made;
        failures += made == 0 ? 1 : 0;
    }
}

qint64 Generator::MakeBill(const Share& share, int lines)
{
    static const char* const sellers[] = {"王建军", "李娜", "赵伟", "周敏", "吴丽华"};
    Bill bill;
    bill.form = &FormOf(share.word);
    const int places = int(m_assortments.size());
    bill.from = m_dice.Below(places);
    const bool moves = bill.form->effect == Effect::Transfer || bill.form->effect == Effect::PricedTransfer;
    bill.to = moves ? (bill.from + 1 + m_dice.Below(places - 1)) % places : bill.from;
    bill.saleMan = m_dice.OneOf(sellers);
    bill.operatorName = "仓管员";
    bill.auditor = m_dice.Chance(75) ? "系统管理员" : "";
    if (share.word == BillWord::OtherIn || share.word == BillWord::OtherOut)
        bill.kindWord = share.word == BillWord::OtherIn ? "其他入库" : "其他出库";

    const bool hasProduct = bill.form->effect == Effect::Assemble || bill.form->effect == Effect::Disassemble;
    if (hasProduct) {
        const int product = m_assortments[size_t(bill.from)].Draw(m_dice);
        bill.head = LineOf(product, m_dice.Between(1, 10));
        if (bill.form->effect == Effect::Disassemble &&
            m_trade.walk().OnHand(bill.head.lot->item, bill.from) < bill.head.amount)
            return 0;
        bill.fee = m_dice.Between(0, 20);
    }
    for (int tries = lines + 5; tries > 0 && int(bill.lines.size()) < lines; --tries)
        AddLine(bill);
    if (bill.lines.empty())
        return 0;

    const Good& first = *bill.lines.front().good;
    const bool fromMaker = share.word == BillWord::PurchaseIn || share.word == BillWord::PurchaseReturn;
    const Partner partner = fromMaker ? SupplierOf(first) : m_dice.OneOf(m_customers);
    bill.partnerCode = partner.code;
    bill.partnerName = partner.name;
    bill.head.moment = m_now;
    m_now.millisecondOfDay += m_millisecondsPerLine * (int(bill.lines.size()) + 1);
    bill.code = m_trade.NextCode(*bill.form, m_now.day);
    m_trade.Post(bill);
    return qint64(bill.lines.size());
}

/// What the effect of a bill takes from its warehouse must lie there.
bool Generator::AddLine(Bill& bill)
{
    const int good = m_assortments[size_t(bill.from)].Draw(m_dice);
    const StockLot& lot = *m_lots[size_t(good)];
    const bool taken =
        bill.head.good == lot.good ||
        std::any_of(bill.lines.begin(), bill.lines.end(), [&](const TradeLine& line) { return line.good == lot.good; });
    if (taken)
        return false;
    const double onHand = std::floor(m_trade.walk().OnHand(lot.item, bill.from));
    double amount = m_dice.Between(1, 20);
    switch (bill.form->effect) {
    case Effect::Receive:
        amount = m_dice.Between(2, 10) * 10;
        break;
    case Effect::ReceiveElse:
    case Effect::TakeBack:
    case Effect::Find:
    case Effect::Disassemble:
        break;
    case Effect::Revalue:
        if (onHand < 1)
            return false;
        amount = 0;
        break;
    default:
        amount = std::min(amount, onHand);
        if (amount < 1)
            return false;
    }
    TradeLine line = LineOf(good, amount);
    Price(bill, line);
    bill.lines.push_back(line);
    return true;
}

void Generator::Price(Bill& bill, TradeLine& line)
{
    const Good& good = *line.good;
    if (bill.form->effect == Effect::Revalue) {
        line.money = RoundToPlaces(good.cost * m_dice.Between(1, 200) / 100.0, kMoneyPlaces);
        return;
    }
    const bool sale = bill.form->effect == Effect::Issue || bill.form->effect == Effect::TakeBack;
    const double drift = good.method == CostMethod::Fixed && !sale ? 1 : m_dice.Between(950, 1050) / 1000.0;
    line.price = RoundToPlaces(good.cost * (sale ? 1.35 : 1) * drift, 2);
    line.money = RoundToPlaces(line.price * line.amount, kMoneyPlaces);
    line.discounted = Currency::FromDouble(line.money);
}

TradeLine Generator::LineOf(int good, double amount)
{
    TradeLine line;
    line.good = &m_goods[size_t(good)];
    line.lot = m_lots[size_t(good)];
    line.unit = line.good->unit;
    line.amount = line.unionAmount = amount;
    return line;
}

} // namespace

void GenerateAccountSet(const QString& path, const GenerateQuestion& question)
{
    NewAccountSet accountSet(path);
    WriteBase(accountSet, kRegions);
    Generator generator(accountSet, question, ManyGoods(question.goods));
    WriteGoods(accountSet, generator.goods());
    generator.Run();
    accountSet.Finish();
}

int GenerateCommand(const QStringList& arguments)
{
    const CommandLine line("generate", "Makes a large account set FILE: three years of trade, two of them closed.",
                           {"FILE"},
                           {{"lines", "lines of bills", "NUMBER"},
                            {"goods", "goods; at least 100", "NUMBER"},
                            {"seed", "another number makes another set; 1 without it", "NUMBER"}},
                           arguments);
    if (line.helpShown())
        return kDone;
    line.Needed("lines");
    line.Needed("goods");
    GenerateQuestion question;
    question.lines = line.Count("lines", 1, 0);
    question.goods = int(std::min<qint64>(line.Count("goods", 100, 0), 10'000'000));
    question.seed = quint64(line.Count("seed", 0, 1));
    GenerateAccountSet(line.Word(0), question);
    return kDone;
}
