#include "shell/window/line_drawing.h"

#include <QPainter>
#include <sstream>

namespace {

QPointF NextPoint(std::istream& steps)
{
    double x = 0;
    double y = 0;
    steps >> x >> y;
    return {x, y};
}

void AddStep(QPainterPath& path, char step, std::istream& steps)
{
    const QPointF point = NextPoint(steps);
    double radius = 0;
    switch (step) {
    case 'M':
        return path.moveTo(point);
    case 'L':
        return path.lineTo(point);
    case 'C': {
        const QPointF second = NextPoint(steps);
        return path.cubicTo(point, second, NextPoint(steps));
    }
    case 'R': {
        const QPointF size = NextPoint(steps);
        steps >> radius;
        return path.addRoundedRect(QRectF(point, QSizeF(size.x(), size.y())), radius, radius);
    }
    case 'O':
        steps >> radius;
        return path.addEllipse(point, radius, radius);
    case 'E': {
        const QPointF radii = NextPoint(steps);
        return path.addEllipse(point, radii.x(), radii.y());
    }
    default:
        Q_ASSERT_X(false, "Outline", "unknown step");
    }
}

} // namespace

QPainterPath Outline(const char* steps)
{
    QPainterPath path;
    std::istringstream stream(steps);
    stream.imbue(std::locale::classic());
    for (char step = 0; stream >> step;) {
        if (step == 'Z')
            path.closeSubpath();
        else
            AddStep(path, step, stream);
    }
    return path;
}

void StrokeOutline(QPainter& painter, const QPainterPath& outline, const QRectF& rect, const QColor& colour,
                   double penWidth)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(rect.topLeft());
    painter.scale(rect.width() / 24.0, rect.height() / 24.0);
    painter.strokePath(outline, QPen(colour, penWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.restore();
}
