#include "making/goods.h"

#include "base/number_text.h"
#include "making/catalogue.h"

#include <QStringList>
#include <map>

namespace {

/// The brand whose goods are bought in dollars.
constexpr int kImportBrand = 16;
constexpr double kDollarRate = 6.95;

Good MakeGood(const Family& family, int brandNumber, const QString& spec, int step)
{
    const Brand& brand = Brands()[size_t(brandNumber)];
    Good good;
    good.barcode = QString::number(6901028 + 1379 * brandNumber); // of the maker; its own digits follow
    good.name = QString(brand.name) + family.name;
    good.spec = spec;
    good.unit = family.unit;
    good.secondUnit = family.secondUnit;
    good.relation = family.relation;
    good.mnemonic = QString(brand.mnemonic) + family.mnemonic;
    good.classCode = family.classCode;
    good.manufacturer = brand.manufacturer;
    good.brand = brand.name;
    good.method = family.method;
    good.trait = family.trait;
    good.cost = RoundToPlaces(family.cost * (1 + 0.15 * step), 2);
    if (family.brand == kImportBrand) {
        good.moneyName = "美元";
        good.moneyRate = kDollarRate;
    }
    return good;
}

/// Numbers the goods within their classes.
void Number(std::vector<Good>& goods, int digits)
{
    std::map<QString, int> lastOfClass;
    qint64 number = 0;
    for (Good& good : goods) {
        good.code = good.classCode + QString::number(++lastOfClass[good.classCode]).rightJustified(digits, '0');
        ++number;
        if (good.trait != Trait::Service)
            good.barcode = BarcodeOf(good.barcode.toLongLong() * 100000 + number % 100000);
    }
}

} // namespace

std::vector<Good> CatalogueGoods()
{
    std::vector<Good> goods;
    for (const Family& family : Families()) {
        int step = 0;
        for (const QString& spec : QString(family.specs).split('|'))
            goods.push_back(MakeGood(family, family.brand, spec, step++));
    }
    Number(goods, 3);
    return goods;
}

std::vector<Good> ManyGoods(int count)
{
    std::vector<Family> stocked;
    for (const Family& family : Families()) {
        if (family.trait != Trait::Service && family.brand != kImportBrand)
            stocked.push_back(family);
    }
    const int brands = kImportBrand;
    const int families = int(stocked.size());
    std::vector<Good> goods;
    goods.reserve(size_t(count));
    for (int i = 0; i < count; ++i) {
        const Family& family = stocked[size_t(i % families)];
        const int round = i / families;
        const QStringList specs = QString(family.specs).split('|');
        const int model = round / brands;
        const QString spec = specs[model % specs.size()] + QString(" K%1").arg(model + 1, 3, 10, QLatin1Char('0'));
        Good good = MakeGood(family, (family.brand + round) % brands, spec, model % 4);
        good.trait = Trait::Plain;
        goods.push_back(good);
    }
    Number(goods, 5);
    return goods;
}

QString ParentOf(const QString& code)
{
    return code.size() > 2 ? code.chopped(2) : "0";
}

QString BarcodeOf(qint64 twelveDigits)
{
    const QString digits = QString::number(twelveDigits).rightJustified(12, '0');
    int sum = 0;
    for (int i = 0; i < 12; ++i)
        sum += digits[i].digitValue() * (i % 2 == 0 ? 1 : 3);
    return digits + QString::number((10 - sum % 10) % 10);
}

QString AttributeRoot(Trait trait)
{
    switch (trait) {
    case Trait::Colour:
        return "01";
    case Trait::Size:
        return "02";
    default:
        return "";
    }
}
