#include "data/dimensions.h"

#include <string_view>

namespace {
/// Blanks only count as empty, but a value is compared as it stands.
bool Limits(const QString& value)
{
    return !QStringView(value).trimmed().isEmpty();
}

/// Appends the start of a condition on a column.
Sql& AddColumn(Sql& filter, const char* table, const char* column)
{
    filter += "  and  ";
    if (*table)
        (filter += table) += ".";
    return filter += column;
}

void AddEqual(Sql& filter, const char* table, const char* column, const QString& value)
{
    if (!Limits(value))
        return;
    AddColumn(filter, table, column) += " = ";
    (filter += value) += " ";
}
} // namespace

bool Dimensions::any() const
{
    return Limits(AttributeCode) || Limits(WareSpec) || Limits(Manufacturer) || Limits(Brand) || Limits(PCode);
}

Sql BuildDimensionFilter(const char* table, const Dimensions& dimensions, bool attributeByPrefix, bool auditedOnly,
                         const QString& moneyName)
{
    Sql filter;
    if (attributeByPrefix && Limits(dimensions.AttributeCode)) {
        AddColumn(filter, table, "AttributeCode") += "  like ";
        (filter += dimensions.AttributeCode + "%") += " ";
    } else {
        AddEqual(filter, table, "AttributeCode", dimensions.AttributeCode);
    }
    AddEqual(filter, table, "WareSpec", dimensions.WareSpec);
    AddEqual(filter, table, "Manufacturer", dimensions.Manufacturer);
    AddEqual(filter, table, "Brand", dimensions.Brand);
    AddEqual(filter, table, "PCode", dimensions.PCode);
    // The snapshot of a close has no audit mark.
    if (auditedOnly && std::string_view(table) != "TabWarehouseTurn")
        AddColumn(filter, table, "Auditing") += " <> '' ";
    if (moneyName.trimmed() != kAllCurrencies)
        AddEqual(filter, table, "MoneyName", moneyName);
    return filter;
}
