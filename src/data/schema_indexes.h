#pragma once

// The indexes of a new account set, beside the keys of its tables.

#include <QStringList>
#include <vector>

struct SchemaIndex
{
    QString name; // behind the table's and "_"
    QString table;
    QStringList keys;
    QStringList covered; // read with the keys, so that the row need not be looked up
};

const std::vector<SchemaIndex>& SchemaIndexes();
