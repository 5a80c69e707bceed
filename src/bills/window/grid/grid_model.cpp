#include "bills/window/grid/grid_model.h"

#include "dialogs/grid_format.h"

#include <QGuiApplication>
#include <QPalette>
#include <algorithm>

namespace {

Qt::Alignment AcrossOf(const LineGrid::Column& column)
{
    switch (AlignmentOf(column.alignment)) {
    case 1:
        return Qt::AlignLeft;
    case 4:
        return Qt::AlignHCenter;
    case 7:
        return Qt::AlignRight;
    default:
        return column.isFigure ? Qt::AlignRight : Qt::AlignLeft;
    }
}

} // namespace

GridModel::GridModel(LineGrid& grid, GridRows kind, QObject* parent)
    : QAbstractTableModel(parent), m_grid(grid), m_kind(kind)
{}

QVariant GridModel::data(const QModelIndex& index, int role) const
{
    const int row = index.row() + 1;
    const int column = index.column() + 1;
    if (row >= m_grid.rows() || column >= m_grid.columns())
        return {};
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return m_grid.Cell(row, column);
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(AcrossOf(m_grid.column(column)) | Qt::AlignVCenter);
    return {};
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role == Qt::TextAlignmentRole)
        return int(Qt::AlignCenter);
    const bool isCurrent = orientation == Qt::Vertical && section + 1 == m_grid.currentRow;
    if (isCurrent && role == Qt::BackgroundRole)
        return QGuiApplication::palette().color(QPalette::Highlight);
    if (isCurrent && role == Qt::ForegroundRole)
        return QGuiApplication::palette().color(QPalette::HighlightedText);
    if (role != Qt::DisplayRole)
        return {};
    if (orientation == Qt::Horizontal)
        return section + 1 < m_grid.columns() ? m_grid.column(section + 1).caption : QString();
    const int row = section + 1;
    if (row >= m_grid.lastRow())
        return QStringLiteral("*");
    const QString& head = m_grid.Cell(row, 0);
    return head.isEmpty() ? QString::number(row) : head;
}

bool GridModel::ColumnsChanged() const
{
    if (static_cast<int>(m_shown.size()) != m_grid.columns())
        return true;
    for (int i = 0; i < m_grid.columns(); ++i) {
        const auto& now = m_grid.column(i);
        const auto& then = m_shown[i];
        if (now.caption != then.caption || now.width != then.width || now.alignment != then.alignment)
            return true;
    }
    return false;
}

bool GridModel::Sync()
{
    const bool changed = ColumnsChanged();
    const int rows = std::max(0, m_grid.rows() - (m_kind == GridRows::List ? 2 : 1));
    if (changed) {
        beginResetModel();
        m_shown.clear();
        for (int i = 0; i < m_grid.columns(); ++i)
            m_shown.push_back(m_grid.column(i));
        m_rows = rows;
        m_columns = std::max(0, m_grid.columns() - 1);
        endResetModel();
        return true;
    }
    if (rows > m_rows) {
        beginInsertRows({}, m_rows, rows - 1);
        m_rows = rows;
        endInsertRows();
    } else if (rows < m_rows) {
        beginRemoveRows({}, rows, m_rows - 1);
        m_rows = rows;
        endRemoveRows();
    }
    if (m_rows > 0 && m_columns > 0) {
        emit dataChanged(index(0, 0), index(m_rows - 1, m_columns - 1));
        emit headerDataChanged(Qt::Vertical, 0, m_rows - 1);
    }
    return false;
}
