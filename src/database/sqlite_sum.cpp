#include "database/sqlite_sum.h"

#include <cmath>
#include <sqlite3.h>

namespace {
struct Sum
{
    double total;
    double lost;
    bool any;
};

void Step(sqlite3_context* context, int, sqlite3_value** values)
{
    if (sqlite3_value_type(values[0]) == SQLITE_NULL)
        return;
    auto* sum = static_cast<Sum*>(sqlite3_aggregate_context(context, sizeof(Sum)));
    if (!sum) {
        sqlite3_result_error_nomem(context);
        return;
    }
    const double value = sqlite3_value_double(values[0]);
    const double total = sum->total + value;
    sum->lost +=
        std::fabs(sum->total) >= std::fabs(value) ? (sum->total - total) + value : (value - total) + sum->total;
    sum->total = total;
    sum->any = true;
}

/// No row, or only nulls, sum up to null.
void Finish(sqlite3_context* context)
{
    const auto* sum = static_cast<Sum*>(sqlite3_aggregate_context(context, 0));
    if (sum && sum->any)
        sqlite3_result_double(context, sum->total + sum->lost);
}
} // namespace

void RegisterExactSum(sqlite3* database)
{
    sqlite3_create_function(database, "sum", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, nullptr, Step, Finish);
}
