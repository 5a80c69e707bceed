#include "bills/window/grid/cell_editors.h"

#include "bills/lines/paste.h"
#include "bills/window/bill_widgets.h"
#include "bills/window/grid/drop_list.h"
#include "bills/window/grid/grid_view.h"
#include "shell/window/shades.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>

namespace {

const QColor kEditorTint(0xff, 0xdf, 0x00);
constexpr double kEditorShare = 0.125;

void Tint(QWidget& editor)
{
    QPalette colours = editor.palette();
    colours.setColor(QPalette::Base, Mixed(colours.color(QPalette::Base), kEditorTint, kEditorShare));
    editor.setPalette(colours);
}

bool IsPlain(const QKeyEvent& key)
{
    return !(key.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier));
}

bool IsText(const QKeyEvent& key)
{
    return !key.text().isEmpty() && key.text().front().isPrint() &&
           !(key.modifiers() & (Qt::ControlModifier | Qt::AltModifier));
}

/// Keys of rows that a line editor would take for its own text.
bool IsWindowKey(const QKeyEvent& key)
{
    return (key.modifiers() & Qt::ControlModifier) && (key.key() == Qt::Key_Delete || key.key() == Qt::Key_Insert);
}

} // namespace

CellEditors::CellEditors(Program& program, BillText& bill, GridView& grid, QWidget* window)
    : QObject(&grid),
      m_program(program),
      m_bill(bill),
      m_grid(grid),
      m_text(new QLineEdit(&grid)),
      m_units(new QComboBox(&grid)),
      m_dropList(new DropList(program, window))
{
    MakeTextEditor();
    MakeUnitEditor();
    grid.installEventFilter(this);
    connect(&grid, &GridView::CellEntered, this, &CellEditors::ShowCellEditor);
    connect(&grid, &GridView::CellsMoved, this, &CellEditors::PlaceEditors);
    connect(m_dropList, &DropList::Chosen, this, &CellEditors::Choose);
    connect(m_dropList, &DropList::KeyForEditor, this, [this](QKeyEvent* key) {
        m_text->setFocus();
        QApplication::sendEvent(m_text, key);
    });
    connect(m_dropList, &DropList::ClickedAway, this, [this] {
        if (!m_text->hasFocus())
            Hide();
    });
}

void CellEditors::MakeTextEditor()
{
    m_text->setObjectName("Text2");
    m_text->setFrame(false);
    m_text->setMaxLength(kNoLimit); // what a cell holds is asked at every change; nothing is cut off unseen
    m_text->hide();
    Tint(*m_text);
    m_text->installEventFilter(this);
    connect(m_text, &QLineEdit::textEdited, this, &CellEditors::Type);
}

void CellEditors::MakeUnitEditor()
{
    m_units->setObjectName("Combol2");
    m_units->setEditable(true);
    m_units->setInsertPolicy(QComboBox::NoInsert);
    m_units->setCompleter(nullptr);
    m_units->hide();
    Tint(*m_units);
    m_units->installEventFilter(this);
    m_units->lineEdit()->installEventFilter(this);
    connect(m_units, &QComboBox::currentTextChanged, this, &CellEditors::TakeUnit);
}

void CellEditors::Hide()
{
    m_dropList->hide();
    if (m_text->hasFocus() || m_units->hasFocus() || m_units->lineEdit()->hasFocus())
        m_grid.setFocus();
    m_text->hide();
    m_units->hide();
}

void CellEditors::ShowCellEditor()
{
    Hide();
    if (m_grid.isColumnHidden(m_bill.MSH.currentColumn - 1)) // nobody would see what is typed into it
        return;
    switch (EditorOfCell(m_bill)) {
    case CellEditor::None:
        return;
    case CellEditor::Text:
        return ShowTextEditor();
    case CellEditor::Unit:
        return ShowUnitEditor();
    case CellEditor::Attribute:
        // Behind the click or key that came here, since a picker waits for its own.
        QMetaObject::invokeMethod(this, &CellEditors::ShowAttributePicker, Qt::QueuedConnection);
    }
}

void CellEditors::ShowTextEditor()
{
    m_grid.scrollTo(m_grid.currentIndex());
    m_opened = m_typed = EditorText(m_bill);
    m_text->setText(m_opened);
    m_text->setAlignment(m_grid.currentIndex().data(Qt::TextAlignmentRole).value<Qt::Alignment>());
    m_text->setGeometry(EditorRect());
    m_text->show();
    m_text->setFocus();
    m_text->selectAll();
}

