#include "shell/window/window_place.h"

#include "shell/window_memory.h"

#include <QApplication>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>

void FitToScreen(QWidget& window)
{
    const bool isWhole = window.windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen);
    const bool hasFrame = window.windowType() == Qt::Window || window.windowType() == Qt::Dialog;
    if (!window.isWindow() || isWhole || !hasFrame)
        return;
    // Before it is shown the frame is not known: at least a title and a rim.
    const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
    const int rim = window.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, &window);
    const QRect room = window.screen()->availableGeometry().adjusted(rim, title, -rim, -rim);
    const QRect place(window.pos() + QPoint(0, title), window.size());
    const QRect fitted = FittedPlace(place, room);
    if (fitted.size() != place.size())
        window.resize(fitted.size());
    if (fitted.topLeft() != place.topLeft() && window.testAttribute(Qt::WA_Moved))
        window.move(fitted.topLeft() - QPoint(0, title));
}

void KeepFocusInSight(QScrollArea& area)
{
    QObject::connect(qApp, &QApplication::focusChanged, &area, [&area](QWidget*, QWidget* now) {
        if (now && area.widget() && area.widget()->isAncestorOf(now))
            area.ensureWidgetVisible(now, 0, 8);
    });
}
