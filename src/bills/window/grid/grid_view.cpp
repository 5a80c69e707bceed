#include "bills/window/grid/grid_view.h"

#include "dialogs/window/frmOption_Bill.h"
#include "shell/window/shades.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <algorithm>

namespace {

// Shares of other colours in the ground of a cell.
constexpr double kCurrentRow = 0.11;
constexpr double kLines = 0.16;

constexpr int kLeastSeen = 24;    // of a cell's width for an editor to stand in
constexpr int kScrolledShare = 3; // one part in so many of the width is left to the columns that scroll

/// Paints the current row tinted and the current cell framed, whether the grid or an editor has the focus.
class CellPainter : public QStyledItemDelegate
{
public:
    CellPainter(const QTableView& view, QObject* parent) : QStyledItemDelegate(parent), m_view(view) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const QColor base = m_view.palette().color(QPalette::Base);
        const QColor accent = m_view.palette().color(QPalette::Highlight);
        const QModelIndex current = m_view.currentIndex();
        if (index.row() == current.row())
            painter->fillRect(option.rect, Mixed(base, accent, kCurrentRow));
        QStyleOptionViewItem plain(option);
        plain.state &= ~(QStyle::State_HasFocus | QStyle::State_Selected | QStyle::State_MouseOver);
        plain.state |= QStyle::State_Enabled;
        QStyledItemDelegate::paint(painter, plain, index);
        painter->save();
        painter->setPen(Mixed(base, m_view.palette().color(QPalette::Text), kLines));
        painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
        painter->drawLine(option.rect.topRight(), option.rect.bottomRight());
        if (index == current)
            Frame(painter, option.rect, accent);
        painter->restore();
    }

private:
    static void Frame(QPainter* painter, const QRect& cell, const QColor& accent)
    {
        painter->setPen(QPen(accent, 2));
        painter->drawRect(cell.adjusted(1, 1, -1, -1));
    }

    const QTableView& m_view;
};

} // namespace

GridView::GridView(LineGrid& grid, QWidget* parent, GridRows kind)
    : QTableView(parent),
      m_grid(grid),
      m_model(new GridModel(grid, kind, this)),
      m_fixed(new QTableView(this)),
      m_corner(new QLabel(this))
{
    m_corner->setAlignment(Qt::AlignCenter);
    setModel(m_model);
    setItemDelegate(new CellPainter(*this, this));
    setSelectionMode(NoSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setAlternatingRowColors(true);
    setCornerButtonEnabled(false);
    setShowGrid(false);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setMinimumSectionSize(fontMetrics().averageCharWidth() * 3);
    horizontalHeader()->setFixedHeight(fontMetrics().height() + 12);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 10);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setHighlightSections(true);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int section, int, int pixels) { KeepWidth(section, pixels); });
    MakeFixedPart();
}

void GridView::MakeFixedPart()
{
    m_fixed->setModel(m_model);
    m_fixed->setItemDelegate(itemDelegate());
    m_fixed->setFocusPolicy(Qt::NoFocus);
    m_fixed->setSelectionMode(NoSelection);
    m_fixed->setAlternatingRowColors(true);
    m_fixed->setWordWrap(false);
    m_fixed->setShowGrid(false);
    m_fixed->setFrameShape(NoFrame);
    m_fixed->verticalHeader()->hide();
    m_fixed->verticalHeader()->setDefaultSectionSize(verticalHeader()->defaultSectionSize());
    m_fixed->horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_fixed->horizontalHeader()->setHighlightSections(false);
    m_fixed->horizontalHeader()->setFixedHeight(horizontalHeader()->height());
    m_fixed->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_fixed->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_fixed->setVerticalScrollMode(verticalScrollMode());
    m_fixed->hide();
    connect(m_fixed->verticalScrollBar(), &QScrollBar::valueChanged, verticalScrollBar(), &QScrollBar::setValue);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, m_fixed->verticalScrollBar(), &QScrollBar::setValue);
    connect(m_fixed, &QTableView::pressed, this, [this](const QModelIndex& index) {
        setFocus();
        if (index == currentIndex())
            emit CellEntered();
        else
            setCurrentIndex(index);
    });
}

