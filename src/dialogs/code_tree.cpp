#include "dialogs/code_tree.h"

#include <QHash>
#include <utility>

namespace {

/// Whether a node is among those above itself: damaged parents must not cut it off from the tree.
template <typename Nodes>
bool IsBelowItself(const Nodes& nodes, int node)
{
    int above = nodes[node].parent;
    for (size_t step = 0; above != 0 && step < nodes.size(); ++step)
        above = nodes[above].parent;
    return above != 0;
}

} // namespace

CodeTree::CodeTree(QString title, QObject* parent) : QAbstractItemModel(parent)
{
    m_nodes.push_back({QString(), std::move(title), 0, 0, {}});
}

void CodeTree::Show(const Recordset& rows)
{
    beginResetModel();
    m_nodes.resize(1);
    m_nodes[0].children.clear();
    QHash<QString, int> nodeOfCode;
    for (int row = 0; row < rows.size(); ++row) {
        m_nodes.push_back({rows.Text("Code", row), rows.Text("Name", row), 0, 0, {}});
        nodeOfCode.insert(m_nodes.back().code, row + 1);
    }
    for (int row = 0; row < rows.size(); ++row)
        m_nodes[row + 1].parent = nodeOfCode.value(rows.Text("ParentCode", row), 0);
    for (int node = 1; node < static_cast<int>(m_nodes.size()); ++node) {
        if (IsBelowItself(m_nodes, node))
            m_nodes[node].parent = 0;
        std::vector<int>& siblings = m_nodes[m_nodes[node].parent].children;
        m_nodes[node].row = static_cast<int>(siblings.size());
        siblings.push_back(node);
    }
    endResetModel();
}

QString CodeTree::CodeOf(const QModelIndex& index) const
{
    return index.isValid() ? At(index).code : QString();
}

QModelIndex CodeTree::Find(const QString& code) const
{
    for (size_t node = 1; node < m_nodes.size(); ++node)
        if (m_nodes[node].code == code)
            return createIndex(m_nodes[node].row, 0, node);
    return top();
}

QModelIndex CodeTree::index(int row, int column, const QModelIndex& parent) const
{
    if (!parent.isValid())
        return row == 0 ? createIndex(0, column, quintptr(0)) : QModelIndex();
    const std::vector<int>& children = At(parent).children;
    if (row < 0 || row >= static_cast<int>(children.size()))
        return {};
    return createIndex(row, column, static_cast<quintptr>(children[row]));
}

QModelIndex CodeTree::parent(const QModelIndex& child) const
{
    if (!child.isValid() || child.internalId() == 0)
        return {};
    const int parent = At(child).parent;
    return createIndex(m_nodes[parent].row, 0, static_cast<quintptr>(parent));
}

int CodeTree::rowCount(const QModelIndex& parent) const
{
    if (!parent.isValid())
        return 1;
    return parent.column() == 0 ? static_cast<int>(At(parent).children.size()) : 0;
}

int CodeTree::columnCount(const QModelIndex&) const
{
    return 2;
}

QVariant CodeTree::data(const QModelIndex& index, int role) const
{
    if (role == Qt::DisplayRole)
        return index.column() == 0 ? At(index).name : At(index).code;
    return {};
}

QVariant CodeTree::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole)
        return section == 0 ? QString("名称") : QString("编号");
    return {};
}
