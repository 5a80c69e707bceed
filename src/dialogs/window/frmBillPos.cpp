#include "dialogs/window/frmBillPos.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <utility>

namespace {
constexpr int kLongestBarcode = 255;
constexpr int kLongestNumber = 18;
} // namespace

frmBillPos::frmBillPos(Program& program, ScannedBill bill, QWidget* parent)
    : QDialog(parent),
      m_program(program),
      m_bill(std::move(bill)),
      m_barcode(new QLineEdit),
      m_wareCode(new QLineEdit),
      m_wareName(new QLineEdit),
      m_amount(new QLineEdit("1")),
      m_price(new QLineEdit),
      m_zeroPrice(new QCheckBox("商品单价为零时提示")),
      m_autoIn(new QCheckBox("扫入条形码后自动录入下一条")),
      m_lastEntered(new QLabel)
{
    setObjectName("frmBillPos");
    setWindowTitle("扫描录入商品....");
    BuildFields();
    auto* const amountCaption = new QLabel("商品数量：");
    amountCaption->setObjectName("LabAmount");
    auto* const priceCaption = new QLabel("商品单价：");
    priceCaption->setObjectName("LabPrice");
    auto* const form = new QFormLayout;
    form->addRow("条 形 码：", m_barcode);
    form->addRow("商品编号：", m_wareCode);
    form->addRow("商品名称：", m_wareName);
    form->addRow(amountCaption, m_amount);
    form->addRow(priceCaption, m_price);
    form->addRow(QString(), m_zeroPrice);
    form->addRow(QString(), m_autoIn);
    form->addRow(QString(), m_lastEntered);
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addStretch();
    layout->addLayout(BuildButtons());
    resize(fontMetrics().averageCharWidth() * 64, sizeHint().height());
    setTabOrder(m_price, findChild<QPushButton*>("CmdOk")); // the switches are seldom touched
    m_barcode->setFocus();
}

void frmBillPos::Open(Program& program, const ScannedBill& bill, QWidget* parent)
{
    frmBillPos(program, bill, parent).exec();
}

void frmBillPos::BuildFields()
{
    const std::pair<QObject*, const char*> names[] = {{m_barcode, "TxtTiaoXingCode"}, {m_wareCode, "TxtWareCode"},
                                                      {m_wareName, "TxtWareName"},    {m_amount, "TxtAmount"},
                                                      {m_price, "TxtPrice"},          {m_zeroPrice, "ChZeroPrice"},
                                                      {m_autoIn, "ChAutoIn"},         {m_lastEntered, "LabAttention"}};
    for (const auto& [control, name] : names)
        control->setObjectName(name);
    for (QLineEdit* const shown : {m_wareCode, m_wareName})
        shown->setEnabled(false);
    m_barcode->setMaxLength(kLongestBarcode);
    for (QLineEdit* const number : {m_amount, m_price}) {
        number->setMaxLength(kLongestNumber);
        number->setValidator(new QRegularExpressionValidator(QRegularExpression("[.0-9]*"), number));
    }
    for (QLineEdit* const box : {m_barcode, m_amount, m_price})
        box->installEventFilter(this);
    // A long name is cut off rather than widening the window.
    m_lastEntered->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_lastEntered->setTextFormat(Qt::PlainText);
}

QLayout* frmBillPos::BuildButtons()
{
    auto* const enter = new QPushButton("录  入");
    enter->setObjectName("CmdOk");
    enter->setShortcut(QKeySequence("Alt+S"));
    enter->setToolTip("Alt+S");
    connect(enter, &QPushButton::clicked, this, [this] { Run(&EnterLine); });
    auto* const leave = new QPushButton("退出(&X)");
    leave->setObjectName("CmdExit");
    connect(leave, &QPushButton::clicked, this, &QDialog::reject);
    auto* const row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(enter);
    row->addWidget(leave);
    return row;
}

void frmBillPos::Run(Step step)
{
    BarcodeEntry entry;
    const std::pair<QLineEdit*, QString*> texts[] = {{m_barcode, &entry.TxtTiaoXingCode},
                                                     {m_wareCode, &entry.TxtWareCode},
                                                     {m_wareName, &entry.TxtWareName},
                                                     {m_amount, &entry.TxtAmount},
                                                     {m_price, &entry.TxtPrice}};
    for (const auto& [box, text] : texts)
        *text = box->text();
    entry.ChZeroPrice = m_zeroPrice->isChecked();
    entry.ChAutoIn = m_autoIn->isChecked();
    entry.lastEntered = m_lastEntered->text();

    const EntryField next = step(m_program, m_bill, entry);
    for (const auto& [box, text] : texts)
        box->setText(*text);
    m_lastEntered->setText(entry.lastEntered);
    QLineEdit* const fields[] = {m_barcode, m_amount, m_price};
    QLineEdit* const field = fields[static_cast<size_t>(next)];
    field->setFocus();
    field->selectAll(); // the next scan replaces what is there
}

void frmBillPos::MoveOn(QObject* from)
{
    if (from == m_barcode)
        Run(&ReadBarcode);
    else
        focusNextChild();
}

bool frmBillPos::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return false;
    MoveOn(watched);
    return true;
}
