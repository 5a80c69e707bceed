#pragma once

// An account set in the making, filled row by row. A failure leaves nothing behind.

#include "data/schema.h"
#include "making/growing_set.h"

class NewAccountSet
{
public:
    /// Makes the tables. Throws Refusal where the place is taken already or cannot be.
    explicit NewAccountSet(const QString& place);

    /// A row from texts between "|", each made the value that its column holds. Columns not named get the empty text,
    /// 0, no date, or null.
    void Insert(const char* table, const QString& columns, const QString& texts);
    void Insert(const char* table, const std::vector<Value>& values);
    /// Makes the indexes and puts the account set in its place. Throws Refusal where another took it meanwhile.
    void Finish();

private:
    std::unique_ptr<GrowingSet> m_growing;
};

/// What stands in a column that nothing was said about.
Value EmptyValue(ColumnType type);
