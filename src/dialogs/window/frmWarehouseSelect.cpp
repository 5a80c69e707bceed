#include "dialogs/window/frmWarehouseSelect.h"

#include <QAction>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QTreeView>
#include <QVBoxLayout>

frmWarehouseSelect::frmWarehouseSelect(Program& program, const PickerTree& tree, const TreeLimit& limit,
                                       const QString& field, QWidget* parent)
    : QDialog(parent),
      m_program(program),
      m_tree(tree),
      m_limit(limit),
      m_nodes(tree.topTitle),
      m_view(new QTreeView(this)),
      m_filter(new QLineEdit)
{
    setObjectName("frmWarehouseSelect");
    setWindowTitle(tree.caption);
    auto* const menus = new QMenuBar(this);
    auto* const bar = new QToolBar(this);
    bar->setObjectName("Toolbar1");
    BuildCommands(*bar, *menus);
    BuildTree();
    auto* const layout = new QVBoxLayout(this);
    layout->setMenuBar(menus);
    layout->addWidget(bar);
    if (!field.isEmpty() && field != tree.caption)
        layout->addWidget(new QLabel("选择：" + field));
    layout->addLayout(BuildFilter());
    layout->addWidget(m_view, 1);
    layout->addWidget(new QLabel("提示：按上下方向键移动，按回车键或双击选取，按 Esc 键退出"));
    resize(fontMetrics().averageCharWidth() * 70, fontMetrics().height() * 28);
    Narrow(limit.typed);
    if (m_nodes.rowCount(m_nodes.top()) == 0)
        Narrow({}); // nothing to choose would be left
    m_filter->setText(m_limit.typed);
    m_view->setFocus();
}

std::optional<PickedRow> frmWarehouseSelect::Pick(Program& program, const QString& table, const TreeLimit& limit,
                                                  const QString& field, QWidget* parent)
{
    const PickerTree* const tree = FindPickerTree(table);
    if (!tree)
        return std::nullopt;
    frmWarehouseSelect window(program, *tree, limit, field, parent);
    window.exec();
    return window.picked();
}

void frmWarehouseSelect::BuildCommands(QToolBar& bar, QMenuBar& menus)
{
    bar.setToolButtonStyle(Qt::ToolButtonTextOnly);
    QMenu* const file = menus.addMenu("文件(&F)");
    const auto add = [&](const char* name, const QString& caption, const char* key, auto run) {
        QAction* const action = file->addAction(caption + "(&" + key + ")");
        action->setIconText(caption); // no key where a toolbar would not hear it
        action->setObjectName(name);
        connect(action, &QAction::triggered, this, run);
        return action;
    };
    bar.addAction(add("ToolSelect", "选择", "S", [this] { Select(); }));
    if (CanAddNode(m_tree, m_limit))
        bar.addAction(add("ToolAdd", "新增", "A", [this] { AddNode(m_program, m_tree); }));
    QAction* const refresh = add("ToolRefresh", "刷新", "R", [this] { Refresh(); });
    refresh->setShortcut(Qt::Key_F5);
    bar.addAction(refresh);
    bar.addSeparator();
    file->addSeparator();
    add("FEixt", "退出", "X", [this] { reject(); });
    QAction* const leave = bar.addAction("退出");
    leave->setObjectName("ToolExit");
    connect(leave, &QAction::triggered, this, &QDialog::reject);
}

void frmWarehouseSelect::BuildTree()
{
    m_view->setObjectName("TreeView");
    m_view->setModel(&m_nodes);
    m_view->setUniformRowHeights(true);
    m_view->setStyleSheet("QTreeView::item { padding: 3px 0 }");
    m_view->setExpandsOnDoubleClick(false);
    m_view->header()->setStretchLastSection(true);
    m_view->setColumnWidth(0, fontMetrics().averageCharWidth() * 46);
    m_view->installEventFilter(this);
    connect(m_view, &QTreeView::doubleClicked, this, [this] { Select(); });
}

QLayout* frmWarehouseSelect::BuildFilter()
{
    m_filter->setObjectName("TxtFilter");
    m_filter->installEventFilter(this);
    connect(m_filter, &QLineEdit::textEdited, this, &frmWarehouseSelect::Narrow);
    auto* const caption = new QLabel("编号或名称(&N)");
    caption->setBuddy(m_filter);
    auto* const row = new QHBoxLayout;
    row->addWidget(caption);
    row->addWidget(m_filter, 1);
    return row;
}

/// The first node that fits stands ready to be taken.
void frmWarehouseSelect::Narrow(const QString& typed)
{
    m_limit.typed = typed.trimmed();
    Refresh();
    if (!m_limit.typed.isEmpty() && m_nodes.rowCount(m_nodes.top()) > 0)
        m_view->setCurrentIndex(m_nodes.index(0, 0, m_nodes.top()));
}

/// Stays on the node that was chosen.
void frmWarehouseSelect::Refresh()
{
    const QString node = m_nodes.CodeOf(m_view->currentIndex());
    m_nodes.Show(OpenQuery(m_program, NodesOf(m_tree, m_limit)));
    m_view->expandToDepth(1);
    if (!node.isEmpty())
        m_view->setCurrentIndex(m_nodes.Find(node));
}

void frmWarehouseSelect::Select()
{
    const QModelIndexList selected = m_view->selectionModel()->selectedRows();
    std::optional<QString> code;
    if (!selected.isEmpty())
        code = m_nodes.CodeOf(selected.front());
    m_picked = PickNode(m_program, m_tree, m_limit, code);
    if (m_picked)
        accept();
}

bool frmWarehouseSelect::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter)
        Select();
    else if (watched == m_filter && (key == Qt::Key_Down || key == Qt::Key_PageDown))
        m_view->setFocus();
    else
        return false;
    return true;
}
