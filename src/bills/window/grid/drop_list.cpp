#include "bills/window/grid/drop_list.h"

#include "shell/window/shades.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollBar>
#include <QTableView>
#include <QVBoxLayout>

namespace {

constexpr int kShownRows = 10;

const QColor kCurrentTint(0x00, 0xff, 0xff);
constexpr double kCurrentShare = 63.0 / 255;

constexpr int kCodeColumn = 1;
constexpr int kHintRoom = 14;

constexpr int kColumnCharacters[] = {2, 14, 28, 16, 10, 12}; // widths

} // namespace

DropList::DropList(Program& program, QWidget* window)
    : QFrame(window),
      m_goods(new LazyRows(program, {QString(), "商品编号", "商品名称", "规格", "单位", "助记符"}, this)),
      m_list(new QTableView(this))
{
    setObjectName("PicSelect");
    setFrameShape(Box);
    setAutoFillBackground(true);
    MakeList();
    auto* const hint = new QLabel("提示：按上下方向键选择，按回车键自动选取");
    hint->setObjectName("LabselectRead");
    hint->setMargin(4);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->setSpacing(0);
    layout->addWidget(m_list);
    layout->addWidget(hint);
    hide();
}

void DropList::MakeList()
{
    m_list->setObjectName("MSHSelect");
    m_list->setModel(m_goods);
    m_list->setFrameShape(NoFrame);
    m_list->setSelectionBehavior(QTableView::SelectRows);
    m_list->setSelectionMode(QTableView::SingleSelection);
    m_list->setShowGrid(false);
    m_list->setWordWrap(false);
    m_list->verticalHeader()->hide();
    m_list->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    m_list->horizontalHeader()->setStretchLastSection(true);
    m_list->horizontalHeader()->setHighlightSections(false);
    const int unit = fontMetrics().averageCharWidth();
    m_list->horizontalHeader()->setMinimumSectionSize(unit); // the row head is narrow
    int column = 0;
    for (const int characters : kColumnCharacters)
        m_list->setColumnWidth(column++, unit * characters);
    QPalette colours = m_list->palette();
    colours.setColor(QPalette::Highlight, Mixed(colours.color(QPalette::Base), kCurrentTint, kCurrentShare));
    colours.setColor(QPalette::HighlightedText, colours.color(QPalette::Text));
    m_list->setPalette(colours);
    m_list->installEventFilter(this);
    connect(m_list, &QTableView::doubleClicked, this, [this] { Choose(); });
}

void DropList::ShowUnder(const QWidget& editor, const Sql& goods)
{
    m_goods->Open(goods, {"TabWare", "TypeCode"});
    if (m_goods->size() == 0)
        return;
    m_list->setCurrentIndex(m_goods->index(0, kCodeColumn));
    Place(editor);
    show();
    raise();
}

/// All columns with the scroll bar and the frame beside them.
int DropList::WantedWidth() const
{
    int width = m_list->verticalScrollBar()->sizeHint().width() + 2 * frameWidth() + 2;
    for (const int characters : kColumnCharacters)
        width += fontMetrics().averageCharWidth() * characters;
    return width;
}

void DropList::Place(const QWidget& editor)
{
    const QRect around = parentWidget()->rect();
    const int rows = std::min(m_goods->size(), kShownRows);
    const int wanted = m_list->horizontalHeader()->sizeHint().height() +
                       rows * m_list->verticalHeader()->defaultSectionSize() + fontMetrics().height() + kHintRoom;
    const QPoint top = editor.mapTo(parentWidget(), QPoint(0, 0));
    const int below = around.bottom() - top.y() - editor.height();
    const bool under = below >= wanted || below >= top.y();
    const int height = std::min(wanted, under ? below : top.y());
    const int width = std::min(WantedWidth(), around.width());
    const int x = std::max(0, std::min(top.x(), around.right() - width));
    setGeometry(x, under ? top.y() + editor.height() : top.y() - height, width, height);
}

void DropList::TakeFocus()
{
    m_list->setFocus();
}

void DropList::Choose()
{
    emit Chosen(m_goods->Text(m_list->currentIndex().row(), kCodeColumn).trimmed());
}

bool DropList::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusOut && static_cast<QFocusEvent*>(event)->reason() == Qt::MouseFocusReason)
        emit ClickedAway();
    if (event->type() != QEvent::KeyPress)
        return QFrame::eventFilter(watched, event);
    auto* const key = static_cast<QKeyEvent*>(event);
    if (const auto row = m_goods->EndRow(key->key())) {
        m_list->setCurrentIndex(m_goods->index(*row, kCodeColumn));
        return true;
    }
    switch (key->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Shift:
    case Qt::Key_Control:
        return false;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Choose();
        return true;
    default:
        emit KeyForEditor(key);
        return true;
    }
}
