#include "shell/window/appearance.h"

#include "shell/window/shades.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPalette>
#include <QRawFont>
#include <QStyleFactory>
#include <tuple>

namespace {

constexpr int kDarkest = 32;     // of a window, out of 255, with edges that are seen
constexpr double kLifted = 0.18; // of the text's colour in the ground instead

/// Whether a font brings Chinese glyphs itself, so that texts are not pieced together from two fonts.
bool HasChinese(const QFont& font)
{
    const QRawFont raw = QRawFont::fromFont(font);
    return raw.supportsCharacter(QChar(u'仓')) && raw.supportsCharacter(QChar(u'审'));
}

QFont ChineseFont(QFont font)
{
    if (HasChinese(font))
        return font;
    for (const char* family : {"Noto Sans CJK SC", "WenQuanYi Micro Hei", "Microsoft YaHei UI"}) {
        if (!QFontDatabase::hasFamily(family))
            continue;
        font.setFamilies({family});
        break;
    }
    return font;
}

/// Who has a desktop in light on dark, or in plain black on plain white, needs it.
bool IsNeeded(const QPalette& desktop)
{
    const QColor window = desktop.color(QPalette::Window);
    const QColor text = desktop.color(QPalette::WindowText);
    return window.lightness() < text.lightness() || (window == Qt::white && text == Qt::black);
}

/// The desktop's colours; what is locked reads as well as with our own.
QPalette Readable(QPalette desktop)
{
    // The style draws its edges darker than the window: on a black one no box would have any.
    const QColor base = desktop.color(QPalette::Base);
    if (desktop.color(QPalette::Window).lightness() < kDarkest)
        for (const auto role : {QPalette::Window, QPalette::Button})
            desktop.setColor(role, Mixed(base, desktop.color(QPalette::Text), kLifted));
    constexpr std::tuple<QPalette::ColorRole, QPalette::ColorRole, double> kLocked[] = {
        {QPalette::Text, QPalette::Base, 0.8},
        {QPalette::WindowText, QPalette::Window, 0.8},
        {QPalette::ButtonText, QPalette::Button, 0.5},
    };
    for (const auto& [text, ground, share] : kLocked) {
        const QColor under = desktop.color(QPalette::Active, ground);
        desktop.setColor(QPalette::Disabled, ground, under);
        desktop.setColor(QPalette::Disabled, text, Mixed(under, desktop.color(QPalette::Active, text), share));
    }
    return desktop;
}

QPalette Colours()
{
    QPalette palette;
    const QColor text(0x1f, 0x29, 0x37);
    palette.setColor(QPalette::Window, QColor(0xf1, 0xf3, 0xf6));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, QColor(0xf7, 0xf9, 0xfb));
    palette.setColor(QPalette::Button, QColor(0xf1, 0xf3, 0xf6));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, text);
    palette.setColor(QPalette::Highlight, QColor(0x1d, 0x62, 0xb8));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::ToolTipBase, QColor(0xff, 0xfd, 0xee));
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, QColor(0x94, 0x9d, 0xa9));
    // What is locked is dimmed, yet reads as well as the rest: a recalled bill is mostly locked.
    palette.setColor(QPalette::Disabled, QPalette::Base, QColor(0xee, 0xf0, 0xf3));
    palette.setColor(QPalette::Disabled, QPalette::Text, QColor(0x3c, 0x46, 0x54));
    palette.setColor(QPalette::Disabled, QPalette::WindowText, QColor(0x4b, 0x55, 0x63));
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(0xa3, 0xab, 0xb6));
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0xc9, 0xd3, 0xde));
    return palette;
}

} // namespace

void SetAppearance()
{
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    const QPalette desktop = QApplication::palette();
    QApplication::setPalette(IsNeeded(desktop) ? Readable(desktop) : Colours());
    QApplication::setFont(ChineseFont(QApplication::font()));
}
