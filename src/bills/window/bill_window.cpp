#include "bills/window/bill_window.h"

#include "bills/life/draft.h"
#include "bills/life/lifecycle.h"
#include "bills/life/recall.h"
#include "bills/lines/line_columns.h"
#include "bills/lines/paste.h"
#include "bills/window/bill_widgets.h"
#include "bills/window/grid/grid_view.h"
#include "bills/window/print_commands.h"
#include "data/lookups.h"
#include "dialogs/window/frmCode.h"
#include "dialogs/window/frmWarehouseSelect.h"
#include "shell/window/date_box.h"
#include "shell/window/window_place.h"

#include <QAction>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QHeaderView>
#include <QIntValidator>
#include <QLineEdit>
#include <QMenu>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QStatusBar>
#include <QVBoxLayout>

namespace {

constexpr int kMargin = 10;
constexpr int kLeastFixedColumns = 3;
constexpr int kLeastGridHeight = 9; // lines of text; on a lower screen the window scrolls
constexpr int kShownWidth = 1500;   // twips of a column that was hidden

void ShowText(QWidget* widget, const QString& text)
{
    if (auto* const box = qobject_cast<QLineEdit*>(widget)) {
        if (box->text() != text)
            box->setText(text);
    } else if (auto* const list = qobject_cast<QComboBox*>(widget)) {
        // A currency that has left the account set still stands on its old bills.
        if (!text.isEmpty() && list->findText(text) < 0)
            list->addItem(text);
        list->setCurrentIndex(list->findText(text));
    } else if (auto* const stamp = dynamic_cast<Stamp*>(widget)) {
        stamp->SetWord(text);
    } else if (auto* const label = qobject_cast<QLabel*>(widget)) {
        label->setText(text);
    }
}

void Enlarge(QWidget* widget, double factor)
{
    QFont font = widget->font();
    font.setPointSizeF(font.pointSizeF() * factor);
    font.setBold(true);
    widget->setFont(font);
}

} // namespace

BillWindow::BillWindow(Program& program, std::shared_ptr<BillText> bill, const BillCommands& commands)
    : m_program(program), m_owner(std::move(bill)), m_bill(*m_owner), m_commands(commands)
{
    setAttribute(Qt::WA_DeleteOnClose);
    m_draft = std::make_unique<Draft>(program);
    constexpr std::chrono::milliseconds kPause(1000);
    m_draftTimer.setSingleShot(true);
    m_draftTimer.setInterval(kPause);
    connect(&m_draftTimer, &QTimer::timeout, this, &BillWindow::KeepDraft);
}

BillWindow::~BillWindow()
{
    delete takeCentralWidget(); // it shows the bill, so it goes first
}

void BillWindow::Build(QWidget* head)
{
    MakeBillToolbar(*this);
    MakeBillMenus(*this);
    statusBar()->setSizeGripEnabled(false);
    auto* const body = new QWidget;
    auto* const layout = new QVBoxLayout(body);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(MakeCaptionBand());
    layout->addWidget(head);
    m_grid = new GridView(m_bill.MSH, body);
    m_grid->setObjectName("MSH");
    m_grid->setMinimumHeight(fontMetrics().height() * kLeastGridHeight);
    layout->addWidget(m_grid, 1);
    layout->addWidget(MakeFoot());
    auto* const area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(body);
    KeepFocusInSight(*area);
    setCentralWidget(area);

    m_editors = new CellEditors(m_program, m_bill, *m_grid, area);
    connect(m_grid, &GridView::ColumnDrawn, this, [this](int column, int twips) { m_drawn[column] = twips; });
    connect(m_editors, &CellEditors::Changed, this, [this] { ShowBill(); });
    connect(m_editors, &CellEditors::PickerAsked, this, &BillWindow::PickForLine);
    m_loading = NewLabel("LoadingPic", "数据读写中,请稍等.....");
    m_loading->setParent(body);
    m_loading->setMargin(2 * kMargin);
    m_loading->setFrameShape(QFrame::Box);
    m_loading->setAutoFillBackground(true);
    m_loading->hide();
    ConnectKeys();
    new PrintCommands(m_program, m_bill, *m_commands.paper, *this, *m_loading, [this] { return IsStoredNow(); });
}

