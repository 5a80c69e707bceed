#include "frame/window/frmMain_navigation.h"

#include "frame/functions.h"
#include "frame/window/frmMain_banner.h"
#include "frame/window/frmMain_icons.h"
#include "shell/window/shades.h"

#include <QHeaderView>
#include <QPainter>
#include <QShortcut>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

namespace {

/// Separators as thin lines.
class NodeDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        if (index.data().toString() != kTreeSeparator)
            return QStyledItemDelegate::paint(painter, option, index);
        painter->save();
        painter->setPen(Mixed(option.palette.color(QPalette::Base), option.palette.color(QPalette::Text), kEdge));
        const int middle = option.rect.center().y();
        painter->drawLine(option.rect.left() + 6, middle, option.rect.right() - 6, middle);
        painter->restore();
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const int em = option.fontMetrics.height();
        const bool line = index.data().toString() == kTreeSeparator;
        return {QStyledItemDelegate::sizeHint(option, index).width(), line ? em / 2 + 3 : em + 10};
    }
};

QString ButtonSheet(const Brand& brand, const QColor& base)
{
    return QString("QPushButton{text-align:left;padding:0.5em 0.9em;border:none;border-radius:5px;color:palette(text);"
                   "background:palette(base);}"
                   "QPushButton:hover{background:%1;}"
                   "QPushButton:focus{border:1px solid %2;}"
                   "QPushButton:checked{background:%2;color:#ffffff;font-weight:bold;}")
        .arg(Mixed(base, brand.main, kLit).name(), brand.main.name());
}

} // namespace

Navigation::Navigation(const QStringList& captions, const Brand& brand, QWidget* parent)
    : QWidget(parent), m_brand(brand)
{
    m_stack = new QVBoxLayout(this);
    m_stack->setContentsMargins(8, 8, 8, 8);
    m_stack->setSpacing(4);
    for (const QString& caption : captions) {
        m_buttons.push_back(MakeButton(caption));
        m_stack->addWidget(m_buttons.back());
    }

    m_tree = new QTreeWidget(this);
    m_tree->setObjectName("TreeView");
    m_tree->setHeaderHidden(true);
    m_tree->setRootIsDecorated(false);
    m_tree->setIndentation(0);
    m_tree->setItemDelegate(new NodeDelegate(m_tree));
    m_tree->setFrameShape(QFrame::NoFrame);
    m_tree->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_tree->setAccessibleName("功能列表");
    m_nodePicture = FunctionGlyph("明细表", Ink(), 16); // ParentPic
    m_stack->addWidget(m_tree, 1);

    connect(m_tree, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) { m_clickedNode = item->text(0); });
    connect(m_tree, &QTreeWidget::itemDoubleClicked, this, [this] { emit NodeRun(m_clickedNode); });
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* const enter = new QShortcut(key, m_tree);
        enter->setContext(Qt::WidgetShortcut);
        connect(enter, &QShortcut::activated, this, [this] {
            if (const QTreeWidgetItem* const item = m_tree->currentItem())
                emit NodeRun(item->text(0));
        });
    }
}

QPushButton* Navigation::MakeButton(const QString& caption)
{
    auto* const button = new QPushButton(caption, this);
    const size_t number = m_buttons.size();
    button->setObjectName("Cmd" + QString::number(number));
    button->setIcon(FunctionGlyph(caption, Ink(), 18));
    button->setIconSize({18, 18});
    button->setStyleSheet(ButtonSheet(m_brand, palette().color(QPalette::Base)));
    button->setCursor(Qt::PointingHandCursor);
    button->setAutoDefault(false);
    const QKeySequence keys(Qt::ALT | static_cast<Qt::Key>(Qt::Key_1 + number));
    button->setToolTip(QString("%1（%2）").arg(caption, keys.toString(QKeySequence::NativeText)));
    connect(button, &QPushButton::clicked, this, [this, caption] { emit CategoryChosen(caption); });
    connect(new QShortcut(keys, this), &QShortcut::activated, button, &QPushButton::click);
    return button;
}

QColor Navigation::Ink() const
{
    return SeenOn(palette().color(QPalette::Base), m_brand.main);
}

QSize Navigation::sizeHint() const
{
    return {fontMetrics().height() * 13 + 16, fontMetrics().height() * 30};
}

void Navigation::Open(const QString& caption, const QStringList& nodes)
{
    m_stack->removeWidget(m_tree);
    int place = 0;
    for (QPushButton* const button : m_buttons) {
        const bool chosen = button->text() == caption;
        button->setCheckable(chosen);
        button->setChecked(chosen);
        button->setIcon(FunctionGlyph(button->text(), chosen ? QColor(Qt::white) : Ink(), 18));
        if (chosen)
            place = m_stack->indexOf(button) + 1;
    }
    m_stack->insertWidget(place, m_tree, 1);
    FillTree(caption, nodes);
}

void Navigation::FillTree(const QString& caption, const QStringList& nodes)
{
    m_clickedNode.clear();
    m_tree->clear();
    int separators = 0;
    for (const QString& node : nodes) {
        auto* const item = new QTreeWidgetItem(m_tree, {node});
        if (node != kTreeSeparator) {
            item->setData(0, Qt::UserRole, node);
            item->setIcon(0, m_nodePicture);
            continue;
        }
        item->setData(0, Qt::UserRole, caption + "分隔线" + QString::number(++separators));
        item->setFlags(Qt::ItemIsEnabled);
    }
}