void CellEditors::ShowUnitEditor()
{
    m_grid.scrollTo(m_grid.currentIndex());
    const QSignalBlocker quiet(m_units);
    m_units->clear();
    m_units->addItems(LoadUnitChoices(m_program, m_bill));
    const QString& unit = m_bill.MSH.Cell(m_bill.MSH.currentRow, m_bill.MSH.currentColumn);
    m_units->setCurrentIndex(m_units->findText(unit));
    m_units->setEditText(unit);
    m_units->setGeometry(EditorRect());
    m_units->show();
    m_units->setFocus();
    m_units->lineEdit()->selectAll();
}

void CellEditors::ShowAttributePicker()
{
    if (EditorOfCell(m_bill) != CellEditor::Attribute)
        return;
    const auto picker = AttributeStep(m_program, m_bill);
    emit Changed();
    if (picker)
        emit PickerAsked(*picker);
}

QRect CellEditors::EditorRect() const
{
    return m_grid.CurrentCellRect().adjusted(2, 2, -2, -2);
}

void CellEditors::PlaceEditors()
{
    for (QWidget* editor : {static_cast<QWidget*>(m_text), static_cast<QWidget*>(m_units)}) {
        const QRect place = EditorRect();
        if (editor->isHidden() || editor->geometry() == place)
            continue;
        editor->setGeometry(place);
        m_dropList->hide();
    }
}

void CellEditors::LeaveToGrid()
{
    Hide();
    m_grid.setFocus();
}

void CellEditors::Type(const QString& typed)
{
    const QString text = OneLine(typed);
    if (text != typed)
        m_text->setText(text);
    m_dropList->hide();
    if (!TypeInCell(m_program, m_bill, text)) {
        m_text->setText(m_typed);
        return;
    }
    m_typed = text;
    emit Changed();
    if (IsGoodsColumn(m_bill))
        m_dropList->ShowUnder(*m_text, DropListQuery(text));
}

void CellEditors::TakeUnit(const QString& text)
{
    if (m_units->isHidden())
        return;
    ChooseUnit(m_program, m_bill, OneLine(text));
    emit Changed();
}

void CellEditors::Choose(const QString& code)
{
    LineGrid& lines = m_bill.MSH;
    const int column = lines.currentColumn;
    if (!code.isEmpty())
        ChooseGood(m_program, m_bill, code);
    LeaveToGrid();
    emit Changed();
    if (lines.currentColumn != column)
        ShowCellEditor();
}

void CellEditors::Move(int columns, int rows)
{
    m_grid.setFocus();
    if (!m_grid.MoveBy(columns, rows))
        ShowCellEditor();
}

/// Tab: one column on, or back, and the editor opens there. At the last column it goes on to the next row.
void CellEditors::StepToColumn(int step)
{
    if (step < 0 && m_bill.MSH.currentColumn < 2)
        return;
    Move(step, 0);
}

void CellEditors::EnterText()
{
    const bool isGoods = IsGoodsColumn(m_bill);
    if (isGoods && m_text->text() == m_opened && HoldsGood(m_program, m_bill))
        return Move(1, 0);
    const EnterOutcome outcome = EnterCell(m_program, m_bill, m_text->text());
    if (outcome.stopped) {
        m_text->setFocus();
        return;
    }
    emit Changed();
    if (outcome.picker)
        emit PickerAsked(*outcome.picker);
    if (isGoods)
        ShowCellEditor();
    else
        Move(1, 0);
}

/// The keys that leave an editor for another cell or the grid.
bool CellEditors::LeavingKey(QKeyEvent* key)
{
    switch (key->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
        if (!IsPlain(*key))
            return false;
        Move(key->key() == Qt::Key_Right ? 1 : -1, 0);
        return true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        StepToColumn(key->key() == Qt::Key_Tab ? 1 : -1);
        return true;
    case Qt::Key_Escape:
        LeaveToGrid();
        return true;
    default:
        return false;
    }
}

