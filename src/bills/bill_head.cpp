// The head of a bill window: its boxes, and what Enter and the buttons beside them do.

#include "bills/bill_widgets.h"
#include "bills/bill_window.h"
#include "bills/date_box.h"
#include "bills/lifecycle.h"
#include "bills/paste.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>

QLineEdit* BillWindow::MakeBox(const char* control, QString& text, bool isTyped)
{
    auto* const box = new QLineEdit;
    box->setObjectName(control);
    box->installEventFilter(this);
    Bind(box, text);
    if (isTyped)
        connect(box, &QLineEdit::textEdited, this, [box, &text](const QString& typed) {
            text = OneLine(typed); // of a text pasted from elsewhere
            if (text != typed)
                box->setText(text);
        });
    else
        box->setEnabled(false);
    return box;
}

QWidget* BillWindow::MakeDate()
{
    m_date = new DateBox("DTPDate");
    m_date->installEventFilter(this);
    connect(m_date, &DateBox::DateChanged, this, [this](const QDate& day) { m_bill.DTPDate = day; });
    return m_date;
}

QLineEdit* BillWindow::MakeHeadBox(const char* control)
{
    const HeadField* const field = FindHeadField(control);
    QLineEdit* const box = MakeBox(control, m_bill.*field->text, field->typed);
    connect(box, &QLineEdit::textEdited, this, [this, field] { ForgetChoice(m_bill, *field); });
    return box;
}

QWidget* BillWindow::MakeMoneyFrame()
{
    auto* const frame = new QWidget;
    frame->setObjectName("FrameMoneyType");
    QComboBox* const names = NewChoice("TxtMoneyName");
    names->installEventFilter(this);
    if (m_program.parameters.IsLotMoney)
        names->addItems(MoneyNames(m_program));
    connect(names, &QComboBox::currentTextChanged, this, [this](const QString& text) { m_bill.TxtMoneyName = text; });
    Bind(names, m_bill.TxtMoneyName);
    auto* const layout = new QHBoxLayout(frame);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(MakeCell(new QLabel("币种"), names), 1);
    layout->addWidget(new QLabel("汇率"));
    QLineEdit* const rate = MakeHeadBox("TxtMoneyRate");
    rate->setMinimumHeight(names->minimumHeight());
    rate->setFixedWidth(rate->fontMetrics().horizontalAdvance("0.000000"));
    layout->addWidget(rate);
    return frame;
}

void BillWindow::PickForHead(const HeadPicker& field, const PickerNeeded& picker)
{
    const std::optional<PickedRow> picked = OpenPicker(picker);
    findChild<QWidget*>(field.box)->setFocus();
    if (!picked)
        return;
    field.choose(m_bill, picked->Code, picked->Name);
    ShowBill();
    focusNextChild();
}

void BillWindow::EnterInHead(const QString& control)
{
    const HeadPicker* const field = FindHeadPicker(control);
    const auto picker = field ? field->lookUp(m_program, m_bill) : std::nullopt;
    ShowBill();
    if (picker)
        PickForHead(*field, *picker);
    else
        focusNextChild();
}

void BillWindow::ConnectPickers(QWidget* head)
{
    for (const HeadPicker& field : HeadPickers()) {
        if (auto* const button = head->findChild<QAbstractButton*>(field.button))
            connect(button, &QAbstractButton::clicked, this,
                    [this, &field] { PickForHead(field, field.picker(m_bill)); });
    }
}

bool BillWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusOut && m_bill.entryEnabled && !LeavesWindow(*static_cast<QFocusEvent*>(event)))
        ChooseTypedWarehouses(m_program, m_bill);
    if (event->type() != QEvent::KeyPress)
        return QMainWindow::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return false;
    EnterInHead(watched->objectName());
    return true;
}
