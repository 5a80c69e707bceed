#include "shell/window/toolbar_icons.h"

#include "shell/window/line_drawing.h"
#include "shell/window/shades.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <array>

namespace {

constexpr QRgb kBlue = 0xff1d62b8;
constexpr QRgb kGreen = 0xff168a4a;
constexpr QRgb kRed = 0xffc6362f;

// Shares of the text's colour in the ground.
constexpr double kInk = 0.88;
constexpr double kDisabledInk = 0.3;

/// Two outlines, the second in its own colour.
struct Drawing
{
    const char16_t* control;
    const char* lines;
    const char* accent;
    QRgb accentColour;
};

constexpr std::array kDrawings{
    Drawing{u"ToolBuild", "M6 3 L14 3 L19 8 L19 21 L6 21 Z M14 3 L14 8 L19 8", "M12.5 11 L12.5 18 M9 14.5 L16 14.5",
            kGreen},
    Drawing{u"ToolSave", "M4 4 L16.5 4 L20 7.5 L20 20 L4 20 Z M8 4 L8 9 L15 9 L15 4", "M7 20 L7 13 L17 13 L17 20",
            kBlue},
    Drawing{u"ToolAuditing", "O12 12 9", "M7.5 12.4 L10.8 15.7 L16.6 8.8", kGreen},
    Drawing{u"ToolUnAuditing", "M4 9 L14.5 9 C18 9 20 11.3 20 14.2 C20 17.2 18 19.5 14.5 19.5 L9 19.5",
            "M8.3 4.7 L4 9 L8.3 13.3", kBlue},
    Drawing{u"ToolDelete", "M7 7.5 L8 20.5 L16 20.5 L17 7.5 M10.4 11 L10.7 17 M13.6 11 L13.3 17",
            "M4.5 7 L19.5 7 M9 7 L9 4 L15 4 L15 7", kRed},
    Drawing{u"ToolInsertRow", "R3 3.5 18 5 1 R3 15.5 18 5 1", "M12 9.6 L12 14.4 M9.6 12 L14.4 12", kGreen},
    Drawing{u"ToolDeleteRow", "R3 3.5 18 5 1 R3 15.5 18 5 1", "M10.2 10.2 L13.8 13.8 M13.8 10.2 L10.2 13.8", kRed},
    Drawing{u"ToolRedWord", "O12 12 9", "M5.7 5.7 L18.3 18.3", kRed},
    Drawing{u"ToolTaoYong", "R8 8 12 12.5 1 M16 8 L16 3.5 L4 3.5 L4 16 L8 16",
            "M14 11 L14 17.5 M11 14.7 L14 17.7 L17 14.7", kGreen},
    Drawing{u"ToolSeeWarrent", "M5 3.5 L19 3.5 L19 20.5 L16.6 19 L14.3 20.5 L12 19 L9.7 20.5 L7.4 19 L5 20.5 Z",
            "M8.5 8 L15.5 8 M8.5 11.5 L15.5 11.5 M8.5 15 L12.5 15", kBlue},
    Drawing{u"ToolOldBill", "M6 3 L14 3 L19 8 L19 21 L6 21 Z M14 3 L14 8 L19 8", "M9 12.5 L16 12.5 M9 16.5 L16 16.5",
            kBlue},
    Drawing{u"ToolFiltre", "M3.5 4.5 L20.5 4.5 L14 12.5 L14 19.5 L10 17 L10 12.5 Z", "M8 8 L16 8", kBlue},
    Drawing{u"ToolOK", "R3.5 3.5 17 17 1.5", "M7.5 12.4 L10.8 15.7 L16.6 8.8", kGreen},
    Drawing{u"ToolPrint", "M7 8.5 L7 3 L17 3 L17 8.5 M6.5 17 L3 17 L3 8.5 L21 8.5 L21 17 L17.5 17", "R7 13.5 10 7 0",
            kBlue},
    Drawing{u"ToolIn", "M4 14 L4 20 L20 20 L20 14", "M12 3 L12 15 M7.5 10.8 L12 15.2 L16.5 10.8", kBlue},
    Drawing{
        u"ToolPos",
        "M3 8 L3 4 L7 4 M17 4 L21 4 L21 8 M21 16 L21 20 L17 20 M7 20 L3 20 L3 16 M8 8 L8 16 M12 8 L12 16 M16 8 L16 16",
        "M2 12 L22 12", kRed},
    Drawing{u"ToolImg", "R3 4 18 16 1.5 O8.5 9.5 1.6", "M3.5 18 L9 12.5 L12.5 16 L16.5 11.5 L20.5 16", kGreen},
    Drawing{u"ToolBefore", "M20 12 L5 12", "M11 5.5 L4.5 12 L11 18.5", kBlue},
    Drawing{u"ToolBack", "M4 12 L19 12", "M13 5.5 L19.5 12 L13 18.5", kBlue},
    Drawing{u"ToolExit", "M11 4 L5 4 L5 20 L11 20", "M9.5 12 L20 12 M15.8 7.8 L20 12 L15.8 16.2", kRed},
    Drawing{u"ImgDate", "R4 5.5 16 14.5 1.5 M8 3.5 L8 7 M16 3.5 L16 7",
            "M4 10 L20 10 M8 13.5 L10 13.5 M14 13.5 L16 13.5 M8 16.8 L10 16.8", kBlue},
    Drawing{u"Img", "O10.5 10.5 6", "M15 15 L20.5 20.5", kBlue},
};

class LineIcon : public QIconEngine
{
public:
    explicit LineIcon(const Drawing& drawing) : m_drawing(drawing) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const bool disabled = mode == QIcon::Disabled;
        const QPalette colours = QGuiApplication::palette();
        const QColor ground = colours.color(QPalette::Window);
        const QColor ink = Mixed(ground, colours.color(QPalette::WindowText), disabled ? kDisabledInk : kInk);
        const QColor accent = disabled ? ink : SeenOn(ground, QColor::fromRgb(m_drawing.accentColour));
        StrokeOutline(*painter, Outline(m_drawing.lines), rect, ink, 1.7);
        StrokeOutline(*painter, Outline(m_drawing.accent), rect, accent, 1.7);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }
    QIconEngine* clone() const override { return new LineIcon(m_drawing); }

private:
    const Drawing& m_drawing;
};

} // namespace

QIcon ToolbarIcon(QStringView control)
{
    for (const Drawing& drawing : kDrawings) {
        if (control == drawing.control)
            return QIcon(new LineIcon(drawing));
    }
    return {};
}