void GridView::Sync()
{
    m_syncing = true;
    if (m_model->Sync())
        LayOutColumns();
    const int row = std::clamp(m_grid.currentRow, 1, std::max(1, m_grid.lastRow())) - 1;
    const int column = std::clamp(m_grid.currentColumn, 1, std::max(1, m_grid.columns() - 1)) - 1;
    const QModelIndex wanted = m_model->index(row, column);
    if (wanted != currentIndex())
        setCurrentIndex(wanted);
    m_syncing = false;
    Repaint();
}

void GridView::Repaint()
{
    viewport()->update();
    verticalHeader()->viewport()->update();
    m_fixed->viewport()->update();
}

double GridView::PixelsPerTwip() const
{
    constexpr double kTwipsPerPixel = 1440.0 / 96.0;
    constexpr double kPixelsOfDesignFont = 12.0; // the widths were laid out for nine points at 96 dots an inch
    return std::max(1.0, fontInfo().pixelSize() / kPixelsOfDesignFont) / kTwipsPerPixel;
}

int GridView::Pixels(int twips) const
{
    return qRound(twips * PixelsPerTwip());
}

bool GridView::isStretched(int section) const
{
    for (int later = section + 1; later < m_model->columnCount(); ++later) {
        if (!isColumnHidden(later))
            return false;
    }
    return true;
}

void GridView::LayOutColumns()
{
    m_layingOut = true;
    const int headWidth = m_grid.columns() > 0 ? m_grid.column(0).width : 0;
    const int digits = fontMetrics().horizontalAdvance(QStringLiteral("0000")) + 10;
    verticalHeader()->setVisible(headWidth > 0);
    verticalHeader()->setFixedWidth(std::max(Pixels(headWidth), digits));
    for (int section = 0; section < m_model->columnCount(); ++section) {
        const int width = m_grid.column(section + 1).width;
        setColumnHidden(section, width <= 0);
        if (width > 0)
            setColumnWidth(section, Pixels(width));
    }
    m_layingOut = false;
    PlaceFixedPart();
}

/// A width that the user has drawn belongs to the bill's layout, as the format dialog saves it.
void GridView::KeepWidth(int section, int pixels)
{
    if (m_layingOut || m_syncing || pixels <= 0 || isStretched(section))
        return;
    const int twips = qRound(pixels / PixelsPerTwip());
    m_grid.column(section + 1).width = twips;
    emit ColumnDrawn(section + 1, twips);
    PlaceFixedPart();
    emit CellsMoved();
}

void GridView::SetLocked(bool locked)
{
    if (m_locked == locked)
        return;
    m_locked = locked;
    QPalette colours = parentWidget()->palette();
    if (locked) {
        colours.setColor(QPalette::Base, colours.color(QPalette::Disabled, QPalette::Base));
        colours.setColor(QPalette::AlternateBase, colours.color(QPalette::Window));
    }
    setPalette(colours);
    m_fixed->setPalette(colours);
}

void GridView::SetFixedColumns(int count)
{
    m_fixedColumns = count;
    PlaceFixedPart();
    emit CellsMoved();
}

/// The columns that are to be locked, as far as the window has room for them: those behind must stay within reach.
int GridView::FixedSections() const
{
    const int room = viewport()->width() - viewport()->width() / kScrolledShare;
    const int wanted = std::min(m_fixedColumns - 1, m_model->columnCount());
    int width = 0;
    for (int section = 0; section < wanted; ++section) {
        width += columnWidth(section);
        if (width > room)
            return section;
    }
    return wanted;
}

int GridView::FixedWidth() const
{
    int width = 0;
    for (int section = FixedSections() - 1; section >= 0; --section)
        width += columnWidth(section);
    return width;
}

void GridView::PlaceFixedPart()
{
    const int width = FixedWidth();
    const int sections = FixedSections();
    m_fixed->setVisible(width > 0);
    if (width == 0)
        return;
    for (int section = 0; section < m_model->columnCount(); ++section) {
        const bool shown = section < sections && !isColumnHidden(section);
        m_fixed->setColumnHidden(section, !shown);
        if (shown)
            m_fixed->setColumnWidth(section, columnWidth(section));
    }
    const QPoint corner = horizontalHeader()->geometry().topLeft();
    m_fixed->setGeometry(corner.x(), corner.y(), width, viewport()->height() + horizontalHeader()->height());
    m_fixed->verticalScrollBar()->setValue(verticalScrollBar()->value());
    m_fixed->raise();
}

