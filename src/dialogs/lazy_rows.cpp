#include "dialogs/lazy_rows.h"

#include "database/sql_tokens.h"

#include <utility>

namespace {

constexpr int kPageRows = 200;
constexpr const char* kTop = " top 200";

/// Position of the last token that is this keyword; the size where there is none.
size_t LastOf(const SqlTokens& tokens, const char* keyword)
{
    for (size_t i = tokens.size(); i-- > 0;)
        if (tokens[i].is(keyword))
            return i;
    return tokens.size();
}

/// The statement cut off after a page, with one more condition.
Sql PageOf(const Sql& list, const Sql& condition)
{
    const SqlTokens tokens = CutSql(list.shape());
    const size_t select = NextWord(tokens, 0);
    const size_t order = LastOf(tokens, "order");
    const size_t where = condition.isEmpty() ? tokens.size() : LastOf(tokens, "where");

    Sql page;
    size_t value = 0;
    for (size_t i = 0; i < tokens.size(); ++i) {
        if (i == order && !condition.isEmpty())
            page += Sql(where < tokens.size() ? ") and " : " where ") + condition + " ";
        if (tokens[i].is("?"))
            page += list.values().at(value++);
        else
            page += tokens[i].text.c_str();
        if (i == select)
            page += kTop;
        if (i == where)
            page += " (";
    }
    return page;
}

} // namespace

LazyRows::LazyRows(Program& program, QStringList captions, QObject* parent)
    : QAbstractTableModel(parent), m_program(program), m_captions(std::move(captions))
{}

void LazyRows::Open(const Sql& list, const RowOrder& order)
{
    m_list = list;
    m_order = order;
    Recordset first = Fetch(PageOf(m_list, Sql()));
    beginResetModel();
    m_pages.clear();
    m_size = 0;
    Append(std::move(first));
    endResetModel();
}

QString LazyRows::Text(int row, int column) const
{
    if (column == 0)
        return m_captions.front().isEmpty() ? QString() : QString::number(row + 1);
    return TextOf(m_pages[row / kPageRows].at(row % kPageRows, column - 1));
}

std::optional<int> LazyRows::EndRow(int key)
{
    if (m_size == 0 || (key != Qt::Key_Home && key != Qt::Key_End))
        return {};
    while (key == Qt::Key_End && canFetchMore())
        fetchMore();
    return key == Qt::Key_Home ? 0 : m_size - 1;
}

int LazyRows::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_size;
}

int LazyRows::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_captions.size());
}

QVariant LazyRows::data(const QModelIndex& index, int role) const
{
    if (role == Qt::DisplayRole)
        return Text(index.row(), index.column());
    if (role == Qt::TextAlignmentRole && index.column() == 0)
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

QVariant LazyRows::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    if (role == Qt::DisplayRole)
        return m_captions.value(section);
    if (role == Qt::TextAlignmentRole)
        return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
    return {};
}

bool LazyRows::canFetchMore(const QModelIndex& parent) const
{
    return !parent.isValid() && !m_complete;
}

void LazyRows::fetchMore(const QModelIndex& parent)
{
    if (!canFetchMore(parent))
        return;
    Recordset next = Fetch(PageOf(m_list, BehindLastRow()));
    if (next.isEmpty())
        return;
    beginInsertRows({}, m_size, m_size + next.size() - 1);
    Append(std::move(next));
    endInsertRows();
}

/// A failed statement ends the list: it has been shown and is not run again at every scroll.
Recordset LazyRows::Fetch(const Sql& page)
{
    m_complete = true; // also while its box is open over the list
    Recordset rows = OpenQuery(m_program, page);
    m_complete = rows.size() < kPageRows;
    return rows;
}

void LazyRows::Append(Recordset page)
{
    m_size += page.size();
    m_pages.push_back(std::move(page));
}

Sql LazyRows::BehindLastRow() const
{
    const Value code = m_pages.back().at(m_pages.back().size() - 1, 0);
    const Sql behindCode = Sql("Code>") + code;
    if (!m_order.before)
        return behindCode;

    const Recordset last =
        OpenQuery(m_program, Sql("select ") + m_order.before + " from " + m_order.table + " where Code=" + code);
    const Value& before = last.at(0, 0);
    if (IsNull(before))
        return Sql("(") + m_order.before + " is not null or " + behindCode + ")";
    return Sql(m_order.before) + ">=" + before + " and (" + m_order.before + ">" + before + " or " + behindCode + ")";
}
