#include "assembly/window/frmGroupPiece.h"
#include "bills/ware_window.h"
#include "dialogs/window/frmCode.h"
#include "frame/window/frmMain.h"
#include "shell/window/appearance.h"
#include "shell/window/shades.h"

#include <gtest/gtest.h>

namespace {

constexpr int kLetter = 60; // wider than any
constexpr int kLine = 4;    // thicker than any

/// Yellow on black, as the desktop gives it.
QPalette DarkDesktop()
{
    QPalette palette(QColor(0x10, 0x10, 0x10), QColor(0, 0, 0));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, QColor(0xff, 0xff, 0));
    palette.setColor(QPalette::Base, Qt::black);
    palette.setColor(QPalette::AlternateBase, QColor(0x18, 0x18, 0x18));
    palette.setColor(QPalette::Highlight, QColor(0x90, 0x50, 0xc0));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

/// The widest of the light areas, which is a letter's stroke or else a ground that the palette has not given.
int WidestLightArea(QWidget& window)
{
    QApplication::processEvents();
    const QImage image = window.grab().toImage();
    const auto isLight = [&image](int x, int y) { return Contrast(image.pixelColor(x, y), Qt::black) > 12; };
    int widest = 0;
    for (int y = 0; y + kLine < image.height(); y += kLine) {
        int run = 0;
        for (int x = 0; x < image.width(); ++x) {
            run = isLight(x, y) && isLight(x, y + kLine) ? run + 1 : 0;
            widest = std::max(widest, run);
        }
    }
    return widest;
}

class OnDarkDesktop : public WareManageTest
{
protected:
    OnDarkDesktop()
    {
        QApplication::setPalette(DarkDesktop());
        SetAppearance();
    }
    ~OnDarkDesktop() override { QApplication::setPalette(m_own); }

private:
    QPalette m_own = QApplication::palette();
};

} // namespace

TEST_F(OnDarkDesktop, NoWindowHasAPaleGround)
{
    OpenTransfer();
    Press({Qt::Key_Down});
    TypeText("A");
    ASSERT_TRUE(Shown("PicSelect"));
    EXPECT_LT(WidestLightArea(*window), kLetter);

    test.program.parameters.OperateType = "商品组装";
    frmGroupPiece assembly(test.program);
    assembly.setAttribute(Qt::WA_DeleteOnClose, false);
    assembly.show();
    assembly.frm_Initialize(false, true);
    EXPECT_LT(WidestLightArea(assembly), kLetter);

    frmMain main(test.program);
    main.resize(1200, 690);
    main.show();
    EXPECT_LT(WidestLightArea(main), kLetter);

    frmCode picker(test.program, *FindPickerList("TabWare"), {}, {}, nullptr);
    picker.show();
    EXPECT_LT(WidestLightArea(picker), kLetter);
}

TEST_F(OnDarkDesktop, WhatIsLockedIsReadable)
{
    const QPalette colours = QApplication::palette();
    const auto contrast = [&colours](QPalette::ColorRole text, QPalette::ColorRole ground) {
        return Contrast(colours.color(QPalette::Disabled, text), colours.color(QPalette::Disabled, ground));
    };
    EXPECT_GT(contrast(QPalette::Text, QPalette::Base), 7);
    EXPECT_GT(contrast(QPalette::WindowText, QPalette::Window), 7);
    EXPECT_GT(contrast(QPalette::ButtonText, QPalette::Button), 3);
}
