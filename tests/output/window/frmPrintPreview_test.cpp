#include "output/window/frmPrintPreview.h"

#include "output/fake_lp.h"
#include "support/window.h"

#include <QPainter>
#include <QPdfWriter>

namespace {

/// A paper of three pages, each blank but for a bar in the colour of its number.
class PrintPreviewTest : public WindowOf<frmPrintPreview>
{
protected:
    PrintPreviewTest()
    {
        QPdfWriter paper(pdf);
        QPainter painter(&paper);
        for (const QColor& colour : kColours) {
            if (colour != kColours[0])
                paper.newPage();
            painter.fillRect(0, 0, paper.width(), paper.height() / 4, colour);
        }
    }

    void Open()
    {
        ShowNew(pdf, "TDD1", *PageSizes(pdf), nullptr);
        window->resize(600, 500);
    }
    QPixmap Page() { return Find<QLabel>("PicPage")->pixmap(); }
    int Height() { return Page().height(); }
    /// Waits until the bar of a page is on the screen.
    bool Shows(int page)
    {
        return QTest::qWaitFor(
            [&] {
                const QImage picture = Page().toImage();
                return picture.pixelColor(picture.width() / 2, picture.height() / 5) == kColours[page - 1];
            },
            kPatience);
    }

    const QColor kColours[3] = {Qt::red, Qt::green, Qt::blue};
    const QString pdf = test.folder.filePath("paper.pdf");
};

TEST_F(PrintPreviewTest, PagesAreTurnedByKeys)
{
    Open();
    EXPECT_EQ(window->windowTitle(), "打印");
    EXPECT_EQ(Text("LabPage"), "第 1 页 / 共 3 页");
    EXPECT_TRUE(Shows(1));
    Press({Qt::Key_PageUp, Qt::Key_PageDown});
    EXPECT_EQ(Text("LabPage"), "第 2 页 / 共 3 页");
    EXPECT_TRUE(Shows(2));
    Press({Qt::Key_End});
    EXPECT_TRUE(Shows(3));
    EXPECT_FALSE(Find<QAction>("ToolBack")->isEnabled());
    Press({Qt::Key_Home});
    EXPECT_EQ(Text("LabPage"), "第 1 页 / 共 3 页");
    EXPECT_TRUE(Shows(1));
    Press({Qt::Key_Escape});
    EXPECT_FALSE(window->isVisible());
}

TEST_F(PrintPreviewTest, ThePageIsShownWholeOrAsLargeAsWanted)
{
    Open();
    const QSize whole = Page().size();
    EXPECT_LT(whole.height(), 500);
    EXPECT_GT(whole.height(), 350);
    Press({Qt::Key_Plus, Qt::Key_Plus});
    EXPECT_NEAR(Height(), whole.height() * 1.5625, 20);
    Press({Qt::Key_Minus});
    EXPECT_NEAR(Height(), whole.height() * 1.25, 20);
    EXPECT_TRUE(Shows(1));
    Press({Qt::Key_Asterisk});
    EXPECT_EQ(Page().size(), whole);
    window->resize(1000, 900);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Height() > 700; }, kPatience));
    EXPECT_TRUE(Shows(1));
}

TEST_F(PrintPreviewTest, PrintsAndCloses)
{
    Open();
    {
        const FakeLp refuses(FakeLp::Saying("lp: fire"));
        Press({Qt::Key_P}, Qt::ControlModifier);
        ASSERT_TRUE(QTest::qWaitFor(FakeLp::IsDone, kPatience));
        EXPECT_EQ(test.Boxes(), "打印机没有接收打印任务：lp: fire");
        EXPECT_TRUE(window->isVisible());
    }
    const FakeLp lp;
    Press({Qt::Key_P, Qt::Key_P}, Qt::ControlModifier); // one print, however often the key is pressed
    ASSERT_TRUE(QTest::qWaitFor(FakeLp::IsDone, kPatience));
    EXPECT_EQ(lp.titles(), "TDD1\n");
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(test.prompt.boxes.empty());
}

TEST_F(PrintPreviewTest, WhatCannotBeShownIsSaid)
{
    QFile broken(pdf);
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("no paper");
    broken.close();
    frmPrintPreview::Show(test.program, pdf, "TDD1", nullptr);
    const NoPrograms none;
    frmPrintPreview::Show(test.program, pdf, "TDD1", nullptr);
    EXPECT_EQ(
        test.Boxes(),
        "读取预览文件失败，请重新操作！|没有安装poppler-utils，不能打印预览！请安装软件包 poppler-utils 后重新操作。");
    EXPECT_FALSE(QApplication::overrideCursor());
}

} // namespace
