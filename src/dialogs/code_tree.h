#pragma once

// A table of codes with parents as a tree: one top node, which stands for the table, and the codes below it.

#include "database/recordset.h"

#include <QAbstractItemModel>
#include <vector>

/// Two columns: the name and the code.
class CodeTree : public QAbstractItemModel
{
public:
    explicit CodeTree(QString title, QObject* parent = nullptr);

    /// Shows rows with Code, Name and ParentCode, in their order. A row whose parent is not among them stands at the
    /// top.
    void Show(const Recordset& rows);
    /// Empty for the top node.
    QString CodeOf(const QModelIndex& index) const;
    QModelIndex top() const { return createIndex(0, 0, quintptr(0)); }
    /// The node of a code; the top node for an unknown one.
    QModelIndex Find(const QString& code) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    struct Node
    {
        QString code;
        QString name;
        int parent = 0;
        int row = 0; // among its siblings
        std::vector<int> children;
    };

    const Node& At(const QModelIndex& index) const { return m_nodes[index.internalId()]; }

    std::vector<Node> m_nodes; // the first is the top
};
