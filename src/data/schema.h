#pragma once

// The tables of an account set: columns in the order of the positional inserts, keys and indexes. This module reads
// and writes them; only a new account set is made from here.

#include <QString>
#include <QStringList>
#include <vector>

enum class ColumnType
{
    Text, // as long as its name says, TextLimit
    Day,
    Moment,
    Number,
    Money, // four decimals
    Integer,
    Blob,
};

struct SchemaColumn
{
    QString name;
    ColumnType type;
};

struct SchemaTable
{
    QString name;
    QString key; // empty for none
    std::vector<SchemaColumn> columns;
};

const std::vector<SchemaTable>& Schema();
/// Null for an unknown table.
const SchemaTable* FindTable(const QString& name);
/// Statements that make all tables and indexes in an empty SQLite file.
QStringList SqliteSchema();
