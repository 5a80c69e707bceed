#include "shell/window/application.h"

#include "handover/undertaking.h"
#include "shell/window/window_place.h"

#include <QAction>
#include <QKeyEvent>
#include <QLibraryInfo>
#include <QLineEdit>
#include <QLocale>
#include <QPixmapCache>
#include <QPointer>
#include <algorithm>

namespace {

/// The style keeps a drawing of each button by the palette of its widget, so every message box leaves some that no
/// other will ever ask for. This much is room for those of the windows themselves.
constexpr int kKeptDrawings = 1024; // KB

/// Whether a key that no widget has taken was meant to do something: it is a text, or the key of a locked command.
bool IsRefused(const QWidget& widget, const QKeyEvent& key)
{
    const bool isCommand = key.modifiers() & (Qt::ControlModifier | Qt::AltModifier);
    if (!isCommand && !key.text().isEmpty() && key.text().front().isPrint())
        return true;
    const QKeySequence keys(key.keyCombination());
    const auto actions = widget.window()->findChildren<QAction*>();
    return std::ranges::any_of(actions, [&keys](const QAction* action) { return action->shortcuts().contains(keys); });
}

bool IsOfUser(const QEvent& event)
{
    switch (event.type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::Close:
        return event.spontaneous();
    case QEvent::Shortcut:
        return true;
    default:
        return false;
    }
}

} // namespace

Application::Application(int& argc, char** argv) : QApplication(argc, argv)
{
    QPixmapCache::setCacheLimit(kKeptDrawings);
    QLocale::setDefault(QLocale(QLocale::Chinese, QLocale::China));
    if (m_texts.load("qtbase_zh_CN", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        installTranslator(&m_texts);
}

bool Application::notify(QObject* receiver, QEvent* event)
{
    const bool isKey = event->type() == QEvent::KeyPress;
    if (event->type() == QEvent::Polish)
        if (const auto* const box = qobject_cast<QLineEdit*>(receiver))
            connect(box, &QLineEdit::inputRejected, this, [] { beep(); });
    const QPointer<QWidget> widget(isKey ? qobject_cast<QWidget*>(receiver) : nullptr); // a key may close its window
    const bool done = Deliver(receiver, event);
    if (event->type() == QEvent::Show && !event->spontaneous() && receiver->isWidgetType())
        FitToScreen(*static_cast<QWidget*>(receiver));
    if (widget && !event->isAccepted() && IsRefused(*widget, *static_cast<QKeyEvent*>(event)))
        beep();
    return done;
}

bool Application::Deliver(QObject* receiver, QEvent* event)
{
    if (!m_program || !IsOfUser(*event))
        return QApplication::notify(receiver, event);
    const UserInput input(*m_program);
    return QApplication::notify(receiver, event);
}
