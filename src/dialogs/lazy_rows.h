#pragma once

// A long list, fetched a page at a time while the user scrolls, so that it opens at once and never holds more than was
// looked at. The next page asks for what comes behind the last row, so rows that others add or delete shift nothing.

#include "handover/open_query.h"

#include <QAbstractTableModel>
#include <QStringList>
#include <optional>
#include <vector>

/// How a list is ordered: by Code, which is unique in the table, or by one more column before it.
struct RowOrder
{
    const char* table;
    const char* before = nullptr;
};

/// Shows the result of a statement behind one column of its own.
class LazyRows : public QAbstractTableModel
{
public:
    /// @param captions  of all columns; the first one is of the column of row numbers, which stays blank without a
    /// caption
    LazyRows(Program& program, QStringList captions, QObject* parent = nullptr);

    /// Shows the rows of a statement, instead of what was shown.
    /// @param list  one select from one table whose first column is Code, ending in its `order by`
    void Open(const Sql& list, const RowOrder& order);
    /// The text of a cell, by the position of its caption.
    QString Text(int row, int column) const;
    int size() const { return m_size; }
    /// The row that the keys Home and End lead to, End fetching all that is left; unset for any other key and without
    /// rows.
    std::optional<int> EndRow(int key);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    bool canFetchMore(const QModelIndex& parent = {}) const override;
    void fetchMore(const QModelIndex& parent = {}) override;

private:
    Recordset Fetch(const Sql& page);
    void Append(Recordset page);
    Sql BehindLastRow() const;

    Program& m_program;
    QStringList m_captions;
    Sql m_list;
    RowOrder m_order{};
    std::vector<Recordset> m_pages; // all full but the last
    int m_size = 0;
    bool m_complete = true;
};
