#include "bills/window/bill_widgets.h"

#include "shell/window/shades.h"
#include "shell/window/toolbar_icons.h"

#include <QApplication>
#include <QComboBox>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QScreen>
#include <QStyle>
#include <QToolButton>
#include <QWheelEvent>
#include <algorithm>

namespace {

/// Captions of the head are laid out for four characters, so that boxes stand in line.
constexpr auto kWidestCaption = "附加说明";

constexpr int kBoxRoom = 11; // above and below the text of a box

struct StampColour
{
    const char* word;
    QRgb colour;
};
constexpr StampColour kStampColours[] = {{"作废", 0xffc6362f}, {"已审核", 0xff168a4a}};
constexpr QRgb kPlainStamp = 0xff8a93a0;

/// Takes the wheel only while it has the focus, which the wheel does not give it: scrolling changes nothing.
class HeadList : public QComboBox
{
public:
    HeadList() { setFocusPolicy(Qt::StrongFocus); }

protected:
    void wheelEvent(QWheelEvent* event) override
    {
        if (hasFocus())
            QComboBox::wheelEvent(event);
        else
            event->ignore();
    }
};

QColor ColourOf(const QString& word)
{
    for (const StampColour& stamp : kStampColours) {
        if (word == stamp.word)
            return QColor::fromRgb(stamp.colour);
    }
    return QColor::fromRgb(kPlainStamp);
}

} // namespace

QLabel* NewLabel(const char* name, const QString& text)
{
    auto* const label = new QLabel(text);
    label->setObjectName(name);
    return label;
}

QComboBox* NewChoice(const char* name)
{
    auto* const choice = new HeadList;
    choice->setObjectName(name);
    QPalette colours = choice->palette();
    colours.setColor(QPalette::Disabled, QPalette::ButtonText, colours.color(QPalette::Disabled, QPalette::Text));
    choice->setPalette(colours);
    return choice;
}

QWidget* MakeCell(QLabel* caption, QWidget* editor, const char* buttonName)
{
    auto* const cell = new QWidget;
    // What a cell holds does not count, so that the columns of the head are equally wide.
    cell->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    auto* const layout = new QHBoxLayout(cell);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    caption->setMinimumWidth(caption->fontMetrics().horizontalAdvance(kWidestCaption));
    caption->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    caption->setBuddy(editor);
    layout->addWidget(caption);
    layout->addWidget(editor, 1);
    editor->setMinimumHeight(editor->fontMetrics().height() + kBoxRoom);
    if (!buttonName)
        return cell;
    QToolButton* const button = NewPickButton(buttonName);
    button->setFixedSize(editor->minimumHeight(), editor->minimumHeight());
    layout->addWidget(button);
    return cell;
}

QToolButton* NewPickButton(const char* name)
{
    auto* const button = new QToolButton;
    button->setObjectName(name);
    button->setIcon(ToolbarIcon(u"Img"));
    button->setFocusPolicy(Qt::TabFocus);
    button->setAutoRaise(true);
    NamePickButton(*button, {});
    return button;
}

void NamePickButton(QToolButton& button, const QString& field)
{
    const QString name = "选择" + field.simplified().remove(' ');
    if (button.accessibleName() == name)
        return;
    button.setAccessibleName(name);
    button.setToolTip(name + " (F4)");
}

void NamePickButtons(const QWidget& head)
{
    for (const QLabel* const caption : head.findChildren<QLabel*>())
        if (auto* const button = caption->parentWidget()->findChild<QToolButton*>({}, Qt::FindDirectChildrenOnly))
            NamePickButton(*button, caption->text());
}

bool LeavesWindow(const QFocusEvent& focus)
{
    return focus.reason() == Qt::ActiveWindowFocusReason || focus.reason() == Qt::PopupFocusReason ||
           focus.reason() == Qt::MenuBarFocusReason;
}

void StepAside(QWidget& window)
{
    const QWidgetList all = QApplication::topLevelWidgets();
    const auto isTaken = [&](const QWidget* other) {
        return other != &window && other->isVisible() && other->pos() == window.pos();
    };
    const int step = window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
    const auto hasRoom = [&] {
        return window.screen()->availableGeometry().contains(window.frameGeometry().translated(step, step));
    };
    while (std::ranges::any_of(all, isTaken) && hasRoom())
        window.move(window.pos() + QPoint(step, step));
}

Stamp::Stamp(const char* name)
{
    setObjectName(name);
    QSizePolicy policy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    policy.setRetainSizeWhenHidden(true);
    setSizePolicy(policy);
    QFont bold = font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 1.25);
    setFont(bold);
}

void Stamp::SetWord(const QString& word)
{
    setText(word);
    setVisible(!word.isEmpty());
    updateGeometry();
}

QSize Stamp::sizeHint() const
{
    return fontMetrics().size(0, text()) + QSize(28, 12);
}

void Stamp::paintEvent(QPaintEvent*)
{
    const QColor colour = SeenOn(palette().color(QPalette::Base), ColourOf(text()));
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, 2));
    QColor wash = colour;
    wash.setAlpha(24);
    painter.setBrush(wash);
    painter.drawRoundedRect(QRectF(rect()).adjusted(2, 2, -2, -2), 4, 4);
    painter.drawText(rect(), Qt::AlignCenter, text());
}

Busy::Busy(QLabel& loading) : m_loading(loading)
{
    m_loading.adjustSize();
    m_loading.move(m_loading.parentWidget()->rect().center() - m_loading.rect().center());
    m_loading.show();
    m_loading.raise();
    m_loading.repaint();
}

Busy::~Busy()
{
    m_loading.hide();
}
