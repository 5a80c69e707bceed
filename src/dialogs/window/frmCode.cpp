#include "dialogs/window/frmCode.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSplitter>
#include <QTableView>
#include <QTreeView>

namespace {

constexpr int kLongestFilter = 255; // characters; no column holds more
constexpr int kColumnCharacters[] = {7, 16, 32, 22, 9, 14};

bool IsEnter(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace

frmCode::frmCode(Program& program, const PickerList& list, const Sql& firstRows, const QString& caption,
                 QWidget* parent, const QString& typed)
    : QDialog(parent), m_program(program), m_list(list), m_types(list.treeTitle), m_rows(program, list.columns)
{
    setObjectName("frmCode");
    setWindowTitle(caption.isEmpty() ? list.caption : caption);
    auto* const splitter = new QSplitter(this);
    splitter->addWidget(BuildTree());
    splitter->addWidget(BuildList());
    splitter->setStretchFactor(1, 1);
    splitter->setChildrenCollapsible(false);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(splitter, 1);
    layout->addLayout(BuildButtons());
    const int unit = fontMetrics().averageCharWidth();
    splitter->setSizes({unit * 30, unit * 110});
    resize(unit * (list.hasMnemonic ? 142 : 104), fontMetrics().height() * 36);

    m_types.Show(OpenQuery(m_program, TreeOf(m_list)));
    m_tree->expandToDepth(0);
    ShowRows(firstRows.isEmpty() ? RowsOfNode(m_list, QString()) : firstRows);
    m_filters.front()->setFocus();
    if (!typed.isEmpty() && (firstRows.isEmpty() || m_rows.size() == 0))
        ShowTyped(typed);
}

std::optional<PickedRow> frmCode::Pick(Program& program, const QString& table, const Sql& firstRows,
                                       const QString& caption, QWidget* parent, const QString& typed)
{
    const PickerList* const list = FindPickerList(table);
    if (!list)
        return std::nullopt;
    frmCode window(program, *list, firstRows, caption, parent, typed);
    window.exec();
    return window.picked();
}

QWidget* frmCode::BuildTree()
{
    m_tree = new QTreeView;
    m_tree->setObjectName("TreeView_Type");
    m_tree->setModel(&m_types);
    m_tree->setHeaderHidden(true);
    m_tree->hideColumn(1);
    m_tree->setUniformRowHeights(true);
    m_tree->setStyleSheet("QTreeView::item { padding: 3px 0 }");
    m_tree->installEventFilter(this);
    connect(m_tree->selectionModel(), &QItemSelectionModel::currentChanged, this, &frmCode::ShowNode);
    connect(m_tree, &QTreeView::clicked, this, [this](const QModelIndex& node) {
        if (m_filtered) // on the node that stood there all along
            ShowNode(node);
    });
    return m_tree;
}

QWidget* frmCode::BuildList()
{
    m_table = new QTableView;
    m_table->setObjectName("MSH");
    m_table->setModel(&m_rows);
    m_table->setSelectionBehavior(QTableView::SelectRows);
    m_table->setSelectionMode(QTableView::SingleSelection);
    m_table->setTabKeyNavigation(false);
    m_table->setAlternatingRowColors(true);
    m_table->setWordWrap(false);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    m_table->horizontalHeader()->setHighlightSections(false);
    m_table->horizontalHeader()->setStretchLastSection(true);
    for (int column = 0; column < m_rows.columnCount(); ++column)
        m_table->setColumnWidth(column, fontMetrics().averageCharWidth() * kColumnCharacters[column]);
    m_table->installEventFilter(this);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this, &frmCode::CopySelection);
    connect(m_table, &QTableView::doubleClicked, this,
            [this](const QModelIndex& at) { Choose(m_rows.Text(at.row(), 1)); });

    auto* const filters = new QGridLayout;
    AddFilter(*filters, ListFilter::Code, "TxtCode", "编号(&C)");
    AddFilter(*filters, ListFilter::Name, "TxtName", "名称(&N)");
    if (m_list.hasMnemonic)
        AddFilter(*filters, ListFilter::ZJF, "TxtZJF", "助记符(&Z)");
    auto* const hint = new QLabel("提示：键入即筛选，按向下键进入列表，按回车键选取，按 Esc 键退出");
    hint->setObjectName("LabListAttention");
    auto* const pane = new QWidget;
    auto* const layout = new QVBoxLayout(pane);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(filters);
    layout->addWidget(m_table, 1);
    layout->addWidget(hint);
    return pane;
}

QLineEdit* frmCode::AddFilter(QGridLayout& row, ListFilter filter, const char* name, const QString& caption)
{
    auto* const box = new QLineEdit;
    box->setObjectName(name);
    box->setMaxLength(kLongestFilter);
    box->installEventFilter(this);
    auto* const label = new QLabel(caption);
    label->setBuddy(box);
    const int column = row.columnCount();
    row.addWidget(label, 0, column);
    row.addWidget(box, 0, column + 1);
    connect(box, &QLineEdit::textEdited, this, [this, filter](const QString& text) { Filter(filter, text); });
    m_filters.push_back(box);
    return box;
}

QLayout* frmCode::BuildButtons()
{
    auto* const row = new QHBoxLayout;
    const auto add = [&](const char* name, const QString& caption, auto action) {
        auto* const button = new QPushButton(caption);
        button->setObjectName(name);
        connect(button, &QPushButton::clicked, this, action);
        row->addWidget(button);
        return button;
    };
    add("CmdAdd", "新增(&A)", [this] { AddRecord(m_program, m_list); });
    add("CmdRefresh", "刷新(&R)", [this] { Refresh(); });
    row->addStretch();
    add("CmdOk", "确定(&O)", [this] { Choose(m_filters.front()->text().trimmed()); })->setDefault(true);
    add("CmdExit", "退出(&X)", [this] { reject(); });
    return row;
}

void frmCode::ShowNode(const QModelIndex& node)
{
    for (QLineEdit* const box : m_filters)
        box->clear();
    m_filtered = false;
    ShowRows(RowsOfNode(m_list, m_types.CodeOf(node)));
}

void frmCode::ShowRows(const Sql& rows)
{
    m_shown = rows;
    m_rows.Open(rows, OrderOf(m_list));
    m_table->scrollToTop();
}

/// By the first filter that leaves a row; all rows where none does.
void frmCode::ShowTyped(const QString& text)
{
    for (size_t filter = 0; filter < m_filters.size(); ++filter) {
        ShowRows(RowsFiltered(m_list, static_cast<ListFilter>(filter), text));
        if (m_rows.size() == 0)
            continue;
        m_filters[filter]->setText(text);
        m_filters[filter]->setFocus();
        m_filters[filter]->selectAll();
        return;
    }
    ShowRows(RowsOfNode(m_list, QString()));
}

/// One box at a time: the others no longer say what the list shows.
void frmCode::Filter(ListFilter filter, const QString& text)
{
    for (QLineEdit* const box : m_filters)
        if (box != m_filters[static_cast<size_t>(filter)])
            box->clear();
    const QSignalBlocker silent(m_tree->selectionModel());
    m_tree->setCurrentIndex(m_types.top());
    m_filtered = true;
    ShowRows(RowsFiltered(m_list, filter, text));
}

void frmCode::CopySelection()
{
    const QModelIndexList selected = m_table->selectionModel()->selectedRows();
    if (selected.isEmpty())
        return;
    for (const ListFilter filter : {ListFilter::Code, ListFilter::Name}) {
        const auto box = static_cast<size_t>(filter);
        m_filters[box]->setText(m_rows.Text(selected.front().row(), static_cast<int>(box) + 1));
    }
}

void frmCode::GoToList()
{
    m_table->setFocus();
    if (m_rows.size() > 0 && !m_table->selectionModel()->hasSelection())
        m_table->selectRow(0);
}

/// Tree and list anew, without a filter.
void frmCode::Refresh()
{
    const QString node = m_types.CodeOf(m_tree->currentIndex());
    const QSignalBlocker silent(m_tree->selectionModel());
    m_types.Show(OpenQuery(m_program, TreeOf(m_list)));
    m_tree->expandToDepth(0);
    m_tree->setCurrentIndex(m_types.Find(node));
    if (m_filtered)
        ShowNode(m_tree->currentIndex());
    else
        ShowRows(Sql(m_shown));
}

/// A text that leaves one row, or that is a code, has chosen it; otherwise the list is where to choose.
void frmCode::EnterInFilter(const QLineEdit& box)
{
    const bool isCode = &box == m_filters.front();
    const QString text = box.text().trimmed();
    const bool chosen =
        !text.isEmpty() && (m_rows.size() == 1 ||
                            (m_rows.size() > 0 && isCode && m_rows.Text(0, 1).compare(text, Qt::CaseInsensitive) == 0));
    const QModelIndexList selected = m_table->selectionModel()->selectedRows();
    if (!selected.isEmpty())
        Choose(m_rows.Text(selected.front().row(), 1));
    else if (chosen)
        Choose(m_rows.Text(0, 1));
    else
        GoToList();
}

bool frmCode::KeyInList(int key)
{
    const QModelIndex current = m_table->currentIndex();
    if (IsEnter(key)) {
        Choose(current.isValid() ? m_rows.Text(current.row(), 1) : QString());
        return true;
    }
    if (const auto row = m_rows.EndRow(key)) {
        m_table->setCurrentIndex(m_rows.index(*row, 0));
        return true;
    }
    if (key == Qt::Key_Up && current.row() <= 0) {
        m_filters.front()->setFocus();
        m_filters.front()->selectAll();
        return true;
    }
    return false;
}

void frmCode::Choose(const QString& code)
{
    m_picked = PickRecord(m_program, m_list, code);
    if (m_picked)
        accept();
}

bool frmCode::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (watched == m_table)
        return KeyInList(key);
    if (watched == m_tree) {
        if (IsEnter(key))
            GoToList();
        return IsEnter(key);
    }
    if (IsEnter(key))
        EnterInFilter(*static_cast<QLineEdit*>(watched));
    else if (key == Qt::Key_Down || key == Qt::Key_PageDown)
        GoToList();
    else
        return false;
    return true;
}