QRect GridView::CurrentCellRect() const
{
    const QModelIndex current = currentIndex();
    if (!current.isValid())
        return {};
    const bool fixed = m_fixed->isVisible() && current.column() < FixedSections();
    const QTableView* const view = fixed ? m_fixed : static_cast<const QTableView*>(this);
    const QRect rect = view->visualRect(current);
    const QRect seen = rect & view->viewport()->rect();
    if (seen.width() < std::min(rect.width(), kLeastSeen) || seen.height() < rect.height() / 2)
        return {};
    return QRect(view->viewport()->mapTo(this, seen.topLeft()), seen.size());
}

void GridView::scrollTo(const QModelIndex& index, ScrollHint hint)
{
    QTableView::scrollTo(index, hint);
    if (!m_fixed->isVisible() || index.column() < FixedSections())
        return;
    const int covered = FixedWidth() - visualRect(index).left();
    if (covered > 0)
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - covered);
}

int GridView::NextColumn(int from, int step) const
{
    for (int column = from + step; column >= 0 && column < m_model->columnCount(); column += step) {
        if (!isColumnHidden(column))
            return column;
    }
    return -1;
}

bool GridView::MoveBy(int columns, int rows)
{
    const QModelIndex current = currentIndex();
    int row = current.row() + rows;
    int column = columns == 0 ? current.column() : NextColumn(current.column(), columns);
    if (column < 0 && columns > 0) {
        ++row;
        column = NextColumn(-1, 1);
    }
    const QModelIndex next = m_model->index(row, column);
    if (!next.isValid())
        return false;
    setCurrentIndex(next);
    return true;
}

void GridView::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTableView::currentChanged(current, previous);
    if (m_syncing || !current.isValid())
        return;
    m_grid.currentRow = current.row() + 1;
    m_grid.currentColumn = current.column() + 1;
    Repaint();
    emit CellEntered();
}

GridFormat GridView::Format() const
{
    GridFormat format;
    format.rows = m_grid.rows();
    for (int column = 0; column < m_grid.columns(); ++column) {
        const LineGrid::Column& shown = m_grid.column(column);
        format.columns.push_back({shown.caption, shown.width, FormatOfCells(*horizontalHeader(), shown.alignment),
                                  FormatOfCells(*this, shown.alignment)});
    }
    return format;
}

void GridView::FormatColumn(int column, const ColumnFormat& format)
{
    LineGrid::Column& shown = m_grid.column(column);
    shown.caption = format.elseName;
    shown.width = format.width;
    shown.alignment = format.content.align;
}

void GridView::keyPressEvent(QKeyEvent* event)
{
    const bool plain = !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::ShiftModifier));
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
        if (plain) {
            MoveBy(event->key() == Qt::Key_Right ? 1 : -1, 0);
            return;
        }
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        MoveBy(1, 0);
        return;
    default:
        break;
    }
    QTableView::keyPressEvent(event);
}

void GridView::mousePressEvent(QMouseEvent* event)
{
    const QModelIndex before = currentIndex();
    QTableView::mousePressEvent(event);
    const QModelIndex pressed = indexAt(event->position().toPoint());
    if (pressed.isValid() && pressed == before)
        emit CellEntered();
}

void GridView::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    PlaceFixedPart();
    emit CellsMoved();
}

void GridView::scrollContentsBy(int dx, int dy)
{
    QTableView::scrollContentsBy(dx, dy);
    emit CellsMoved();
}

void GridView::updateGeometries()
{
    QTableView::updateGeometries();
    if (!m_model)
        return;
    m_corner->setText(m_grid.columns() > 0 ? m_grid.Cell(0, 0) : QString());
    m_corner->setGeometry(
        QRect(verticalHeader()->x(), horizontalHeader()->y(), verticalHeader()->width(), horizontalHeader()->height()));
    m_corner->raise();
    emit CellsMoved();
}