void BillWindow::ConnectKeys()
{
    for (const BillKey& key : BillKeys()) {
        if (key.rule)
            connect(findChild<QAction*>(key.control), &QAction::triggered, this, [this, &key] { Run(key); });
    }
    ConnectOwnCommands();
    connect(findChild<QAction*>("ToolExit"), &QAction::triggered, this, &QWidget::close);
}

/// What is more than a rule on the bill.
void BillWindow::ConnectOwnCommands()
{
    struct OwnCommand
    {
        const char* control;
        void (BillWindow::*run)();
    };
    constexpr OwnCommand kOwn[] = {
        {"FPick", &BillWindow::PickHere},
        {"FKeys", &BillWindow::ShowKeys},
        {"ToolSave", &BillWindow::Save},
        {"ToolIn", &BillWindow::OpenImport},
        {"ToolPos", &BillWindow::Scan},
        {"ToolImg", &BillWindow::OpenImages},
        {"FJXCAccount", &BillWindow::OpenAccountSettings},
        {"FExcle_PT", &BillWindow::ExportGrid},
        {"MMSHFormat", &BillWindow::FormatColumns},
        {"FDeleteMSHFormat", &BillWindow::DeleteFormat},
    };
    for (const OwnCommand& command : kOwn)
        connect(findChild<QAction*>(command.control), &QAction::triggered, this, command.run);
}

QWidget* BillWindow::MakeCaptionBand()
{
    auto* const band = new QFrame;
    band->setAutoFillBackground(true);
    band->setBackgroundRole(QPalette::Base);
    auto* const name = NewLabel("LabBillName", {});
    name->setAlignment(Qt::AlignCenter);
    Enlarge(name, 1.7);
    Bind(name, m_bill.LabBillName);
    auto* const audited = new Stamp("LabAuditing");
    Bind(audited, m_bill.LabAuditing);
    auto* const state = new Stamp("LabState");
    Bind(state, m_bill.LabState);

    // The same room on both sides keeps the name in the middle.
    auto* const stamps = new QHBoxLayout;
    stamps->addStretch();
    stamps->addWidget(state);
    stamps->addWidget(audited);
    auto* const layout = new QHBoxLayout(band);
    layout->setContentsMargins(kMargin, 5, kMargin, 5);
    layout->addStretch(1);
    layout->addWidget(name);
    layout->addLayout(stamps, 1);
    band->setMinimumHeight(name->sizeHint().height() + 12);
    return band;
}

QWidget* BillWindow::MakeTotals()
{
    auto* const frame = new QFrame;
    frame->setObjectName("FrameTotal");
    frame->setAccessibleName("合计信息");
    auto* const layout = new QHBoxLayout(frame);
    layout->setContentsMargins(0, 0, 0, 0);
    const auto add = [this, layout](const char* control, const QString& caption, QString& text) {
        auto* const pair = new QWidget;
        pair->setObjectName(QString(control) + "_Pair");
        auto* const figure = NewLabel(control, {});
        figure->setTextInteractionFlags(Qt::TextSelectableByMouse);
        Enlarge(figure, 1.2);
        Bind(figure, text);
        auto* const row = new QHBoxLayout(pair);
        row->setContentsMargins(0, 0, 2 * kMargin, 0);
        row->addWidget(NewLabel((QByteArray(control) + "_Str").constData(), caption));
        row->addWidget(figure);
        layout->addWidget(pair);
    };
    add("LabTotalAmount", "合计数量：", m_bill.LabTotalAmount);
    add("LabTotalMoney", "合计金额：", m_bill.LabTotalMoney);
    return frame;
}

QWidget* BillWindow::MakeFoot()
{
    auto* const foot = new QWidget;
    auto* const layout = new QHBoxLayout(foot);
    layout->setContentsMargins(kMargin, 6, kMargin, 8);
    layout->addWidget(MakeTotals());
    layout->addStretch();
    AddFreeze(layout);
    layout->addSpacing(2 * kMargin);
    AddCheck(layout, "ChAutoAdd", "保存后自动新建下一单", m_bill.ChAutoAdd);
    layout->addSpacing(kMargin);
    AddCheck(layout, "ChAutoAuditing", "保存时自动审核单据", m_bill.ChAutoAuditing);
    return foot;
}

