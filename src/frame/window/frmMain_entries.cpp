#include "frame/window/frmMain_entries.h"

#include "frame/window/frmMain_banner.h"
#include "frame/window/frmMain_icons.h"
#include "shell/window/shades.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPainter>
#include <algorithm>

FunctionEntry::FunctionEntry(const QString& word, EntryLook look, const Brand& brand, QWidget* parent)
    : QAbstractButton(parent), m_look(look), m_brand(brand)
{
    setText(word);
    setAccessibleName(word);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setCursor(Qt::PointingHandCursor);
}

QSize FunctionEntry::sizeHint() const
{
    const int em = fontMetrics().height();
    if (m_look == EntryLook::Row)
        return {em * 12, em * 2 + 2};
    return {em * 12, em * 9};
}

void FunctionEntry::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        return click();
    if (event->key() == Qt::Key_Space)
        return QAbstractButton::keyPressEvent(event);
    event->ignore(); // arrows belong to the board
}

bool FunctionEntry::event(QEvent* event)
{
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        update();
    return QAbstractButton::event(event);
}

void FunctionEntry::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool tile = m_look == EntryLook::Tile;
    const bool lit = underMouse() || hasFocus() || isDown();
    const double radius = tile ? 8 : 5;
    const QRectF face = QRectF(rect()).adjusted(1, 1, -1, -1);
    if (tile || lit) {
        const QColor base = palette().color(QPalette::Base);
        const QColor edge = hasFocus() || underMouse() ? SeenOn(base, m_brand.main)
                                                       : Mixed(base, palette().color(QPalette::Text), kEdge);
        painter.setPen(QPen(edge, hasFocus() ? 1.8 : 1));
        painter.setBrush(Mixed(base, m_brand.main, isDown() ? 2 * kLit : lit ? kLit : 0));
        painter.drawRoundedRect(face, radius, radius);
    }
    tile ? PaintTile(painter) : PaintRow(painter);
}

void FunctionEntry::PaintTile(QPainter& painter) const
{
    const double em = fontMetrics().height();
    const double side = em * 4;
    const double top = height() * 0.15;
    PaintFunctionIcon(painter, text(), QRectF((width() - side) / 2, top, side, side));
    QFont caption = font();
    caption.setPointSizeF(font().pointSizeF() * 1.08);
    painter.setFont(caption);
    painter.setPen(palette().color(QPalette::Text));
    const double below = top + side + em * 0.3;
    painter.drawText(QRectF(em * 0.4, below, width() - em * 0.8, height() - below - em * 0.3),
                     Qt::AlignCenter | Qt::TextWrapAnywhere, text());
}

void FunctionEntry::PaintRow(QPainter& painter) const
{
    const double em = fontMetrics().height();
    const double side = em * 1.45;
    const double left = em * 0.4;
    PaintFunctionIcon(painter, text(), QRectF(left, (height() - side) / 2, side, side));
    const double textLeft = left + side + em * 0.5;
    painter.setPen(palette().color(QPalette::Text));
    const int room = static_cast<int>(width() - textLeft - 2);
    painter.drawText(QRectF(textLeft, 0, room, height()), Qt::AlignLeft | Qt::AlignVCenter,
                     fontMetrics().elidedText(text(), Qt::ElideRight, room));
}

EntryBoard::EntryBoard(EntryLook look, const QString& controlName, const Brand& brand, QWidget* parent)
    : QWidget(parent), m_look(look), m_controlName(controlName), m_brand(brand), m_gap(look == EntryLook::Tile ? 16 : 2)
{
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void EntryBoard::SetEntries(const QStringList& words)
{
    for (FunctionEntry* const entry : m_entries) {
        entry->hide();
        entry->setObjectName(QString()); // its click may still be on the way
        entry->deleteLater();
    }
    m_entries.clear();
    for (const QString& word : words) {
        auto* const entry = new FunctionEntry(word, m_look, m_brand, this);
        entry->setObjectName(m_controlName + QString::number(m_entries.size()));
        connect(entry, &QAbstractButton::clicked, this, [this, word] { emit Chosen(word); });
        m_entries.push_back(entry);
        entry->show();
    }
    Arrange();
}

void EntryBoard::SetMaximumColumns(int columns)
{
    m_maximumColumns = columns;
    Arrange();
}

void EntryBoard::FocusFirst()
{
    if (!m_entries.empty())
        m_entries.front()->setFocus(Qt::ShortcutFocusReason);
}

QSize EntryBoard::CellSize() const
{
    return m_entries.empty() ? QSize(1, 1) : m_entries.front()->sizeHint();
}

int EntryBoard::ColumnsFor(int width) const
{
    return std::clamp((width + m_gap) / (CellSize().width() + m_gap), 1, m_maximumColumns);
}

int EntryBoard::heightForWidth(int width) const
{
    const int count = static_cast<int>(m_entries.size());
    const int columns = ColumnsFor(width);
    const int rows = (count + columns - 1) / columns;
    return rows * (CellSize().height() + m_gap);
}

QSize EntryBoard::sizeHint() const
{
    const int width = CellSize().width();
    return {width, heightForWidth(width)};
}

void EntryBoard::Arrange()
{
    const int columns = ColumnsFor(width());
    const QSize cell = CellSize();
    // Rows fill the width, tiles as far as they still look like tiles.
    const int share = (width() - (columns - 1) * m_gap) / columns;
    const int cellWidth = m_look == EntryLook::Row ? share : std::min(share, cell.width() * 4 / 3);
    for (int index = 0; index < static_cast<int>(m_entries.size()); ++index)
        m_entries[static_cast<size_t>(index)]->setGeometry(
            index % columns * (cellWidth + m_gap), index / columns * (cell.height() + m_gap), cellWidth, cell.height());
    setMinimumHeight(heightForWidth(width()));
    updateGeometry();
}

void EntryBoard::resizeEvent(QResizeEvent*)
{
    Arrange();
}

void EntryBoard::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::FontChange)
        Arrange();
    QWidget::changeEvent(event);
}

void EntryBoard::keyPressEvent(QKeyEvent* event)
{
    const auto focused =
        std::find_if(m_entries.begin(), m_entries.end(), [](const FunctionEntry* each) { return each->hasFocus(); });
    const int columns = ColumnsFor(width());
    const int step = event->key() == Qt::Key_Left    ? -1
                     : event->key() == Qt::Key_Right ? 1
                     : event->key() == Qt::Key_Up    ? -columns
                     : event->key() == Qt::Key_Down  ? columns
                                                     : 0;
    if (step == 0 || focused == m_entries.end())
        return QWidget::keyPressEvent(event);
    const auto target = focused - m_entries.begin() + step;
    if (target >= 0 && target < static_cast<std::ptrdiff_t>(m_entries.size()))
        m_entries[static_cast<size_t>(target)]->setFocus(Qt::TabFocusReason);
}
