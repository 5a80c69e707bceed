// The head of a bill window: its boxes, and what Enter and the buttons beside them do.

#include "bills/life/lifecycle.h"
#include "bills/lines/entry_limits.h"
#include "bills/lines/paste.h"
#include "bills/window/bill_widgets.h"
#include "bills/window/bill_window.h"
#include "bills/window/grid/grid_view.h"
#include "shell/window/date_box.h"

#include <QApplication>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QToolButton>

QLineEdit* BillWindow::MakeBox(const char* control, QString& text, bool isTyped)
{
    auto* const box = new QLineEdit;
    box->setObjectName(control);
    box->setMaxLength(kNoLimit);
    box->installEventFilter(this);
    Bind(box, text);
    if (isTyped)
        connect(box, &QLineEdit::textEdited, this, [this, box, &text](const QString& typed) {
            const QString line = OneLine(typed); // of a text pasted from elsewhere
            const QString fault = FaultOfBox(m_program, box->objectName(), line);
            if (fault.isEmpty())
                text = line;
            if (text != typed)
                box->setText(text);
            ShowTitle();
            if (!fault.isEmpty())
                m_program.prompt.Inform(fault);
        });
    else
        box->setEnabled(false);
    return box;
}

QWidget* BillWindow::MakeDate()
{
    m_date = new DateBox("DTPDate");
    m_date->installEventFilter(this);
    connect(m_date, &DateBox::DateChanged, this, [this](const QDate& day) {
        m_bill.DTPDate = day;
        ShowDay();
        ShowTitle();
    });
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
    connect(names, &QComboBox::currentTextChanged, this, [this](const QString& text) {
        m_bill.TxtMoneyName = text;
        ShowTitle();
    });
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
    FocusNextBox();
}

void BillWindow::EnterInHead(const QString& control)
{
    if (IsChosen(m_bill, control)) {
        FocusNextBox();
        return;
    }
    const HeadPicker* const field = FindHeadPicker(control);
    const auto picker = field ? field->lookUp(m_program, m_bill) : std::nullopt;
    ShowBill();
    if (picker)
        PickForHead(*field, *picker);
    else
        FocusNextBox();
}

void BillWindow::FocusNextBox()
{
    do
        focusNextChild();
    while (qobject_cast<QToolButton*>(focusWidget()));
}

void BillWindow::ConnectPickers(QWidget* head)
{
    for (const HeadPicker& field : HeadPickers()) {
        if (auto* const button = head->findChild<QToolButton*>(field.button))
            connect(button, &QToolButton::clicked, this, [this, &field] { PickFor(field.box); });
    }
    for (QToolButton* const button : head->findChildren<QToolButton*>())
        button->installEventFilter(this);
}

bool BillWindow::PickFor(const QString& control)
{
    const HeadPicker* const field = FindHeadPicker(control);
    if (field)
        PickForHead(*field, field->picker(m_bill));
    return field;
}

/// The choice that the field under the cursor has.
void BillWindow::PickHere()
{
    QWidget* const field = focusWidget();
    if (!field)
        return;
    const bool isInGrid = field == m_grid || m_grid->isAncestorOf(field);
    if (isInGrid ? m_editors->Pick() : PickFor(field->objectName()))
        return;
    if (auto* const list = qobject_cast<QComboBox*>(field))
        list->showPopup();
    else if (field == m_date)
        m_date->OpenCalendar();
    else
        QApplication::beep();
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
    if (auto* const button = qobject_cast<QToolButton*>(watched))
        button->click();
    else
        EnterInHead(watched->objectName());
    return true;
}
