#include "bills/window/frmWareManage.h"

#include "bills/life/audit.h"
#include "bills/life/lifecycle.h"
#include "bills/lines/line_entry.h"
#include "bills/paper/bill_print.h"
#include "bills/saving/save.h"
#include "bills/window/bill_widgets.h"

#include <QAction>
#include <QGridLayout>
#include <QLineEdit>
#include <algorithm>

namespace {

constexpr BillCommands kCommands{
    .isHeadReady = [](Program& program, BillText& bill) { return WarehousePrecheck(program, bill); },
    .save = FSave,
    .paper = &kWareManagePaper,
};

constexpr int kHeadColumns = 4;
constexpr int kMargin = 10;
constexpr int kSpacing = 6;

} // namespace

frmWareManage::frmWareManage(Program& program) : BillWindow(program, std::make_shared<BillText>(), kCommands)
{
    LoadWindow(program, m_bill);
    QWidget* const head = MakeHead();
    ConnectPickers(head);
    Build(head);
    RestorePlace({1180, 720});
}

QWidget* frmWareManage::MakeHead()
{
    auto* const head = new QWidget;
    auto* const layout = new QVBoxLayout(head);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kSpacing);
    layout->addWidget(MakeProvideFrame());
    layout->addWidget(
        NewLabel("LabAttention_TiaoJia",
                 "调价操作说明：在金额列中直接录入需要调价的金额，+数表示增加库存金额，-表示减示库存金额。"));
    return head;
}

QWidget* frmWareManage::MakeProvideFrame()
{
    auto* const frame = new QWidget;
    frame->setObjectName("FrameProvide");
    m_head = new QGridLayout(frame);
    m_head->setContentsMargins(0, 0, 0, 0);
    m_head->setHorizontalSpacing(2 * kMargin);
    m_head->setVerticalSpacing(kSpacing);
    for (int column = 0; column < kHeadColumns; ++column)
        m_head->setColumnStretch(column, 1);
    m_head->addWidget(MakeCell(new QLabel("单据编号"), MakeHeadBox("TxtBillCode")), 0, 0);
    m_head->addWidget(MakeCell(new QLabel("录单日期"), MakeDate()), 0, 1);
    m_head->addWidget(MakeCell(new QLabel("制单人"), MakeHeadBox("TxtOperator")), 0, 2);
    m_head->addWidget(MakeCell(new QLabel("审核人"), MakeHeadBox("TxtAuditing")), 0, 3);
    MakeCells();
    m_head->addWidget(MakeCell(new QLabel("备    注"), MakeHeadBox("TxtMemo")), 2, 0, 1, 2);
    m_head->addWidget(MakeCell(new QLabel("附加说明"), MakeHeadBox("TxtExplain")), 2, 2, 1, 2);
    return frame;
}

void frmWareManage::MakeCells()
{
    auto* const second = NewLabel("LabWarehouseNameS", {});
    Bind(second, m_bill.LabWarehouseNameS);
    auto* const staff = MakeHeadBox("TxtSaleMan");
    staff->setToolTip("输入编号或姓名回车自动调出");
    m_cells = {
        MakeCell(NewLabel("LabWarehouseNameF", "发货仓库"), MakeHeadBox("TxtWarehouseNameF"), "ImgWarehouseF"),
        MakeCell(second, MakeHeadBox("TxtWarehouseNameS"), "ImgWarehouseS"),
        MakeCell(new QLabel("业 务 员"), staff, "ImgSaleMan"),
        MakeMoneyFrame(),
    };
    int column = 0;
    for (QWidget* cell : m_cells)
        m_head->addWidget(cell, 1, column++);
}

/// The boxes of a kind from left to right, without gaps for those that it lacks; the last ones fill the row.
void frmWareManage::ArrangeCells()
{
    if (m_arranged == m_bill.kind)
        return;
    m_arranged = m_bill.kind;
    m_cells.front()->setVisible(m_bill.kind->hasSource);
    m_cells.back()->setVisible(m_program.parameters.IsLotMoney);
    std::vector<QWidget*> shown;
    std::ranges::copy_if(m_cells, std::back_inserter(shown), [](const QWidget* cell) { return !cell->isHidden(); });
    const int wide = kHeadColumns - static_cast<int>(shown.size()); // boxes of two columns, from the right
    int column = 0;
    for (size_t i = 0; i < shown.size(); ++i) {
        const int span = static_cast<int>(shown.size() - i) <= wide ? 2 : 1;
        m_head->addWidget(shown[i], 1, column, 1, span);
        column += span;
    }
}

void frmWareManage::ShowBill()
{
    ArrangeCells();
    BillWindow::ShowBill();
    findChild<QWidget*>("FrameProvide")->setEnabled(m_bill.entryEnabled);
    findChild<QWidget*>("LabAttention_TiaoJia")->setVisible(m_bill.kind->lines == LineShape::Revalued);
    // A transfer at cost moves no value, so there is nothing to write a voucher about.
    const bool movesNoValue = m_bill.kind->hasSource && m_bill.kind->lines == LineShape::Counted;
    findChild<QAction*>("FJXCAccount")->setVisible(!movesNoValue);
}

void frmWareManage::FocusFirstField()
{
    findChild<QWidget*>(m_bill.kind->hasSource ? "TxtWarehouseNameF" : "TxtWarehouseNameS")->setFocus();
}

void frmWareManage::frm_Initialize(bool keepLoaded)
{
    ::frm_Initialize(m_program, m_bill, keepLoaded);
    ListTemplates();
    ShowBill();
    if (!keepLoaded)
        FocusFirstField();
}
