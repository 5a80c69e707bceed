#include "data/text_limits.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr int kLongestCode = 50;
constexpr int kLongestName = 255;

/// What people write at length.
constexpr const char* kWithoutLimit[] = {"Remark",  "Explain", "Summary", "AccountantPath",
                                         "Custom1", "Custom2", "Custom3"};
/// Codes of goods, bills, warehouses (the giving and the receiving one), batches and pieces.
constexpr const char* kCodeEndings[] = {"Code", "CodeF", "CodeS"};

} // namespace

int TextLimit(const QString& column)
{
    const auto is = [&column](const char* name) { return column == QLatin1String(name); };
    const auto endsSo = [&column](const char* ending) { return column.endsWith(QLatin1String(ending)); };
    if (std::ranges::any_of(kWithoutLimit, is))
        return 0;
    return std::ranges::any_of(kCodeEndings, endsSo) ? kLongestCode : kLongestName;
}