void BillWindow::AddCheck(QBoxLayout* foot, const char* control, const QString& caption, bool& flag)
{
    auto* const check = new QCheckBox(caption);
    check->setObjectName(control);
    check->setChecked(flag);
    connect(check, &QCheckBox::toggled, this, [&flag](bool on) { flag = on; });
    foot->addWidget(check);
}

void BillWindow::AddFreeze(QBoxLayout* foot)
{
    auto* const check = new QCheckBox("锁定前");
    check->setObjectName("ChFixedCol");
    auto* const count = new QLineEdit(QString::number(kLeastFixedColumns));
    count->setObjectName("TxtFixedColNum");
    count->setValidator(new QIntValidator(0, 99, count));
    count->setAlignment(Qt::AlignHCenter);
    count->setFixedWidth(count->fontMetrics().horizontalAdvance("0000") + 10);
    connect(check, &QCheckBox::toggled, this, [this, count](bool on) {
        if (on && count->text().toInt() < kLeastFixedColumns)
            count->setText(QString::number(kLeastFixedColumns));
        m_grid->SetFixedColumns(on ? count->text().toInt() : 1);
    });
    foot->addWidget(check);
    foot->addWidget(count);
    foot->addWidget(new QLabel("列"));
}

void BillWindow::Bind(QWidget* widget, QString& text)
{
    m_bindings.push_back({widget, &text});
}

void BillWindow::ShowBill()
{
    const QSignalBlocker quiet(findChild<QComboBox*>("TxtMoneyName"));
    m_date->SetDate(m_bill.DTPDate);
    for (const Binding& binding : m_bindings)
        ShowText(binding.widget, *binding.text);
    NamePickButtons(*centralWidget());
    m_grid->SetLocked(!m_bill.entryEnabled);
    RestoreWidths();
    m_grid->Sync();
    ShowTotals();
    ShowCommands();
    ShowDay();
    ShowTitle();
}

/// A new bill keeps the day that stood there: one that is not the working date is to be noticed.
void BillWindow::ShowDay()
{
    const QDate usual = WorkingDate(m_program);
    const bool isOther = !m_bill.BillSavedFlag && m_bill.DTPDate != usual;
    m_date->SetRemark(isOther ? "不是当前工作日期 " + DayText(usual) : QString());
}

void BillWindow::FillBill(const QString& tableName, const QString& billCode)
{
    if (::FillBill(m_program, m_bill, tableName, billCode))
        OpenNavigation(m_program, m_bill);
    else
        OpenBlank(m_program, m_bill, tableName);
    ListTemplates();
    ShowBill();
    m_grid->setFocus();
}

void BillWindow::ListTemplates()
{
    FillTemplateMenus(*this, TemplateNames(m_program, TemplateGroup(m_bill, *m_commands.paper)));
}

void BillWindow::ShowTotals()
{
    findChild<QWidget*>("FrameTotal")->setEnabled(m_bill.entryEnabled);
    findChild<QWidget*>("LabTotalAmount_Pair")->setVisible(m_bill.kind->lines != LineShape::Revalued);
    findChild<QWidget*>("LabTotalMoney_Pair")->setVisible(m_bill.totalMoneyShown);
}

void BillWindow::ShowCommands()
{
    for (const BillKey& key : BillKeys()) {
        const bool on = !key.command || m_bill.isEnabled(*key.command);
        findChild<QAction*>(key.control)->setEnabled(on);
        if (key.menuEntry)
            findChild<QAction*>(key.menuEntry)->setEnabled(on);
    }
    findChild<QMenu*>("MPrint")->menuAction()->setEnabled(m_bill.isEnabled(Command::Print));
}

void BillWindow::HideEditors()
{
    m_editors->Hide();
}

void BillWindow::Run(const BillKey& key)
{
    m_editors->Hide();
    if (key.unsaved == Unsaved::Goes ? !MayGo() : key.unsaved == Unsaved::SavedFirst && !IsStoredNow())
        return;
    const BillCommands::Rule rule = m_commands.*key.rule;
    rule(m_program, m_bill);
    ShowBill();
    if (rule == m_commands.build)
        FocusFirstField();
}

