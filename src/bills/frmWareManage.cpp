#include "bills/frmWareManage.h"

#include "bills/audit.h"
#include "bills/bill_widgets.h"
#include "bills/grid_view.h"
#include "bills/head_fields.h"
#include "bills/lifecycle.h"
#include "bills/recall.h"
#include "bills/save.h"
#include "data/lookups.h"

#include <QComboBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QToolButton>
#include <algorithm>

namespace {

constexpr BillCommands kCommands{
    .build = NewBill,
    .save = FSave,
    .audit = AuditBill,
    .unAudit = UnAuditBill,
    .remove = FDelete,
    .insertRow = InsertGridRow,
    .deleteRow = DeleteGridRow,
    .redWord = VoidBill,
    .before = PreviousBill,
    .back = NextBill,
};

constexpr int kHeadColumns = 4;
constexpr int kMargin = 10;
constexpr int kSpacing = 6;

} // namespace

frmWareManage::frmWareManage(Program& program) : BillWindow(program, std::make_shared<BillText>(), kCommands)
{
    LoadWindow(program, m_bill);
    Build(MakeHead());
    resize(1180, 720);
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
    m_head->addWidget(MakeCell(new QLabel("单据编号"), MakeBox("TxtBillCode", m_bill.TxtBillCode, false)), 0, 0);
    m_head->addWidget(MakeCell(new QLabel("录单日期"), MakeDate()), 0, 1);
    m_head->addWidget(MakeCell(new QLabel("制单人"), MakeBox("TxtOperator", m_bill.TxtOperator, false)), 0, 2);
    m_head->addWidget(MakeCell(new QLabel("审核人"), MakeBox("TxtAuditing", m_bill.TxtAuditing, false)), 0, 3);
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
    for (QWidget* cell : m_cells) {
        m_head->addWidget(cell, 1, column++);
        for (auto* const button : cell->findChildren<QToolButton*>())
            button->setEnabled(false); // pickers are still to come
    }
}

QWidget* frmWareManage::MakeDate()
{
    auto* const date = new QDateEdit;
    date->setObjectName("DTPDate");
    date->setCalendarPopup(true);
    date->setDisplayFormat("yyyy-MM-dd");
    date->installEventFilter(this);
    connect(date, &QDateEdit::dateChanged, this, [this](const QDate& day) { m_bill.DTPDate = day; });
    return date;
}

QLineEdit* frmWareManage::MakeHeadBox(const char* control)
{
    QLineEdit* const box = MakeBox(control, m_bill.*FindHeadField(control)->text);
    box->installEventFilter(this);
    return box;
}

QWidget* frmWareManage::MakeMoneyFrame()
{
    auto* const frame = new QWidget;
    frame->setObjectName("FrameMoneyType");
    auto* const names = new QComboBox;
    names->setObjectName("TxtMoneyName");
    names->installEventFilter(this);
    if (m_program.parameters.IsLotMoney)
        names->addItems(MoneyNames(m_program));
    connect(names, &QComboBox::currentTextChanged, this, [this](const QString& text) { m_bill.TxtMoneyName = text; });
    Bind(names, m_bill.TxtMoneyName);
    auto* const layout = new QHBoxLayout(frame);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(MakeCell(new QLabel("币种"), names), 3);
    layout->addWidget(new QLabel("汇率"));
    QLineEdit* const rate = MakeHeadBox("TxtMoneyRate");
    rate->setMinimumHeight(names->minimumHeight());
    layout->addWidget(rate, 2);
    return frame;
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
    const QSignalBlocker quiet(findChild<QComboBox*>("TxtMoneyName"));
    findChild<QDateEdit*>("DTPDate")->setDate(m_bill.DTPDate);
    BillWindow::ShowBill();
    findChild<QWidget*>("FrameProvide")->setEnabled(m_bill.entryEnabled);
    findChild<QWidget*>("LabAttention_TiaoJia")->setVisible(m_bill.kind->lines == LineShape::Revalued);
}

void frmWareManage::FocusFirstField()
{
    findChild<QWidget*>(m_bill.kind->hasSource ? "TxtWarehouseNameF" : "TxtWarehouseNameS")->setFocus();
}

void frmWareManage::frm_Initialize(bool keepLoaded)
{
    ::frm_Initialize(m_program, m_bill, keepLoaded);
    FillTemplateMenus(*this, TemplateNames(m_program, m_bill.LabBillName.trimmed()));
    ShowBill();
    if (!keepLoaded)
        FocusFirstField();
}

void frmWareManage::FillBill(const QString& tableName, const QString& billCode)
{
    ::FillBill(m_program, m_bill, tableName, billCode);
    OpenNavigation(m_program, m_bill);
    ShowBill();
    grid().setFocus();
}

/// Enter in a box of the head: a beginning becomes the warehouse or the person, and the focus goes on.
bool frmWareManage::HeadKey(const QString& control)
{
    std::optional<PickerNeeded> picker;
    if (control == "TxtWarehouseNameF")
        picker = LookUpWarehouse(m_program, m_bill, WarehouseField::F);
    else if (control == "TxtWarehouseNameS")
        picker = LookUpWarehouse(m_program, m_bill, WarehouseField::S);
    else if (control == "TxtSaleMan")
        picker = LookUpStaff(m_program, m_bill);
    ShowBill();
    if (picker)
        OpenPicker(*picker);
    else
        GoOn();
    return true;
}

bool frmWareManage::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return BillWindow::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return false;
    return HeadKey(watched->objectName());
}
