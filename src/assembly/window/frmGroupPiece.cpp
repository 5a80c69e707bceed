#include "assembly/window/frmGroupPiece.h"

#include "assembly/life/assembly_lifecycle.h"
#include "assembly/life/piece_print.h"
#include "assembly/piece_head.h"
#include "assembly/saving/assembly_save.h"
#include "assembly/saving/assembly_validation.h"
#include "assembly/voucher/voucher.h"
#include "assembly/window/frmReadGroupPiece.h"
#include "bills/life/audit.h"
#include "bills/life/lifecycle.h"
#include "bills/lines/line_entry.h"
#include "bills/window/bill_widgets.h"
#include "data/lookups.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRadioButton>
#include <QToolButton>
#include <utility>

namespace {

GroupPieceText& PieceOf(BillText& bill)
{
    return static_cast<GroupPieceText&>(bill);
}

constexpr BillCommands kCommands{
    .isHeadReady = [](Program& program, BillText& bill) { return CheckPieceHead(program, PieceOf(bill)); },
    .save = [](Program& program, BillText& bill) { return FSave(program, PieceOf(bill)); },
    .paper = &kPiecePaper,
};

const BillKey kPatternKey{"ToolTaoYong", "套用", "调入套用模版单据", "Ctrl+T", nullptr, "FTaoYong", {}, nullptr, false};
const BillKey kWarrantKey{"ToolSeeWarrent", "凭证", "查看会计凭证", "", nullptr, nullptr, {}, nullptr, false};

/// Captions that follow the mode.
struct ModeCaption
{
    const char* control;
    QString PieceMode::*text;
};
constexpr ModeCaption kModeCaptions[] = {
    {"LabWareName", &PieceMode::LabWareName},
    {"LabAmount", &PieceMode::LabAmount},
    {"LabOperateType", &PieceMode::LabOperateType},
    {"LabOperateMoneyName", &PieceMode::LabOperateMoneyName},
    {"LabFee", &PieceMode::LabFee},
    {"LabRemark", &PieceMode::LabRemark},
};

} // namespace

frmGroupPiece::frmGroupPiece(Program& program) : frmGroupPiece(program, std::make_shared<GroupPieceText>()) {}

frmGroupPiece::frmGroupPiece(Program& program, const std::shared_ptr<GroupPieceText>& piece)
    : BillWindow(program, piece, kCommands), m_piece(*piece)
{
    LoadGroupPiece(program, m_piece);
    QWidget* const head = MakeHead();
    ConnectPickers(head);
    Build(head);
    AddPieceCommands();
    ConnectPieceCommands();
    RestorePlace({1280, 740});
}

/// Keys, menu entries and names that other bills do not have.
void frmGroupPiece::AddPieceCommands()
{
    InsertBillKey(*this, kPatternKey, "ToolInsertRow");
    InsertBillKey(*this, kWarrantKey, "ToolPrint");
    InsertFileEntry(*this, "FSeeWarrent", "查看会计凭证");
    findChild<QAction*>("MMSHFormat")->setObjectName("FMSHFormat");
    findChild<QLabel*>("LabTotalMoney")->setObjectName("LabOperateMoney");
    findChild<QLabel*>("LabTotalMoney_Str")->setObjectName("LabOperateMoneyName");
    // Enter leads from the head to the lines; the options are reached behind them.
    constexpr std::pair<const char*, const char*> kSteps[] = {{"ImgSaleMan", "TxtMoneyName"},
                                                              {"TxtMoneyName", "TxtMoneyRate"},
                                                              {"ChAutoAuditing", "ChAutoChen"},
                                                              {"ChAutoChen", "ChSpecJE"}};
    for (const auto& [from, to] : kSteps)
        setTabOrder(findChild<QWidget*>(from), findChild<QWidget*>(to));
}

void frmGroupPiece::ConnectPieceCommands()
{
    connect(findChild<QAction*>("ToolTaoYong"), &QAction::triggered, this, &frmGroupPiece::CallInPattern);
    connect(findChild<QAction*>("ToolSeeWarrent"), &QAction::triggered, this,
            [this] { SeeBillWarrant(m_program, m_piece, false); });
    connect(findChild<QAction*>("FSeeWarrent"), &QAction::triggered, this,
            [this] { SeeBillWarrant(m_program, m_piece, true); });
    for (const auto& [button, box] : {std::pair("ImgWare", "TxtWareName"), {"ImgWareAttribute", "TxtWareAttribute"}})
        connect(findChild<QToolButton*>(button), &QToolButton::clicked, this, [this, box = box] { PickFor(box); });
}

void frmGroupPiece::ShowBill()
{
    const PieceMode& mode = ModeOf(m_piece);
    for (const ModeCaption& caption : kModeCaptions)
        findChild<QLabel*>(caption.control)->setText(mode.*caption.text);
    findChild<QRadioButton*>(mode.assembles ? "OptGroup" : "OptPiece")->setChecked(true);
    ShowUnits();
    BillWindow::ShowBill();
    findChild<QWidget*>("LabTotalAmount_Pair")->hide(); // of parts in all sorts of units
    for (const char* control : {"ChAutoChen", "ChSpecJE"})
        findChild<QCheckBox*>(control)->setChecked(*HeadFlag(m_piece, control));
    for (const char* frame : {"FrameHead", "FrameProvide", "FrameLines"})
        findChild<QWidget*>(frame)->setEnabled(m_piece.entryEnabled);
    findChild<QWidget*>("FrameType")->setEnabled(m_piece.isEnabled(Command::SwitchMode));
    for (const char* control : {"ToolTaoYong", "FTaoYong"})
        findChild<QAction*>(control)->setEnabled(m_piece.isEnabled(Command::Pattern));
}

