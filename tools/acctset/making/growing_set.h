#pragma once

// The place where an account set grows until it is whole. What is not finished leaves nothing behind.

#include "place.h"

#include <QStringList>
#include <memory>

class GrowingSet
{
public:
    virtual ~GrowingSet() = default;
    virtual Store& store() = 0;
    /// Statements that make its tables and indexes.
    virtual QStringList schema() const = 0;
    /// Puts it in its place. Throws Refusal where another took it meanwhile.
    virtual void Finish() = 0;
};

/// Throws Refusal where the place is taken already or cannot be.
std::unique_ptr<GrowingSet> MakeGrowingSet(const AccountSetPlace& place);
