#pragma once

// An account set in the making. It grows beside its place and is moved there when it is whole, so a failure leaves
// nothing behind.

#include "data/schema.h"
#include "database/store.h"

class NewAccountSet
{
public:
    /// Makes the tables. Throws Refusal where the file exists or its folder does not.
    explicit NewAccountSet(const QString& path);

    /// A row from texts between "|", each made the value that its column holds. Columns not named get the empty text,
    /// 0, no date, or null.
    void Insert(const char* table, const QString& columns, const QString& texts);
    void Insert(const char* table, const std::vector<Value>& values);
    /// Makes the indexes and puts the file in its place. Throws Refusal where another took it meanwhile.
    void Finish();

private:
    /// The file until it is whole; gone with this object unless it has been moved.
    struct GrowingFile
    {
        QString path;

        explicit GrowingFile(QString growingPath) : path(std::move(growingPath)) {}
        ~GrowingFile();
        GrowingFile(const GrowingFile&) = delete;
        GrowingFile& operator=(const GrowingFile&) = delete;
    };

    QString m_path;
    GrowingFile m_growing;
    std::unique_ptr<Store> m_store;
};

/// What stands in a column that nothing was said about.
Value EmptyValue(ColumnType type);
