#include "assembly/window/frmReadGroupPiece.h"

#include "assembly/life/assembly_recall.h"
#include "assembly/window/frmReadGroupPieceQuery.h"
#include "bills/window/bill_widgets.h"
#include "dialogs/window/frmCode.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QToolButton>

frmReadGroupPiece::frmReadGroupPiece(Program& program, GroupPieceText& bill, QWidget* parent)
    : QDialog(parent), m_program(program), m_bill(bill)
{
    setObjectName("frmReadGroupPiece");
    setWindowTitle(PatternTitle(bill));
    auto* const grid = new QGridLayout(this);
    grid->setColumnMinimumWidth(1, fontMetrics().averageCharWidth() * 40);
    m_code = AddBox(*grid, 0, "TxtGroupPieceCode", bill.kind->bill + "编号");
    grid->addWidget(NewButton("CmdOk", "按编号调入(&O)", &frmReadGroupPiece::ByCode), 0, 3);
    m_wareCode = AddBox(*grid, 1, "TxtWareCode", "商品编号");
    m_wareName = AddBox(*grid, 2, "TxtWareName", "商品名称");
    m_wareCode->setText(bill.TxtWareCode.trimmed());
    QToolButton* const pick = NewPickButton("ImgWare");
    NamePickButton(*pick, "商品");
    connect(pick, &QToolButton::clicked, this, &frmReadGroupPiece::PickWare);
    for (QLineEdit* const box : {m_wareCode, m_wareName})
        connect(new QShortcut(Qt::Key_F4, box, nullptr, nullptr, Qt::WidgetShortcut), &QShortcut::activated, this,
                &frmReadGroupPiece::PickWare);
    grid->addWidget(pick, 1, 2);
    grid->addWidget(NewButton("CmdWare", "调入最近一单(&W)", &frmReadGroupPiece::Latest), 1, 3);
    grid->addWidget(NewButton("CmdQuery", "历史单据(&Q)...", &frmReadGroupPiece::OpenList), 2, 3);
    grid->addWidget(NewButton("CmdExit", "退出(&X)", &frmReadGroupPiece::reject), 3, 3);
    grid->setRowStretch(4, 1);
    // Enter in a box does what stands beside it.
    connect(m_code, &QLineEdit::returnPressed, this, &frmReadGroupPiece::ByCode);
    for (const QLineEdit* box : {m_wareCode, m_wareName})
        connect(box, &QLineEdit::returnPressed, this, &frmReadGroupPiece::Latest);
    m_code->setFocus();
}

QLineEdit* frmReadGroupPiece::AddBox(QGridLayout& grid, int row, const char* control, const QString& caption)
{
    auto* const box = new QLineEdit;
    box->setObjectName(control);
    grid.addWidget(new QLabel(caption), row, 0);
    grid.addWidget(box, row, 1);
    return box;
}

QPushButton* frmReadGroupPiece::NewButton(const char* control, const QString& caption, void (frmReadGroupPiece::*run)())
{
    auto* const button = new QPushButton(caption);
    button->setObjectName(control);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, run);
    return button;
}

void frmReadGroupPiece::ByCode()
{
    if (RecallByCode(m_program, m_bill, m_code->text()))
        accept();
}

void frmReadGroupPiece::Latest()
{
    if (RecallLatest(m_program, m_bill, m_wareCode->text(), m_wareName->text()))
        accept();
}

void frmReadGroupPiece::OpenList()
{
    const auto list = OpenAssemblyList(m_program, m_bill, m_wareCode->text());
    if (frmReadGroupPieceQuery(m_program, m_bill, list, this).exec() == Accepted)
        accept();
}

void frmReadGroupPiece::PickWare()
{
    const Sql goods = Sql("select TabWare.Code,TabWare.Name,TabWare.Spec,TabWare.Unite,TabWare.ZJF  from TabWare   "
                          "order by TabWare.code ");
    const auto picked = frmCode::Pick(m_program, "TabWare", goods, "选择商品", this);
    if (!picked)
        return;
    m_wareCode->setText(picked->Code);
    m_wareName->setText(picked->Name);
    m_wareCode->setFocus();
}