bool BillWindow::SaveBill()
{
    if (!m_date->Commit())
        return false;
    m_editors->Hide();
    const int row = m_bill.MSH.currentRow;
    const int column = m_bill.MSH.currentColumn;
    std::optional<Busy> busy;
    const QScopedValueRollback<std::function<void(bool)>> shown(m_program.writing, [&](bool writing) {
        if (writing)
            busy.emplace(*m_loading);
        else
            busy.reset();
    });
    const Posting posting = m_commands.save(m_program, m_bill);
    ShowBill();
    const bool isBlank = posting.stored && !m_bill.BillSavedFlag;
    // A check that failed has put the cursor on the cell at fault.
    if (isBlank)
        FocusFirstField();
    else if (!posting.stored && (m_bill.MSH.currentRow != row || m_bill.MSH.currentColumn != column))
        ShowCellAtFault();
    return posting.stored;
}

/// Opens the editor on it; in a hidden column, after that has come into sight.
void BillWindow::ShowCellAtFault()
{
    LineGrid::Column& column = m_bill.MSH.column(m_bill.MSH.currentColumn);
    if (column.width <= 0 && EditorOfCell(m_bill) != CellEditor::None) {
        column.width = kShownWidth;
        ShowBill();
    }
    m_editors->ShowCellEditor();
}

void BillWindow::ShowKeys()
{
    frmKeys(KeysOf(*this), this).exec();
}

std::optional<PickedRow> BillWindow::OpenPicker(const PickerNeeded& picker)
{
    statusBar()->showMessage(picker.note);
    if (FindPickerList(picker.table))
        return frmCode::Pick(m_program, picker.table, picker.query, picker.title, this, picker.typed);
    return frmWarehouseSelect::Pick(m_program, picker.table, {.codes = picker.query, .typed = picker.typed},
                                    picker.title, this);
}

/// A good or an attribute for the current line; the clerk then stands where entering goes on.
void BillWindow::PickForLine(const PickerNeeded& picker)
{
    const bool isGood = IsGoodsColumn(m_bill);
    const std::optional<PickedRow> picked = OpenPicker(picker);
    m_grid->setFocus();
    if (picked) {
        (isGood ? ChooseGood : ChooseAttribute)(m_program, m_bill, picked->Code);
        ShowBill();
    }
    if (isGood)
        m_editors->ShowCellEditor();
    else if (picked)
        m_grid->MoveBy(1, 0);
}

/// Where no layout is saved, a column is as wide as the user last drew it on this machine.
void BillWindow::RestoreWidths()
{
    if (m_drawnKey != m_bill.LayoutKey()) {
        m_drawnKey = m_bill.LayoutKey();
        m_drawn = RememberedWidths(m_program.parameters, m_drawnKey);
    }
    for (int index = 0; index < m_bill.MSH.columns(); ++index) {
        LineGrid::Column& column = m_bill.MSH.column(index);
        const auto drawn = m_drawn.find(index);
        if (column.isDefault && column.width > 0 && drawn != m_drawn.end())
            column.width = drawn->second;
        column.isDefault = false;
    }
}

bool BillWindow::event(QEvent* event)
{
    // A box stands before the window: nothing is being written now, and what the box speaks of is to be seen.
    if (event->type() == QEvent::WindowBlocked && m_loading) {
        m_loading->hide();
        ShowBill();
    }
    return QMainWindow::event(event);
}

void BillWindow::RestorePlace(const QSize& usual)
{
    resize(usual);
    if (restoreGeometry(RememberedPlace(m_program.parameters, metaObject()->className())) && !isMaximized())
        StepAside(*this);
}

void BillWindow::closeEvent(QCloseEvent* event)
{
    if (m_importing) // the session ends; nothing else reaches the window now
        return event->ignore();
    if (!MayGo())
        return event->ignore();
    DropDraft();
    RememberPlace(m_program.parameters, metaObject()->className(), saveGeometry());
    RememberWidths(m_program.parameters, m_drawnKey, m_drawn);
    if (m_program.gConnection.State() == 1)
        m_program.gConnection.Close();
    QMainWindow::closeEvent(event);
}