void frmGroupPiece::ShowUnits()
{
    m_units->clear();
    m_units->addItems(m_piece.unitChoices);
    m_units->setCurrentIndex(m_units->findText(m_piece.TxtUnite));
}

void frmGroupPiece::FocusFirstField()
{
    findChild<QWidget*>("TxtWarehouseNameF")->setFocus();
}

void frmGroupPiece::frm_Initialize(bool isFillBill, bool loadMenu)
{
    ::frm_Initialize(m_program, m_piece, isFillBill);
    if (loadMenu)
        ListTemplates();
    ShowBill();
    if (!isFillBill)
        FocusFirstField();
}

void frmGroupPiece::Switch(bool assembles)
{
    if (ModeOf(m_piece).assembles == assembles)
        return;
    if (!MayGo())
        return ShowBill(); // the option goes back
    SwitchMode(m_program, m_piece, assembles);
    ShowBill();
    FocusFirstField();
}

void frmGroupPiece::EnterInHead(const QString& control)
{
    if (control == u"TxtWareName")
        EnterProduct();
    else
        BillWindow::EnterInHead(control);
}

bool frmGroupPiece::PickFor(const QString& control)
{
    if (control == u"TxtWareAttribute") {
        PickAttribute();
    } else if (control == u"TxtWareName") {
        if (const auto picker = ProductPicker(m_program, m_piece))
            PickProduct(*picker);
    } else {
        return BillWindow::PickFor(control);
    }
    return true;
}

void frmGroupPiece::EnterProduct()
{
    if (!m_piece.TxtWareCode.trimmed().isEmpty()) { // nothing typed since it was chosen
        FocusNextBox();
        return;
    }
    const bool isTyped = !m_piece.TxtWareName.trimmed().isEmpty();
    const auto picker = LookUpProduct(m_program, m_piece);
    ShowBill();
    if (picker)
        PickProduct(*picker);
    else if (!isTyped || !m_piece.TxtWareName.isEmpty())
        FocusNextBox();
}

void frmGroupPiece::PickProduct(const PickerNeeded& picker)
{
    const std::optional<PickedRow> picked = OpenPicker(picker);
    findChild<QWidget*>("TxtWareName")->setFocus();
    if (!picked)
        return;
    ChooseProduct(m_program, m_piece, picked->Code);
    ShowBill();
    FocusNextBox();
}

void frmGroupPiece::PickAttribute()
{
    const auto picker = ProductAttributePicker(m_program, m_piece);
    if (!picker)
        return;
    const std::optional<PickedRow> picked = OpenPicker(*picker);
    findChild<QWidget*>("TxtWareAttribute")->setFocus();
    if (!picked)
        return;
    m_piece.TxtWareAttribute = AttributeCell(m_program, picked->Code);
    ShowBill();
    FocusNextBox();
}

void frmGroupPiece::CallInPattern()
{
    HideEditors();
    if (m_piece.MSH.lastRow() > 1 && !m_program.prompt.Ask("套用将替换已录入的商品清单，确定继续吗？"))
        return;
    if (frmReadGroupPiece(m_program, m_piece, this).exec() != QDialog::Accepted)
        return;
    ShowBill();
    findChild<QWidget*>("TxtAmount")->setFocus(); // what most often differs from the pattern
}

/// A key pressed in a figure of the head. True when it is no part of one.
bool frmGroupPiece::FigureKey(const QString& control, const QKeyEvent& key)
{
    const QString text = key.text();
    if (text.isEmpty())
        return false;
    HeadKeyPressed(m_program, m_piece, control);
    ShowBill();
    const bool isRefused = text.front().isPrint() && !IsFigureKey(text.front());
    if (isRefused)
        QApplication::beep();
    return isRefused;
}

bool frmGroupPiece::eventFilter(QObject* watched, QEvent* event)
{
    const QString control = watched->objectName();
    const bool isFocus = event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut;
    if (isFocus && IsHeadFigure(control) && m_piece.entryEnabled && !LeavesWindow(*static_cast<QFocusEvent*>(event))) {
        if (event->type() == QEvent::FocusIn)
            HeadFocusGained(m_piece, control);
        else
            HeadFocusLost(m_program, m_piece, control);
        ShowBill();
    }
    if (event->type() == QEvent::FocusOut && control == u"TxtWareName" && m_piece.entryEnabled &&
        !LeavesWindow(*static_cast<QFocusEvent*>(event))) {
        ChooseTypedProduct(m_program, m_piece);
        ShowBill();
    }
    if (event->type() == QEvent::KeyPress && IsHeadFigure(control) &&
        FigureKey(control, *static_cast<QKeyEvent*>(event)))
        return true;
    return BillWindow::eventFilter(watched, event);
}