bool CellEditors::TextKey(QKeyEvent* key)
{
    const bool listShown = m_dropList->isVisible();
    if (!key->text().isEmpty())
        m_dropList->hide();
    switch (key->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
        if (!listShown || !IsPlain(*key))
            return LeavingKey(key);
        m_dropList->hide();
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (listShown)
            m_dropList->TakeFocus();
        else
            Move(0, key->key() == Qt::Key_Down ? 1 : -1);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        EnterText();
        return true;
    default:
        return LeavingKey(key);
    }
}

bool CellEditors::UnitKey(QKeyEvent* key)
{
    if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter)
        return LeavingKey(key);
    TakeUnit(m_units->currentText());
    Move(1, 0);
    return true;
}

/// On the grid itself a character opens the editor and begins its text anew; F2 opens it as it is.
bool CellEditors::GridKey(QKeyEvent* key)
{
    if (key->key() == Qt::Key_F2) {
        ShowCellEditor();
        return true;
    }
    if (m_bill.entryEnabled && (key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab)) {
        StepToColumn(key->key() == Qt::Key_Tab ? 1 : -1);
        return true;
    }
    if (!IsText(*key))
        return false;
    TypeFromGrid(key);
    return true;
}

void CellEditors::TypeFromGrid(QKeyEvent* key)
{
    ShowCellEditor();
    if (!m_text->isHidden())
        QApplication::sendEvent(m_text, key);
    else if (m_units->isHidden())
        QApplication::beep();
}

bool CellEditors::Pick()
{
    if (m_text->isHidden() && m_units->isHidden())
        ShowCellEditor(); // of an attribute this is its picker
    const CellEditor editor = EditorOfCell(m_bill);
    if (editor == CellEditor::Unit)
        m_units->showPopup();
    return editor == CellEditor::Unit || editor == CellEditor::Attribute ||
           (editor == CellEditor::Text && AskForGood());
}

/// Double click: the goods that the text may mean.
bool CellEditors::AskForGood()
{
    if (const auto picker = GoodsPicker(m_program, m_bill, m_text->text()))
        emit PickerAsked(*picker);
    return IsGoodsColumn(m_bill);
}

/// Cells of a spreadsheet go to the lines; one text goes into an open editor like typing.
bool CellEditors::PasteKey(const QObject* watched, const QKeyEvent& key)
{
    if (!key.matches(QKeySequence::Paste))
        return false;
    const QString text = QApplication::clipboard()->text();
    if (watched != &m_grid && !IsTable(text))
        return false;
    Hide();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    PasteTable(m_program, m_bill, text);
    QApplication::restoreOverrideCursor();
    emit Changed();
    if (EditorOfCell(m_bill) != CellEditor::Attribute) // its picker opens for a click or a key that asks for it
        ShowCellEditor();
    return true;
}

/// The editor closes when the user clicks away from the grid, and opens when the tab key comes into it.
void CellEditors::FollowFocus(const QObject* watched, const QFocusEvent& focus)
{
    if (watched == &m_grid && focus.gotFocus() && focus.reason() == Qt::TabFocusReason)
        ShowCellEditor();
    const bool clickedAway = focus.lostFocus() && focus.reason() == Qt::MouseFocusReason;
    const bool isEditor = watched == m_text || watched == m_units;
    if (isEditor && clickedAway && !m_grid.hasFocus() && !m_dropList->underMouse())
        Hide();
}

/// Over an editor the wheel scrolls the lines: another unit is another quantity.
bool CellEditors::ScrollGrid(QWheelEvent& wheel)
{
    QApplication::sendEvent(m_grid.viewport(), &wheel);
    return true;
}

bool CellEditors::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Wheel && watched != &m_grid)
        return ScrollGrid(*static_cast<QWheelEvent*>(event));
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        FollowFocus(watched, *static_cast<QFocusEvent*>(event));
    if (event->type() == QEvent::ShortcutOverride)
        return IsWindowKey(*static_cast<QKeyEvent*>(event));
    if (event->type() == QEvent::MouseButtonDblClick && watched == m_text)
        return AskForGood();
    if (event->type() != QEvent::KeyPress)
        return false;
    auto* const key = static_cast<QKeyEvent*>(event);
    if (PasteKey(watched, *key))
        return true;
    if (watched == m_text)
        return TextKey(key);
    if (watched == &m_grid)
        return GridKey(key);
    return UnitKey(key);
}
