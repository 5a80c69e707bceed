#include "frame/window/frmMain_desk.h"

#include "frame/functions.h"
#include "frame/window/frmMain_banner.h"
#include "frame/window/frmMain_entries.h"
#include "shell/window/shades.h"
#include "shell/window/window_place.h"

#include <QCheckBox>
#include <QLabel>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

constexpr double kHint = 0.68; // of the text in a hint

QScrollArea* ScrollArea(QWidget* content, QWidget* parent)
{
    auto* const area = new QScrollArea(parent);
    area->setWidget(content);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setFocusPolicy(Qt::NoFocus);
    area->viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
    KeepFocusInSight(*area);
    return area;
}

QLabel* Title(const QString& text, double scale, QWidget* parent)
{
    auto* const label = new QLabel(text, parent);
    QFont font = parent->font();
    font.setPointSizeF(font.pointSizeF() * scale);
    font.setBold(true);
    label->setFont(font);
    return label;
}

} // namespace

Desk::Desk(const Brand& brand, QWidget* parent) : QWidget(parent), m_brand(brand)
{
    m_title = Title({}, 1.45, this);
    m_showPictures = new QCheckBox("显示主图", this);
    m_showPictures->setObjectName("ChShowMainPic");
    m_showPictures->setChecked(true);
    auto* const head = new QHBoxLayout;
    head->addWidget(m_title, 1);
    head->addWidget(m_showPictures);

    m_tilePane = MakeTiles();
    m_itemPane = MakeItems();
    auto* const panes = new QHBoxLayout;
    panes->setSpacing(18);
    panes->addWidget(m_tilePane, 1);
    panes->addWidget(m_itemPane);

    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(22, 14, 16, 12);
    rows->setSpacing(12);
    rows->addLayout(head);
    rows->addLayout(panes, 1);
    connect(m_tiles, &EntryBoard::Chosen, this, &Desk::Chosen);
    connect(m_items, &EntryBoard::Chosen, this, &Desk::Chosen);
    connect(m_showPictures, &QCheckBox::toggled, this, &Desk::ShowMainPictures);
    ShowMainPictures(true);
}

QWidget* Desk::MakeTiles()
{
    auto* const pane = new QWidget(this);
    m_tiles = new EntryBoard(EntryLook::Tile, "PicFunction", m_brand, pane);
    m_tiles->SetMaximumColumns(3);
    auto* const hint = new QLabel("Alt+数字 切换分类 · 方向键移动 · Enter 打开", pane);
    QPalette colours = hint->palette();
    colours.setColor(QPalette::WindowText,
                     Mixed(colours.color(QPalette::Window), colours.color(QPalette::WindowText), kHint));
    hint->setPalette(colours);
    auto* const column = new QVBoxLayout(pane);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(ScrollArea(m_tiles, pane), 1);
    column->addWidget(hint);
    return pane;
}

QWidget* Desk::MakeItems()
{
    auto* const pane = new QFrame(this);
    pane->setObjectName("ItemPane");
    pane->setStyleSheet("#ItemPane{background:palette(base);border:1px solid palette(midlight);border-radius:8px;}");
    m_items = new EntryBoard(EntryLook::Row, "LabItemName", m_brand, pane);
    m_scroll = ScrollArea(m_items, pane);
    m_scroll->setObjectName("PicInf");
    auto* const head = new QHBoxLayout;
    head->addWidget(Title("全部功能", 1.0, pane), 1);
    head->addWidget(MakeScrollKey("CmdUp", Qt::UpArrow, -1));
    head->addWidget(MakeScrollKey("CmdDown", Qt::DownArrow, 1));
    auto* const column = new QVBoxLayout(pane);
    column->setContentsMargins(12, 10, 8, 10);
    column->addLayout(head);
    column->addWidget(m_scroll, 1);
    return pane;
}

QToolButton* Desk::MakeScrollKey(const QString& name, Qt::ArrowType arrow, int direction)
{
    auto* const key = new QToolButton(this);
    key->setObjectName(name);
    key->setArrowType(arrow);
    key->setAutoRaise(true);
    key->setAutoRepeat(true);
    key->setFocusPolicy(Qt::NoFocus);
    QScrollBar* const bar = m_scroll->verticalScrollBar();
    const auto refresh = [key, bar, direction] {
        key->setEnabled(direction < 0 ? bar->value() > bar->minimum() : bar->value() < bar->maximum());
    };
    connect(bar, &QScrollBar::rangeChanged, key, refresh);
    connect(bar, &QScrollBar::valueChanged, key, refresh);
    connect(key, &QToolButton::clicked, bar,
            [bar, direction] { bar->setValue(bar->value() + direction * bar->pageStep() / 2); });
    refresh();
    return key;
}

void Desk::ShowEntries(const FunctionCategory& category)
{
    m_title->setText(category.caption);
    m_tiles->SetEntries(category.pictures);
    m_items->SetEntries(category.items);
    m_scroll->verticalScrollBar()->setValue(0);
    (m_tilePane->isHidden() ? m_items : m_tiles)->FocusFirst();
}

void Desk::ShowMainPictures(bool shown)
{
    m_tilePane->setVisible(shown);
    m_itemPane->setMaximumWidth(shown ? fontMetrics().height() * 14 + 24 : QWIDGETSIZE_MAX);
    m_itemPane->setMinimumWidth(fontMetrics().height() * 13);
}

void Desk::SetPicture(const QString& path)
{
    m_picture = path.isEmpty() ? QPixmap() : QPixmap(path);
    update();
}

void Desk::paintEvent(QPaintEvent*)
{
    if (m_picture.isNull())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QSizeF size = QSizeF(m_picture.size()).scaled(QSizeF(this->size()), Qt::KeepAspectRatioByExpanding);
    QRectF target(QPointF(), size);
    target.moveCenter(QRectF(rect()).center());
    painter.drawPixmap(target, m_picture, m_picture.rect());
}
