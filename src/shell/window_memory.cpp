#include "shell/window_memory.h"

#include <QSettings>
#include <algorithm>

namespace {

constexpr int kWidest = 60000; // twips; wider than any screen

/// The user's own settings of one brand of the suite.
QSettings Memory(const RunParameters& parameters)
{
    return {QSettings::UserScope, parameters.SoftType.trimmed() + "Warehouse", "Windows"};
}

QString PlaceKey(const QString& window)
{
    return "place/" + window;
}

QString WidthsKey(const QString& layoutKey)
{
    return "widths/" + layoutKey;
}

} // namespace

QRect FittedPlace(const QRect& place, const QRect& room)
{
    const QSize size = place.size().boundedTo(room.size());
    const int x = std::clamp(place.x(), room.x(), room.x() + room.width() - size.width());
    const int y = std::clamp(place.y(), room.y(), room.y() + room.height() - size.height());
    return {QPoint(x, y), size};
}

QByteArray RememberedPlace(const RunParameters& parameters, const QString& window)
{
    return Memory(parameters).value(PlaceKey(window)).toByteArray();
}

void RememberPlace(const RunParameters& parameters, const QString& window, const QByteArray& place)
{
    Memory(parameters).setValue(PlaceKey(window), place);
}

ColumnWidths RememberedWidths(const RunParameters& parameters, const QString& layoutKey)
{
    const QVariantMap stored = Memory(parameters).value(WidthsKey(layoutKey)).toMap();
    ColumnWidths widths;
    for (auto column = stored.begin(); column != stored.end(); ++column) {
        const int width = column.value().toInt();
        if (width > 0 && width <= kWidest)
            widths[column.key().toInt()] = width;
    }
    return widths;
}

void RememberWidths(const RunParameters& parameters, const QString& layoutKey, const ColumnWidths& widths)
{
    QVariantMap stored;
    for (const auto& [column, width] : widths)
        stored[QString::number(column)] = width;
    Memory(parameters).setValue(WidthsKey(layoutKey), stored);
}
