#include "frame/window/frmMain_banner.h"

#include "shell/window/line_drawing.h"

#include <QPainter>
#include <array>

namespace {

const Brand kFirstBrand{QColor(0x0e, 0x35, 0x6b), QColor(0x1d, 0x62, 0xb8), QColor(0xf2, 0xa5, 0x2b)};
const Brand kSecondBrand{QColor(0x0a, 0x47, 0x45), QColor(0x12, 0x7d, 0x74), QColor(0xe8, 0x6f, 0x3a)};
constexpr int kEntranceMs = 700;
constexpr const char* kMark = "M3 20.5 L3 9 L12 4 L21 9 L21 20.5 M7 20.5 L7 12.5 L17 12.5 L17 20.5 M7 16.5 L17 16.5";

QColor Faded(QColor colour, double opacity)
{
    colour.setAlphaF(static_cast<float>(opacity));
    return colour;
}

} // namespace

const Brand& BrandOf(const QString& softType)
{
    return softType.trimmed() == "Z3" ? kSecondBrand : kFirstBrand;
}

Banner::Banner(Part part, const Brand& brand, QWidget* parent) : QWidget(parent), m_part(part), m_brand(brand)
{
    setSizePolicy(part == Part::Top2 ? QSizePolicy::Preferred : QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_entrance.setDuration(kEntranceMs);
    m_entrance.setStartValue(0.0);
    m_entrance.setEndValue(1.0);
    m_entrance.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_entrance, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
        m_progress = value.toDouble();
        update();
    });
}

void Banner::SetTitle(const QString& title, const QString& subtitle)
{
    m_title = title;
    m_subtitle = subtitle;
    update();
}

void Banner::Play()
{
    m_entrance.start();
}

QSize Banner::sizeHint() const
{
    const int em = fontMetrics().height();
    if (m_part == Part::Bottom)
        return {em, 5};
    return {em * 26, em * 4 + 8};
}

void Banner::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    // Top and Top2 stand side by side and share one sweep of colour over the whole window.
    QLinearGradient sweep(-x(), 0, window()->width() - x(), 0);
    sweep.setColorAt(0, m_brand.deep);
    sweep.setColorAt(1, m_brand.main);
    painter.fillRect(rect(), sweep);
    if (m_part == Part::Top)
        PaintTitle(painter);
    if (m_part == Part::Top2) {
        const bool first = &m_brand == &kFirstBrand;
        first ? PaintShelves(painter) : PaintRoutes(painter);
    }
    if (m_part == Part::Bottom)
        painter.fillRect(QRectF(0, 0, width() * 0.18, height()), m_brand.accent);
}

void Banner::PaintTitle(QPainter& painter) const
{
    const double em = fontMetrics().height();
    const double side = em * 2.6;
    const QRectF mark(em, (height() - side) / 2, side, side);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Faded(Qt::white, 0.14));
    painter.drawRoundedRect(mark, side * 0.2, side * 0.2);
    StrokeOutline(painter, Outline(kMark), mark.adjusted(side * 0.18, side * 0.18, -side * 0.18, -side * 0.18),
                  Qt::white, 1.7);

    const double left = mark.right() + em * 0.9 - (1 - m_progress) * em * 3;
    QFont large = font();
    large.setPointSizeF(font().pointSizeF() * 1.9);
    large.setBold(true);
    painter.setFont(large);
    painter.setPen(Faded(Qt::white, m_progress));
    painter.drawText(QRectF(left, height() * 0.10, width() - left, height() * 0.52), Qt::AlignLeft | Qt::AlignVCenter,
                     m_title);
    painter.setFont(font());
    painter.setPen(Faded(Qt::white, m_progress * 0.78));
    painter.drawText(QRectF(left, height() * 0.58, width() - left, height() * 0.32), Qt::AlignLeft | Qt::AlignVCenter,
                     m_subtitle);
}

/// Racks with boxes on three boards.
void Banner::PaintShelves(QPainter& painter) const
{
    constexpr std::array kFill{0b1101101, 0b0111011, 0b1110110}; // which places hold a box
    const double cell = height() / 3.4;
    const int columns = static_cast<int>(width() / cell);
    for (int board = 0; board < 3; ++board) {
        const double floorY = height() * 0.08 + (board + 1) * cell;
        painter.setPen(QPen(Faded(Qt::white, 0.22), 1.4));
        painter.drawLine(QPointF(width() * (1 - m_progress), floorY), QPointF(width(), floorY));
        for (int column = 0; column < columns; ++column) {
            if (!(kFill.at(static_cast<size_t>(board)) >> (column % 7) & 1))
                continue;
            const double size = cell * (0.55 + 0.1 * ((column * 5 + board * 3) % 4));
            const bool marked = (column + board * 2) % 6 == 4;
            painter.setPen(Qt::NoPen);
            painter.setBrush(Faded(marked ? m_brand.accent : QColor(Qt::white), (marked ? 0.75 : 0.16) * m_progress));
            painter.drawRoundedRect(QRectF(column * cell + cell * 0.1, floorY - size - 1, size, size), 2, 2);
        }
    }
}

/// Ways that goods take between places.
void Banner::PaintRoutes(QPainter& painter) const
{
    painter.setBrush(Qt::NoBrush);
    for (int way = 0; way < 4; ++way) {
        const double startY = height() * (0.15 + 0.24 * way);
        const double endY = height() * (0.15 + 0.24 * ((way + 2) % 4));
        QPainterPath path(QPointF(width() * (0.04 * way), startY));
        path.cubicTo(width() * 0.4, startY, width() * 0.55, endY, width() * m_progress, endY);
        painter.setPen(QPen(Faded(Qt::white, 0.18 + 0.05 * way), 1.6));
        painter.drawPath(path);
        for (const double place : {0.08, 0.45, 0.86}) {
            const bool marked = (way + static_cast<int>(place * 10)) % 4 == 0;
            painter.save();
            painter.setPen(Qt::NoPen);
            painter.setBrush(Faded(marked ? m_brand.accent : QColor(Qt::white), (marked ? 0.9 : 0.45) * m_progress));
            const double radius = marked ? 5.5 : 3.2;
            painter.drawEllipse(path.pointAtPercent(place), radius, radius);
            painter.restore();
        }
    }
}
