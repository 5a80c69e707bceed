#include "shell/window/date_box.h"

#include "base/dates.h"
#include "shell/window/shades.h"
#include "shell/window/toolbar_icons.h"

#include <QAction>
#include <QApplication>
#include <QCalendarWidget>
#include <QKeyEvent>
#include <QScreen>
#include <QToolTip>
#include <QVBoxLayout>
#include <algorithm>

namespace {

const QString kWays =
    QStringLiteral("可输入 20231115、231115、1115、15、+1、-1；上下键增减光标处的年、月、日；F4 打开日历");

const QColor kWrong(0xe5, 0x48, 0x3f);
constexpr double kWrongShare = 0.28;
const QColor kUnusual(0xff, 0xb0, 0x00);
constexpr double kUnusualShare = 0.25;

constexpr int kYearEnd = 4; // in 2023-02-08
constexpr int kMonthEnd = 7;

DayPart PartAt(int cursor)
{
    if (cursor <= kYearEnd)
        return DayPart::Year;
    return cursor <= kMonthEnd ? DayPart::Month : DayPart::Day;
}

bool IsCalendarKey(const QKeyEvent& key)
{
    return key.key() == Qt::Key_F4 || (key.key() == Qt::Key_Down && (key.modifiers() & Qt::AltModifier));
}

bool IsModifier(int key)
{
    return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt || key == Qt::Key_Meta;
}

/// Under the box, or above it where the screen ends; whole on the screen.
QPoint PlaceOf(const QWidget& box, const QSize& size)
{
    const QRect screen = box.screen()->availableGeometry();
    QPoint place = box.mapToGlobal(QPoint(0, box.height()));
    if (place.y() + size.height() > screen.bottom())
        place.setY(box.mapToGlobal(QPoint(0, 0)).y() - size.height());
    place.setX(std::clamp(place.x(), screen.left(), std::max(screen.left(), screen.right() - size.width())));
    place.setY(std::max(place.y(), screen.top()));
    return place;
}

} // namespace

DateBox::DateBox(const char* name, Blank blank) : m_mayBeEmpty(blank == Blank::Allowed)
{
    setObjectName(name);
    setToolTip(kWays);
    auto* const calendar = addAction(ToolbarIcon(u"ImgDate"), TrailingPosition);
    calendar->setToolTip("日历 (F4)");
    connect(calendar, &QAction::triggered, this, &DateBox::OpenCalendar);
    // The keys of the toolbar take no focus: a click on one must not pass a text by that is still being typed.
    connect(this, &QLineEdit::textEdited, this, [this] {
        Mark(false);
        qApp->installEventFilter(this);
    });
}

void DateBox::SetDate(const QDate& day)
{
    if (day == m_day)
        return;
    m_day = day;
    ShowDay();
}

bool DateBox::Commit()
{
    const QString typed = text().trimmed();
    if (typed == DayText(m_day))
        return true;
    if (typed.isEmpty() && m_mayBeEmpty) {
        Take({});
        return true;
    }
    const auto day = ReadTypedDay(typed, m_day.isValid() ? m_day : m_base);
    if (day)
        Take(*day);
    else
        Mark(true);
    return day.has_value();
}

void DateBox::Take(const QDate& day)
{
    const bool isOther = day != m_day;
    m_day = day;
    ShowDay();
    if (isOther)
        emit DateChanged(day);
}

void DateBox::ShowDay()
{
    qApp->removeEventFilter(this);
    Mark(false);
    setText(DayText(m_day));
}

void DateBox::Mark(bool unreadable)
{
    if (unreadable) {
        QApplication::beep();
        const auto comeBack = [this] {
            setFocus();
            QToolTip::showText(mapToGlobal(rect().bottomLeft()), "不能识别的日期。" + kWays, this);
        };
        QMetaObject::invokeMethod(this, comeBack, Qt::QueuedConnection); // behind a step that may have led away
    }
    if (unreadable == m_marked)
        return;
    m_marked = unreadable;
    Tint();
}

void DateBox::SetRemark(const QString& remark)
{
    if (remark == m_remark)
        return;
    m_remark = remark;
    setToolTip(remark.isEmpty() ? kWays : remark + "\n" + kWays);
    Tint();
}

void DateBox::Tint()
{
    QPalette colours;
    const QColor base = colours.color(QPalette::Base);
    if (m_marked)
        colours.setColor(QPalette::Base, Mixed(base, kWrong, kWrongShare));
    else if (!m_remark.isEmpty())
        colours.setColor(QPalette::Base, Mixed(base, kUnusual, kUnusualShare));
    setPalette(colours);
}

/// The part of the day at which the cursor stands goes up or down, and the cursor stays there.
void DateBox::Step(int step)
{
    if (isReadOnly() || !Commit())
        return;
    const int cursor = cursorPosition();
    const QDate from = m_day.isValid() ? m_day : m_base;
    const QDate day = StepDay(from, PartAt(cursor), step);
    if (!ReadTypedDay(DayText(day), from))
        return QApplication::beep();
    Take(day);
    setCursorPosition(cursor);
}

void DateBox::OpenCalendar()
{
    if (!isEnabled())
        return;
    setFocus();
    auto* const popup = new QFrame(this, Qt::Popup);
    popup->setAttribute(Qt::WA_DeleteOnClose);
    popup->setFrameShape(QFrame::StyledPanel);
    auto* const calendar = new QCalendarWidget;
    calendar->setObjectName("Calendar");
    calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    calendar->setMinimumDate(kNoDate);
    calendar->setSelectedDate(m_day.isValid() ? m_day : m_base);
    auto* const layout = new QVBoxLayout(popup);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->addWidget(calendar);
    const auto choose = [this, popup](const QDate& day) {
        popup->close();
        Take(day);
        selectAll();
    };
    connect(calendar, &QCalendarWidget::clicked, this, choose);
    connect(calendar, &QCalendarWidget::activated, this, choose);
    popup->move(PlaceOf(*this, popup->sizeHint()));
    popup->show();
    calendar->setFocus();
}

/// Whether a key that could be a command's is kept from being one: the calendar's, and any other while the text cannot
/// be read.
bool DateBox::TakesForItself(QKeyEvent& key)
{
    if (IsCalendarKey(key))
        return true;
    return !IsModifier(key.key()) && key.key() != Qt::Key_Escape && !Commit();
}

bool DateBox::event(QEvent* event)
{
    if (event->type() != QEvent::ShortcutOverride)
        return QLineEdit::event(event);
    event->ignore();
    const bool handled = QLineEdit::event(event); // the keys of any line that is edited
    if (!event->isAccepted() && TakesForItself(*static_cast<QKeyEvent*>(event)))
        event->accept();
    return handled;
}

bool DateBox::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::MouseButtonPress || !watched->isWidgetType())
        return false;
    const auto* const widget = static_cast<QWidget*>(watched);
    const bool isElsewhere = widget->window() == window() && widget != this && !isAncestorOf(widget);
    return isElsewhere && !Commit();
}

void DateBox::keyPressEvent(QKeyEvent* event)
{
    if (IsCalendarKey(*event))
        return OpenCalendar();
    if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down)
        return Step(event->key() == Qt::Key_Up ? 1 : -1);
    if (event->key() == Qt::Key_Escape && text() != DayText(m_day)) {
        ShowDay();
        return selectAll();
    }
    QLineEdit::keyPressEvent(event);
}

void DateBox::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    const bool isAway = event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason;
    if (!isAway)
        Commit();
}
