#include "assembly/window/frmReadGroupPieceQuery.h"

#include "assembly/life/piece_print.h"
#include "bills/paper/line_table.h"
#include "bills/window/bill_widgets.h"
#include "bills/window/grid/grid_view.h"
#include "data/rights.h"
#include "dialogs/window/frmOption_Bill.h"
#include "output/window/frmExport.h"
#include "shell/window/date_box.h"
#include "shell/window/toolbar_icons.h"

#include <QAction>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QToolBar>
#include <utility>

frmReadGroupPieceQuery::frmReadGroupPieceQuery(Program& program, GroupPieceText& bill, AssemblyList list,
                                               QWidget* parent)
    : QDialog(parent),
      m_program(program),
      m_bill(bill),
      m_list(std::move(list)),
      m_grid(new GridView(m_list.MSH, this, GridRows::List)),
      m_billCode(new QLineEdit),
      m_from(new DateBox("TxtDateeFrom", DateBox::Blank::Allowed)),
      m_to(new DateBox("TxtDateeTo", DateBox::Blank::Allowed))
{
    setObjectName("frmReadGroupPieceQuery");
    setWindowTitle(m_list.kind->bill + "查询");
    auto* const menus = new QMenuBar(this);
    auto* const bar = new QToolBar(this);
    BuildCommands(*bar, *menus);
    m_grid->setObjectName("MSH");
    m_grid->installEventFilter(this);
    connect(m_grid, &GridView::doubleClicked, this, &frmReadGroupPieceQuery::TakePattern);
    auto* const layout = new QVBoxLayout(this);
    layout->setMenuBar(menus);
    QMargins margins = layout->contentsMargins();
    margins.setTop(0);
    layout->setContentsMargins(margins);
    layout->addWidget(bar);
    layout->addLayout(BuildFilter());
    layout->addWidget(m_grid, 1);
    layout->addWidget(new QLabel("提示：按回车键或双击套用该单据，按 Esc 键退出"));
    resize(fontMetrics().averageCharWidth() * 150, fontMetrics().height() * 30);
    m_grid->Sync();
    m_grid->setFocus();
}

void frmReadGroupPieceQuery::BuildCommands(QToolBar& bar, QMenuBar& menus)
{
    using Query = frmReadGroupPieceQuery;
    bar.setObjectName("Toolbar1");
    bar.setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    QMenu* const file = menus.addMenu("文件(&F)");
    const auto add = [this](QWidget* to, const char* name, const QString& caption, void (Query::*run)()) {
        auto* const action = new QAction(ToolbarIcon(QString(name)), caption, this);
        action->setObjectName(name);
        to->addAction(action);
        connect(action, &QAction::triggered, this, run);
    };
    add(&bar, "ToolOK", "套用", &Query::TakePattern);
    add(&bar, "ToolOldBill", "原单", &Query::OpenOldBill);
    add(&bar, "ToolFiltre", "筛选", &Query::Filter);
    add(&bar, "ToolPrint", "打印", &Query::PrintDirect);
    add(&bar, "ToolExit", "退出", &Query::reject);
    add(file, "FExcel", "导出至Excel文件...", &Query::ExportGrid);
    file->addSeparator();
    add(file, "FMSHFormat", "界面列表格式设置", &Query::FormatColumns);
    add(file, "FDeleteMSHFormat", "删除界面列表格式", &Query::DeleteFormat);
    file->addSeparator();
    add(file, "FPrintSet", "打印设置", &Query::SetUpPrint);
    add(file, "PPreview", "打印预览", &Query::PreviewPrint);
    add(file, "PDirect", "直接打印", &Query::PrintDirect);
    file->addSeparator();
    add(file, "FExit", "退出", &Query::reject);
}

QLayout* frmReadGroupPieceQuery::BuildFilter()
{
    auto* const row = new QHBoxLayout;
    auto* const name = NewLabel("LabTabName", m_list.kind->bill);
    QFont bold = name->font();
    bold.setBold(true);
    name->setFont(bold);
    row->addWidget(name);
    const auto add = [&](QLineEdit* box, const QString& caption) {
        row->addWidget(MakeCell(new QLabel(caption), box), 1);
        connect(box, &QLineEdit::returnPressed, this, &frmReadGroupPieceQuery::Filter);
    };
    m_billCode->setObjectName("TxtBillCode");
    add(m_billCode, "单据编号");
    for (DateBox* const day : {m_from, m_to})
        day->SetBase(m_program.clock.Now().day);
    add(m_from, "单据日期从");
    add(m_to, "至");
    auto* const query = new QPushButton("查询(&Q)");
    query->setObjectName("CmdQuery");
    query->setAutoDefault(false);
    connect(query, &QPushButton::clicked, this, &frmReadGroupPieceQuery::Filter);
    row->addWidget(query);
    return row;
}

void frmReadGroupPieceQuery::Filter()
{
    for (DateBox* const day : {m_from, m_to})
        day->Commit();
    if (!FilterAssemblyList(m_program, m_list, {m_billCode->text(), m_from->text(), m_to->text()}))
        return;
    m_list.MSH.currentRow = 1;
    m_grid->Sync();
}

void frmReadGroupPieceQuery::TakePattern()
{
    const QString code = CodeInList(m_list, m_list.MSH.currentRow);
    if (!code.isEmpty() && RecallByCode(m_program, m_bill, code))
        accept();
}

void frmReadGroupPieceQuery::OpenOldBill()
{
    OpenOriginal(m_program, m_list, m_list.MSH.currentRow);
}

void frmReadGroupPieceQuery::ExportGrid()
{
    if (CheckOperateRight(m_program, m_program.parameters.UserName, m_list.kind->rights, Action::Print))
        frmExport::ExportGrid(m_program, TableOf(m_list.MSH), this);
}

void frmReadGroupPieceQuery::FormatColumns()
{
    if (!MayFormatGrids(m_program))
        return;
    frmOption_Bill::Open(
        m_program, m_grid->Format(), LayoutKeyOf(m_list.kind->bill),
        [this](int column, const ColumnFormat& changed) {
            m_grid->FormatColumn(column, changed);
            m_grid->Sync();
        },
        this);
}

void frmReadGroupPieceQuery::SetUpPrint()
{
    PrintAssemblyList(m_program, m_list, "打印设置");
}

void frmReadGroupPieceQuery::PreviewPrint()
{
    PrintAssemblyList(m_program, m_list, "打印预览");
}

void frmReadGroupPieceQuery::PrintDirect()
{
    PrintAssemblyList(m_program, m_list, "直接打印");
}

/// Back to the default columns, with every bill still there.
void frmReadGroupPieceQuery::DeleteFormat()
{
    if (!DeleteGridFormat(m_program, LayoutKeyOf(m_list.kind->bill)))
        return;
    LayOutListAgain(m_program, m_list);
    m_grid->Sync();
}

bool frmReadGroupPieceQuery::event(QEvent* event)
{
    if (event->type() == QEvent::WindowBlocked) // a box stands before the list: what it speaks of is to be seen
        m_grid->Sync();
    return QDialog::event(event);
}

bool frmReadGroupPieceQuery::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return false;
    TakePattern();
    return true;
}
